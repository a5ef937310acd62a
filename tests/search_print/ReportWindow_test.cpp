// SPDX-License-Identifier: MIT
#include "search_print/ReportWindow.h"

#include "PrintedFolder.h"
#include "forms/look/Twips.h"
#include "search_print/PreviewWidget.h"
#include "search_print/document/vdPrintRun.h"
#include "search_print/vdPrintView.h"
#include "support/TestHost.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>

namespace tol::test {
namespace {

using namespace search_print;

/// A report that is begun by its button: one page for each step, with a yield after each.
class Begun : public ReportWindow {
  public:
    Begun() : ReportWindow("frmBegun") { setWindowTitle("Begun"); }

    int steps = 3, runs = 0;
    std::string orientation = "P";

  protected:
    bool onRun() override {
        ++runs;
        if (!vdPrintStart(*this, printer(), orientation))
            return false;
        bool complete = true;
        for (int step = 0; step < steps && complete; ++step) {
            printer().NewPage();
            printer().Text("Page");
            showPageProgress(*this, printer());
            complete = keepPrinting();
        }
        return vdPrintFinish(*this, printer(), savedOrientation(), complete);
    }
    [[nodiscard]] std::string viewOrientation() const override { return orientation; }
};

constexpr int pixel = 15;  // twips
constexpr int frame = 405; // twips that a window's frame adds to its height

class ReportWindowTest : public testing::Test {
  protected:
    TestHost person;
    Begun window;

    void begin() { QTest::mouseClick(&window.cmdBegin(), Qt::LeftButton); }
    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    /// Waits until the window has taken its size.
    void expectMaximised(bool maximised) {
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return window.isMaximized() == maximised && (window.width() > m_normalWidth) == maximised;
        }));
    }
    static int left(const QWidget& control) { return forms::toTwips(control.x()); }
    static int top(const QWidget& control) { return forms::toTwips(control.y()); }

  private:
    int m_normalWidth = window.width();
};

TEST_F(ReportWindowTest, WaitsForItsButton) {
    EXPECT_TRUE(withWindow(window, [&] {
        EXPECT_EQ(window.cmdBegin().text(), "&Begin");
        EXPECT_EQ(window.runs, 0);
        press(Qt::Key_PageDown);
        press(Qt::Key_End);
        begin();
        EXPECT_EQ(window.runs, 1);
        EXPECT_EQ(window.cmdBegin().text(), "&Max View");
        EXPECT_EQ(window.lblProcess().text(), "Report Finished, Press 'P' to Print");
        EXPECT_EQ(window.printer().PageCount(), 3);
    }));
}

TEST_F(ReportWindowTest, IsBegunByTheKeyP) {
    EXPECT_TRUE(withWindow(window, [&] {
        press(Qt::Key_P);
        EXPECT_EQ(window.runs, 1);
        EXPECT_TRUE(window.printer().PageCount() == 3);
    }));
}

TEST_F(ReportWindowTest, IsBegunByItsLetterAndBySpace) {
    EXPECT_TRUE(withWindow(window, [&] {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_B, Qt::AltModifier);
        EXPECT_EQ(window.runs, 1);
    }));
    Begun other;
    EXPECT_TRUE(withWindow(other, [&] {
        other.cmdBegin().setFocus();
        press(Qt::Key_Space);
        EXPECT_EQ(other.runs, 1);
    }));
}

TEST_F(ReportWindowTest, IgnoresKeysWhileItRuns) {
    window.printer().onPrint = [](bool) { FAIL() << "printed while it was drawn"; };
    person.onYield = [&] {
        for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_End, Qt::Key_P})
            press(key);
        EXPECT_EQ(window.printer().PreviewPage(), 1);
        EXPECT_EQ(window.cmdBegin().text(), "&Cancel");
        EXPECT_EQ(window.lblProcess().text().toStdString(),
                  "Printing Page: " + std::to_string(person.yields));
    };
    EXPECT_TRUE(withWindow(window, [&] {
        begin();
        EXPECT_EQ(window.runs, 1);
        EXPECT_EQ(person.yields, 3);
    }));
}

TEST_F(ReportWindowTest, IsStoppedByItsButton) {
    person.onYield = [&] {
        if (person.yields == 2)
            begin();
    };
    EXPECT_TRUE(withWindow(window, [&] {
        begin();
        EXPECT_EQ(window.printer().PageCount(), 2);
        EXPECT_EQ(window.lblProcess().text(), "Report STOPPED BY USER (INCOMPLETE)");
        EXPECT_EQ(window.cmdBegin().text(), "&Max View");
    }));
}

TEST_F(ReportWindowTest, ClosedWhileItRunsItGoesWhenTheRunHasEnded) {
    person.onYield = [&] {
        if (person.yields == 2)
            QTest::mouseClick(&window.CmdExit(), Qt::LeftButton);
    };
    EXPECT_TRUE(withWindow(window, [&] {
        begin();
        EXPECT_EQ(person.yields, 2);
        EXPECT_FALSE(window.isVisible());
        EXPECT_FALSE(window.isLoaded());
    }));
}

TEST_F(ReportWindowTest, APrinterThatCanNotBeUsedCanBeTriedAgain) {
    window.printer().setError(1);
    EXPECT_TRUE(withWindow(window, [&] {
        begin();
        EXPECT_EQ(person.texts().back(), "Printer Problem Detected");
        EXPECT_EQ(window.cmdBegin().text(), "&Begin");
        window.printer().setError(0);
        begin();
        EXPECT_EQ(window.printer().PageCount(), 3);
    }));
}

TEST_F(ReportWindowTest, TurnsThePagesByKeys) {
    EXPECT_TRUE(withWindow(window, [&] {
        begin();
        const auto pageAfter = [&](Qt::Key key) {
            press(key);
            return window.printer().PreviewPage();
        };
        EXPECT_EQ(pageAfter(Qt::Key_PageUp), 1);
        EXPECT_EQ(pageAfter(Qt::Key_PageDown), 2);
        EXPECT_EQ(pageAfter(Qt::Key_PageDown), 3);
        EXPECT_EQ(pageAfter(Qt::Key_PageDown), 3);
        EXPECT_EQ(pageAfter(Qt::Key_Home), 1);
        EXPECT_EQ(pageAfter(Qt::Key_End), 3);
        EXPECT_EQ(pageAfter(Qt::Key_PageUp), 2);
        EXPECT_EQ(window.preview().accessibleDescription(), "Page 2 of 3");
    }));
}

TEST_F(ReportWindowTest, PrintsByTheKeyPButNotWithCtrlOrAlt) {
    int printed = 0;
    window.printer().onPrint = [&](bool dialog) {
        ++printed;
        EXPECT_TRUE(dialog);
    };
    EXPECT_TRUE(withWindow(window, [&] {
        begin();
        press(Qt::Key_P);
        EXPECT_EQ(printed, 1);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_P, Qt::ShiftModifier);
        EXPECT_EQ(printed, 2);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_P, Qt::ControlModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_P, Qt::AltModifier);
        EXPECT_EQ(printed, 2);
    }));
}

TEST_F(ReportWindowTest, EscAndTheButtonClose) {
    EXPECT_TRUE(withWindow(window, [&] {
        press(Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    }));
    EXPECT_TRUE(withWindow(window, [&] {
        QTest::mouseClick(&window.CmdExit(), Qt::LeftButton);
        EXPECT_FALSE(window.isVisible());
    }));
}

TEST_F(ReportWindowTest, FillsTheScreenAndComesBack) {
    EXPECT_TRUE(withWindow(window, [&] {
        begin();
        const QRect before = window.preview().geometry();
        begin();
        expectMaximised(true);
        EXPECT_EQ(window.cmdBegin().text(), "&Restore");
        EXPECT_EQ(QApplication::focusWidget(), &window.cmdBegin());
        const int width = forms::toTwips(window.width());
        const int height = forms::toTwips(window.height()) + frame;
        const auto twips = [](int pixels) { return forms::toTwips(pixels); };
        EXPECT_NEAR(top(window.CmdExit()), height - 540 - twips(window.CmdExit().height()), pixel);
        EXPECT_NEAR(left(window.CmdExit()), width - 250 - twips(window.CmdExit().width()), pixel);
        EXPECT_NEAR(left(window.cmdBegin()), left(window.CmdExit()) - 150 - twips(window.cmdBegin().width()),
                    pixel);
        EXPECT_EQ(top(window.cmdBegin()), top(window.CmdExit()));
        EXPECT_EQ(top(window.lblProcess()), top(window.CmdExit()));
        EXPECT_NEAR(left(window.preview()), 50, pixel);
        EXPECT_EQ(top(window.preview()), 300);
        EXPECT_NEAR(twips(window.preview().width()), width - 100, pixel);
        EXPECT_NEAR(twips(window.preview().height()), height - 1000, pixel);
        EXPECT_EQ(window.printer().ZoomMode(), zoomWholePage);
        // What lies over the preview covers none of the page.
        EXPECT_LT(window.preview().mapTo(&window, window.preview().viewport()->geometry().bottomLeft()).y(),
                  window.cmdBegin().y());
        press(Qt::Key_Space);
        expectMaximised(false);
        EXPECT_EQ(window.cmdBegin().text(), "&Max View");
        EXPECT_EQ(window.preview().geometry(), before);
        EXPECT_NEAR(top(window.CmdExit()), twips(window.height()) + frame - 1100, pixel);
        EXPECT_EQ(top(window.cmdBegin()), top(window.CmdExit()));
        EXPECT_NEAR(left(window.CmdExit()), twips(window.width()) - 300 - twips(window.CmdExit().width()),
                    pixel);
        EXPECT_NEAR(left(window.cmdBegin()), left(window.CmdExit()) - twips(window.cmdBegin().width()) - 100,
                    15);
    }));
}

/// The two buttons lie at the lower edge, beside each other and the text, and the preview above them.
void expectAllInSight(ReportWindow& window) {
    const QRect inside = window.rect();
    for (const QWidget* control :
         {static_cast<const QWidget*>(&window.cmdBegin()), static_cast<const QWidget*>(&window.CmdExit()),
          static_cast<const QWidget*>(&window.lblProcess())}) {
        EXPECT_TRUE(inside.contains(control->geometry())) << control->objectName().toStdString();
        EXPECT_LT(inside.bottom() - control->geometry().bottom(), 20) << "no empty strip";
        EXPECT_LT(window.preview().geometry().bottom(), control->y());
    }
    EXPECT_TRUE(inside.contains(window.preview().geometry()));
    EXPECT_GT(window.preview().height(), 100);
    EXPECT_LT(window.lblProcess().geometry().right(), window.cmdBegin().x());
    EXPECT_LT(window.cmdBegin().geometry().right(), window.CmdExit().x());
    EXPECT_GE(window.lblProcess().width(),
              window.fontMetrics().horizontalAdvance("Report STOPPED BY USER (INCOMPLETE)"));
}

TEST_F(ReportWindowTest, HasItsButtonsAtTheLowerEdge) {
    EXPECT_TRUE(withWindow(window, [&] {
        expectAllInSight(window);
        begin();
        expectAllInSight(window);
        EXPECT_EQ(window.preview().geometry().topLeft(), QPoint(10, 10));
    }));
}

// As on a screen of 1,080 lines at 200 %, and on one of 768 lines.
TEST_F(ReportWindowTest, OnASmallScreenThePreviewShrinks) {
    for (const QSize room : {QSize(958, 490), QSize(520, 300)}) {
        Begun small;
        EXPECT_TRUE(withWindow(small, [&] {
            QTest::mouseClick(&small.cmdBegin(), Qt::LeftButton);
            small.resize(room);
            EXPECT_EQ(small.size(), room);
            expectAllInSight(small);
        }));
    }
}

TEST_F(ReportWindowTest, IsNoLargerThanTheScreen) {
    window.setScaleSize(60000, 60000);
    EXPECT_TRUE(withWindow(window, [&] {
        EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()));
        expectAllInSight(window);
    }));
}

TEST_F(ReportWindowTest, KeepsItsButtonsInPlaceWhenItIsSizedWhileItRuns) {
    person.onYield = [&] {
        window.resize(600, 400 + person.yields);
        EXPECT_EQ(window.cmdBegin().text(), "&Cancel");
        expectAllInSight(window);
    };
    EXPECT_TRUE(withWindow(window, [&] { begin(); }));
    EXPECT_GE(person.yields, 3);
}

/// What the routine does with a window of that size, in twips.
class ViewLimits : public ReportWindowTest {
  protected:
    ViewLimits() {
        window.setMinimumSize(0, 0);
        window.showState(ReportState::Done);
        window.showModeless();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void maximise(int width, int height) {
        window.resize(forms::toPixels(width), forms::toPixels(height));
        window.preview().show();
        vdPrintView(window, true, {150, 150, 3000, 3000});
    }
};

TEST_F(ViewLimits, AWindowOfLessThan400By100IsLeftAsItIs) {
    maximise(9000, 385);
    EXPECT_EQ(window.cmdBegin().text(), "&Max View");
    maximise(9000, 405);
    EXPECT_EQ(window.cmdBegin().text(), "&Restore");
    window.showState(ReportState::Done);
    maximise(90, 9000);
    EXPECT_EQ(window.cmdBegin().text(), "&Max View");
    maximise(105, 9000);
    EXPECT_EQ(window.cmdBegin().text(), "&Restore");
}

TEST_F(ViewLimits, OneOfLessThan3000IsTooNarrowForThePreview) {
    window.printer().ZoomMode(zoomPageWidth);
    maximise(2985, 6000);
    EXPECT_EQ(window.cmdBegin().text(), "&Restore");
    EXPECT_FALSE(window.preview().isVisible());
    EXPECT_EQ(window.printer().ZoomMode(), zoomPageWidth);
    maximise(3000, 6000);
    EXPECT_TRUE(window.preview().isVisible());
    EXPECT_EQ(window.printer().ZoomMode(), zoomWholePage);
    EXPECT_NEAR(forms::toTwips(window.preview().width()), 2900, pixel);
}

TEST_F(ViewLimits, TheLastFlagLeavesMoreSpaceBelow) {
    maximise(9000, 9000);
    const int buttons = top(window.CmdExit()), preview = window.preview().height();
    vdPrintView(window, true, {150, 150, 3000, 3000}, "P", true);
    EXPECT_NEAR(top(window.CmdExit()), buttons - 360, pixel);
    EXPECT_NEAR(forms::toTwips(preview - window.preview().height()), 400, pixel);
}

TEST_F(ViewLimits, TheFocusIsLeftWhereItIsInAWindowThatIsMaximisedAlready) {
    window.CmdExit().setFocus();
    maximise(9000, 9000);
    EXPECT_TRUE(window.cmdBegin().hasFocus());
    window.CmdExit().setFocus();
    maximise(9000, 9000);
    EXPECT_TRUE(window.CmdExit().hasFocus());
}

TEST_F(ReportWindowTest, FitsAWidePageByItsWidthWhenMaximised) {
    window.orientation = "L";
    EXPECT_TRUE(withWindow(window, [&] {
        begin();
        EXPECT_EQ(window.printer().ZoomMode(), zoomWholePage);
        begin();
        expectMaximised(true);
        EXPECT_EQ(window.printer().ZoomMode(), zoomPageWidth);
    }));
}

TEST_F(ReportWindowTest, PutsTheOrientationBackWhenItGoes) {
    window.orientation = "L";
    EXPECT_TRUE(withWindow(window, [&] {
        begin();
        window.printer().Orientation(orientationLandscape);
    }));
    EXPECT_EQ(window.printer().Orientation(), orientationPortrait);
}

TEST_F(ReportWindowTest, ItsControlsCanBeReadOut) {
    EXPECT_TRUE(withWindow(window, [&] {
        begin();
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&window.preview())->text(QAccessible::Name),
                  "Report preview");
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&window.preview())->text(QAccessible::Description),
                  "Page 1 of 3");
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&window.lblProcess())->text(QAccessible::Name),
                  "Report Finished, Press 'P' to Print");
    }));
}

} // namespace
} // namespace tol::test
