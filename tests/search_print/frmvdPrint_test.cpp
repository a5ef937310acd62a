// SPDX-License-Identifier: MIT
#include "search_print/frmvdPrint.h"

#include "PrintedFolder.h"
#include "data/DBEngine.h"
#include "document/Drawn.h"
#include "forms/windows/LoadedForms.h"
#include "platform/System.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "search_print/PreviewWidget.h"
#include "support/KeepPicture.h"
#include "support/TestHost.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace tol::test {
namespace {

using namespace search_print;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

class frmvdPrintTest : public testing::Test {
  protected:
    frmvdPrintTest() {
        platform::setClock(
            [] { return runtime::makeDate({.year = 2026, .month = 11, .day = 3, .hour = 9}); });
    }
    ~frmvdPrintTest() override { platform::setClock({}); }

    /// The texts of all pages of the report.
    static std::vector<std::string> printed(const PrintRequest& request) {
        std::vector<std::string> texts;
        EXPECT_TRUE(withReport(request, [&](ReportWindow& window) {
            for (int page = 1; page <= window.printer().PageCount(); ++page)
                for (std::string& text : textsOf(window.printer(), page))
                    texts.push_back(std::move(text));
        }));
        return texts;
    }

    PrintedFolder folder;
    TestHost person;
};

TEST_F(frmvdPrintTest, DrawsTheReportBeforeItIsSeen) {
    folder.addRows(120);
    EXPECT_TRUE(withReport(namesAndPlaces(), [](ReportWindow& window) {
        EXPECT_EQ(window.objectName(), "frmvdPrint");
        EXPECT_EQ(window.windowTitle(), "Print the List of Names");
        EXPECT_EQ(window.printer().PageCount(), 3);
        EXPECT_EQ(window.printer().PreviewPage(), 1);
        EXPECT_EQ(window.lblProcess().text(), "Report Finished, Press 'P' to Print");
        EXPECT_EQ(window.cmdBegin().text(), "&Max View");
        EXPECT_EQ(window.CmdExit().text(), "E&xit");
        EXPECT_TRUE(window.cmdBegin().isVisible());
        EXPECT_TRUE(window.preview().isVisible());
        keepPicture(window, "list-report");
    }));
    EXPECT_EQ(person.yields, 120);
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(frmvdPrintTest, HidesButtonAndProgressWhileItDraws) {
    folder.addRows(1);
    person.onYield = [] {
        auto* window = dynamic_cast<ReportWindow*>(forms::LoadedForms::find("frmvdPrint"));
        ASSERT_NE(window, nullptr);
        EXPECT_FALSE(window->isVisible());
        EXPECT_EQ(window->cmdBegin().text(), "&Cancel");
        EXPECT_TRUE(window->cmdBegin().isHidden());
        EXPECT_EQ(window->lblProcess().text(), "Printing Page: 1");
    };
    EXPECT_TRUE(withReport(namesAndPlaces(), [](ReportWindow&) {}));
}

TEST_F(frmvdPrintTest, DrawsHeadingTitlesRowsAndFooter) {
    folder.add({{"NORTH", "C:\\NORTH"}, {"EAST", "C:\\EAST"}});
    EXPECT_THAT(printed(namesAndPlaces()),
                ElementsAre("Module  ", "  Tolvane Module", "Report  ", " List of Names", "Date ",
                            "  11/03/2026", "Time ", "  9:00  AM", "Page ", "  1", "List of Names", "Name",
                            "Place", " EAST", " C:\\EAST", " NORTH", " C:\\NORTH"));
}

TEST_F(frmvdPrintTest, PlacesEverythingByTwips) {
    folder.add({{"NORTH", "C:\\NORTH"}});
    EXPECT_TRUE(withReport(namesAndPlaces(), [](ReportWindow& window) {
        const VSPrinter& printer = window.printer();
        ASSERT_EQ(printer.PageWidth(), 11906);
        const std::vector<std::string> lines = drawn(printer);
        // The table is 8000 wide: it begins at 500 + (11906 - 1000 - 8000) / 2.
        EXPECT_THAT(lines, IsSupersetOf({"box 1953 1200 3953 1450 pen 5 fill e6e6e6",
                                         "box 3953 1200 9953 1450 pen 5 fill e6e6e6",
                                         "box 1953 1450 3953 1700 pen 5", "box 3953 1450 9953 1700 pen 5",
                                         "text 4033 1512.5 Courier New 8:  C:\\NORTH"}));
        EXPECT_THAT(lines, Contains(HasSubstr(" 600 Times New Roman 18: List of Names")));
    }));
}

TEST_F(frmvdPrintTest, HasLinesAboveAndBelowTheTitle) {
    folder.add({{"NORTH"}});
    PrintRequest request = namesAndPlaces();
    request.HeadingAbove = "  Above  ";
    request.HeadingBelow = " Below";
    EXPECT_TRUE(withReport(request, [](ReportWindow& window) {
        const std::vector<std::string> lines = drawn(window.printer());
        EXPECT_THAT(lines, Contains(HasSubstr(" 600 Times New Roman 18: Above")));
        EXPECT_THAT(lines, Contains(HasSubstr(" 1200 Times New Roman 18: List of Names")));
        EXPECT_THAT(lines, Contains(HasSubstr(" 1800 Times New Roman 14: Below")));
        EXPECT_THAT(lines, Contains(HasSubstr("box 1953 2400 3953 2650 pen 5 fill")));
    }));
}

TEST_F(frmvdPrintTest, BeginsANewPageBelowTheLastRow) {
    // Rows begin at 1450 and every 250 from there, up to 15450, which is below 16838 - 1200.
    folder.addRows(58);
    EXPECT_TRUE(withReport(namesAndPlaces(), [](ReportWindow& window) {
        ASSERT_EQ(window.printer().PageCount(), 2);
        EXPECT_THAT(textsOf(window.printer(), 1).back(), HasSubstr("057"));
        EXPECT_THAT(textsOf(window.printer(), 2), IsSupersetOf({"List of Names", "Name", " ROW 058", "  2"}));
        EXPECT_THAT(drawn(window.printer(), 1), Contains(HasSubstr("text 4033 15512.5 ")));
    }));
}

TEST_F(frmvdPrintTest, APageThatIsJustFullHasNoneBehindIt) {
    folder.addRows(57);
    EXPECT_TRUE(withReport(namesAndPlaces(),
                           [](ReportWindow& window) { EXPECT_EQ(window.printer().PageCount(), 1); }));
}

TEST_F(frmvdPrintTest, ATableWithoutRowsIsADocumentWithoutPages) {
    EXPECT_TRUE(withReport(namesAndPlaces(), [](ReportWindow& window) {
        EXPECT_EQ(window.printer().PageCount(), 0);
        EXPECT_EQ(window.lblProcess().text(), "Report Finished, Press 'P' to Print");
        for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End, Qt::Key_P})
            QTest::keyClick(&window, key); // nothing to show or to print
        EXPECT_EQ(window.printer().PreviewPage(), 0);
        EXPECT_EQ(window.preview().accessibleDescription(), "No page");
    }));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(frmvdPrintTest, TurnsThePaperForATableWiderThanIt) {
    folder.add({{"NORTH"}});
    PrintRequest request = namesAndPlaces();
    request.WidthList = "2000|9906"; // as wide as the paper
    EXPECT_TRUE(withReport(
        request, [](ReportWindow& window) { EXPECT_EQ(window.printer().document().pages[0].width, 11906); }));
    request.WidthList = "2000|9907";
    EXPECT_TRUE(withReport(request, [](ReportWindow& window) {
        EXPECT_EQ(window.printer().document().pages[0].width, 16838);
        EXPECT_EQ(window.printer().Orientation(), orientationPortrait) << "put back";
        EXPECT_THAT(drawn(window.printer()), Contains(HasSubstr("box 2465.5 1450 4465.5 1700 pen 5")));
    }));
}

TEST_F(frmvdPrintTest, ShowsEachTypeInItsWay) {
    folder.add({{"NORTH", "NOWHERE", 1234.567, true}, {"SOUTH", "NOWHERE", 0, false}});
    PrintRequest request = namesAndPlaces();
    request.FieldList = "NAME|AMOUNT|DONE|NAME|AMOUNT|NAME";
    request.FormatList = "C|N#,##0.00|B||N|X";
    request.TitleList = "Name|Amount|Done|Again|Plain|Odd";
    request.WidthList = "1000|1500|1000|1000|1500|1000";
    request.AlignList = "";
    std::vector<std::string> texts = printed(request);
    texts.erase(texts.begin(), texts.begin() + 17);
    EXPECT_THAT(texts,
                ElementsAre(" NORTH", "1,234.57", "Yes", " NORTH", "1234.567", // the last prints nothing
                            " SOUTH", "No", " SOUTH"));
}

TEST_F(frmvdPrintTest, EndsNumbersWithAPointAt95PercentOfTheCell) {
    folder.add({{"NORTH", "NOWHERE", 12.5, true}});
    PrintRequest request = namesAndPlaces();
    request.FieldList = "AMOUNT|AMOUNT";
    request.FormatList = "N###.00|N####";
    request.WidthList = "2000|2000";
    request.AlignList = "+^|+^";
    EXPECT_TRUE(withReport(request, [](ReportWindow& window) {
        VSPrinter& printer = window.printer();
        printer.FontName("Courier New");
        printer.FontSize(8);
        const double left = 500 + (11906 - 1000 - 4000) / 2.0;
        EXPECT_THAT(drawn(printer),
                    IsSupersetOf({fmt::format("text {:g} 1512.5 Courier New 8: 12.50",
                                              left + 1900 - printer.TextWidth("12.50")),
                                  fmt::format("text {:g} 1512.5 Courier New 8: 13",
                                              left + 2000 + (2000 - printer.TextWidth("13")) / 2)}));
    }));
}

TEST_F(frmvdPrintTest, SkipsAColumnWithoutWidthButNotItsTitle) {
    folder.add({{"NORTH", "C:\\NORTH"}});
    PrintRequest request = namesAndPlaces();
    request.WidthList = "0|6000";
    EXPECT_TRUE(withReport(request, [](ReportWindow& window) {
        EXPECT_THAT(textsOf(window.printer()), Not(Contains(" NORTH")));
        EXPECT_THAT(textsOf(window.printer()), IsSupersetOf({"Name", "Place", " C:\\NORTH"}));
        EXPECT_THAT(drawn(window.printer()), IsSupersetOf({"line 2953 1200 2953 1450 pen 5",
                                                           "box 2953 1200 8953 1450 pen 5 fill e6e6e6",
                                                           "box 2953 1450 8953 1700 pen 5"}));
    }));
}

TEST_F(frmvdPrintTest, AColumnWithoutATitleKeepsItsPlace) {
    folder.add({{"NORTH", "C:\\NORTH"}});
    PrintRequest request = namesAndPlaces();
    request.TitleList = " |Place";
    EXPECT_TRUE(withReport(request, [](ReportWindow& window) {
        EXPECT_THAT(drawn(window.printer()), IsSupersetOf({"box 3953 1200 9953 1450 pen 5 fill e6e6e6",
                                                           "box 1953 1450 3953 1700 pen 5"}));
    }));
}

TEST_F(frmvdPrintTest, PrintsStoredOrderWithoutAnIndex) {
    folder.add({{"NORTH"}, {"EAST"}, {"WEST"}});
    PrintRequest request = namesAndPlaces();
    request.PrintIndex = " ";
    const std::vector<std::string> texts = printed(request);
    const auto at = [&](const char* text) { return std::ranges::find(texts, text) - texts.begin(); };
    EXPECT_LT(at(" NORTH"), at(" EAST"));
    EXPECT_LT(at(" EAST"), at(" WEST"));
}

TEST_F(frmvdPrintTest, PrintsTheRowsOfAKey) {
    folder.add({{"EAST", "A"}, {"NORTH", "A"}, {"NORTH", "B"}, {"WEST", "A"}});
    PrintRequest request = namesAndPlaces();
    request.PrintIndex = "NAMEPLACE";
    request.PrintKeys = {{"NORTH", "NAME"}};
    std::vector<std::string> texts = printed(request);
    EXPECT_THAT(texts, IsSupersetOf({" NORTH", " A", " B"}));
    EXPECT_THAT(texts, Not(Contains(" WEST")));
    request.PrintKeys = {{"NORTH", "NAME"}, {"B", "PLACE"}};
    texts = printed(request);
    EXPECT_THAT(texts, Contains(" B"));
    EXPECT_THAT(texts, Not(Contains(" A")));
    request.PrintKeys = {{"SOUTH", "NAME"}, {"", " "}};
    EXPECT_THAT(printed(request), IsEmpty());
}

TEST_F(frmvdPrintTest, RefusesMoreThanThreeKeys) {
    folder.add({{"NORTH"}});
    PrintRequest request = namesAndPlaces();
    request.PrintKeys = {{"NORTH", "NAME"}, {"", "PLACE"}, {0.0, "AMOUNT"}, {false, "DONE"}};
    EXPECT_THAT(printed(request), IsEmpty());
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].text, "Invalid Key Count in vdPrint");
    EXPECT_EQ(person.boxes[0].title, "Error: vdSearch");
    EXPECT_EQ(person.boxes[0].style.icon, runtime::MsgIcon::Critical);
}

TEST_F(frmvdPrintTest, HasThirteenColumnsAndNoMore) {
    folder.add({{"NORTH"}});
    const auto list = [](const char* entry, int count) {
        std::string text = entry;
        while (--count > 0)
            text.append("|").append(entry);
        return text;
    };
    PrintRequest request = namesAndPlaces();
    request.FieldList = list("NAME", 13);
    request.FormatList = list("C", 13);
    request.TitleList = list("Name", 13);
    request.WidthList = list("800", 13);
    EXPECT_EQ(std::ranges::count(printed(request), " NORTH"), 13);
    EXPECT_THAT(person.boxes, IsEmpty());
    request.WidthList = list("800", 14);
    EXPECT_THAT(printed(request), IsEmpty());
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].text, "Error Loading Form: frmvdPrint\n\nError Number: 9\n\nError Description: "
                                    "Subscript out of range");
}

void expectNothingButExit(ReportWindow& window) {
    EXPECT_TRUE(window.CmdExit().isVisible());
    EXPECT_FALSE(window.cmdBegin().isVisible());
    EXPECT_FALSE(window.lblProcess().isVisible());
    EXPECT_FALSE(window.preview().isVisible());
    QTest::keyClick(&window, Qt::Key_P);
    QTest::keyClick(&window, Qt::Key_PageDown);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(frmvdPrintTest, AMissingDatabaseLeavesTheExitButton) {
    PrintRequest request = namesAndPlaces();
    request.PrintDBName = "NONE.MDB";
    EXPECT_TRUE(withReport(request, expectNothingButExit));
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, "Error Displaying Form");
    EXPECT_THAT(person.boxes[0].text, HasSubstr("Error Loading Form: frmvdPrint\n\nError Number: 3024\n\n"));
}

TEST_F(frmvdPrintTest, ADamagedDatabaseLeavesTheExitButton) {
    const std::string torn(9000, 'x');
    folder.write("LIST.MDB", torn);
    EXPECT_TRUE(withReport(namesAndPlaces(), expectNothingButExit));
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, "Error Displaying Form");
    EXPECT_THAT(person.boxes[0].text, HasSubstr("Error Loading Form: frmvdPrint\n\nError Number: 3343\n\n"));
    EXPECT_EQ(folder.read("LIST.MDB"), torn);
}

TEST_F(frmvdPrintTest, AWrongTableIndexOrFieldLeavesTheExitButton) {
    folder.add({{"NORTH"}});
    for (const auto member :
         {&PrintRequest::PrintTable, &PrintRequest::PrintIndex, &PrintRequest::FieldList}) {
        PrintRequest request = namesAndPlaces();
        request.*member = "NONE";
        EXPECT_TRUE(withReport(request, expectNothingButExit));
    }
    ASSERT_EQ(person.boxes.size(), 3U);
    EXPECT_THAT(person.boxes[0].text, HasSubstr("Error Number: 3078"));
    EXPECT_THAT(person.boxes[1].text, HasSubstr("Error Number: 3015"));
    EXPECT_THAT(person.boxes[2].text, HasSubstr("Error Number: 3265"));
}

TEST_F(frmvdPrintTest, AWindowThatCanNotEvenTellItsErrorIsNotOpened) {
    PrintRequest request = namesAndPlaces();
    request.PrintDBName = "NONE.MDB";
    person.onBox = [](const Box& box) {
        if (box.title == "Error Displaying Form")
            runtime::raise(runtime::errDiskFull);
    };
    EXPECT_FALSE(withReport(request, [](ReportWindow&) {}));
    ASSERT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes[1].text, "Error Opening Window vdPrint");
    EXPECT_EQ(person.boxes[1].title, "Error: vdPrint");
    EXPECT_EQ(person.boxes[1].style.icon, runtime::MsgIcon::Critical);
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST_F(frmvdPrintTest, FindsADatabaseInAFolder) {
    folder.addRows(2);
    std::filesystem::create_directories(folder.driveC() / "LISTS");
    std::filesystem::rename(folder / "LIST.MDB", folder.driveC() / "LISTS" / "LIST.MDB");
    PrintRequest request = namesAndPlaces();
    request.PrintPath = "C:\\LISTS";
    EXPECT_THAT(printed(request), Contains(" ROW 002"));
}

TEST_F(frmvdPrintTest, APrinterThatCanNotBeUsedLeavesAnEmptyPreview) {
    folder.addRows(3);
    frmvdPrint window(namesAndPlaces());
    window.printer().setError(1);
    EXPECT_TRUE(withWindow(window, [&] {
        EXPECT_EQ(window.printer().PageCount(), 0);
        EXPECT_EQ(window.lblProcess().text(), "Report STOPPED BY USER (INCOMPLETE)");
        EXPECT_EQ(window.cmdBegin().text(), "&Max View");
    }));
    EXPECT_THAT(person.texts(), ElementsAre("Printer Problem Detected"));
    EXPECT_EQ(person.yields, 3) << "the rows are read all the same";
}

TEST_F(frmvdPrintTest, ClosedWhileItDrawsItNeverComesUp) {
    folder.addRows(30);
    person.onYield = [&] {
        if (person.yields == 5)
            dynamic_cast<ReportWindow*>(forms::LoadedForms::find("frmvdPrint"))->unload();
    };
    EXPECT_FALSE(withReport(namesAndPlaces(), [](ReportWindow&) {}));
    EXPECT_EQ(person.yields, 5);
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST_F(frmvdPrintTest, ReleasesTheTableWhenItIsClosed) {
    folder.addRows(3);
    EXPECT_TRUE(withReport(namesAndPlaces(), [](ReportWindow&) {}));
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase("LIST.MDB");
    database.TableDefs().Delete("LIST"); // which nobody else may have open
}

TEST_F(frmvdPrintTest, GoesOnWhenItsRowsGo) {
    folder.addRows(10);
    person.onYield = [&] {
        if (person.yields != 4)
            return;
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database database = workspace.OpenDatabase("LIST.MDB");
        data::Recordset rows = database.OpenRecordset("LIST");
        for (; !rows.AtEOF(); rows.MoveNext())
            rows.Delete();
    };
    EXPECT_TRUE(withReport(namesAndPlaces(), [](ReportWindow& window) {
        EXPECT_EQ(textsOf(window.printer()).back(), " C:\\SITES\\004");
        EXPECT_EQ(window.lblProcess().text(), "Report Finished, Press 'P' to Print");
    }));
    EXPECT_THAT(person.boxes, IsEmpty());
}

} // namespace
} // namespace tol::test
