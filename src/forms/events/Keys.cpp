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
    return {codeOf(event.key()), (held.testFlag(Qt::ShiftModifier) ? 1 : 0) +
                                     (held.testFlag(Qt::ControlModifier) ? 2 : 0) +
                                     (held.testFlag(Qt::AltModifier) ? 4 : 0)};
}

} // namespace tol::forms
