// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tol::test {

/// A program that runs on a terminal of its own, with a person who reads and types.
class Pty {
  public:
    static constexpr unsigned short width = 60;

    Pty(const std::filesystem::path& program, const std::vector<std::string>& arguments);
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;
    ~Pty();

    /// Reads until the text has come that often, or the program has ended; tells whether it came.
    bool readUntil(const std::string& text, int times = 1);
    void type(const std::string& text) const;
    /// Reads to the end. The exit status.
    int wait();
    /// Everything that the terminal has shown.
    [[nodiscard]] const std::string& shown() const { return m_shown; }

  private:
    bool readSome();

    int m_process = -1;
    int m_terminal = -1;
    std::string m_shown;
};

} // namespace tol::test
