// SPDX-License-Identifier: MIT
#pragma once

#include <sys/resource.h>

#include <csignal>
#include <cstdint>

namespace tol::test {

/// A full disk, as far as this process goes: while it lives, no file becomes longer than that.
class FullDisk {
  public:
    explicit FullDisk(std::uintmax_t bytes) : m_signal(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{static_cast<rlim_t>(bytes), m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        static_cast<void>(std::signal(SIGXFSZ, m_signal));
    }

  private:
    void (*m_signal)(int);
    rlimit m_before{};
};

} // namespace tol::test
