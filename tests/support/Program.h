// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tol::test {

/// A program that a test has started, with what it writes. Killed at the latest when the object goes.
class Program {
  public:
    /// `folder` becomes its current folder. `prepare` runs in the new process before the program does,
    /// for limits and rights; it may only make system calls.
    Program(const std::filesystem::path& program, const std::vector<std::string>& arguments,
            const std::filesystem::path& folder, const std::function<void()>& prepare = {});
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    /// Waits for the end. The exit status, or minus the number of the signal that ended it.
    int wait();
    /// Waits for the end, but no longer than that; whether it came.
    bool waitFor(std::chrono::milliseconds atMost);
    /// Asks it to end, and makes it end when it does not.
    void end();
    /// Ends it as a power cut would: nothing that it has open is closed by itself. Waits for the end.
    int kill();
    /// Sends it a signal: SIGINT as Ctrl+C does.
    void signal(int number) const;

    [[nodiscard]] std::string out() const;
    [[nodiscard]] std::string err() const;

  private:
    void keep(int status);

    int m_process = -1;
    int m_out = -1;
    int m_err = -1;
    int m_status = 0;
};

} // namespace tol::test
