// SPDX-License-Identifier: MIT
#include "search_print/document/VSPrinter.h"

#include "Drawn.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace search_print;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(VSPrinter, HasThePaperInTheOrientationInForce) {
    VSPrinter printer(paperLetter);
    EXPECT_EQ(printer.Orientation(), orientationPortrait);
    EXPECT_EQ(printer.PageWidth(), 12240);
    EXPECT_EQ(printer.PageHeight(), 15840);
    printer.Orientation(orientationLandscape);
    EXPECT_EQ(printer.PageWidth(), 15840);
    EXPECT_EQ(printer.PageHeight(), 12240);
}

TEST(VSPrinter, APageKeepsTheSizeItWasBegunWith) {
    Document printer;
    printer.NewPage();
    printer.Orientation(orientationLandscape);
    printer.NewPage();
    printer.Orientation(orientationPortrait);
    EXPECT_EQ(printer.document().pages[0].width, 11906);
    EXPECT_EQ(printer.document().pages[1].width, 16838);
}

TEST(VSPrinter, BeginsAPageWithTheFirstThingDrawn) {
    Document printer;
    EXPECT_EQ(printer.CurrentPage(), 0);
    printer.Text("A");
    EXPECT_EQ(printer.CurrentPage(), 1);
    printer.NewPage();
    printer.Text("B");
    EXPECT_EQ(printer.CurrentPage(), 2);
    printer.EndDoc();
    EXPECT_EQ(printer.PageCount(), 2);
    EXPECT_THAT(textsOf(printer, 1), ElementsAre("A"));
    EXPECT_THAT(textsOf(printer, 2), ElementsAre("B"));
}

TEST(VSPrinter, DropsWhatIsDrawnOutsideADocument) {
    VSPrinter printer;
    printer.Text("A");
    printer.TextBox("B", 0, 0, 100, 100);
    printer.DrawRectangle(0, 0, 10, 10);
    printer.wrappedText("C");
    printer.NewPage();
    printer.EndDoc();
    EXPECT_EQ(printer.PageCount(), 0);
    printer.StartDoc();
    printer.Text("D");
    printer.EndDoc();
    printer.Text("E");
    EXPECT_THAT(textsOf(printer), ElementsAre("D"));
}

TEST(VSPrinter, StartDocForgetsTheDocumentBefore) {
    Document printer;
    printer.NewPage();
    printer.NewPage();
    printer.PreviewPage(2);
    printer.StartDoc();
    EXPECT_EQ(printer.PageCount(), 0);
    EXPECT_EQ(printer.PreviewPage(), 0);
}

TEST(VSPrinter, PrintsTextAtThePositionAndMovesBehindIt) {
    Document printer;
    printer.FontName("Courier New");
    printer.FontSize(8);
    printer.CurrentX(580);
    printer.CurrentY(1000);
    printer.Text("AB");
    EXPECT_NEAR(printer.CurrentX(), 580 + 2 * 96, 0.5);
    EXPECT_EQ(printer.CurrentY(), 1000);
    EXPECT_THAT(drawn(printer), ElementsAre("text 580 1000 Courier New 8: AB"));
}

TEST(VSPrinter, CentresBetweenTheMarginsAndEndsAtTheRightOne) {
    Document printer;
    printer.MarginLeft(1000);
    const double width = printer.TextWidth("Title");
    printer.TextAlign(alignCenter);
    printer.Text("Title");
    printer.TextAlign(alignRight);
    printer.Text("Title");
    const Page& page = printer.document().pages[0];
    EXPECT_DOUBLE_EQ(std::get<Text>(page.primitives[0]).x, (1000 + 11406 - width) / 2);
    EXPECT_DOUBLE_EQ(std::get<Text>(page.primitives[1]).x, 11406 - width);
}

TEST(VSPrinter, PrintsLineBreaksAndControlsAsBlanks) {
    Document printer;
    printer.Text("A\r\nB\tC\xE2\x80\xA8"
                 "D");
    EXPECT_THAT(textsOf(printer), ElementsAre("A  B C D"));
}

TEST(VSPrinter, DrawsRectanglesByPenAndBrush) {
    Document printer;
    printer.BrushColor(qRgb(1, 2, 3));
    printer.DrawRectangle(100, 200, 300, 400);
    printer.BrushStyle(brushTransparent);
    printer.PenWidth(5);
    printer.DrawRectangle(300, 400, 100, 200);
    printer.BrushStyle(brushSolid);
    printer.PenStyle(5);
    printer.DrawRectangle(100, 200, 300, 400);
    EXPECT_THAT(drawn(printer), ElementsAre("box 100 200 300 400 pen 10 fill 010203",
                                            "box 100 200 300 400 pen 5", "box 100 200 300 400 fill 010203"));
}

TEST(VSPrinter, ARectangleWithoutAnAreaIsALine) {
    Document printer;
    printer.PenWidth(5);
    printer.DrawRectangle(100, 200, 100, 450);
    printer.DrawRectangle(100, 200, 500, 200);
    EXPECT_THAT(drawn(printer), ElementsAre("line 100 200 100 450 pen 5", "line 100 200 500 200 pen 5"));
}

TEST(VSPrinter, ATextBoxHoldsItsTextInTheMiddleOfItsHeight) {
    Document printer;
    printer.FontName("Courier New");
    printer.FontSize(8);
    printer.PenWidth(5);
    printer.BrushColor(qRgb(225, 225, 225));
    const double top = 1000 + (200 - printer.TextHeight("x")) / 2;
    printer.TextBox("left", 500, 1000, 2000, 200);
    printer.TextAlign(alignRight);
    printer.TextBox("right ", 2500, 1000, 2000, 200);
    const std::vector<Primitive>& primitives = printer.document().pages[0].primitives;
    ASSERT_THAT(primitives, SizeIs(4));
    EXPECT_EQ(std::get<Box>(primitives[0]), (Box{500, 1000, 2500, 1200, 5, qRgb(225, 225, 225)}));
    EXPECT_EQ(std::get<Text>(primitives[1]).x, 500);
    EXPECT_EQ(std::get<Text>(primitives[1]).y, top);
    EXPECT_DOUBLE_EQ(std::get<Text>(primitives[3]).x, 4500 - printer.TextWidth("right "));
}

TEST(VSPrinter, ATextBoxMakesATextThatIsTooWideSmaller) {
    Document printer;
    printer.FontName("Courier New");
    printer.FontSize(8);
    printer.TextBox("ABCDEFGHIJ", 500, 1000, 480, 200); // needs 960
    EXPECT_EQ(printer.FontSize(), 8);
    EXPECT_THAT(drawn(printer).back(), testing::HasSubstr("Courier New 4"));
    printer.TextBox("ABCDEFGHIJ", 500, 1000, 10, 200); // nobody could read what fits
    EXPECT_THAT(drawn(printer).back(), testing::HasSubstr("Courier New 4: ABCDEFGHIJ"));
}

TEST(VSPrinter, WrapsTextBetweenTheMargins) {
    Document printer;
    printer.MarginLeft(1000);
    printer.MarginRight(11906 - 1000 - 1000); // room for ten characters
    printer.FontName("Courier New");
    printer.FontSize(8);
    printer.CurrentY(700);
    const double height = printer.TextHeight("x");
    EXPECT_DOUBLE_EQ(printer.wrappedHeight("one two three extraordinary x"), 4 * height);
    printer.wrappedText("one two three extraordinary x");
    EXPECT_THAT(textsOf(printer), ElementsAre("one two", "three", "extraordinary", "x"));
    EXPECT_DOUBLE_EQ(printer.CurrentY(), 700 + 4 * height);
    EXPECT_DOUBLE_EQ(printer.wrappedHeight(""), height);
}

TEST(VSPrinter, RefusesToShowAPageThatDoesNotExist) {
    Document printer;
    printer.PreviewPage(1);
    EXPECT_EQ(printer.PreviewPage(), 0);
    printer.NewPage();
    EXPECT_EQ(printer.PreviewPage(), 1);
    printer.NewPage();
    printer.EndDoc();
    for (const int refused : {0, -1, 3, 32767})
        printer.PreviewPage(refused);
    EXPECT_EQ(printer.PreviewPage(), 1);
    printer.PreviewPage(2);
    EXPECT_EQ(printer.PreviewPage(), 2);
}

TEST(VSPrinter, TellsThePreviewOfEachChange) {
    VSPrinter printer;
    int told = 0;
    printer.onPreviewChanged = [&] { ++told; };
    printer.StartDoc();
    EXPECT_EQ(told, 1);
    printer.NewPage();
    printer.Text("A");
    EXPECT_EQ(told, 2);
    printer.EndDoc();
    printer.ZoomMode(zoomPageWidth);
    printer.previewNavigation(navigationRunning);
    EXPECT_EQ(told, 5);
    printer.PreviewPage(1); // on show already
    EXPECT_EQ(told, 5);
}

TEST(VSPrinter, PrintsADocumentThatHasAPage) {
    VSPrinter printer;
    std::vector<bool> asked;
    printer.onPrint = [&](bool dialog) { asked.push_back(dialog); };
    printer.StartDoc();
    printer.EndDoc();
    printer.PrintDoc(true);
    EXPECT_THAT(asked, IsEmpty());
    printer.StartDoc();
    printer.NewPage();
    printer.EndDoc();
    printer.PrintDoc(true);
    EXPECT_THAT(asked, ElementsAre(true));
}

TEST(VSPrinter, KeepsEachFontOnce) {
    Document printer;
    for (int row = 0; row < 3; ++row) {
        printer.FontName("Courier New");
        printer.FontSize(8);
        printer.Text("A");
        printer.FontName("Arial");
        printer.Text("B");
    }
    EXPECT_EQ(std::get<Text>(printer.document().pages[0].primitives[4]).font, 0U);
    EXPECT_EQ(std::get<Text>(printer.document().pages[0].primitives[5]).font, 1U);
}

} // namespace
} // namespace tol::test
