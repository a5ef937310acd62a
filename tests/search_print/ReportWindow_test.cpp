// SPDX-License-Identifier: MIT
#include "search_print/ReportWindow.h"

#include "PrintedFolder.h"
#include "forms/Twips.h"
#include "search_print/PreviewWidget.h"
#include "search_print/document/vdPrintRun.h"
#include "support/TestHost.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
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

constexpr int pixel = 15; // twips

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
        const int height = forms::toTwips(window.height());
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
        EXPECT_NEAR(top(window.CmdExit()), twips(window.height()) - 1100, pixel);
        EXPECT_EQ(top(window.cmdBegin()), top(window.CmdExit()));
        EXPECT_NEAR(left(window.CmdExit()), twips(window.width()) - 300 - twips(window.CmdExit().width()),
                    pixel);
        EXPECT_NEAR(left(window.cmdBegin()), left(window.CmdExit()) - twips(window.cmdBegin().width()) - 100,
                    15);
    }));
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
