// SPDX-License-Identifier: MIT
#pragma once

#include <QMessageBox>
#include <QTimer>

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace tol::test {

/// What a person saw of a message box.
struct SeenBox {
    std::string title, text;
    QMessageBox::Icon icon;
    std::vector<std::string> buttons; ///< object names, from left to right
    std::string defaultButton;
};

/// The person at the desk before real message boxes: while it lives, each box that comes up is noted and
/// a button of it clicked: the next of `answers`, else the default one.
class BoxAnswerer {
  public:
    BoxAnswerer();
    BoxAnswerer(const BoxAnswerer&) = delete;
    BoxAnswerer& operator=(const BoxAnswerer&) = delete;

    std::deque<std::string> answers; ///< object names of buttons
    std::vector<SeenBox> boxes;
    /// Replaces the click.
    std::function<void(QMessageBox&)> onBox;

  private:
    void look();

    QTimer m_timer;
};

} // namespace tol::test
