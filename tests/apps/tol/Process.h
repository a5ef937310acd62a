// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace tol::test {

/// A program that the test started, in the current folder. It is ended with the object at the latest.
class Process {
  public:
    using Environment = std::map<std::string, std::string>;

    /// What it writes goes to the file `output`.
    Process(std::vector<std::string> command, const Environment& environment,
            const std::filesystem::path& output);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    [[nodiscard]] bool isRunning();
    /// The exit status; nothing when it runs on or was ended by a signal.
    std::optional<int> wait(std::chrono::seconds atMost);
    void end();

  private:
    bool collect();

    pid_t m_process = -1;
    bool m_over = false;
    int m_status = 0;
};

} // namespace tol::test
