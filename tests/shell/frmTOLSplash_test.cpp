// SPDX-License-Identifier: MIT
#include "shell/frmTOLSplash.h"

#include "StartedProgram.h"

#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QFrame>
#include <QLabel>
#include <QTest>

namespace tol::test {
namespace {

using shell::frmTOLMAIN;

class Splash : public Start {
  protected:
    Splash() { main.load(); }

    [[nodiscard]] QTimer& timer() const { return *main.findChild<QTimer*>("Timer1"); }
    static QString text(const char* label) { return splash()->findChild<QLabel*>(label)->text(); }

    frmTOLMAIN main;
};

TEST_F(Splash, StandsWhileTheMainWindowIsHidden) {
    ASSERT_NE(splash(), nullptr);
    EXPECT_TRUE(splash()->isVisible());
    EXPECT_FALSE(main.isVisible());
    EXPECT_TRUE(timer().isActive());
    EXPECT_EQ(timer().interval(), 500);
}

TEST_F(Splash, TellsProductVersionSuiteAndPurpose) {
    EXPECT_EQ(text("lblProductName"), "Tolvane Module");
    EXPECT_EQ(text("lblVersion"), "Version 1.1.1");
    EXPECT_EQ(text("lblSuiteName"), "Zovarin Series");
    EXPECT_EQ(text("lblTools"), "Project Administration Tools");
}

TEST_F(Splash, ShowsItsTextsWhole) {
    for (const QLabel* label : splash()->findChildren<QLabel*>()) {
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->objectName().toStdString();
        EXPECT_GE(label->height(), label->sizeHint().height()) << label->objectName().toStdString();
    }
}

TEST_F(Splash, StandsForTwoTicks) {
    tick(main, 1);
    ASSERT_NE(splash(), nullptr);
    EXPECT_TRUE(splash()->isVisible());
    EXPECT_FALSE(main.isVisible());
    tick(main, 1);
    EXPECT_EQ(splash(), nullptr);
    EXPECT_TRUE(main.isVisible());
    EXPECT_FALSE(timer().isActive());
}

TEST_F(Splash, StandsForASecond) {
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(QTest::qWaitFor([this] { return main.isVisible(); }));
    EXPECT_GE(clock.elapsed(), 800); // the timer's coarseness, and what the start itself took, are off
}

class SplashTakenAway : public Splash {
  protected:
    // After whatever a person did before the first tick.
    void expectGone() {
        EXPECT_EQ(splash(), nullptr);
        EXPECT_FALSE(main.isVisible());
        tick(main, 2);
        EXPECT_TRUE(main.isVisible());
        EXPECT_FALSE(timer().isActive());
        EXPECT_THAT(person.texts(), testing::IsEmpty());
    }
};

TEST_F(SplashTakenAway, ByAClickOnTheWindow) {
    QTest::mouseClick(splash(), Qt::LeftButton, {}, {2, 2});
    expectGone();
}

TEST_F(SplashTakenAway, ByAKey) {
    QTest::keyClick(splash(), Qt::Key_Space);
    expectGone();
}

TEST_F(SplashTakenAway, ByAKeyThatStandsForNoCharacter) {
    QTest::keyClick(splash(), Qt::Key_F13);
    expectGone();
}

class SplashClicked : public SplashTakenAway, public testing::WithParamInterface<const char*> {};

TEST_P(SplashClicked, OnAControl) {
    QTest::mouseClick(splash()->findChild<QWidget*>(GetParam()), Qt::LeftButton, {}, {3, 3});
    expectGone();
}

INSTANTIATE_TEST_SUITE_P(EachControl, SplashClicked,
                         testing::Values("Frame1", "Image1", "lblProductName", "lblVersion", "lblSuiteName",
                                         "lblTools"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST_F(Splash, ClosedBetweenTheTicksLetsTheMainWindowComeOnTheNext) {
    tick(main, 1);
    QTest::keyClick(splash(), Qt::Key_Escape);
    tick(main, 1);
    EXPECT_TRUE(main.isVisible());
}

} // namespace
} // namespace tol::test
