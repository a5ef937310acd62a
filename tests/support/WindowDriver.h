// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

#include <string>
#include <vector>

namespace tol::test {

/// A person before one window of the program: presses keys, clicks, and reads what is to be seen. Controls
/// are found by their names; a missing one, or a click that can't be made, ends the test at once.
class WindowDriver {
  public:
    explicit WindowDriver(QWidget& window) : m_window(window) {}

    template <typename Control = QWidget>
    Control& control(const QString& name) const {
        auto* found = m_window.findChild<Control*>(name);
        if (found == nullptr)
            throwMissing(name);
        return *found;
    }

    /// A key, or a text, for the control that has the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers held = {}) const;
    void type(const QString& text) const;
    /// A click into the middle of a control; it has to be in sight and in use.
    void click(const QString& name) const;
    void doubleClick(const QString& name) const;

    /// Name of the control that has the focus, "" for none.
    [[nodiscard]] std::string focus() const;
    [[nodiscard]] bool isShown(const QString& name) const { return control(name).isVisible(); }
    /// Text of a label, box or button.
    [[nodiscard]] std::string text(const QString& name) const;
    /// The rows of a list, the captions of the label arrays joined by bars: "A|Name".
    [[nodiscard]] std::vector<std::string> rows(const std::vector<QString>& labels) const;
    /// The rows whose labels of that array are yellow.
    [[nodiscard]] std::vector<int> highlighted(const QString& label) const;
    /// See KeepPicture.h.
    void keepPicture(const QString& name) const;

  private:
    /// What the window manager does once a box above the window is gone.
    void comeToFront() const;
    [[noreturn]] void throwMissing(const QString& name) const;
    [[nodiscard]] QWidget* element(const QString& label, int row) const;
    [[nodiscard]] QPoint middleOf(const QString& name) const;

    QWidget& m_window;
};

} // namespace tol::test
