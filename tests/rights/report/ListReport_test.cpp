// SPDX-License-Identifier: MIT
#include "rights/report/ListReport.h"

#include "../../search_print/document/Drawn.h"
#include "../../search_print/document/SeenView.h"
#include "data/DBEngine.h"
#include "platform/System.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "support/NetworkTables.h"
#include "support/Raises.h"
#include "support/StartFolder.h"
#include "support/TestHost.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace search_print;
using rights::ListReport;
using rights::PrintedList;
using rights::PrintedRows;
using runtime::Value;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

const std::string noCode(8, '?'), noDescription(50, '?');

class ListReportTest : public testing::Test {
  protected:
    ListReportTest() {
        platform::setClock([] {
            return runtime::makeDate({.year = 2026, .month = 11, .day = 21, .hour = 13, .minute = 5});
        });
    }
    ~ListReportTest() override { platform::setClock({}); }

    data::Database& network() {
        if (!m_network.isOpen())
            m_network = m_workspace.OpenDatabase(tables.file);
        return m_network;
    }
    bool print(PrintedList list) {
        return ListReport(list, network()).print(view, printer, orientationLandscape);
    }
    /// The rows of the record with that code.
    bool print(PrintedList list, const std::string& code) {
        const std::optional<PrintedRows> rows = rowsOf(list, network(), code);
        return rows && ListReport(list, network()).print(view, printer, orientationLandscape, *rows);
    }
    /// The texts of a page, from the title on.
    std::vector<std::string> body(int page = 1) {
        std::vector<std::string> texts = textsOf(printer, page);
        EXPECT_GE(texts.size(), 10U);
        texts.erase(texts.begin(), texts.begin() + 10); // the footer
        return texts;
    }
    void addUsers(int count) {
        std::vector<TestTable::Row> rows;
        for (int number = 1; number <= count; ++number)
            rows.push_back({number, fmt::format("user{:05}", number), "", false});
        tables.users.add(rows);
    }
    void addItems(const std::string& module, int count) {
        std::vector<TestTable::Row> rows;
        for (int number = 1; number <= count; ++number)
            rows.push_back({number, module, fmt::format("IT{:05}", number), "Item", "frmIT"});
        tables.accessItems.add(rows);
    }

    StartFolder folder;
    TestHost person;
    NetworkTables tables;
    SeenView view;
    VSPrinter printer{paperA4};

  private:
    data::Workspace m_workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database m_network;
};

TEST_F(ListReportTest, ModulesAreListedByTheirCode) {
    tables.modules.add({{"PAY", "Payroll"}, {"ACC", "Accounts"}});
    EXPECT_TRUE(print(PrintedList::Modules));
    EXPECT_THAT(textsOf(printer),
                ElementsAre("Module  ", "  Tolvane Module", "Report  ", " Modules", "Date ", "  11/21/2026",
                            "Time ", "  1:05  PM", "Page ", "  1", "Modules", "Module ID", "Description",
                            "ACC", "Accounts", "PAY", "Payroll"));
    EXPECT_THAT(view.states, ElementsAre(ReportState::Running, ReportState::Done));
    EXPECT_THAT(view.processes, ElementsAre("Printing Page: 1", "Report Finished, Press 'P' to Print"));
    EXPECT_EQ(view.rows, 2);
    EXPECT_EQ(printer.documentTitle(), "Modules");
    EXPECT_EQ(printer.Orientation(), orientationLandscape) << "as it was";
    EXPECT_EQ(printer.document().pages[0].width, paperA4.width) << "upright";
    EXPECT_EQ(printer.MarginLeft(), 500);
}

TEST_F(ListReportTest, ItemsAreThoseOfOneModule) {
    tables.modules.add({{"PAY", "Payroll"}, {"ACC", "Accounts"}});
    tables.accessItems.add({{1, "PAY", "PYRUN", "Run the payroll", "FRMRUN"},
                            {2, "ACC", "ACPOST", "Post", "FRMPOST"},
                            {3, "PAY", "PYEDIT", "Edit a slip", ""}});
    EXPECT_TRUE(print(PrintedList::AccessItems, "pay"));
    EXPECT_THAT(body(), ElementsAre("User Access Items", " Module ID: PAY", "Description: Payroll",
                                    "UAI Code", "Description", "Form Name", "PYEDIT", "Edit a slip", "PYRUN",
                                    "Run the payroll", "FRMRUN"));
    EXPECT_EQ(printer.documentTitle(), "User Access Items");
}

TEST_F(ListReportTest, TemplatesAreListedByTheirCode) {
    tables.templates.add({{1, "SITE", "Site managers"}, {2, "CLERK", "Clerks"}});
    EXPECT_TRUE(print(PrintedList::Templates));
    EXPECT_THAT(body(), ElementsAre("User Rights Templates", "URT Code", "Description", "CLERK", "Clerks",
                                    "SITE", "Site managers"));
}

TEST_F(ListReportTest, TemplateItemsShowTheItemsTheyName) {
    tables.templates.add({{7, "CLERK", "Clerks"}, {8, "SITE", "Site managers"}});
    tables.accessItems.add({{1, "PAY", "PYRUN", "Run the payroll", ""}, {2, "ACC", "ACPOST", "Post", ""}});
    tables.templateItems.add({{7, 1, true}, {8, 1, true}, {7, 2, false}});
    EXPECT_TRUE(print(PrintedList::TemplateItems, "CLERK"));
    EXPECT_THAT(body(), ElementsAre("User Rights Template Items", " URT Code: CLERK", "Description: Clerks",
                                    "UAI Code", "User Access Item Description", "Allowed?", "PYRUN",
                                    "Run the payroll", "Yes", "ACPOST", "Post", "No"));
}

TEST_F(ListReportTest, UsersAreListedByTheirName) {
    tables.users.add({{12, "jo", "Yard office", true}, {3, "al", "", false}});
    EXPECT_TRUE(print(PrintedList::Users));
    EXPECT_THAT(body(), ElementsAre("List of Users", "User No.", "User Name", "Remarks", "Admin?", "3", "al",
                                    "No", "12", "jo", "Yard office", "Yes"));
}

TEST_F(ListReportTest, UserRightsShowTheItemsTheyName) {
    tables.users.add({{5, "jo", "Yard office", true}, {6, "al", "", false}});
    tables.accessItems.add({{1, "PAY", "PYRUN", "Run the payroll", ""}, {2, "ACC", "ACPOST", "Post", ""}});
    tables.rights.add({{5, 2, true, 0}, {6, 2, false, 0}, {5, 1, false, 7}});
    EXPECT_TRUE(print(PrintedList::UserRights, "jo"));
    EXPECT_THAT(body(), ElementsAre("User Rights Items", "User Name: jo", "    Remarks: Yard office",
                                    "UAI Code", "User Access Item Description", "Allowed?", "PYRUN",
                                    "Run the payroll", "No", "ACPOST", "Post", "Yes"));
}

/// The boxes of the titles and of the first row, as left edges and widths say.
void expectBoxes(const VSPrinter& printer, double left, const std::vector<double>& widths, double titlesY) {
    std::vector<std::string> boxes;
    double x = left;
    for (const double width : widths) {
        boxes.push_back(
            fmt::format("box {:g} {:g} {:g} {:g} pen 5 fill e6e6e6", x, titlesY, x + width, titlesY + 250));
        boxes.push_back(
            fmt::format("box {:g} {:g} {:g} {:g} pen 5", x, titlesY + 250, x + width, titlesY + 500));
        x += width;
    }
    EXPECT_THAT(drawn(printer), IsSupersetOf(boxes));
}

TEST_F(ListReportTest, AWholeTableIsPlacedByTwips) {
    tables.modules.add({{"PAY", "Payroll"}});
    print(PrintedList::Modules);
    expectBoxes(printer, 2700, {1500, 5000}, 1500);
    EXPECT_THAT(drawn(printer), Contains(HasSubstr(" 800 Times New Roman 16 bold: Modules")));
    EXPECT_THAT(drawn(printer), Contains("text 4280 1812.5 Courier New 8: Payroll"));
    tables.templates.add({{1, "SITE", "Site managers"}});
    print(PrintedList::Templates);
    expectBoxes(printer, 2700, {1500, 5000}, 1500);
    tables.users.add({{1, "jo", "Yard office", true}});
    print(PrintedList::Users);
    expectBoxes(printer, 1700, {1000, 1500, 5000, 1500}, 1500);
    EXPECT_THAT(drawn(printer), Contains("text 4280 1812.5 Courier New 8: Yard office"));
}

TEST_F(ListReportTest, TheRowsOfARecordArePlacedByTwips) {
    tables.modules.add({{"PAY", "Payroll"}});
    tables.templates.add({{7, "CLERK", "Clerks"}});
    tables.users.add({{5, "jo", "Yard office", true}});
    addItems("PAY", 1);
    tables.templateItems.add({{7, 1, true}});
    tables.rights.add({{5, 1, true, 0}});
    for (const auto& [list, code, title, first, second] :
         {std::tuple{PrintedList::AccessItems, "PAY", "User Access Items", " Module ID: PAY",
                     "Description: Payroll"},
          {PrintedList::TemplateItems, "CLERK", "User Rights Template Items", " URT Code: CLERK",
           "Description: Clerks"},
          {PrintedList::UserRights, "jo", "User Rights Items", "User Name: jo",
           "    Remarks: Yard office"}}) {
        EXPECT_TRUE(print(list, code));
        expectBoxes(printer, 2300, {1500, 5000, 1200}, 2000);
        EXPECT_THAT(drawn(printer),
                    Contains(HasSubstr(fmt::format(" 600 Times New Roman 16 bold: {}", title))));
        EXPECT_THAT(drawn(printer),
                    IsSupersetOf({fmt::format("text 1800 1200 Times New Roman 12 bold: {}", first),
                                  fmt::format("text 1800 1500 Times New Roman 12 bold: {}", second),
                                  std::string("text 3880 2312.5 Courier New 8: Item")}));
    }
}

TEST_F(ListReportTest, CodesAndAnswersAreCentred) {
    tables.users.add({{12345, "jo", "Yard office", true}});
    print(PrintedList::Users);
    printer.FontName("Courier New");
    printer.FontSize(8);
    const auto centred = [&](double left, double width, const char* text) {
        return fmt::format("text {:g} 1812.5 Courier New 8: {}", left + (width - printer.TextWidth(text)) / 2,
                           text);
    };
    EXPECT_THAT(drawn(printer), IsSupersetOf({centred(1700, 1000, "12345"), centred(2700, 1500, "jo"),
                                              centred(9200, 1500, "Yes")}));
}

// Rows begin at 1750 and every 250 from there, up to 10750.
TEST_F(ListReportTest, BeginsAPageWhereARowWouldBeginAt11000) {
    addUsers(75);
    EXPECT_TRUE(print(PrintedList::Users));
    ASSERT_EQ(printer.PageCount(), 3);
    EXPECT_THAT(drawn(printer, 1), Contains(HasSubstr(" 10812.5 Courier New 8: user00037")));
    EXPECT_THAT(body(2), IsSupersetOf({"List of Users", "User No.", "user00038", "user00074"}));
    EXPECT_THAT(textsOf(printer, 2), IsSupersetOf({"Module  ", "  2"}));
    EXPECT_THAT(drawn(printer, 3), Contains(HasSubstr(" 1812.5 Courier New 8: user00075")));
    EXPECT_THAT(view.processes, ElementsAre("Printing Page: 1", "Printing Page: 2", "Printing Page: 3",
                                            "Report Finished, Press 'P' to Print"));
}

// Rows begin at 2250 and every 250 from there, up to 10750.
TEST_F(ListReportTest, TheRowsOfARecordHaveItsNamesOnEveryPage) {
    tables.modules.add({{"PAY", "Payroll"}});
    addItems("PAY", 36);
    EXPECT_TRUE(print(PrintedList::AccessItems, "PAY"));
    ASSERT_EQ(printer.PageCount(), 2);
    EXPECT_THAT(drawn(printer, 1), Contains(HasSubstr(" 10812.5 Courier New 8: IT00035")));
    EXPECT_THAT(body(2), ElementsAre("User Access Items", " Module ID: PAY", "Description: Payroll",
                                     "UAI Code", "Description", "Form Name", "IT00036", "Item", "frmIT"));
}

TEST_F(ListReportTest, APageThatIsJustFullHasNoneBehindIt) {
    addUsers(37);
    print(PrintedList::Users);
    EXPECT_EQ(printer.PageCount(), 1);
    tables.modules.add({{"PAY", "Payroll"}});
    addItems("PAY", 35);
    print(PrintedList::AccessItems, "PAY");
    EXPECT_EQ(printer.PageCount(), 1);
}

TEST_F(ListReportTest, ATableWithoutRowsIsADocumentWithoutPages) {
    for (const PrintedList list : {PrintedList::Modules, PrintedList::Templates, PrintedList::Users}) {
        view.processes.clear();
        EXPECT_TRUE(print(list));
        EXPECT_EQ(printer.PageCount(), 0);
        EXPECT_THAT(view.processes, ElementsAre("Report Finished, Press 'P' to Print"));
    }
    EXPECT_EQ(view.rows, 0);
}

TEST_F(ListReportTest, ARecordWithoutRowsIsADocumentWithoutPages) {
    tables.modules.add({{"ACC", "Accounts"}, {"PAY", "Payroll"}});
    tables.templates.add({{7, "CLERK", "Clerks"}});
    tables.users.add({{5, "jo", "", true}});
    addItems("PAY", 2); // behind the module without items
    tables.templateItems.add({{8, 1, true}});
    tables.rights.add({{6, 1, true, 0}});
    for (const auto& [list, code] : {std::pair{PrintedList::AccessItems, "ACC"},
                                     {PrintedList::TemplateItems, "CLERK"},
                                     {PrintedList::UserRights, "jo"}}) {
        EXPECT_TRUE(print(list, code));
        EXPECT_EQ(printer.PageCount(), 0);
        EXPECT_EQ(view.processes.back(), "Report Finished, Press 'P' to Print");
    }
    EXPECT_EQ(view.rows, 0);
}

TEST_F(ListReportTest, ARecordThatIsNotThereHasNoRows) {
    tables.modules.add({{"PAY", "Payroll"}});
    addItems("ACC", 2);
    EXPECT_FALSE(rowsOf(PrintedList::AccessItems, network(), "ACC"));
    EXPECT_FALSE(rowsOf(PrintedList::AccessItems, network(), ""));
    EXPECT_FALSE(rowsOf(PrintedList::TemplateItems, network(), "CLERK"));
    EXPECT_FALSE(rowsOf(PrintedList::UserRights, network(), "jo"));
}

TEST_F(ListReportTest, AnItemThatIsGoneIsALineOfQuestionMarks) {
    tables.templates.add({{7, "CLERK", "Clerks"}});
    tables.users.add({{5, "jo", "", true}});
    tables.accessItems.add({{2, "ACC", "ACPOST", "Post", ""}});
    tables.templateItems.add({{7, 1, true}, {7, 2, true}, {7, 3, false}});
    tables.rights.add({{5, 1, false, 0}, {5, 2, true, 0}});
    print(PrintedList::TemplateItems, "CLERK");
    std::vector<std::string> texts = body();
    texts.erase(texts.begin(), texts.begin() + 6);
    EXPECT_THAT(texts, ElementsAre(noCode, noDescription, "Yes", "ACPOST", "Post", "Yes", noCode,
                                   noDescription, "No"));
    EXPECT_THAT(drawn(printer), Contains("text 3880 2312.5 Courier New 8: " + noDescription))
        << "fits its cell";
    print(PrintedList::UserRights, "jo");
    texts = body();
    texts.erase(texts.begin(), texts.begin() + 6);
    EXPECT_THAT(texts, ElementsAre(noCode, noDescription, "No", "ACPOST", "Post", "Yes"));
}

TEST_F(ListReportTest, NullIsPrintedAsItsTypesBlank) {
    const Value null{runtime::Null{}};
    tables.modules.add({{null, null}});
    print(PrintedList::Modules);
    EXPECT_THAT(body(), ElementsAre("Modules", "Module ID", "Description"));
    tables.templates.add({{null, null, null}});
    print(PrintedList::Templates);
    EXPECT_THAT(body(), ElementsAre("User Rights Templates", "URT Code", "Description"));
    tables.users.add({{null, null, null, null}});
    print(PrintedList::Users);
    EXPECT_THAT(body(),
                ElementsAre("List of Users", "User No.", "User Name", "Remarks", "Admin?", "0", "No"));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(ListReportTest, NullInTheRowsOfARecordIsPrintedAsItsTypesBlank) {
    const Value null{runtime::Null{}};
    tables.modules.add({{"PAY", null}});
    tables.templates.add({{7, "CLERK", null}});
    tables.users.add({{5, "jo", null, null}});
    tables.accessItems.add({{null, "PAY", null, null, null}});
    tables.templateItems.add({{7, null, null}});
    tables.rights.add({{5, null, null, null}});
    print(PrintedList::AccessItems, "PAY");
    EXPECT_THAT(body(),
                ElementsAre("User Access Items", " Module ID: PAY", "Description: " + std::string(50, ' '),
                            "UAI Code", "Description", "Form Name"));
    print(PrintedList::TemplateItems, "CLERK");
    EXPECT_THAT(body(), IsSupersetOf({noCode, noDescription, std::string("No")}));
    print(PrintedList::UserRights, "jo");
    EXPECT_THAT(body(), IsSupersetOf({"    Remarks: " + std::string(40, ' '), noCode, noDescription}));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(ListReportTest, TheFirstRowTellsWhoseRowsArePrinted) {
    tables.templateItems.add({{7, 1, true}, {7, 2, true}, {8, 3, true}});
    data::Recordset rows = network().OpenRecordset("URTITEMS");
    rows.Index("URTITEMS");
    rows.MoveNext();
    ListReport report(PrintedList::TemplateItems, network());
    EXPECT_TRUE(report.print(view, printer, orientationPortrait, {rows.Bookmark(), "HANDED", "Over"}));
    EXPECT_EQ(view.rows, 1) << "from that row to the last of its template";
    EXPECT_THAT(body(), IsSupersetOf({" URT Code: HANDED", "Description: Over"}));
    EXPECT_TRUE(report.print(view, printer, orientationPortrait, {.firstRow = " ", .code = "NONE"}));
    EXPECT_EQ(printer.PageCount(), 0);
}

TEST_F(ListReportTest, AFirstRowThatIsGoneIsAnError) {
    tables.templateItems.add({{7, 1, true}});
    data::Recordset rows = network().OpenRecordset("URTITEMS");
    const std::string mark = rows.Bookmark();
    rows.Delete();
    ListReport report(PrintedList::TemplateItems, network());
    EXPECT_EQ(errorOf([&] { report.print(view, printer, orientationPortrait, {mark}); }),
              runtime::errRecordDeleted);
}

TEST_F(ListReportTest, StopsWhenAskedTo) {
    addUsers(60);
    view.stopAt = 20;
    EXPECT_TRUE(print(PrintedList::Users));
    EXPECT_EQ(printer.PageCount(), 1);
    EXPECT_THAT(textsOf(printer), Contains("user00020"));
    EXPECT_THAT(textsOf(printer), Not(Contains("user00021")));
}

TEST_F(ListReportTest, GoesOnWhenItsRowsGo) {
    addUsers(10);
    class Deletes : public SeenView {
      public:
        explicit Deletes(const TestTable& table) : m_table(table) {}
        bool keepPrinting() override {
            if (++rows == 4)
                for (int number = 4; number <= 10; ++number)
                    m_table.remove("USERTAG", number);
            return true;
        }

      private:
        const TestTable& m_table;
    } deletes(tables.users);
    ListReport(PrintedList::Users, network()).print(deletes, printer, orientationPortrait);
    EXPECT_EQ(deletes.rows, 4);
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(ListReportTest, APrinterThatCanNotBeUsedLeavesAnEmptyDocument) {
    addUsers(3);
    printer.setError(1);
    EXPECT_TRUE(print(PrintedList::Users));
    EXPECT_EQ(printer.PageCount(), 0);
    EXPECT_EQ(view.rows, 0);
    EXPECT_THAT(view.processes, ElementsAre("Report STOPPED BY USER (INCOMPLETE)"));
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].text, "Printer Problem Detected");
    EXPECT_EQ(person.boxes[0].title, "Printer Error");
    EXPECT_EQ(person.boxes[0].style.icon, runtime::MsgIcon::Critical);
}

TEST_F(ListReportTest, PrintedTwiceItIsTheSame) {
    addUsers(40);
    ListReport report(PrintedList::Users, network());
    report.print(view, printer, orientationPortrait);
    const std::vector<std::string> first = drawn(printer, 2);
    report.print(view, printer, orientationPortrait);
    EXPECT_EQ(printer.PageCount(), 2);
    EXPECT_EQ(drawn(printer, 2), first);
}

TEST_F(ListReportTest, HoldsItsTablesOpenAndLetsThemGo) {
    {
        const ListReport report(PrintedList::UserRights, network());
        EXPECT_EQ(errorOf([&] { network().TableDefs().Delete("USERRIGHTS"); }), runtime::errTableInUse);
        EXPECT_EQ(errorOf([&] { network().TableDefs().Delete("USERACCESSITEMS"); }), runtime::errTableInUse);
    }
    network().TableDefs().Delete("USERRIGHTS");
    network().TableDefs().Delete("USERACCESSITEMS");
}

/// The printed lists with what each of them reads.
struct Needs {
    PrintedList list;
    const char* table;
    std::vector<const char*> fields;
};
const std::vector<Needs> allNeeds = {
    {PrintedList::Modules, "MODULES", {"MODULEID", "MODULENAME"}},
    {PrintedList::AccessItems, "USERACCESSITEMS", {"MODULEID", "UAICODE", "Desc", "FORMNAME"}},
    {PrintedList::Templates, "URTEMPLATES", {"URTCODE", "URTNAME"}},
    {PrintedList::TemplateItems, "URTITEMS", {"URTTAG", "UAITAG", "ALLOWED"}},
    {PrintedList::TemplateItems, "USERACCESSITEMS", {"UAICODE", "Desc"}},
    {PrintedList::Users, "USERLIST", {"USERTAG", "UserName", "REMARKS", "ADMIN"}},
    {PrintedList::UserRights, "USERRIGHTS", {"USERTAG", "UAITAG", "ALLOWED"}},
    {PrintedList::UserRights, "USERACCESSITEMS", {"UAICODE", "Desc"}},
};

class ListReportNeeds : public ListReportTest {
  protected:
    ListReportNeeds() {
        tables.modules.add({{"PAY", "Payroll"}});
        addItems("PAY", 1);
        tables.templates.add({{7, "CLERK", "Clerks"}});
        tables.templateItems.add({{7, 1, true}});
        tables.users.add({{5, "jo", "", true}});
        tables.rights.add({{5, 1, true, 0}});
    }
    /// Prints the list from its first row on.
    void printAll(PrintedList list) {
        const rights::PrintedListDescription& description = rights::describe(list);
        PrintedRows rows;
        if (description.owner != nullptr)
            rows.firstRow = network().OpenRecordset(description.table).Bookmark();
        ListReport(list, network()).print(view, printer, orientationPortrait, rows);
    }
};

TEST_F(ListReportNeeds, AllArePrintedWhenEverythingIsThere) {
    for (const Needs& needs : allNeeds) {
        printAll(needs.list);
        EXPECT_EQ(printer.PageCount(), 1);
    }
}

TEST_F(ListReportNeeds, AMissingTableIsAnError) {
    for (const Needs& needs : allNeeds) {
        network().TableDefs()(needs.table).Name("AWAY");
        EXPECT_EQ(errorOf([&] { ListReport(needs.list, network()); }), runtime::errTableNotFound)
            << needs.table;
        network().TableDefs()("AWAY").Name(needs.table);
    }
}

TEST_F(ListReportNeeds, AMissingFieldIsAnError) {
    for (const Needs& needs : allNeeds)
        for (const char* field : needs.fields) {
            network().TableDefs()(needs.table).Fields()(field).Name("AWAY");
            EXPECT_EQ(errorOf([&] { printAll(needs.list); }), runtime::errItemNotFound)
                << needs.table << ": " << field;
            network().TableDefs()(needs.table).Fields()("AWAY").Name(field);
        }
}

TEST_F(ListReportNeeds, AMissingIndexIsAnError) {
    const auto remove = [&](const char* table, const char* index) {
        network().TableDefs()(table).Indexes().Delete(index);
    };
    remove("USERACCESSITEMS", "UAITAG");
    for (const PrintedList list : {PrintedList::TemplateItems, PrintedList::UserRights})
        EXPECT_EQ(errorOf([&] { printAll(list); }), runtime::errNotAnIndex);
    for (const PrintedList list : {PrintedList::Modules, PrintedList::AccessItems, PrintedList::Templates,
                                   PrintedList::TemplateItems, PrintedList::Users, PrintedList::UserRights}) {
        remove(rights::describe(list).table, rights::describe(list).index);
        EXPECT_EQ(errorOf([&] { printAll(list); }), runtime::errNotAnIndex);
    }
}

} // namespace
} // namespace tol::test
