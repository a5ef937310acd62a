// SPDX-License-Identifier: MIT
#include "search_print/document/vdPrintFooter.h"

#include "Drawn.h"
#include "platform/System.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace search_print;
using testing::ElementsAre;
using testing::HasSubstr;

/// A clock that stands still, for as long as it lives.
class StoppedClock {
  public:
    explicit StoppedClock(runtime::DateParts time) {
        platform::setClock([time] { return runtime::makeDate(time); });
    }
    StoppedClock(const StoppedClock&) = delete;
    StoppedClock& operator=(const StoppedClock&) = delete;
    ~StoppedClock() { platform::setClock({}); }
};

std::vector<Box> boxesOf(const VSPrinter& printer) {
    std::vector<Box> boxes;
    for (const Primitive& primitive : printer.document().pages[0].primitives)
        if (const auto* box = std::get_if<Box>(&primitive))
            boxes.push_back(*box);
    return boxes;
}

std::vector<double> widthsOf(const VSPrinter& printer) {
    std::vector<double> widths;
    for (const Box& box : boxesOf(printer))
        widths.push_back(box.right - box.left);
    return widths;
}

TEST(vdPrintFooter, DrawsTenCellsFromMarginToMargin) {
    const StoppedClock clock({.year = 2003, .month = 1, .day = 31, .hour = 16, .minute = 5, .second = 9});
    Document printer(paperLetter);
    printer.NewPage();
    EXPECT_EQ(vdPrintFooter(printer, "Tolvane Module", "Modules", true, true, true), 1);
    EXPECT_THAT(textsOf(printer), ElementsAre("Module  ", "  Tolvane Module", "Report  ", " Modules", "Date ",
                                              "  01/31/2003", "Time ", "  4:05  PM", "Page ", "  1"));
    // The report's cell gives 3640 away to the others.
    EXPECT_THAT(widthsOf(printer),
                ElementsAre(760, 2380, 680, 12240 - 500 - 4320 - 3640, 440, 1000, 480, 800, 460, 460));
    const std::vector<Box> boxes = boxesOf(printer);
    EXPECT_EQ(boxes.front().left, 500);
    EXPECT_EQ(boxes.back().right, 12240 - 500);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        EXPECT_EQ(boxes[i].top, 15840 - 500 - 200);
        EXPECT_EQ(boxes[i].bottom, 15840 - 500);
        EXPECT_EQ(boxes[i].penWidth, 5);
        EXPECT_EQ(boxes[i].fill, i % 2 == 0 ? qRgb(225, 225, 225) : qRgb(255, 255, 255));
        EXPECT_TRUE(i == 0 || boxes[i].left == boxes[i - 1].right);
    }
}

TEST(vdPrintFooter, LeavesTheReportMoreRoomWithoutTheOthers) {
    const auto reportWidth = [](bool date, bool time, bool page) {
        Document printer(paperLetter);
        EXPECT_EQ(vdPrintFooter(printer, "", "R", date, time, page), 1);
        return widthsOf(printer)[3];
    };
    const double all = 12240 - 1000 - 760 - 2380 - 680;
    EXPECT_EQ(reportWidth(false, false, false), all);
    EXPECT_EQ(reportWidth(true, false, false), all - 1440);
    EXPECT_EQ(reportWidth(false, true, false), all - 1280);
    EXPECT_EQ(reportWidth(false, false, true), all - 920);
    EXPECT_EQ(reportWidth(true, true, true), all - 3640);
}

TEST(vdPrintFooter, AlignsLabelsRightAndTheTimeInTheMiddle) {
    const StoppedClock clock({.year = 2003, .month = 1, .day = 31, .hour = 4, .minute = 5});
    Document printer;
    vdPrintFooter(printer, "M", "R", true, true, true);
    printer.FontName("Arial");
    printer.FontSize(8);
    const std::vector<Primitive>& primitives = printer.document().pages[0].primitives;
    const auto text = [&](std::size_t cell) { return std::get<Text>(primitives[2 * cell + 1]); };
    const auto box = [&](std::size_t cell) { return std::get<Box>(primitives[2 * cell]); };
    EXPECT_DOUBLE_EQ(text(0).x, box(0).right - printer.TextWidth("Module  "));
    EXPECT_DOUBLE_EQ(text(1).x, box(1).left);
    EXPECT_DOUBLE_EQ(text(7).x, (box(7).left + box(7).right - printer.TextWidth("  4:05  AM")) / 2);
    EXPECT_THAT(drawn(printer)[1], HasSubstr(" Arial 8: "));
}

std::string timeCellAt(int hour, int minute) {
    const StoppedClock clock(
        {.year = 2024, .month = 12, .day = 5, .hour = hour, .minute = minute, .second = 59});
    Document printer;
    vdPrintFooter(printer, "", "", false, true, false);
    return textsOf(printer).back();
}

TEST(vdPrintFooter, TellsTheTimeWithoutSeconds) {
    EXPECT_EQ(timeCellAt(0, 0), "  12:00 AM");
    EXPECT_EQ(timeCellAt(9, 59), "  9:59  AM");
    EXPECT_EQ(timeCellAt(10, 7), "  10:07 AM");
    EXPECT_EQ(timeCellAt(12, 30), "  12:30 PM");
    EXPECT_EQ(timeCellAt(13, 0), "  1:00  PM");
    EXPECT_EQ(timeCellAt(23, 59), "  11:59 PM");
}

TEST(vdPrintFooter, TellsTheDateAtMidnight) {
    const StoppedClock clock({.year = 2024, .month = 2, .day = 29});
    Document printer;
    vdPrintFooter(printer, "", "", true, true, false);
    EXPECT_EQ(textsOf(printer)[5], "  02/29/2024");
    EXPECT_EQ(textsOf(printer)[7], "  12:00 AM");
}

TEST(vdPrintFooter, NumbersThePages) {
    Document printer;
    for (int page = 1; page <= 12; ++page) {
        printer.NewPage();
        vdPrintFooter(printer, "", "", false, false, true);
    }
    EXPECT_EQ(textsOf(printer, 1).back(), "  1");
    EXPECT_EQ(textsOf(printer, 12).back(), "  12");
}

TEST(vdPrintFooter, PutsAllSettingsBack) {
    Document printer;
    printer.FontName("Times New Roman");
    printer.FontSize(18);
    printer.FontBold(true);
    printer.TextAlign(alignCenter);
    printer.BrushColor(qRgb(9, 9, 9));
    printer.BrushStyle(brushTransparent);
    vdPrintFooter(printer, "M", "R", true, true, true);
    EXPECT_EQ(printer.FontName(), "Times New Roman");
    EXPECT_EQ(printer.FontSize(), 18);
    EXPECT_TRUE(printer.FontBold());
    EXPECT_EQ(printer.TextAlign(), alignCenter);
    EXPECT_EQ(printer.PenWidth(), 10);
    EXPECT_EQ(printer.BrushColor(), qRgb(9, 9, 9));
    EXPECT_EQ(printer.BrushStyle(), brushTransparent);
}

TEST(vdPrintFooter, AnErrorLeavesTheStripUnfinished) {
    platform::setClock([]() -> runtime::Date { runtime::raise(runtime::errInvalidCall); });
    Document printer;
    printer.FontName("Times New Roman");
    EXPECT_EQ(vdPrintFooter(printer, "M", "R", true, true, true), 0);
    platform::setClock({});
    EXPECT_THAT(textsOf(printer), ElementsAre("Module  ", "  M", "Report  ", " R"));
    EXPECT_EQ(printer.FontName(), "Times New Roman");
}

TEST(vdPrintFooter, ALongReportTitleIsMadeToFit) {
    Document printer;
    vdPrintFooter(printer, "M", std::string(80, 'W'), true, true, true);
    printer.FontName("Arial");
    const auto& text = std::get<Text>(printer.document().pages[0].primitives[7]);
    const auto& box = std::get<Box>(printer.document().pages[0].primitives[6]);
    const DocumentFont& font = printer.document().font(text.font);
    EXPECT_LT(font.spec().size, 8);
    EXPECT_GE(font.spec().size, 4);
    EXPECT_EQ(text.x, box.left);
}

} // namespace
} // namespace tol::test
