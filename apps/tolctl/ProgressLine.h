// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace tol::ctl {

/// One line at the foot of the terminal that tells how far the work has come. It is drawn at most ten
/// times a second, and only where standard error is a terminal; asking it to draw more often costs a
/// look at the clock.
class ProgressLine {
  public:
    /// `wanted` is false where the terminal shows something better.
    explicit ProgressLine(bool wanted = true);

    /// Draws the text that the function makes, if it is time to draw.
    template <typename MakeText>
    void show(MakeText&& makeText) {
        if (m_terminal && due())
            draw(makeText());
    }
    /// Takes the line away, for other output or for good.
    void clear();

  private:
    using Clock = std::chrono::steady_clock;

    bool due();
    void draw(const std::string& text);

    bool m_terminal;
    bool m_drawn = false;
    Clock::time_point m_next = Clock::time_point::min();
};

} // namespace tol::ctl
