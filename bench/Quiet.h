// SPDX-License-Identifier: MIT
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdio>

namespace tol::bench {

/// What this process writes goes nowhere while it lives.
class Quiet {
  public:
    Quiet() {
        std::fflush(nullptr);
        const int nowhere = open("/dev/null", O_WRONLY);
        for (std::size_t stream = 0; stream < m_kept.size(); ++stream) {
            m_kept.at(stream) = dup(static_cast<int>(stream) + 1);
            dup2(nowhere, static_cast<int>(stream) + 1);
        }
        close(nowhere);
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;
    ~Quiet() {
        std::fflush(nullptr);
        for (std::size_t stream = 0; stream < m_kept.size(); ++stream) {
            dup2(m_kept.at(stream), static_cast<int>(stream) + 1);
            close(m_kept.at(stream));
        }
    }

  private:
    std::array<int, 2> m_kept{};
};

} // namespace tol::bench
