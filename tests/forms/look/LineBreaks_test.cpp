// SPDX-License-Identifier: MIT
#include "forms/look/LineBreaks.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>

namespace tol::forms {
namespace {

/// Broken at that many characters of equal width, none wider than the second number.
std::string broken(const std::string& text, int characters, int most = 1000) {
    const QFontMetrics font(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    const auto widthOf = [&](int count) { return font.horizontalAdvance(QString(count, 'x')); };
    return inLines(QString::fromStdString(text), font, widthOf(characters), widthOf(most)).toStdString();
}

TEST(LineBreaks, AShortTextStaysAsItIs) {
    EXPECT_EQ(broken("Line  1 \n\n Line 2", 20), "Line  1 \n\n Line 2");
    EXPECT_EQ(broken("", 20), "");
}

TEST(LineBreaks, ALongOneIsBrokenAtBlanks) {
    EXPECT_EQ(broken("one two three-four five", 10), "one two\nthree-four\nfive");
    EXPECT_EQ(broken("a paragraph\nand another one", 12), "a paragraph\nand another\none");
}

TEST(LineBreaks, NotWithinAPath) {
    EXPECT_EQ(broken("The file C:\\SITES\\NORTH-1\\A.MDB is missing.", 24),
              "The file\nC:\\SITES\\NORTH-1\\A.MDB\nis missing.");
    EXPECT_EQ(broken("In /srv/jobs/north: no room", 18), "In\n/srv/jobs/north:\nno room");
}

TEST(LineBreaks, NorBetweenADriveAndItsPath) {
    EXPECT_EQ(broken("The folder C:\\ZOVUSER", 14), "The folder\nC:\\ZOVUSER");
}

TEST(LineBreaks, NorAtABlankOfAFoldersName) {
    EXPECT_EQ(broken("Look in C:\\Job Sites\\North Yard\\A.MDB or C:\\B now", 30),
              "Look in\nC:\\Job Sites\\North Yard\\A.MDB\nor C:\\B now");
    EXPECT_EQ(broken("See \\\\SERVER\\Old Share\\X and go", 22), "See\n\\\\SERVER\\Old Share\\X\nand go");
}

TEST(LineBreaks, NorWithinAQuotedName) {
    EXPECT_EQ(broken("The table 'Order Details' is there.", 16), "The table\n'Order Details'\nis there.");
    EXPECT_EQ(broken("It can't be 'so, they say, ever", 12), "It can't be\n'so, they\nsay, ever")
        << "not closed";
}

TEST(LineBreaks, ALongPathStandsOnALineOfItsOwn) {
    EXPECT_EQ(broken("The file C:\\SITES\\NORTH\\ZOVNET.MDB is missing.", 12),
              "The file\nC:\\SITES\\NORTH\\ZOVNET.MDB\nis missing.");
}

TEST(LineBreaks, WhatNoScreenHoldsIsBrokenAtASeparator) {
    EXPECT_EQ(broken("In C:\\SITES\\NORTH\\ZOVNET.MDB.", 10, 14), "In\nC:\\SITES\\\nNORTH\\\nZOVNET.MDB.");
    EXPECT_EQ(broken("abcdefghijklmnopqrst", 5, 10), "abcdefghij\nklmnopqrst");
}

} // namespace
} // namespace tol::forms
