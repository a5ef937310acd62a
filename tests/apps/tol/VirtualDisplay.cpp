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

VirtualDisplay::VirtualDisplay(const std::filesystem::path& folder) {
    // The server itself picks a number that is free, and writes it where it writes all else.
    const auto numberFile = folder / "display.txt";
    m_server = std::make_unique<Process>(std::vector<std::string>{"Xvfb", "-displayfd", "1", "-screen", "0",
                                                                  "1280x1024x24", "-nolisten", "tcp"},
                                         Process::Environment{}, numberFile);
    const auto readNumber = [&] {
        int number = -1;
        std::ifstream(numberFile) >> number;
        m_name = ":" + std::to_string(number);
        return number >= 0;
    };
    if (!waitFor(readNumber))
        throw std::runtime_error("no virtual display");
    m_windowManager =
        std::make_unique<Process>(std::vector<std::string>{"openbox"}, environment(), folder / "openbox.txt");
    const auto isManaged = [this] {
        return told("xprop -root _NET_SUPPORTING_WM_CHECK").find("window id") != std::string::npos;
    };
    if (!waitFor(isManaged))
        throw std::runtime_error("no window manager");
}

Process::Environment VirtualDisplay::environment() const {
    return {{"DISPLAY", m_name}, {"QT_QPA_PLATFORM", "xcb"}};
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
