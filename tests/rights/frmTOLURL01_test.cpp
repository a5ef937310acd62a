// SPDX-License-Identifier: MIT
#include "rights/frmTOLURL01.h"

#include "../search_print/document/Drawn.h"
#include "NetworkListTest.h"
#include "forms/controls/TextBox.h"
#include "forms/windows/LoadedForms.h"
#include "search_print/ReportWindow.h"
#include "support/ReportReader.h"

#include <fmt/core.h>
#include <fmt/ranges.h>
#include <gmock/gmock.h>
#include <sqlite3.h>

#include <QPushButton>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

const std::string noRemarks(40, ' ');

/// What another program makes of the database.
void asAnother(const char* sql) {
    sqlite3* file = nullptr;
    sqlite3_open(NetworkTables::file, &file);
    EXPECT_EQ(sqlite3_exec(file, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(file);
}

class Users : public NetworkListTest {
  protected:
    Users() : NetworkListTest({"USERTAG", "USERNAME", "REMARKS", "ADMIN"}, {"USERNAME", "REMARKS", "ADMIN"}) {
        net.tags.add({{50, 60, 70}});
    }

    void open() { show(std::make_unique<rights::frmTOLURL01>("")); }
    void openWithTwo() {
        net.users.add({{7, "jsmith", "Foreman", false}, {3, "adams", runtime::Null{}, true}});
        open();
    }
    /// Adds a user by keys, up to the Update.
    void fill(const QString& name, const QString& remarks, const QString& admin) const {
        desk->type(name);
        desk->press(Qt::Key_Tab);
        desk->type(remarks);
        desk->press(Qt::Key_Tab);
        desk->type(admin);
    }
};

// Browse state.

TEST_F(Users, AreListedInOrderOfTheirNames) {
    openWithTwo();
    EXPECT_EQ(window->windowTitle(), "User List (Assign User Rights)");
    EXPECT_EQ(pageSize(), 7U);
    EXPECT_THAT(page(),
                ElementsAre("3|adams|" + noRemarks + "|Yes", "7|jsmith|Foreman|No", " | |End of List.| "));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_EQ(desk->text("lblHUSERTAG"), "User Number");
    EXPECT_EQ(desk->text("lblHUSERNAME"), " User Name");
    EXPECT_EQ(desk->text("lblHREMARKS"), " Remarks");
    EXPECT_EQ(desk->text("lblHADMIN"), "Admin.?");
    desk->keepPicture("user-list");
}

TEST_F(Users, HaveTheirButtonsAndBoxes) {
    open();
    EXPECT_THAT(page(), ElementsAre(" | |List is Empty.| "));
    const std::pair<const char*, const char*> buttons[] = {{"cmdAdd", "&Add"},
                                                           {"cmdEdit", "&Edit"},
                                                           {"cmdDelete", "&Delete"},
                                                           {"cmdPrint", "&Print"},
                                                           {"cmdExit", "E&xit"}};
    for (const auto& [name, caption] : buttons) {
        EXPECT_TRUE(desk->isShown(name)) << name;
        EXPECT_EQ(desk->text(name), caption);
    }
    EXPECT_FALSE(desk->isShown("cmdUpdate"));
    EXPECT_EQ(desk->control<forms::TextBox>("txtUSERNAME").MaxLength(), 20);
    EXPECT_EQ(desk->control<forms::TextBox>("txtREMARKS").MaxLength(), 40);
    EXPECT_EQ(desk->control<forms::TextBox>("txtADMIN").MaxLength(), 1);
    EXPECT_FALSE(isEditing());
}

TEST_F(Users, PrintOpensTheReport) {
    openWithTwo();
    const ReportReader reader([](search_print::ReportWindow& report) {
        EXPECT_EQ(report.objectName(), "frmTOLURL03");
        EXPECT_THAT(textsOf(report.printer()), IsSupersetOf({"List of Users", "adams", "jsmith"}));
    });
    desk->press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(reader.reports, 1);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(Users, PrintDoesNothingWithoutAUser) {
    open();
    const ReportReader reader([](search_print::ReportWindow&) {});
    desk->press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(reader.reports, 0);
}

// Adding and editing.

TEST_F(Users, AnAddedOneGetsTheNextNumberAndIsFoldedToLowerCase) {
    openWithTwo();
    desk->press(Qt::Key_A);
    expectBoxesOver(2);
    EXPECT_EQ(desk->text("txtUSERNAME"), std::string(20, ' '));
    EXPECT_EQ(desk->text("txtADMIN"), " ");
    fill("BAKER", "Night Shift", "y");
    desk->keepPicture("user-list-add");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_THAT(net.users.rows(),
                ElementsAre("3|adams|Null|True", "70|baker|Night Shift|True", "7|jsmith|Foreman|False"));
    EXPECT_THAT(net.tags.rows(), ElementsAre("50|60|71"));
    EXPECT_THAT(page(), testing::Contains("70|baker|Night Shift|Yes"));
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(Users, TheFirstOfAllGetsNumberOneAndTheCounterHoldsTwo) {
    net.tags.remove("USERTAG", 70);
    open();
    desk->press(Qt::Key_A);
    fill("first", "", "n");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(net.users.rows(), ElementsAre("1|first|" + noRemarks + "|False"));
    EXPECT_THAT(net.tags.rows(), ElementsAre("Null|Null|2"));
}

TEST_F(Users, ANameIsTakenInAnyCase) {
    openWithTwo();
    desk->press(Qt::Key_A);
    desk->type("Adams");
    desk->press(Qt::Key_Tab);
    expectRefusal("Duplicate User Name Detected.\nThe User Name you have entered already exists.");
    EXPECT_EQ(desk->text("txtUSERNAME"), "adams");
    EXPECT_EQ(desk->focus(), "txtUSERNAME");
    EXPECT_THAT(net.tags.rows(), ElementsAre("50|60|70"));
}

TEST_F(Users, ABlankNameIsRefused) {
    open();
    desk->press(Qt::Key_A);
    desk->press(Qt::Key_Tab);
    expectRefusal("Empty User Name Detected");
    EXPECT_EQ(desk->focus(), "txtUSERNAME");
}

TEST_F(Users, TheOptionHasToBeYOrN) {
    open();
    desk->press(Qt::Key_A);
    fill("adams", "", " ");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectRefusal("Blank 'ADMIN?' Option Detected.");
    EXPECT_EQ(desk->focus(), "txtADMIN");
    desk->type("x");
    desk->press(Qt::Key_Backtab);
    ASSERT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes[1].text, "'ADMIN' Option Must Be 'Y/N'.");
    EXPECT_EQ(person.boxes[1].title, "Cannot Update Record");
    EXPECT_EQ(desk->focus(), "txtADMIN");
    EXPECT_EQ(desk->text("txtADMIN"), "X");
    desk->type("n");
    desk->press(Qt::Key_Backtab);
    EXPECT_EQ(desk->focus(), "txtREMARKS");
    EXPECT_EQ(desk->text("txtADMIN"), "N");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(person.boxes.size(), 2U) << "remarks may be anything";
    EXPECT_THAT(net.users.rows(), ElementsAre("70|adams|" + noRemarks + "|False"));
}

TEST_F(Users, UpdateFromTheNameChecksTheNameOnly) {
    open();
    desk->press(Qt::Key_A);
    desk->type("adams");
    desk->click("cmdUpdate");
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_THAT(net.users.rows(), ElementsAre("70|adams|" + noRemarks + "|False"));
}

TEST_F(Users, AnEditKeepsTheNumber) {
    openWithTwo();
    desk->press(Qt::Key_E);
    expectBoxesOver(0);
    EXPECT_EQ(desk->text("txtUSERNAME"), "adams");
    EXPECT_EQ(desk->text("txtADMIN"), "Y");
    fill("Adams", "Left", "n");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(person.boxes, IsEmpty()) << "the name is its own";
    EXPECT_THAT(net.users.rows(), ElementsAre("3|adams|Left|False", "7|jsmith|Foreman|False"));
    EXPECT_THAT(net.tags.rows(), ElementsAre("50|60|70"));
}

TEST_F(Users, AnEditTakesNoNameOfAnother) {
    openWithTwo();
    desk->press(Qt::Key_E);
    desk->type("JSMITH");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectRefusal("Duplicate User Name Detected.\nThe User Name you have entered already exists.");
    EXPECT_TRUE(isEditing());
}

TEST_F(Users, AClickLeadsToTheColumnsBox) {
    openWithTwo();
    for (const auto& [label, box] :
         {std::pair("lblREMARKS(0)", "txtREMARKS"), std::pair("lblADMIN(0)", "txtADMIN"),
          std::pair("lblUSERTAG(0)", "txtUSERNAME")}) {
        desk->click(label);
        EXPECT_EQ(desk->focus(), box);
        desk->press(Qt::Key_Escape);
    }
}

TEST_F(Users, WhatAUniqueIndexRefusesIsToldAndHasSpentItsNumber) {
    asAnother("CREATE UNIQUE INDEX ROOM ON USERLIST (REMARKS)");
    openWithTwo();
    desk->press(Qt::Key_A);
    fill("baker", "Foreman", "n");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectRefusal(refusedBy("ROOM"));
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(desk->text("txtREMARKS"), "Foreman");
    EXPECT_EQ(desk->focus(), "txtUSERNAME");
    EXPECT_THAT(net.tags.rows(), ElementsAre("50|60|71"));
    fill("baker", "Mason", "n");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(person.boxes.size(), 1U);
    EXPECT_THAT(net.users.rows(), testing::Contains("71|baker|Mason|False"));
    EXPECT_THAT(net.tags.rows(), ElementsAre("50|60|72")) << "a number that was not used is not given again";
}

// Deleting.

TEST_F(Users, ADeletedOneTakesTheRightsAlongAndNothingElse) {
    net.rights.add({{3, 1, true, 0}, {7, 1, true, 9}, {3, 2, false, 9}, {4, 1, true, 0}});
    net.locks.add({{5, "MODULES", "adams", runtime::Null{}, 3, 1}});
    net.templates.add({{9, "T", "Template"}});
    openWithTwo();
    desk->press(Qt::Key_D);
    expectBox("OK to Delete User: adams\n and All Related Detail?", QMessageBox::Question, "Confirm Delete");
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK", "cmdCancel"));
    EXPECT_THAT(net.users.rows(), ElementsAre("7|jsmith|Foreman|False"));
    EXPECT_THAT(net.rights.rows(), ElementsAre("4|1|True|0", "7|1|True|9"));
    EXPECT_THAT(net.locks.rows(), ElementsAre("5|MODULES|adams|Null|3|1"));
    EXPECT_THAT(net.templates.rows(), ElementsAre("9|T|Template"));
    EXPECT_THAT(page(), ElementsAre("7|jsmith|Foreman|No", " | |End of List.| "));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(Users, ADeleteThatIsNotWantedDeletesNothing) {
    net.rights.add({{3, 1, true, 0}});
    openWithTwo();
    person.answers = {"cmdCancel"};
    desk->press(Qt::Key_Delete);
    EXPECT_EQ(net.users.rows().size(), 2U);
    EXPECT_THAT(net.rights.rows(), ElementsAre("3|1|True|0"));
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(Users, OneWithoutANumberTakesNobodysRightsAlong) {
    net.rights.add({{0, 1, true, 0}, {runtime::Null{}, 2, true, 0}});
    net.users.add({{runtime::Null{}, "adams", "", false}});
    open();
    desk->press(Qt::Key_D);
    EXPECT_THAT(net.users.rows(), IsEmpty());
    EXPECT_THAT(net.rights.rows(), testing::Contains("0|1|True|0"));
}

// Numbers that are too large, and a cascade that fails.

class UsersDeathTest : public Users {
  protected:
    /// Writes the box to standard error, with the rights that are left behind it.
    void readAloud() {
        person.onBox = [this](QMessageBox& box) {
            if (box.windowTitle() == "Confirm Delete")
                return box.findChild<QPushButton*>("cmdOK")->click();
            fmt::print(stderr, "[{}|{}|{}]", box.windowTitle().toStdString(), box.text().toStdString(),
                       fmt::join(net.rights.rows(), ", "));
            box.close();
        };
    }
};

TEST_F(Users, ANumberBeyondAnIntegerOverflowsAtLoad) {
    net.users.add({{32768, "adams", "", false}});
    open();
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].text,
              "Error Loading Form: frmTOLURL01\n\nError Number: 6\n\nError Description: Overflow");
    expectOnlyTheExitButton();
}

TEST_F(UsersDeathTest, ANumberBeyondAnIntegerOverflowsWhenItsRowIsFilled) {
    for (std::int32_t i = 1; i <= 7; ++i)
        net.users.add({{32760 + i, "user" + std::to_string(i), "", false}});
    net.users.add({{32768, "zz", "", false}});
    const auto run = [this] {
        open();
        readAloud();
        desk->press(Qt::Key_End);
        fmt::print(stderr, "still running");
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(1), R"(^\[Tolvane Module\|Run-time error '6':)");
}

TEST_F(UsersDeathTest, ACascadeThatFailsLeavesDeletedWhatWasDeleted) {
    const auto run = [this] {
        net.rights.add({{3, 1, true, 0}, {3, 2, true, 0}, {3, 3, true, 0}});
        asAnother("CREATE TRIGGER Keep BEFORE DELETE ON USERRIGHTS WHEN old.UAITAG = 2 "
                  "BEGIN SELECT RAISE(ABORT, 'kept'); END");
        openWithTwo();
        readAloud();
        desk->press(Qt::Key_D);
        fmt::print(stderr, "still running");
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(1),
                R"(^\[Tolvane Module\|Run-time error '3219':[^|]*\|3\|2\|True\|0, 3\|3\|True\|0\])");
}

// Load.

TEST_F(Users, AnInvalidNetworkPathIsTold) {
    std::filesystem::remove(NetworkTables::file);
    open();
    ASSERT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes[0].title, "Cannot Access");
    EXPECT_EQ(person.boxes[1].title, "Error Displaying Form");
    EXPECT_EQ(person.boxes[1].text, "Error Loading Form: frmTOLURL01\n\nError Number: 0\n\n"
                                    "Error Description: Invalid Network Database Location Detected.");
    expectOnlyTheExitButton();
    EXPECT_EQ(desk->focus(), "cmdExit");
    EXPECT_FALSE(std::filesystem::exists("ERROR")) << "no database of that name is made or opened";
    desk->press(Qt::Key_Escape);
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

} // namespace
} // namespace tol::test
