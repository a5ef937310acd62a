// SPDX-License-Identifier: MIT
#include "forms/look/Pictures.h"

#include "forms/look/PlainStyle.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>

#include <algorithm>
#include <cstdlib>

namespace tol::forms {
namespace {

constexpr Picture all[] = {Picture::First,      Picture::Last,     Picture::PageUp, Picture::PageDown,
                           Picture::LineUp,     Picture::LineDown, Picture::Action, Picture::Folder,
                           Picture::OpenFolder, Picture::Drive,    Picture::File};

QImage drawn(Picture which, int size, QIcon::Mode mode = QIcon::Normal) {
    return picture(which).pixmap(QSize(size, size), 1, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

int inkIn(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += qAlpha(image.pixel(x, y)) > 128 ? 1 : 0;
    return count;
}

TEST(Pictures, EachIsOneOfItsOwn) {
    for (const Picture which : all) {
        EXPECT_GT(inkIn(drawn(which, 16)), 20) << static_cast<int>(which);
        for (const Picture other : all)
            EXPECT_EQ(drawn(which, 16) == drawn(other, 16), which == other);
    }
}

/// How much two pictures differ at most in one place; slanted edges may be smoothed a little differently.
int difference(const QImage& one, const QImage& other) {
    int largest = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            largest = std::max(largest, std::abs(qAlpha(one.pixel(x, y)) - qAlpha(other.pixel(x, y))));
    return largest;
}

TEST(Pictures, DownIsUpUpsideDown) {
    constexpr int smoothing = 60;
    using enum Picture;
    for (const auto& [down, up] : {std::pair(Last, First), {PageDown, PageUp}, {LineDown, LineUp}}) {
        EXPECT_LT(difference(drawn(down, 32), drawn(up, 32).mirrored()), smoothing);
        EXPECT_GT(difference(drawn(down, 32), drawn(up, 32)), smoothing);
    }
}

TEST(Pictures, AreDrawnAnewAtEachSize) {
    const QImage small = drawn(Picture::First, 16), large = drawn(Picture::First, 32);
    EXPECT_EQ(large.size(), QSize(32, 32));
    EXPECT_NEAR(inkIn(large), 4 * inkIn(small), 40);
    // The bar's edges are as sharp as in the small picture.
    EXPECT_EQ(qAlpha(large.pixel(16, 4)), 255);
    EXPECT_EQ(qAlpha(large.pixel(16, 3)), 0);
}

TEST(Pictures, ArePaleWhereTheyCannotBePressed) {
    for (const Picture which : all) {
        const QImage usual = drawn(which, 16), disabled = drawn(which, 16, QIcon::Disabled);
        EXPECT_NE(usual, disabled);
    }
    EXPECT_GT(qGray(drawn(Picture::LineUp, 16, QIcon::Disabled).pixel(8, 9)),
              qGray(drawn(Picture::LineUp, 16).pixel(8, 9)) + 60);
}

TEST(Pictures, MessageIconsAreDrawnToo) {
    const PlainStyle style;
    const QIcon critical = style.standardIcon(QStyle::SP_MessageBoxCritical, nullptr, nullptr);
    const QImage image = critical.pixmap(QSize(64, 64), 1).toImage();
    EXPECT_EQ(image.size(), QSize(64, 64));
    EXPECT_GT(qRed(image.pixel(32, 8)), 150);
    EXPECT_EQ(QColor(image.pixel(32, 32)), QColor(Qt::white));
    EXPECT_EQ(qAlpha(image.pixel(1, 1)), 0);
}

} // namespace
} // namespace tol::forms
