// SPDX-License-Identifier: MIT
#include "forms/controls/Controls.h"

#include "forms/windows/Form.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QFrame>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTest>

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

TEST(Controls, AFocusHolderTakesTheFocusWhileItIsEnabled) {
    Form form("frmTest");
    QLineEdit box(&form);
    QScrollBar& holder = addScrollBar(form, "hsbMAIN", "Job Sites", {150, 150, 30, 30});
    form.showModeless();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_EQ(form.findChild<QScrollBar*>("hsbMAIN"), &holder);
    EXPECT_EQ(holder.size(), QSize(2, 2));
    EXPECT_EQ(holder.orientation(), Qt::Horizontal);
    EXPECT_EQ(toldName(holder), "Job Sites");
    holder.setFocus();
    EXPECT_TRUE(holder.hasFocus());
    QTest::keyClick(&holder, Qt::Key_Right);
    QTest::keyClick(&holder, Qt::Key_End);
    EXPECT_EQ(holder.value(), 0);
    QTest::keyClick(&holder, Qt::Key_Tab);
    EXPECT_TRUE(box.hasFocus());
    holder.setEnabled(false);
    holder.setFocus();
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_FALSE(holder.hasFocus());
}

TEST(Controls, ALabelNamesItsControl) {
    Form form("frmTest");
    QLineEdit box(&form);
    QLabel& label = addLabel(form, "lblTest", "&Location:", {0, 0, 900, 300});
    setLabelOf(label, box);
    EXPECT_EQ(toldName(box), "Location:");
    QListWidget list(&form);
    setLabelOf(label, list);
    EXPECT_EQ(toldName(list), "Location:");
}

TEST(Controls, HidingAllControlsReachesIntoFramesAndSparesTimers) {
    Form form("frmTest");
    QFrame& frame = addFrame(form, "fraTest", {0, 0, 3000, 900});
    QLabel& inFrame = addLabel(frame, "lblTest", "x", {0, 0, 300, 300});
    QLabel& timer = addLabel(form, "tmrTest", "x", {0, 900, 300, 300});
    Form child("frmChild");
    child.setParent(&form, Qt::Dialog);
    QLabel& onChild = addLabel(child, "lblChild", "x", {0, 0, 300, 300});
    hideControls(form);
    EXPECT_TRUE(frame.isHidden());
    EXPECT_TRUE(inFrame.isHidden());
    EXPECT_FALSE(timer.isHidden());
    EXPECT_FALSE(onChild.isHidden());
    child.setParent(nullptr);
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
