// SPDX-License-Identifier: MIT
#include "search_print/document/vdPrintRun.h"

#include "Drawn.h"
#include "support/TestHost.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace search_print;
using testing::ElementsAre;
using testing::IsEmpty;

class RecordingView : public ReportView {
  public:
    void showState(ReportState state) override { states.push_back(state); }
    void setProcess(const std::string& text) override { processes.push_back(text); }
    bool keepPrinting() override { return true; }

    std::vector<ReportState> states;
    std::vector<std::string> processes;
};

class vdPrintRun : public testing::Test {
  protected:
    TestHost person;
    RecordingView view;
    VSPrinter printer{paperA4};
};

TEST_F(vdPrintRun, StartSetsThePrinterUpAndBegins) {
    printer.Orientation(orientationLandscape);
    printer.PenStyle(5);
    EXPECT_TRUE(vdPrintStart(view, printer));
    EXPECT_THAT(view.states, ElementsAre(ReportState::Running));
    EXPECT_EQ(printer.PrintQuality(), -4);
    EXPECT_EQ(printer.Orientation(), orientationPortrait);
    EXPECT_EQ(printer.colourMode(), 2);
    EXPECT_EQ(printer.MarginLeft(), 500);
    EXPECT_EQ(printer.MarginRight(), 500);
    EXPECT_EQ(printer.MarginTop(), 500);
    EXPECT_EQ(printer.MarginBottom(), 500);
    EXPECT_EQ(printer.previewNavigation(), 7);
    EXPECT_EQ(printer.PenStyle(), 0);
    EXPECT_EQ(printer.PenWidth(), 10);
    printer.Text("drawn");
    EXPECT_EQ(printer.PageCount(), 1);
}

TEST_F(vdPrintRun, StartTakesTheCallersPaperMarginsAndNavigation) {
    EXPECT_TRUE(vdPrintStart(view, printer, "l", true, {.left = 100, .bottom = 700}));
    EXPECT_EQ(printer.Orientation(), orientationLandscape);
    EXPECT_EQ(printer.MarginLeft(), 100);
    EXPECT_EQ(printer.MarginRight(), 500);
    EXPECT_EQ(printer.MarginBottom(), 700);
    EXPECT_EQ(printer.previewNavigation(), 0);
    for (const char* portrait : {"P", "p", " ", "", "X"}) {
        vdPrintStart(view, printer, portrait);
        EXPECT_EQ(printer.Orientation(), orientationPortrait) << portrait;
    }
}

TEST_F(vdPrintRun, StartRefusesAPrinterThatCanNotBeUsed) {
    printer.setError(7);
    EXPECT_FALSE(vdPrintStart(view, printer, "L"));
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].text, "Printer Problem Detected");
    EXPECT_EQ(person.boxes[0].title, "Printer Error");
    EXPECT_EQ(person.boxes[0].style.icon, runtime::MsgIcon::Critical);
    EXPECT_EQ(printer.Orientation(), orientationPortrait);
    printer.Text("dropped");
    EXPECT_EQ(printer.PageCount(), 0);
    EXPECT_THAT(view.states, ElementsAre(ReportState::Running));
}

TEST_F(vdPrintRun, FinishEndsTheDocument) {
    vdPrintStart(view, printer, "L");
    printer.Text("drawn");
    printer.ZoomMode(zoomPageWidth);
    view.states.clear();
    EXPECT_TRUE(vdPrintFinish(view, printer, orientationPortrait, true));
    EXPECT_THAT(view.states, ElementsAre(ReportState::Done));
    EXPECT_THAT(view.processes, ElementsAre("Report Finished, Press 'P' to Print"));
    EXPECT_EQ(printer.ZoomMode(), 4);
    EXPECT_EQ(printer.previewNavigation(), 0);
    EXPECT_EQ(printer.PenWidth(), 0);
    EXPECT_EQ(printer.Orientation(), orientationPortrait);
    printer.Text("dropped");
    EXPECT_THAT(textsOf(printer), ElementsAre("drawn"));
}

TEST_F(vdPrintRun, FinishTellsOfAReportThatWasNotStarted) {
    EXPECT_TRUE(vdPrintFinish(view, printer, orientationPortrait, false));
    EXPECT_EQ(view.processes.back(), "Report STOPPED BY USER (INCOMPLETE)");
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(vdPrintRun, TellsThePageInWork) {
    vdPrintStart(view, printer);
    printer.NewPage();
    printer.NewPage();
    showPageProgress(view, printer);
    EXPECT_EQ(view.processes.back(), "Printing Page: 2");
}

} // namespace
} // namespace tol::test
