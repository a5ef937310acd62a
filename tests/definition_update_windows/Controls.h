// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

#include <stdexcept>
#include <string>

namespace tol::test {

/// A control of a window by its name.
template <typename Control>
Control& control(const QWidget& window, const QString& name) {
    auto* found = window.findChild<Control*>(name);
    if (found == nullptr)
        throw std::logic_error("no control " + name.toStdString());
    return *found;
}

/// Text of a label or button.
std::string textOf(const QWidget& window, const QString& name);
bool isEnabled(const QWidget& window, const QString& name);
bool isVisible(const QWidget& window, const QString& name);
/// Presses and releases the left button in the middle of the control.
void click(const QWidget& window, const QString& name);
/// Presses a key as a person does: whichever control has the focus gets it.
void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
/// Object name of the control that has the focus, "" for none.
std::string focused(const QWidget& window);
/// Writes a picture of the window to the folder that TOL_SCREENSHOTS names, if any.
void keepPicture(QWidget& window, const QString& name);

} // namespace tol::test
