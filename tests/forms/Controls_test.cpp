// SPDX-License-Identifier: MIT
#include "forms/Controls.h"

#include "forms/Form.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QFrame>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>

namespace tol::forms {
namespace {

QString toldName(QWidget& control) {
    return QAccessible::queryAccessibleInterface(&control)->text(QAccessible::Name);
}

TEST(Controls, ALabelIsFoundByNameAndToldByItsText) {
    Form form("frmTest");
    addLabel(form, "lblPATHNAME", "Line <b>1</b>", {150, 300, 1500, 240});
    auto* label = form.findChild<QLabel*>("lblPATHNAME");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->geometry(), QRect(10, 20, 100, 16));
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_EQ(toldName(*label), "Line <b>1</b>");
    label->setText("other");
    EXPECT_EQ(toldName(*label), "other");
}

TEST(Controls, AFrameHoldsControls) {
    Form form("frmTest");
    QFrame& frame = addFrame(form, "Frame1", {150, 150, 3000, 1500});
    addLabel(frame, "lblTest", "x", {0, 0, 300, 300});
    EXPECT_EQ(form.findChild<QFrame*>("Frame1")->findChild<QLabel*>("lblTest")->text(), "x");
}

TEST(Controls, ACaptionedFrameIsToldByItsCaption) {
    Form form("frmTest");
    QGroupBox& frame = addCaptionedFrame(form, "fraTest", "Now Processing", {150, 150, 3000, 1500});
    addLabel(frame, "lblTest", "x", {0, 0, 300, 300});
    EXPECT_EQ(frame.geometry(), QRect(10, 10, 200, 100));
    EXPECT_EQ(toldName(frame), "Now Processing");
    EXPECT_EQ(form.findChild<QGroupBox*>("fraTest")->findChild<QLabel*>("lblTest")->text(), "x");
}

TEST(Controls, AnImageIsToldByItsDescription) {
    QPixmap red(64, 64);
    red.fill(Qt::red);
    Form form("frmTest");
    QLabel& image = addImage(form, "Image1", QIcon(red), "A red square", {0, 0, 480, 480});
    EXPECT_EQ(image.objectName(), "Image1");
    EXPECT_EQ(toldName(image), "A red square");
    EXPECT_EQ(image.pixmap().deviceIndependentSize(), QSizeF(32, 32));
}

TEST(Controls, TextSizeIsAShareOfTheUsualOne) {
    Form form("frmTest");
    QLabel& label = addLabel(form, "lblTest", "x", {0, 0, 300, 300});
    const double usual = label.font().pointSizeF();
    setTextSize(label, 200, true);
    EXPECT_DOUBLE_EQ(label.font().pointSizeF(), usual * 2);
    EXPECT_TRUE(label.font().bold());
}

} // namespace
} // namespace tol::forms
