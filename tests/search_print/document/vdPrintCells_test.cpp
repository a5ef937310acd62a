// SPDX-License-Identifier: MIT
#include "search_print/document/vdPrintCells.h"

#include "Drawn.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace search_print;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

/// One cell on a page, and where its text begins.
class Cell {
  public:
    explicit Cell(std::string_view text, CellLook look = {}, double width = 2000) {
        m_printer.MarginRight(0);
        next = vdPrintCell(m_printer, 1000, 3000, 250, width, text, look);
        lines = drawn(m_printer);
        for (const Primitive& primitive : m_printer.document().pages[0].primitives)
            if (const auto* drawnText = std::get_if<Text>(&primitive))
                x = drawnText->x;
        m_printer.FontName("Courier New");
        m_printer.FontSize(8);
        textWidth = m_printer.TextWidth(text);
    }

    std::vector<std::string> lines;
    double next = 0, x = 0, textWidth = 0;

  private:
    Document m_printer;
};

TEST(vdPrintCell, DrawsAFrameAndTheText) {
    const Cell cell("NORTH YARD");
    EXPECT_EQ(cell.next, 3000);
    EXPECT_THAT(cell.lines,
                ElementsAre("box 1000 3000 3000 3250 pen 5", "text 1080 3062.5 Courier New 8: NORTH YARD"));
}

TEST(vdPrintCell, ABlankTextIsAFrameAlone) {
    EXPECT_THAT(Cell("").lines, ElementsAre("box 1000 3000 3000 3250 pen 5"));
    EXPECT_THAT(Cell("   ").lines, SizeIs(1));
}

TEST(vdPrintCell, PlacesTheText) {
    const Cell centred("ABC", {.center = true});
    EXPECT_DOUBLE_EQ(centred.x, 1000 + (2000 - centred.textWidth) / 2);
    const Cell right("ABC", {.right = true});
    EXPECT_DOUBLE_EQ(right.x, 3000 - right.textWidth - 50);
    EXPECT_DOUBLE_EQ(Cell("ABC", {.center = true, .right = true}).x, right.x);
    const Cell decimal("12.50", {.center = true, .decimal = true});
    EXPECT_DOUBLE_EQ(decimal.x, 1000 + 1900 - decimal.textWidth);
}

TEST(vdPrintCell, BoldIsOffAfterwards) {
    Document printer;
    printer.FontBold(true);
    vdPrintCell(printer, 0, 0, 250, 2000, "A", {.bold = true});
    EXPECT_THAT(drawn(printer)[1], HasSubstr("Courier New 8 bold: A"));
    EXPECT_FALSE(printer.FontBold());
}

TEST(vdPrintCell, ATextWiderThanTheCellLess100IsPrintedInSize6) {
    // 19 characters of 96 twips are 1824.3 wide: with 100 they fit in 1925, not in 1924.
    const std::string text(19, 'A');
    EXPECT_THAT(Cell(text, {}, 1925).lines[1], HasSubstr("Courier New 8: "));
    EXPECT_THAT(Cell(text, {}, 1924).lines[1], "text 1080 3062.5 Courier New 6: " + text);
}

TEST(vdPrintCell, ATooWideTextStaysWhereItWasPlaced) {
    const Cell cell(std::string(30, 'A'), {.center = true});
    EXPECT_DOUBLE_EQ(cell.x, 1000 + (2000 - cell.textWidth) / 2);
}

TEST(vdPrintCell, PutsTheSettingsBack) {
    Document printer;
    printer.PenStyle(0);
    printer.PenWidth(10);
    printer.FontName("Arial");
    printer.FontSize(12);
    printer.BrushColor(qRgb(9, 9, 9));
    vdPrintCell(printer, 0, 0, 250, 300, "too wide for it");
    EXPECT_EQ(printer.BrushStyle(), brushSolid);
    EXPECT_EQ(printer.PenWidth(), 10);
    EXPECT_EQ(printer.FontName(), "Arial");
    EXPECT_EQ(printer.FontSize(), 12);
    EXPECT_EQ(printer.BrushColor(), qRgb(9, 9, 9));
}

TEST(vdPrintCell, AFittedTextBeginsBehindBlanksAtTheLeftMargin) {
    Document printer;
    vdPrintCell(printer, 1000, 3000, 250, 2000, "fits", {.fit = true});
    // Blanks of 96 twips that reach 700.
    EXPECT_THAT(drawn(printer)[1], "text 500 3062.5 Courier New 8:         fits");
}

TEST(vdPrintCell, AFittedTextIsIndented) {
    Document printer;
    vdPrintCell(printer, 1000, 3000, 250, 2000, "fits", {.fit = true, .indent = 200});
    EXPECT_THAT(drawn(printer)[1], "text 500 3062.5 Courier New 8:           fits");
}

TEST(vdPrintCell, AFittedTextOfSeveralLinesIsPrintedInSize7) {
    Document printer;
    printer.MarginRight(8000);
    vdPrintCell(printer, 500, 3000, 250, 2000,
                "a text that takes more than a line, and more than two of them", {.fit = true});
    const std::vector<std::string> lines = drawn(printer);
    ASSERT_THAT(lines, SizeIs(testing::Ge(3U)));
    EXPECT_THAT(lines[1], HasSubstr("Courier New 7:    a text that"));
    EXPECT_THAT(lines[2], HasSubstr("text 500 "));
}

TEST(vdPrintTitleCell, DrawsAGreyBoxWithACentredBoldLine) {
    Document printer;
    printer.FontName("Arial");
    printer.FontSize(8);
    printer.FontBold(true);
    const double width = printer.TextWidth("Job Site");
    EXPECT_EQ(vdPrintTitleCell(printer, 1000, 2000, 250, 1200, "Job Site"), 2200);
    const std::vector<std::string> lines = drawn(printer);
    EXPECT_EQ(lines[0], "box 1000 2000 2200 2250 pen 5 fill e6e6e6");
    EXPECT_THAT(lines[1], HasSubstr("2040 Arial 8 bold: Job Site"));
    EXPECT_DOUBLE_EQ(std::get<Text>(printer.document().pages[0].primitives[1]).x, 1000 + (1200 - width) / 2);
}

TEST(vdPrintTitleCell, HasASecondLineWhenThereIsOne) {
    Document printer;
    vdPrintTitleCell(printer, 1000, 2000, 250, 1200, "First", "Second");
    const std::vector<std::string> lines = drawn(printer);
    EXPECT_EQ(lines[0], "box 1000 2000 2200 2500 pen 5 fill e6e6e6");
    EXPECT_THAT(lines[1], HasSubstr(" 2040 Arial 8 bold: First"));
    EXPECT_THAT(lines[2], HasSubstr(" 2240 Arial 8 bold: Second"));
    vdPrintTitleCell(printer, 1000, 3000, 250, 1200, "First", "  ");
    EXPECT_THAT(drawn(printer), SizeIs(5));
}

TEST(vdPrintTitleCell, IsLeftAlignedOrLargeWhenAsked) {
    Document printer;
    vdPrintTitleCell(printer, 1000, 2000, 250, 1200, "Left", "", true);
    vdPrintTitleCell(printer, 1000, 2000, 500, 5000, "Large", "", true, true);
    EXPECT_THAT(drawn(printer), ElementsAre(testing::_, "text 1040 2040 Arial 8 bold: Left", testing::_,
                                            "text 1040 2040 Arial 16 bold: Large"));
}

TEST(vdPrintTitleCell, OfNoWidthIsALine) {
    Document printer;
    EXPECT_EQ(vdPrintTitleCell(printer, 1000, 2000, 250, 0, "Gone"), 1000);
    EXPECT_EQ(drawn(printer)[0], "line 1000 2000 1000 2250 pen 5");
}

TEST(vdPrintTitleCell, PutsColourFontAndAlignmentBack) {
    Document printer;
    printer.TextAlign(alignCenter);
    printer.FontName("Times New Roman");
    printer.FontSize(18);
    printer.BrushColor(qRgb(9, 9, 9));
    vdPrintTitleCell(printer, 1000, 2000, 250, 1200, "Job Site");
    EXPECT_EQ(printer.TextAlign(), alignCenter);
    EXPECT_EQ(printer.FontName(), "Times New Roman");
    EXPECT_EQ(printer.FontSize(), 18);
    EXPECT_FALSE(printer.FontBold());
    EXPECT_EQ(printer.BrushColor(), qRgb(9, 9, 9));
}

} // namespace
} // namespace tol::test
