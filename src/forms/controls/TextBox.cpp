// SPDX-License-Identifier: MIT
#include "forms/controls/TextBox.h"

#include "forms/events/Focus.h"
#include "forms/events/Keys.h"
#include "forms/windows/Form.h"

#include <QApplication>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOption>

#include <algorithm>
#include <utility>

namespace tol::forms {
namespace {

/// The character that a key types, 13 for Enter, 0 for a key that types none.
int characterOf(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)
        return keyReturn;
    const bool isCommand =
        (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == Qt::ControlModifier;
    const QList<uint> characters = isCommand ? QList<uint>() : event.text().toUcs4();
    return characters.size() == 1 && characters[0] >= ' ' ? static_cast<int>(characters[0]) : 0;
}

/// The window came back to the front, or a menu went: the focus never left the box.
bool isOwnFocus(const QFocusEvent& event) {
    return event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason ||
           event.reason() == Qt::MenuBarFocusReason;
}

/// The first characters of a text (Qt counts some characters as two).
QString leftCharacters(const QString& text, std::size_t count) {
    return QString::fromStdU32String(text.toStdU32String().substr(0, count));
}

std::size_t characters(const QString& text) {
    return text.toStdU32String().size();
}

QString textOf(int character) {
    return QString::fromStdU32String({static_cast<char32_t>(character)});
}

bool isBlank(const QString& text) {
    return !text.isEmpty() && text.trimmed().isEmpty();
}

/// A line has no tabs and line ends; they come in by pasting.
QString withoutControlCharacters(QString text) {
    return text.removeIf([](QChar c) {
        return c < ' ' || c == QChar(0x7f) || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
    });
}

} // namespace

TextBox& TextBox::add(QWidget& parent, const QString& name, int maxLength, Place where) {
    auto& box = *new TextBox(parent, maxLength);
    box.setObjectName(name);
    place(box, where);
    return box;
}

TextBox::TextBox(QWidget& parent, int maxLength) : QLineEdit(&parent), m_maxLength(maxLength) {
    connect(this, &QLineEdit::textEdited, this, [this] { trimEdited(); });
    connect(this, &QLineEdit::textChanged, this, [this] { noteText(); });
    // Behind a box, the program may have moved the focus without an event.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now != nullptr && now != this && now->window() == window() && Form::of(now) == Form::of(this))
            leave();
    });
}

void TextBox::Text(const std::string& text) {
    const QString line = QString::fromStdString(text);
    m_given = m_maxLength > 0 ? leftCharacters(line, static_cast<std::size_t>(m_maxLength)) : line;
    setText(m_given);
}

// With blanks, which have no end to be seen, the cursor stays at the begin.
void TextBox::selectAllText() {
    if (isBlank(text()))
        setSelection(static_cast<int>(text().size()), -static_cast<int>(text().size()));
    else
        selectAll();
}

// What was put in ends at the cursor, so that is where the text is cut. Nothing is kept of blanks that the
// program had set.
void TextBox::trimEdited() {
    const bool intoBlanks = isGivenBlanks(m_noted);
    const QString edited = text();
    const QString before = intoBlanks ? edited : edited.left(cursorPosition());
    const QString after = edited.mid(before.size());
    QString kept = withoutControlCharacters(intoBlanks ? edited.trimmed() : before);
    if (const auto limit = static_cast<std::size_t>(m_maxLength); limit > 0)
        kept = leftCharacters(kept, limit - std::min(limit, characters(after)));
    if (kept == before)
        return runEdited();
    setSelection(0, static_cast<int>(before.size()));
    insert(kept); // which edits the text once more
}

void TextBox::runEdited() {
    if (m_edited)
        runEvent(*this, m_edited);
}

bool TextBox::isGivenBlanks(const QString& text) const {
    return text == m_given && isBlank(text);
}

// Selected blanks would be a bar of a length that tells nothing.
void TextBox::noteText() {
    const bool wasBlank = isBlank(std::exchange(m_noted, text()));
    if (wasBlank == isBlank(m_noted))
        return;
    QPalette colors;
    if (!wasBlank)
        colors.setBrush(QPalette::Highlight, palette().base());
    setPalette(colors);
}

// The frame tells that the box has the focus in the same colour as ever.
void TextBox::initStyleOption(QStyleOptionFrame* option) const {
    QLineEdit::initStyleOption(option);
    option->palette.setBrush(QPalette::Highlight, QApplication::palette().highlight());
}

int TextBox::pressed(int typed) {
    int kept = typed;
    if (m_keyPress)
        runEvent(*this, [&] { kept = m_keyPress(typed); });
    return kept;
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    const int typed = characterOf(*event);
    const int kept = typed != 0 ? pressed(typed) : 0;
    if (kept == typed)
        return QLineEdit::keyPressEvent(event);
    if (kept != 0)
        insert(textOf(kept));
    event->accept();
}

// Characters that are put together from several keys arrive here.
void TextBox::inputMethodEvent(QInputMethodEvent* event) {
    QString kept;
    for (const uint typed : event->commitString().toUcs4())
        if (const int character = pressed(static_cast<int>(typed)); character != 0)
            kept += textOf(character);
    event->setCommitString(kept, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(event);
}

void TextBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!hearsOfFocus(*this) || std::exchange(m_entered, true))
        return;
    m_newClick = event->reason() == Qt::MouseFocusReason;
    if (m_gotFocus)
        runEvent(*this, m_gotFocus);
}

void TextBox::focusOutEvent(QFocusEvent* event) {
    const bool stays = isOwnFocus(*event) || !hearsOfFocus(*this);
    QFocusEvent passedOn(QEvent::FocusOut,
                         stays ? Qt::PopupFocusReason : event->reason()); // keeps the selection
    QLineEdit::focusOutEvent(&passedOn);
    m_newClick = false;
    if (!stays)
        leave();
}

// A window that is minimised or hidden keeps its focus for the time when it comes back.
void TextBox::leave() {
    if (hearsOfFocus(*this) && std::exchange(m_entered, false) && m_lostFocus)
        runEvent(*this, m_lostFocus);
}

void TextBox::hideEvent(QHideEvent* event) {
    if (const Form* form = Form::of(this); form != nullptr && !form->isLoaded())
        m_entered = false;
    QLineEdit::hideEvent(event);
}

void TextBox::mousePressEvent(QMouseEvent* event) {
    m_newClick = m_newClick && hasSelectedText();
    if (event->button() == Qt::LeftButton && isGivenBlanks(text())) {
        selectAllText();
        m_newClick = true;
    }
    if (!m_newClick)
        QLineEdit::mousePressEvent(event);
}

void TextBox::mouseMoveEvent(QMouseEvent* event) {
    if (!m_newClick)
        QLineEdit::mouseMoveEvent(event);
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
    if (!std::exchange(m_newClick, false))
        QLineEdit::mouseReleaseEvent(event);
}

int vdEnterKey(int key, bool upper, bool keepEnter) {
    if (key == keyReturn && keepEnter)
        return key;
    if (key == keyReturn) {
        pressTab();
        return keyNone;
    }
    return upper && key >= 'a' && key <= 'z' ? key - 'a' + 'A' : key;
}

void vdSelectAll(TextBox& box) {
    box.selectAllText();
}

} // namespace tol::forms
