// SPDX-License-Identifier: MIT
#include "tolctl/ProgressLine.h"

#include "runtime/Text.h"

#include <iostream>

#include <sys/ioctl.h>
#include <unistd.h>

namespace tol::ctl {
namespace {

constexpr std::chrono::milliseconds interval{100};
constexpr long usualWidth = 80;
constexpr const char* eraseLine = "\r\033[K";

// Asked for at each drawing, since windows get resized.
long terminalWidth() {
    winsize size = {};
    const bool known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1;
    return known ? size.ws_col : usualWidth;
}

} // namespace

ProgressLine::ProgressLine(bool wanted) : m_terminal(wanted && isatty(STDERR_FILENO) != 0) {}

bool ProgressLine::due() {
    const Clock::time_point now = Clock::now();
    if (now < m_next)
        return false;
    m_next = now + interval;
    return true;
}

void ProgressLine::draw(const std::string& text) {
    std::cerr << eraseLine << runtime::left(text, terminalWidth() - 1) << std::flush;
    m_drawn = true;
}

void ProgressLine::clear() {
    if (m_drawn)
        std::cerr << eraseLine << std::flush;
    m_drawn = false;
}

} // namespace tol::ctl
