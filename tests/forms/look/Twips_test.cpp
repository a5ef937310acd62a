// SPDX-License-Identifier: MIT
#include "forms/look/Twips.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace tol::forms {
namespace {

TEST(Twips, FifteenMakeAPixelAt96DotsPerInch) {
    ASSERT_DOUBLE_EQ(QGuiApplication::primaryScreen()->logicalDotsPerInch(), 96);
    EXPECT_EQ(toPixels(15), 1);
    EXPECT_EQ(toPixels(11985), 799);
    EXPECT_EQ(toPixels(9090), 606);
    EXPECT_EQ(toPixels(0), 0);
    EXPECT_EQ(toPixels(-30), -2);
}

TEST(Twips, RoundToTheNearestPixel) {
    EXPECT_EQ(toPixels(22), 1);
    EXPECT_EQ(toPixels(23), 2);
}

TEST(Twips, AreGivenBackForWholePixels) {
    for (const int pixels : {0, 1, 799, 1024})
        EXPECT_EQ(toPixels(toTwips(pixels)), pixels);
    EXPECT_EQ(toTwips(100), 1500);
}

TEST(Place, PutsNeighboursEdgeToEdge) {
    QWidget left, right;
    place(left, {0, 0, 1007, 248});
    place(right, {1007, 0, 1007, 248});
    EXPECT_EQ(left.geometry().right() + 1, right.geometry().left());
    EXPECT_EQ(right.geometry().right() + 1, toPixels(2014));
}

} // namespace
} // namespace tol::forms
