// SPDX-License-Identifier: MIT
#include "forms/TextBox.h"

#include "forms/Keys.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace tol::forms {
namespace {

/// The character that a key types, 13 for Enter, 0 for a key that types none.
int characterOf(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)
        return keyReturn;
    const QList<uint> characters = event.text().toUcs4();
    return characters.size() == 1 && characters[0] >= ' ' ? static_cast<int>(characters[0]) : 0;
}

/// The window came back to the front, or a menu went: the focus never left the box.
bool isOwnFocus(const QFocusEvent& event) {
    return event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason;
}

} // namespace

TextBox& TextBox::add(QWidget& parent, const QString& name, int maxLength, Place where) {
    auto& box = *new TextBox(parent);
    box.setObjectName(name);
    box.setMaxLength(maxLength);
    place(box, where);
    return box;
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    const int typed = characterOf(*event);
    int kept = typed;
    if (typed != 0 && m_keyPress)
        runEvent(*this, [&] { kept = m_keyPress(typed); });
    if (kept == typed)
        return QLineEdit::keyPressEvent(event);
    if (kept != 0)
        insert(QString::fromUcs4(reinterpret_cast<const char32_t*>(&kept), 1));
    event->accept();
}

void TextBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (m_gotFocus && !isOwnFocus(*event))
        runEvent(*this, m_gotFocus);
}

void TextBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (m_lostFocus && !isOwnFocus(*event))
        runEvent(*this, m_lostFocus);
}

} // namespace tol::forms
