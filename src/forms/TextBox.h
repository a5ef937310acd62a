// SPDX-License-Identifier: MIT
#pragma once

#include "forms/EventProcedure.h"
#include "forms/Twips.h"

#include <QLineEdit>

#include <functional>
#include <string>

namespace tol::forms {

/// A line of text to be typed. Its texts are UTF-8; MaxLength counts characters and bounds what is
/// typed. The procedures run guarded, in the order GotFocus, KeyPress and Change, LostFocus.
class TextBox : public QLineEdit {
  public:
    /// Put on the parent, which owns it.
    static TextBox& add(QWidget& parent, const QString& name, int maxLength, Place where);

    [[nodiscard]] std::string Text() const { return text().toStdString(); }
    void Text(const std::string& text) { setText(QString::fromStdString(text)); }
    /// Marks the whole text.
    void selectAllText() { selectAll(); }

    /// A character about to be typed, by its code (13 for Enter): what is returned is typed in its
    /// place, 0 for nothing.
    void onKeyPress(std::function<int(int)> procedure) { m_keyPress = std::move(procedure); }
    void onGotFocus(EventProcedure procedure) { m_gotFocus = std::move(procedure); }
    void onLostFocus(EventProcedure procedure) { m_lostFocus = std::move(procedure); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    explicit TextBox(QWidget& parent) : QLineEdit(&parent) {}

    std::function<int(int)> m_keyPress;
    EventProcedure m_gotFocus, m_lostFocus;
};

} // namespace tol::forms
