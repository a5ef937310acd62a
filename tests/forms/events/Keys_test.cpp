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

TEST(Keys, SignsAreTheTypewritersKeysWhereverTheyAre) {
    const std::tuple<Qt::Key, int, int> expected[] = {
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
    for (const auto& [key, code, shift] : expected) {
        for (const Qt::KeyboardModifiers held : {Qt::NoModifier, Qt::ShiftModifier}) {
            EXPECT_EQ(pressed(key, held).code, code) << key;
            EXPECT_EQ(pressed(key, held).shift, shift) << key;
        }
        EXPECT_EQ(pressed(key, Qt::ControlModifier).shift, shift + 2);
    }
    EXPECT_EQ(pressed(Qt::Key_7, Qt::ShiftModifier).shift, 0);
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
