// SPDX-License-Identifier: MIT
#include "forms/events/EventProcedure.h"

#include "forms/controls/Controls.h"
#include "forms/windows/Form.h"

#include <gtest/gtest.h>

#include <QFrame>
#include <QLabel>
#include <QTest>
#include <QWindow>

namespace tol::forms {
namespace {

class Click : public testing::Test {
  protected:
    Click() {
        form.setScaleSize(3000, 3000);
        onClick(form, [this] { ++onForm; });
        onClick(label, [this] { ++onLabel; });
        form.showModeless();
    }

    Form form{"frmTest"};
    QLabel& label = addLabel(form, "lblTest", "text", {0, 0, 1500, 300});
    int onForm = 0, onLabel = 0;
};

TEST_F(Click, IsThatOfTheControlAlone) {
    QTest::mouseClick(&label, Qt::LeftButton);
    EXPECT_EQ(onLabel, 1);
    EXPECT_EQ(onForm, 0);
    QTest::mouseClick(&form, Qt::LeftButton, {}, {150, 150});
    EXPECT_EQ(onLabel, 1);
    EXPECT_EQ(onForm, 1);
}

TEST_F(Click, IsOfTheLeftButton) {
    QTest::mouseClick(&label, Qt::RightButton);
    EXPECT_EQ(onLabel, 0);
}

TEST_F(Click, ADoubleClickIsTwo) {
    QTest::mouseDClick(form.windowHandle(), Qt::LeftButton, {}, label.geometry().center());
    EXPECT_EQ(onLabel, 2);
}

TEST_F(Click, TheSecondOfTwoQuickOnesRunsAProcedureOfItsOwn) {
    int clicks = 0, doubleClicks = 0;
    QLabel& other = addLabel(form, "lblOther", "text", {0, 600, 1500, 300});
    onClick(
        other, [&] { ++clicks; }, [&] { ++doubleClicks; });
    other.show();
    QTest::mouseDClick(form.windowHandle(), Qt::LeftButton, {}, other.geometry().center());
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(doubleClicks, 1);
    QTest::mousePress(&other, Qt::LeftButton);
    QTest::mouseRelease(&other, Qt::LeftButton, {}, {500, 500});
    EXPECT_EQ(clicks, 1);
}

TEST_F(Click, IsNoneWhenTheButtonGoesUpElsewhere) {
    QTest::mousePress(&label, Qt::LeftButton);
    QTest::mouseRelease(&label, Qt::LeftButton, {}, {500, 500});
    EXPECT_EQ(onLabel, 0);
}

TEST_F(Click, IsNoneWhenTheButtonWentDownElsewhere) {
    QTest::mouseRelease(&label, Qt::LeftButton);
    EXPECT_EQ(onLabel, 0);
}

} // namespace
} // namespace tol::forms
