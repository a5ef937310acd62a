// SPDX-License-Identifier: MIT
#include "forms/controls/Controls.h"

#include "forms/look/Pictures.h"
#include "forms/windows/Form.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace tol::forms {
namespace {

class ButtonsTest : public testing::Test {
  protected:
    ButtonsTest() {
        form.showModeless();
        static_cast<void>(QTest::qWaitForWindowActive(&form));
        box.setFocus();
    }

    QImage looks() { return button.grab().toImage(); }

    Form form{"frmTest"};
    int clicks = 0;
    QLineEdit box{&form};
    QPushButton& button = addButton(form, "cmdExit", "E&xit", {150, 600, 1200, 360}, [this] { ++clicks; });
};

TEST_F(ButtonsTest, IsFoundByNameAndPressedByAClick) {
    EXPECT_EQ(form.findChild<QPushButton*>("cmdExit"), &button);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonsTest, IsPressedByEnterAndSpaceWhileItHasTheFocus) {
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Enter, Qt::KeypadModifier);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks, 3);
}

TEST_F(ButtonsTest, IsPressedByAltAndItsLetter) {
    QTest::keyClick(&box, Qt::Key_X, Qt::AltModifier);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(button.hasFocus());
    button.setEnabled(false);
    QTest::keyClick(&form, Qt::Key_X, Qt::AltModifier);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonsTest, ACancelButtonIsPressedByEscWhileItCanBe) {
    form.setCancelButton(&button);
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_EQ(clicks, 1);
    button.setEnabled(false);
    QTest::keyClick(&box, Qt::Key_Escape);
    button.setEnabled(true);
    button.hide();
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonsTest, ADefaultButtonIsPressedByEnterWhereverItIsOfNoOtherUse) {
    int others = 0;
    QPushButton& other = addButton(form, "cmdOther", "Other", {1500, 600, 1200, 360}, [&] { ++others; });
    other.show();
    form.setDefaultButton(&button);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(&other, Qt::Key_Return);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(others, 1);
    QTest::keyClick(&form, Qt::Key_Return);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ButtonsTest, TheFocusIsSeenHoweverItCame) {
    const QImage without = looks();
    button.setFocus(Qt::OtherFocusReason);
    const QImage byProgram = looks();
    EXPECT_NE(byProgram, without);
    box.setFocus();
    button.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(looks(), byProgram);
}

TEST_F(ButtonsTest, TabPassesByAButtonWithoutTabStop) {
    QPushButton& small = addPictureButton(form, "cmdVDBHOME", picture(Picture::First), "First record",
                                          {0, 1200, 360, 360}, [this] { ++clicks; });
    small.show();
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Tab);
    EXPECT_TRUE(box.hasFocus());
    setTabStop(small, true);
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Tab);
    EXPECT_TRUE(small.hasFocus());
}

TEST_F(ButtonsTest, APictureButtonIsToldByItsDescription) {
    QPushButton& small = addPictureButton(form, "cmdVDBHOME", picture(Picture::First), "First record",
                                          {0, 1200, 360, 360}, [this] { ++clicks; });
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&small)->text(QAccessible::Name), "First record");
    EXPECT_EQ(small.toolTip(), "First record");
    QTest::mouseClick(&small, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ButtonsTest, ACheckBoxIsTickedByAClickAndBySpace) {
    QCheckBox& tick = addCheckBox(form, "ckbTest", "Do not warn", {150, 1200, 3000, 300});
    tick.show();
    QTest::keyClick(&tick, Qt::Key_Space);
    EXPECT_TRUE(form.findChild<QCheckBox*>("ckbTest")->isChecked());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&tick)->text(QAccessible::Name), "Do not warn");
}

} // namespace
} // namespace tol::forms
