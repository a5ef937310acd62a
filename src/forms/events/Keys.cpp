// SPDX-License-Identifier: MIT
#include "forms/events/Keys.h"

#include <QKeyEvent>

#include <algorithm>
#include <iterator>

namespace tol::forms {
namespace {

struct KeyRow {
    Qt::Key key;
    KeyCode code;
};

constexpr KeyRow namedKeys[] = {
    {Qt::Key_Backspace, keyBack}, {Qt::Key_Tab, keyTab},           {Qt::Key_Backtab, keyTab},
    {Qt::Key_Return, keyReturn},  {Qt::Key_Enter, keyReturn},      {Qt::Key_Escape, keyEscape},
    {Qt::Key_PageUp, keyPageUp},  {Qt::Key_PageDown, keyPageDown}, {Qt::Key_End, keyEnd},
    {Qt::Key_Home, keyHome},      {Qt::Key_Left, keyLeft},         {Qt::Key_Up, keyUp},
    {Qt::Key_Right, keyRight},    {Qt::Key_Down, keyDown},         {Qt::Key_Insert, keyInsert},
    {Qt::Key_Delete, keyDelete},
};

struct SignRow {
    Qt::Key key;
    int code;
    int shift; ///< 1 where a typewriter keyboard needs the Shift key for the sign
};

// A sign, whatever key has it on this keyboard, passes for the typewriter's key.
constexpr SignRow signKeys[] = {
    {Qt::Key_Exclam, 49, 1},      {Qt::Key_At, 50, 1},           {Qt::Key_NumberSign, 51, 1},
    {Qt::Key_Dollar, 52, 1},      {Qt::Key_Percent, 53, 1},      {Qt::Key_AsciiCircum, 54, 1},
    {Qt::Key_Ampersand, 55, 1},   {Qt::Key_Asterisk, 56, 1},     {Qt::Key_ParenLeft, 57, 1},
    {Qt::Key_ParenRight, 48, 1},  {Qt::Key_Semicolon, 186, 0},   {Qt::Key_Colon, 186, 1},
    {Qt::Key_Equal, 187, 0},      {Qt::Key_Plus, 187, 1},        {Qt::Key_Comma, 188, 0},
    {Qt::Key_Less, 188, 1},       {Qt::Key_Minus, 189, 0},       {Qt::Key_Underscore, 189, 1},
    {Qt::Key_Period, 190, 0},     {Qt::Key_Greater, 190, 1},     {Qt::Key_Slash, 191, 0},
    {Qt::Key_Question, 191, 1},   {Qt::Key_BracketLeft, 219, 0}, {Qt::Key_BraceLeft, 219, 1},
    {Qt::Key_Backslash, 220, 0},  {Qt::Key_Bar, 220, 1},         {Qt::Key_BracketRight, 221, 0},
    {Qt::Key_BraceRight, 221, 1}, {Qt::Key_Apostrophe, 222, 0},  {Qt::Key_QuoteDbl, 222, 1},
};

int codeOf(int key) {
    const auto row = std::ranges::find(namedKeys, key, [](const KeyRow& named) { return int{named.key}; });
    if (row != std::end(namedKeys))
        return row->code;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return keyF1 + key - Qt::Key_F1;
    const bool plain = key == Qt::Key_Space || (key >= Qt::Key_0 && key <= Qt::Key_9) ||
                       (key >= Qt::Key_A && key <= Qt::Key_Z);
    return plain ? key : keyNone;
}

} // namespace

KeyPress keyPressOf(const QKeyEvent& event) {
    const auto held = event.modifiers();
    const int others =
        (held.testFlag(Qt::ControlModifier) ? 2 : 0) + (held.testFlag(Qt::AltModifier) ? 4 : 0);
    const auto sign =
        std::ranges::find(signKeys, event.key(), [](const SignRow& row) { return int{row.key}; });
    if (sign != std::end(signKeys))
        return {sign->code, others + sign->shift};
    const bool isDigit = event.key() >= Qt::Key_0 && event.key() <= Qt::Key_9; // with Shift on some keyboards
    return {codeOf(event.key()), others + (held.testFlag(Qt::ShiftModifier) && !isDigit ? 1 : 0)};
}

} // namespace tol::forms
