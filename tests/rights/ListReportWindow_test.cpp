// SPDX-License-Identifier: MIT
#include "rights/ListReportWindow.h"

#include "../search_print/document/Drawn.h"
#include "data/OpenTable.h"
#include "forms/windows/LoadedForms.h"
#include "platform/System.h"
#include "runtime/Conversions.h"
#include "search_print/PreviewWidget.h"
#include "support/KeepPicture.h"
#include "support/NetworkTables.h"
#include "support/ReportReader.h"
#include "support/SecondProcess.h"
#include "support/StartFolder.h"
#include "support/TestHost.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <sqlite3.h>

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>

namespace tol::test {
namespace {

using namespace search_print;
using rights::PrintedList;
using rights::PrintedRows;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;

struct Shown {
    PrintedList list;
    const char *window, *caption, *title, *picture;
};
const std::vector<Shown> allLists = {
    {PrintedList::Modules, "frmTOLMOD02", "Print the List of Modules", "Modules", "print-modules"},
    {PrintedList::AccessItems, "frmTOLUAI02", "Print List of User Access Items", "User Access Items",
     "print-items"},
    {PrintedList::Templates, "frmTOLURT03", "Print the List of User Rights Templates",
     "User Rights Templates", "print-templates"},
    {PrintedList::TemplateItems, "frmTOLURT04", "Print List of User Rights Template Items",
     "User Rights Template Items", "print-template-items"},
    {PrintedList::Users, "frmTOLURL03", "Print the List of User Rights Templates", "List of Users",
     "print-users"},
    {PrintedList::UserRights, "frmTOLURL04", "Print List of User Rights Items", "User Rights Items",
     "print-user-rights"},
};

class ListReportWindowTest : public testing::Test {
  protected:
    ListReportWindowTest() {
        platform::setClock([] {
            return runtime::makeDate({.year = 2026, .month = 11, .day = 21, .hour = 13, .minute = 5});
        });
        tables.modules.add({{"ACC", "Accounts"}, {"PAY", "Payroll"}});
        tables.accessItems.add({{1, "PAY", "PYRUN", "Run the payroll", "FRMRUN"},
                                {2, "PAY", "PYEDIT", "Edit a slip", "FRMEDIT"},
                                {3, "ACC", "ACPOST", "Post", "FRMPOST"}});
        tables.templates.add({{7, "CLERK", "Clerks"}, {8, "SITE", "Site managers"}});
        tables.templateItems.add({{7, 2, true}, {7, 3, false}, {7, 9, true}, {8, 1, true}});
        tables.users.add({{5, "jo", "Yard office", true}, {6, "al", "", false}});
        tables.rights.add({{5, 1, true, 0}, {5, 3, false, 7}, {5, 9, true, 7}, {6, 1, true, 0}});
        owner.resize(760, 560);
        owner.show();
    }
    ~ListReportWindowTest() override { platform::setClock({}); }

    /// What a list window hands over of the record with that key in the first field of the list.
    [[nodiscard]] PrintedRows rowsOf(const char* table, const runtime::Value& key, const char* code,
                                     const char* name) const {
        data::OpenTable list("wksTEST", tables.file, table);
        list.rows.Index(table);
        list.rows.Seek("=", {key});
        return {list.rows.Bookmark(), code, name};
    }
    [[nodiscard]] PrintedRows rowsOf(PrintedList list) const {
        switch (list) {
        case PrintedList::AccessItems:
            return rowsOf("USERACCESSITEMS", "PAY", "PAY", "Payroll");
        case PrintedList::TemplateItems:
            return rowsOf("URTITEMS", 7, "CLERK", "Clerks");
        case PrintedList::UserRights:
            return rowsOf("USERRIGHTS", 5, "jo", "Yard office");
        default:
            return {};
        }
    }
    /// Opens the window and does something in it. Whether it came up.
    bool print(PrintedList list, const PrintedRows& rows, const std::function<void(ReportWindow&)>& act) {
        const ReportReader reader(act);
        rights::printList(owner, list, "", rows);
        return reader.reports == 1;
    }
    bool print(PrintedList list, const std::function<void(ReportWindow&)>& act) {
        return print(list, rowsOf(list), act);
    }
    void addUsers(int count) {
        std::vector<TestTable::Row> rows;
        for (int number = 1; number <= count; ++number)
            rows.push_back({100 + number, fmt::format("user{:03}", number), "", false});
        tables.users.add(rows);
    }

    StartFolder folder;
    TestHost person;
    NetworkTables tables;
    QWidget owner;
};

TEST_F(ListReportWindowTest, EachShowsItsReportAsItComesUp) {
    for (const Shown& shown : allLists) {
        EXPECT_TRUE(print(shown.list, [&](ReportWindow& window) {
            EXPECT_EQ(window.objectName(), shown.window);
            EXPECT_EQ(window.windowTitle(), shown.caption);
            EXPECT_EQ(window.printer().PageCount(), 1);
            EXPECT_THAT(textsOf(window.printer()), Contains(shown.title));
            EXPECT_EQ(window.lblProcess().text(), "Report Finished, Press 'P' to Print");
            EXPECT_EQ(window.cmdBegin().text(), "&Max View");
            EXPECT_EQ(window.CmdExit().text(), "E&xit");
            EXPECT_TRUE(window.cmdBegin().isVisible());
            EXPECT_TRUE(window.preview().isVisible());
            keepPicture(window, shown.picture);
        }));
        EXPECT_EQ(forms::LoadedForms::Count(), 0);
    }
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(ListReportWindowTest, StandsBeforeTheMiddleOfTheMainWindow) {
    EXPECT_TRUE(print(PrintedList::Modules, [&](ReportWindow& window) {
        EXPECT_TRUE(window.isModal());
        EXPECT_NEAR(window.frameGeometry().center().x(), owner.frameGeometry().center().x(), 2);
    }));
}

TEST_F(ListReportWindowTest, PrintsTheRowsAndTextsThatItWasHanded) {
    EXPECT_TRUE(print(PrintedList::TemplateItems, [](ReportWindow& window) {
        EXPECT_THAT(textsOf(window.printer()), IsSupersetOf({" URT Code: CLERK", "Description: Clerks",
                                                             "PYEDIT", "ACPOST", "????????"}));
        EXPECT_THAT(textsOf(window.printer()), testing::Not(Contains("PYRUN")));
    }));
}

TEST_F(ListReportWindowTest, HandedNoRowItHasNoPage) {
    for (const PrintedList list :
         {PrintedList::AccessItems, PrintedList::TemplateItems, PrintedList::UserRights})
        EXPECT_TRUE(print(list, {.firstRow = " "}, [](ReportWindow& window) {
            EXPECT_EQ(window.printer().PageCount(), 0);
            EXPECT_EQ(window.lblProcess().text(), "Report Finished, Press 'P' to Print");
            for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_End, Qt::Key_P})
                QTest::keyClick(&window, key); // nothing to show or to print
            EXPECT_EQ(window.preview().accessibleDescription(), "No page");
        }));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(ListReportWindowTest, TurnsItsPagesByKeys) {
    addUsers(80);
    EXPECT_TRUE(print(PrintedList::Users, [](ReportWindow& window) {
        EXPECT_EQ(window.printer().PageCount(), 3);
        QTest::keyClick(&window, Qt::Key_PageDown);
        EXPECT_EQ(window.preview().accessibleDescription(), "Page 2 of 3");
        QTest::keyClick(&window, Qt::Key_End);
        EXPECT_EQ(window.preview().accessibleDescription(), "Page 3 of 3");
        keepPicture(window, "print-users-last-page");
        QTest::keyClick(&window, Qt::Key_Home);
        EXPECT_EQ(window.preview().accessibleDescription(), "Page 1 of 3");
    }));
    EXPECT_EQ(person.yields, 82);
}

TEST_F(ListReportWindowTest, PrintsByTheKeyP) {
    EXPECT_TRUE(print(PrintedList::Users, [](ReportWindow& window) {
        int printed = 0;
        window.printer().onPrint = [&](bool dialog) {
            EXPECT_TRUE(dialog);
            ++printed;
        };
        QTest::keyClick(&window, Qt::Key_P);
        EXPECT_EQ(printed, 1);
    }));
}

TEST_F(ListReportWindowTest, EnlargedItShowsThePageByItsWidth) {
    EXPECT_TRUE(print(PrintedList::Modules, [](ReportWindow& window) {
        EXPECT_EQ(window.printer().ZoomMode(), zoomWholePage);
        const QSize before = window.size();
        const bool hasRoom = before.width() < window.screen()->availableSize().width();
        QTest::mouseClick(&window.cmdBegin(), Qt::LeftButton);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return window.isMaximized() && (window.size() != before || !hasRoom); }));
        EXPECT_EQ(window.cmdBegin().text(), "&Restore");
        EXPECT_EQ(window.printer().ZoomMode(), zoomPageWidth);
        keepPicture(window, "print-enlarged");
        QTest::mouseClick(&window.cmdBegin(), Qt::LeftButton);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isMaximized(); }));
        EXPECT_EQ(window.cmdBegin().text(), "&Max View");
    }));
}

TEST_F(ListReportWindowTest, EscAndTheButtonClose) {
    EXPECT_TRUE(print(PrintedList::Modules, [](ReportWindow& window) {
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    }));
    EXPECT_TRUE(print(PrintedList::Modules, [](ReportWindow& window) {
        QTest::mouseClick(&window.CmdExit(), Qt::LeftButton);
        EXPECT_FALSE(window.isVisible());
    }));
}

TEST_F(ListReportWindowTest, ClosedWhileItDrawsItNeverComesUp) {
    addUsers(30);
    person.onYield = [&] {
        if (person.yields == 5)
            dynamic_cast<ReportWindow*>(forms::LoadedForms::find("frmTOLURL03"))->unload();
    };
    EXPECT_FALSE(print(PrintedList::Users, [](ReportWindow&) {}));
    EXPECT_EQ(person.yields, 5);
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST_F(ListReportWindowTest, LetsItsTablesGoWhenItIsClosed) {
    EXPECT_TRUE(print(PrintedList::UserRights, [](ReportWindow&) {}));
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase(tables.file);
    database.TableDefs().Delete("USERRIGHTS"); // which nobody else may have open
    database.TableDefs().Delete("USERACCESSITEMS");
}

TEST_F(ListReportWindowTest, APrinterThatCanNotBeUsedLeavesAnEmptyPreview) {
    rights::ListReportWindow window(PrintedList::Users, "", {});
    window.printer().setError(1);
    const ReportReader reader([](ReportWindow& shown) {
        EXPECT_EQ(shown.printer().PageCount(), 0);
        EXPECT_EQ(shown.lblProcess().text(), "Report STOPPED BY USER (INCOMPLETE)");
        EXPECT_EQ(shown.cmdBegin().text(), "&Max View");
    });
    window.showModal(&owner);
    window.setParent(nullptr); // it is not the owner's to delete
    EXPECT_EQ(reader.reports, 1);
    EXPECT_THAT(person.texts(), ElementsAre("Printer Problem Detected"));
    EXPECT_EQ(person.yields, 0);
}

// A Load that fails.

void expectNothingButExit(ReportWindow& window) {
    EXPECT_TRUE(window.CmdExit().isVisible());
    EXPECT_FALSE(window.cmdBegin().isVisible());
    EXPECT_FALSE(window.lblProcess().isVisible());
    EXPECT_FALSE(window.preview().isVisible());
    keepPicture(window, "print-not-loaded");
    QTest::keyClick(&window, Qt::Key_P);
    QTest::keyClick(&window, Qt::Key_PageDown);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

class ListReportWindowLoad : public ListReportWindowTest {
  protected:
    /// Each list, as its rows are by now, comes up with nothing but the exit button.
    void expectLoadError(const std::vector<PrintedList>& lists, int number,
                         const PrintedRows* rows = nullptr) {
        for (const PrintedList list : lists) {
            person.boxes.clear();
            EXPECT_TRUE(
                print(list, rows != nullptr ? *rows : PrintedRows{.firstRow = "1"}, expectNothingButExit));
            ASSERT_FALSE(person.boxes.empty());
            EXPECT_EQ(person.boxes.back().title, "Error Displaying Form");
            EXPECT_THAT(person.boxes.back().text,
                        HasSubstr(fmt::format("Error Loading Form: {}\n\nError Number: {}\n\n",
                                              rights::describe(list).window, number)));
            EXPECT_EQ(forms::LoadedForms::Count(), 0);
        }
    }
    const std::vector<PrintedList> every = {PrintedList::Modules,   PrintedList::AccessItems,
                                            PrintedList::Templates, PrintedList::TemplateItems,
                                            PrintedList::Users,     PrintedList::UserRights};
};

TEST_F(ListReportWindowLoad, AMissingDatabaseIsToldTwice) {
    folder.remove(tables.file);
    expectLoadError(every, 3024);
    ASSERT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes[0].title, "Cannot Access");
    EXPECT_THAT(person.boxes[0].text, HasSubstr("Cannot Find the Database: "));
}

TEST_F(ListReportWindowLoad, ADamagedDatabaseIsTold) {
    folder.write(tables.file, std::string(9000, 'x'));
    expectLoadError(every, 3343);
    EXPECT_EQ(folder.read(tables.file), std::string(9000, 'x'));
}

TEST_F(ListReportWindowLoad, AMissingTableIsTold) {
    for (const PrintedList list : every) {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database database = workspace.OpenDatabase(tables.file);
        database.TableDefs()(rights::describe(list).table).Name("AWAY");
        expectLoadError({list}, 3078);
        database.TableDefs()("AWAY").Name(rights::describe(list).table);
    }
}

TEST_F(ListReportWindowLoad, AMissingTableOfItemsIsTold) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase(tables.file);
    database.TableDefs().Delete("USERACCESSITEMS");
    expectLoadError({PrintedList::TemplateItems, PrintedList::UserRights}, 3078);
}

TEST_F(ListReportWindowLoad, AMissingFieldIsTold) {
    for (const auto& [list, field] : {std::pair{PrintedList::Modules, "MODULENAME"},
                                      {PrintedList::AccessItems, "MODULEID"},
                                      {PrintedList::Templates, "URTNAME"},
                                      {PrintedList::TemplateItems, "UAITAG"},
                                      {PrintedList::Users, "ADMIN"},
                                      {PrintedList::UserRights, "ALLOWED"}}) {
        const PrintedRows rows = rowsOf(list);
        {
            data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
            data::Database database = workspace.OpenDatabase(tables.file);
            database.TableDefs()(rights::describe(list).table).Fields()(field).Name("AWAY");
        }
        expectLoadError({list}, 3265, &rows);
    }
}

TEST_F(ListReportWindowLoad, AFirstRowThatAnotherHasDeletedIsTold) {
    const PrintedRows rows = rowsOf(PrintedList::TemplateItems);
    tables.templateItems.remove("UAITAG", 2);
    expectLoadError({PrintedList::TemplateItems}, 3167, &rows);
}

/// Another process has the whole file to itself.
TEST_F(ListReportWindowLoad, ADatabaseThatAnotherHoldsIsTold) {
    SecondProcess other([this](const SecondProcess::Steps& steps) {
        sqlite3* file = nullptr;
        sqlite3_open(tables.file, &file);
        sqlite3_exec(file, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
        steps.done();
        steps.wait();
        sqlite3_close(file);
    });
    ASSERT_TRUE(other.await());
    expectLoadError({PrintedList::Users}, 3218);
    other.next();
    EXPECT_EQ(other.finish(), 0);
    EXPECT_TRUE(
        print(PrintedList::Users, [](ReportWindow& window) { EXPECT_EQ(window.printer().PageCount(), 1); }));
}

} // namespace
} // namespace tol::test
