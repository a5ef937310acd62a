// SPDX-License-Identifier: MIT
#include "forms/PlainStyle.h"

#include <gtest/gtest.h>

#include <QImage>

#include <set>

namespace tol::forms {
namespace {

QImage picture(QStyle::StandardPixmap standard, int size) {
    const auto style = plainStyle();
    return style->standardIcon(standard, nullptr, nullptr).pixmap(QSize(size, size), 1.0).toImage();
}

TEST(PlainStyle, DrawsMessageIconsInTheSizeAskedFor) {
    for (const int size : {16, 32, 96})
        EXPECT_EQ(picture(QStyle::SP_MessageBoxCritical, size).size(), QSize(size, size));
}

TEST(PlainStyle, TellsTheMessageIconsApart) {
    const QStyle::StandardPixmap all[] = {QStyle::SP_MessageBoxCritical, QStyle::SP_MessageBoxWarning,
                                          QStyle::SP_MessageBoxInformation, QStyle::SP_MessageBoxQuestion};
    for (const auto left : all)
        for (const auto right : all)
            EXPECT_EQ(picture(left, 32) == picture(right, 32), left == right);
}

TEST(PlainStyle, LeavesTheCornersOfMessageIconsClear) {
    const QImage icon = picture(QStyle::SP_MessageBoxInformation, 32);
    EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(icon.pixelColor(31, 31).alpha(), 0);
    EXPECT_EQ(icon.pixelColor(16, 4).alpha(), 255);
    EXPECT_EQ(icon.pixelColor(16, 19), QColor(Qt::white)); // the stem of the letter
}

TEST(PlainStyle, TakesOtherIconsAsTheyAre) {
    EXPECT_FALSE(picture(QStyle::SP_DirIcon, 32).isNull());
}

} // namespace
} // namespace tol::forms
