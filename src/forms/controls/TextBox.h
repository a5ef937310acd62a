// SPDX-License-Identifier: MIT
#pragma once

#include "forms/events/EventProcedure.h"
#include "forms/look/Twips.h"

#include <QLineEdit>

#include <functional>
#include <string>

namespace tol::forms {

/// A line of text to be typed. Its texts are UTF-8. It never holds more than MaxLength characters (0: any
/// number): what is typed, pasted or set beyond them is dropped. The procedures run guarded. While another
/// window is in front or a menu is open, the box keeps the focus, unless the program moves it meanwhile. The
/// click that brings the focus leaves alone what GotFocus has selected.
///
/// A text of nothing but blanks stands for none. Such a text as the program has set gives way to the first
/// thing that is typed or pasted, wherever the cursor is; a click selects it, which is not to be seen.
class TextBox : public QLineEdit {
  public:
    /// Put on the parent, which owns it.
    static TextBox& add(QWidget& parent, const QString& name, int maxLength, Place where);

    [[nodiscard]] std::string Text() const { return text().toStdString(); }
    void Text(const std::string& text);
    [[nodiscard]] int MaxLength() const { return m_maxLength; }
    /// Selects the whole text.
    void selectAllText();

    /// A character about to be typed, by its code (13 for Enter): what is returned is typed in its
    /// place, 0 for nothing.
    void onKeyPress(std::function<int(int)> procedure) { m_keyPress = std::move(procedure); }
    /// The person has changed the text, by typing or pasting.
    void onEdited(EventProcedure procedure) { m_edited = std::move(procedure); }
    void onGotFocus(EventProcedure procedure) { m_gotFocus = std::move(procedure); }
    void onLostFocus(EventProcedure procedure) { m_lostFocus = std::move(procedure); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void initStyleOption(QStyleOptionFrame* option) const override;

  private:
    TextBox(QWidget& parent, int maxLength);
    /// What the KeyPress procedure makes of a character.
    int pressed(int typed);
    void trimEdited();
    void runEdited();
    void noteText();
    [[nodiscard]] bool isGivenBlanks(const QString& text) const;
    void leave();

    std::function<int(int)> m_keyPress;
    EventProcedure m_edited, m_gotFocus, m_lostFocus;
    int m_maxLength;
    QString m_given;         ///< what the program has set
    QString m_noted;         ///< the text, during an edit the one before it
    bool m_entered = false;  ///< between GotFocus and LostFocus
    bool m_newClick = false; ///< the mouse button went down, and all is selected for it
};

/// The key to keep of a key that is about to be typed: Enter is swallowed (0) and goes on to the next control
/// in its place, unless it is kept; letters from a to z become upper case if that is wanted.
int vdEnterKey(int key, bool upper, bool keepEnter);

/// Selects the whole text of a box that is entered, so that typing replaces it.
void vdSelectAll(TextBox& box);

} // namespace tol::forms
