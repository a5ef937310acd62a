// SPDX-License-Identifier: MIT
#include "VirtualDisplay.h"

#include <array>
#include <cstdio>
#include <fmt/format.h>
#include <fstream>
#include <stdexcept>
#include <thread>

namespace tol::test {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

bool waitFor(const std::function<bool()>& isSo) {
    const auto until = steady_clock::now() + 20s;
    while (!isSo()) {
        if (steady_clock::now() > until)
            return false;
        std::this_thread::sleep_for(20ms);
    }
    return true;
}

VirtualDisplay::VirtualDisplay(std::filesystem::path folder) : m_folder(std::move(folder)) {
    // The server itself picks a number that is free, and prints it when it is ready.
    m_server = start("Xvfb", {"-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"});
    if (!waitFor([this] { return m_server->out().ends_with('\n'); }))
        throw std::runtime_error("no virtual display");
    const std::string number = m_server->out();
    m_name = ":" + number.substr(0, number.size() - 1);
    m_windowManager = start("openbox", {"--startup", "echo ready"});
    if (!waitFor([this] { return m_windowManager->out().find("ready") != std::string::npos; }))
        throw std::runtime_error("no window manager");
    // The first key that does not come from a real keyboard has the window manager set up its keys again.
    press({"Shift_L"});
}

VirtualDisplay::~VirtualDisplay() {
    if (m_windowManager != nullptr)
        m_windowManager->end();
    m_server->end(); // asked, it takes its traces in the file system with it
}

std::unique_ptr<Program> VirtualDisplay::start(const std::filesystem::path& program,
                                               std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"DISPLAY=" + m_name, "QT_QPA_PLATFORM=xcb", program.string()});
    return std::make_unique<Program>("/usr/bin/env", arguments, m_folder);
}

bool VirtualDisplay::hasWindow(const std::string& title) const {
    return !told(fmt::format("xdotool search --onlyvisible --name '^{}$'", title)).empty();
}

bool VirtualDisplay::waitForWindow(const std::string& title) const {
    return waitFor([&] { return told("xdotool getactivewindow getwindowname") == title + '\n'; });
}

void VirtualDisplay::press(const std::vector<std::string>& keys) const {
    for (const std::string& key : keys)
        static_cast<void>(told(fmt::format("xdotool key --clearmodifiers {}", key)));
}

void VirtualDisplay::type(const std::string& text) const {
    static_cast<void>(told(fmt::format("xdotool type --clearmodifiers '{}'", text)));
}

void VirtualDisplay::takePicture(const std::filesystem::path& file) const {
    static_cast<void>(told(fmt::format("import -window root '{}'", file.string())));
}

std::string VirtualDisplay::told(const std::string& command) const {
    FILE* pipe = popen(fmt::format("DISPLAY={} {} 2>/dev/null", m_name, command).c_str(), "r");
    if (pipe == nullptr)
        throw std::runtime_error("can't run " + command);
    std::string text;
    std::array<char, 256> part{};
    while (fgets(part.data(), static_cast<int>(part.size()), pipe) != nullptr)
        text += part.data();
    pclose(pipe);
    return text;
}

} // namespace tol::test
