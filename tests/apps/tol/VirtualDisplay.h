// SPDX-License-Identifier: MIT
#pragma once

#include "support/Program.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tol::test {

/// Waits until something is so, 20 seconds at most; whether it came to be.
bool waitFor(const std::function<bool()>& isSo);

/// A display of the test's own with a window manager, and the hands and eyes of a person before it. Both
/// programs are started with the object and ended with it. `folder` is the current folder of all programs.
class VirtualDisplay {
  public:
    explicit VirtualDisplay(std::filesystem::path folder);
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;
    ~VirtualDisplay();

    /// Starts a program on the display.
    [[nodiscard]] std::unique_ptr<Program> start(const std::filesystem::path& program,
                                                 std::vector<std::string> arguments = {}) const;

    /// Whether a visible window has exactly this title.
    [[nodiscard]] bool hasWindow(const std::string& title) const;
    /// Waits for the window and for the keyboard to be its own.
    [[nodiscard]] bool waitForWindow(const std::string& title) const;
    /// Presses keys one after the other, such as "alt+f" and "Return".
    void press(const std::vector<std::string>& keys) const;
    /// Types a text into whatever has the keyboard.
    void type(const std::string& text) const;
    /// Takes a picture of the whole display.
    void takePicture(const std::filesystem::path& file) const;

  private:
    /// Runs a command on the display and returns what it printed.
    [[nodiscard]] std::string told(const std::string& command) const;

    std::filesystem::path m_folder;
    std::string m_name;
    std::unique_ptr<Program> m_server;
    std::unique_ptr<Program> m_windowManager;
};

} // namespace tol::test
