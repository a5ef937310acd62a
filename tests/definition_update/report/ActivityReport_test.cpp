// SPDX-License-Identifier: MIT
#include "definition_update/report/ActivityReport.h"

#include "../../search_print/document/Drawn.h"
#include "../../search_print/document/SeenView.h"
#include "data/DBEngine.h"
#include "platform/System.h"
#include "runtime/Conversions.h"
#include "support/StartFolder.h"
#include "support/TestHost.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <algorithm>

namespace tol::test {
namespace {

using namespace search_print;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;

class ActivityReportTest : public testing::Test {
  protected:
    ActivityReportTest() {
        platform::setClock([] {
            return runtime::makeDate({.year = 2026, .month = 11, .day = 21, .hour = 13, .minute = 5});
        });
        workspace = data::DBEngine::CreateWorkspace("wksTEST");
        definitions = workspace.CreateDatabase("ZOVDEF.MDB");
        data::TableDefinition table{.name = "ACTIVITYLOG"};
        for (const char* field :
             {"PATHNAME", "DBNAME", "TABLENAME", "INDEXNAME", "FIELDNAME", "Action", "FDATE", "PTIME"})
            table.fields.push_back({.name = field, .type = data::dbText, .size = 100});
        definitions.CreateTable(table);
        log = definitions.OpenRecordset("ACTIVITYLOG");
    }
    ~ActivityReportTest() override { platform::setClock({}); }

    /// Rows of one run; their times tell them apart.
    void addRows(int count) {
        for (int row = 1; row <= count; ++row) {
            log.AddNew();
            log.Fields("PATHNAME").Value(fmt::format("SITE {}", row));
            log.Fields("DBNAME").Value("MAIN");
            log.Fields("TABLENAME").Value("CONTACTS");
            log.Fields("INDEXNAME").Value(" ");
            log.Fields("FIELDNAME").Value("MOBILE");
            log.Fields("Action").Value("Added New Field");
            log.Fields("FDATE").Value("11/20/2026");
            log.Fields("PTIME").Value(fmt::format("TIME {}", row));
            log.Update();
        }
        log.MoveFirst();
    }
    bool print() { return update::printActivityLog(view, printer, log, orientationLandscape); }

    StartFolder folder;
    TestHost person;
    SeenView view;
    VSPrinter printer{paperA4};
    data::Workspace workspace;
    data::Database definitions;
    data::Recordset log;
};

TEST_F(ActivityReportTest, PrintsHeadTitlesAndRows) {
    addRows(2);
    EXPECT_TRUE(print());
    EXPECT_THAT(textsOf(printer),
                ElementsAre("Module  ", "  Database Utilities", "Report  ",
                            " Database Definition Update Utility - Activity Log", "Date ", "  11/21/2026",
                            "Time ", "  1:05  PM", "Page ", "  1",
                            "Database Definition Update Utility - Activity Log", "Date: 11/20/2026",
                            "Time: TIME 1", "Job Site", "Database", "Table", "Index", "Field", "Action",
                            "SITE 1", "MAIN", "CONTACTS", "MOBILE", "Added New Field", "SITE 2", "MAIN",
                            "CONTACTS", "MOBILE", "Added New Field"));
    EXPECT_THAT(view.states, ElementsAre(ReportState::Running, ReportState::Done));
    EXPECT_THAT(view.processes,
                ElementsAre("Now Printing...", "Printing Page: 1", "Report Finished, Press 'P' to Print"));
    EXPECT_EQ(printer.Orientation(), orientationLandscape) << "as it was";
    EXPECT_EQ(printer.document().pages[0].width, 11906) << "upright";
    EXPECT_EQ(printer.documentTitle(), "Database Definition Update Utility - Activity Log");
}

TEST_F(ActivityReportTest, PlacesEverythingByTwips) {
    addRows(1);
    print();
    const std::vector<std::string> lines = drawn(printer);
    EXPECT_THAT(lines, Contains(HasSubstr(" 700 Arial 18 bold: Database Definition Update Utility")));
    EXPECT_THAT(lines, Contains(HasSubstr(" 1300 Arial 12: Date: 11/20/2026")));
    EXPECT_THAT(lines, Contains(HasSubstr(" 1600 Arial 12: Time: TIME 1")));
    EXPECT_THAT(
        lines, IsSupersetOf(
                   {"box 500 2100 1700 2350 pen 5 fill e6e6e6", "box 1700 2100 3100 2350 pen 5 fill e6e6e6",
                    "box 3100 2100 4500 2350 pen 5 fill e6e6e6", "box 4500 2100 5900 2350 pen 5 fill e6e6e6",
                    "box 5900 2100 7500 2350 pen 5 fill e6e6e6", "box 7500 2100 11600 2350 pen 5 fill e6e6e6",
                    "box 500 2350 1700 2600 pen 5", "box 4500 2350 5900 2600 pen 5",
                    "box 7500 2350 11600 2600 pen 5", "text 580 2412.5 Courier New 8: SITE 1",
                    "text 7580 2412.5 Courier New 8: Added New Field"}));
}

TEST_F(ActivityReportTest, BeginsAPageWhereARowWouldBeginAt14500) {
    addRows(99); // 49 rows a page, from 2350 to 14350
    EXPECT_TRUE(print());
    ASSERT_EQ(printer.PageCount(), 3);
    EXPECT_THAT(drawn(printer, 1), Contains("text 580 14412.5 Courier New 8: SITE 49"));
    EXPECT_THAT(textsOf(printer, 2), IsSupersetOf({"Time: TIME 50", "SITE 50", "SITE 98", "  2"}));
    EXPECT_THAT(textsOf(printer, 3), IsSupersetOf({"Time: TIME 99", "SITE 99", "  3", "Job Site"}));
    EXPECT_EQ(view.rows, 99);
}

TEST_F(ActivityReportTest, PrintsTheLogFromItsFirstRowWhereverItStands) {
    addRows(3);
    log.MoveLast();
    EXPECT_TRUE(print());
    EXPECT_THAT(textsOf(printer), IsSupersetOf({"SITE 1", "SITE 2", "SITE 3"}));
}

TEST_F(ActivityReportTest, AnEmptyLogIsOnePageThatSaysSo) {
    EXPECT_TRUE(print());
    EXPECT_EQ(printer.PageCount(), 1);
    EXPECT_THAT(textsOf(printer), IsSupersetOf({"Database Definition Update Utility - Activity Log",
                                                "Date: ", "Time: ", "Job Site", "Activity Log is Empty."}));
    EXPECT_THAT(drawn(printer),
                IsSupersetOf({"box 500 2350 1700 2600 pen 5", "box 1700 2350 11600 2600 pen 5",
                              "text 1780 2412.5 Courier New 8: Activity Log is Empty."}));
    EXPECT_EQ(view.processes.back(), "Report Finished, Press 'P' to Print");
}

TEST_F(ActivityReportTest, StopsWhenAskedTo) {
    addRows(60);
    view.stopAt = 20;
    EXPECT_TRUE(print());
    EXPECT_EQ(printer.PageCount(), 1);
    EXPECT_EQ(textsOf(printer)[textsOf(printer).size() - 5], "SITE 20");
    EXPECT_EQ(view.processes.back(), "Report STOPPED BY USER (INCOMPLETE)");
}

TEST_F(ActivityReportTest, EndsAtOnceWhenThePrinterCanNotBeUsed) {
    addRows(2);
    printer.setError(1);
    EXPECT_FALSE(print());
    EXPECT_THAT(person.texts(), ElementsAre("Printer Problem Detected"));
    EXPECT_THAT(view.processes, IsEmpty());
    EXPECT_EQ(printer.PageCount(), 0);
}

TEST_F(ActivityReportTest, ABlankRowIsSixFrames) {
    log.AddNew();
    log.Update();
    EXPECT_TRUE(print());
    EXPECT_EQ(textsOf(printer).back(), "Action");
    EXPECT_EQ(std::ranges::count_if(drawn(printer),
                                    [](const std::string& line) { return line.ends_with(" pen 5"); }),
              6);
}

} // namespace
} // namespace tol::test
