// SPDX-License-Identifier: MIT
#include "forms/events/Keys.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

namespace tol::forms {
namespace {

KeyPress pressed(int key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    return keyPressOf(QKeyEvent(QEvent::KeyPress, key, held));
}

TEST(Keys, NamedKeysHaveTheirCodes) {
    const std::pair<Qt::Key, int> expected[] = {
        {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},     {Qt::Key_Backtab, 9}, {Qt::Key_Return, 13},
        {Qt::Key_Enter, 13},    {Qt::Key_Escape, 27}, {Qt::Key_Space, 32},  {Qt::Key_PageUp, 33},
        {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},    {Qt::Key_Home, 36},   {Qt::Key_Left, 37},
        {Qt::Key_Up, 38},       {Qt::Key_Right, 39},  {Qt::Key_Down, 40},   {Qt::Key_Insert, 45},
        {Qt::Key_Delete, 46},   {Qt::Key_F1, 112},    {Qt::Key_F10, 121},   {Qt::Key_F12, 123},
    };
    for (const auto& [key, code] : expected)
        EXPECT_EQ(pressed(key).code, code) << key;
}

TEST(Keys, LettersAndDigitsAreTheirUpperCaseCharacter) {
    EXPECT_EQ(pressed(Qt::Key_A).code, 65);
    EXPECT_EQ(pressed(Qt::Key_Z).code, 90);
    EXPECT_EQ(pressed(Qt::Key_0).code, 48);
    EXPECT_EQ(pressed(Qt::Key_9).code, 57);
}

TEST(Keys, OtherKeysHaveNoCode) {
    EXPECT_EQ(pressed(Qt::Key_F13).code, keyNone);
    EXPECT_EQ(pressed(Qt::Key_Adiaeresis).code, keyNone);
    EXPECT_EQ(pressed(Qt::Key_Shift).code, keyNone);
}

TEST(Keys, HeldKeysAddUp) {
    EXPECT_EQ(pressed(Qt::Key_F10).shift, 0);
    EXPECT_EQ(pressed(Qt::Key_F10, Qt::ShiftModifier).shift, 1);
    EXPECT_EQ(pressed(Qt::Key_F10, Qt::ControlModifier).shift, 2);
    EXPECT_EQ(pressed(Qt::Key_F10, Qt::AltModifier).shift, 4);
    EXPECT_EQ(pressed(Qt::Key_F10, Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier).shift, 7);
    EXPECT_EQ(pressed(Qt::Key_F10, Qt::KeypadModifier).shift, 0);
}

} // namespace
} // namespace tol::forms
