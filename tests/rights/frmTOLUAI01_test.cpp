// SPDX-License-Identifier: MIT
#include "rights/frmTOLUAI01.h"

#include "../search_print/document/Drawn.h"
#include "NetworkListTest.h"
#include "forms/controls/ListBox.h"
#include "forms/controls/TextBox.h"
#include "rights/frmTOLMOD01.h"
#include "rights/frmTOLMODSEL.h"
#include "search_print/ReportWindow.h"
#include "search_print/frmvdSearch.h"
#include "support/ReportReader.h"
#include "support/Visit.h"

#include <gmock/gmock.h>

#include <QPushButton>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

class AccessItems : public NetworkListTest {
  protected:
    AccessItems() : NetworkListTest({"UAICODE", "DESC", "FORMNAME"}) {
        net.modules.add({{"ACC", "Accounts"}, {"PAY", "Payroll"}, {"ZZZ", "Nothing yet"}});
        net.accessItems.add({{1, "PAY", "RUN", "Run the payroll", "FRMRUN"},
                             {2, "ACC", "BOOK", "Book", "FRMBOOK"},
                             {3, "PAY", "EDIT", "Edit a slip", ""},
                             {4, "QQQ", "LOST", "Of no module", "FRMLOST"}});
        net.tags.add({{50, 60, 70}});
    }

    void open() { show(std::make_unique<rights::frmTOLUAI01>("")); }
    void openWith(const std::string& module) {
        net.settings.add({{module}});
        open();
    }
    /// Picks the module in that line of the pick list; -1 cancels.
    void select(int line) {
        const Visit<rights::frmTOLMODSEL> visit([line](rights::frmTOLMODSEL& picker) {
            if (line >= 0)
                picker.findChild<forms::ListBox*>("lstMODULEID")->ListIndex(line);
            picker.findChild<QPushButton*>(line < 0 ? "cmdCancel" : "cmdSelect")->click();
        });
        desk->press(Qt::Key_M, Qt::AltModifier);
    }
    void expectModule(const std::string& code, const std::string& name) const {
        EXPECT_EQ(desk->text("lblMODULEID"), code);
        EXPECT_EQ(desk->text("lblMODULENAME"), name);
    }
};

const char* const endRow = " |End of List.| ";

// Which module is listed.

TEST_F(AccessItems, OfTheRememberedModuleAreListedInOrderOfTheirCodes) {
    openWith("PAY");
    EXPECT_EQ(window->windowTitle(), "User Access Items");
    EXPECT_EQ(pageSize(), 7U);
    EXPECT_THAT(page(), ElementsAre("EDIT|Edit a slip|", "RUN|Run the payroll|FRMRUN", endRow));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->text("lblHMODULE"), "Module:");
    expectModule("PAY", "Payroll");
    EXPECT_EQ(desk->text("lblHUAICODE"), "UAI Code");
    EXPECT_EQ(desk->text("lblHDESC"), " Description");
    EXPECT_EQ(desk->text("lblHFORMNAME"), " Form Name");
    EXPECT_EQ(desk->text("cmdSearch"), "&Search");
    EXPECT_EQ(desk->text("cmdSelect"), "Select &Module");
    EXPECT_EQ(desk->control<forms::TextBox>("txtUAICODE").MaxLength(), 8);
    EXPECT_EQ(desk->control<forms::TextBox>("txtDESC").MaxLength(), 50);
    EXPECT_EQ(desk->control<forms::TextBox>("txtFORMNAME").MaxLength(), 16);
    desk->keepPicture("access-items");
    desk->press(Qt::Key_End);
    EXPECT_THAT(page(), ElementsAre("RUN|Run the payroll|FRMRUN", endRow)) << "the last one of the module";
    desk->press(Qt::Key_Up);
    desk->press(Qt::Key_Up);
    EXPECT_THAT(page(), ElementsAre("EDIT|Edit a slip|", "RUN|Run the payroll|FRMRUN", endRow));
}

TEST_F(AccessItems, AtFirstAModuleHasToBeSelected) {
    open();
    EXPECT_THAT(page(), ElementsAre(" |Select A Module First.| "));
    EXPECT_EQ(highlight(), 0);
    EXPECT_THAT(net.settings.rows(), ElementsAre("   "));
    expectModule("", "");
    desk->keepPicture("access-items-no-module");
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Return, Qt::Key_E, Qt::Key_D, Qt::Key_Delete, Qt::Key_Down,
                              Qt::Key_End, Qt::Key_Home, Qt::Key_PageUp, Qt::Key_PageDown})
        desk->press(key);
    for (const char* control : {"cmdAdd", "cmdEdit", "cmdDelete", "cmdPrint", "cmdVDBACTION", "lblDESC(0)"}) {
        desk->click(control);
        EXPECT_EQ(desk->focus(), "hsbMAIN") << control;
    }
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(page(), ElementsAre(" |Select A Module First.| "));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(AccessItems, AModuleThatIsNullIsNone) {
    net.settings.add({{runtime::Null{}}});
    open();
    EXPECT_THAT(page(), ElementsAre(" |Select A Module First.| "));
}

TEST_F(AccessItems, OfAModuleThatIsGoneAreListedAllTheSame) {
    openWith("QQQ");
    expectModule("???", "Module Not Found");
    EXPECT_THAT(page(), ElementsAre("LOST|Of no module|FRMLOST", endRow));
    desk->keepPicture("access-items-module-gone");
    desk->press(Qt::Key_E);
    desk->type("found");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(net.accessItems.rows(), testing::Contains("4|QQQ|FOUND|Of no module|FRMLOST"));
}

TEST_F(AccessItems, AModuleMayHaveNone) {
    openWith("ZZZ");
    EXPECT_THAT(page(), ElementsAre(" |List is Empty.| "));
    expectModule("ZZZ", "Nothing yet");
    desk->press(Qt::Key_A);
    EXPECT_TRUE(isEditing());
    expectBoxesOver(0);
}

TEST_F(AccessItems, AnotherModuleIsSelectedAndRemembered) {
    openWith("PAY");
    desk->press(Qt::Key_Down);
    select(0);
    expectModule("ACC", "Accounts");
    EXPECT_THAT(page(), ElementsAre("BOOK|Book|FRMBOOK", endRow));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_THAT(net.settings.rows(), ElementsAre("ACC"));
    window->unload();
    open();
    expectModule("ACC", "Accounts");
    select(2);
    EXPECT_THAT(page(), ElementsAre(" |List is Empty.| "));
    select(1);
    EXPECT_THAT(page(), ElementsAre("EDIT|Edit a slip|", "RUN|Run the payroll|FRMRUN", endRow));
}

TEST_F(AccessItems, TheFirstModuleOfAllIsSelected) {
    open();
    select(1);
    expectModule("PAY", "Payroll");
    EXPECT_EQ(page().size(), 3U);
    EXPECT_THAT(net.settings.rows(), ElementsAre("PAY"));
}

TEST_F(AccessItems, ACancelledSelectionChangesNothing) {
    openWith("PAY");
    desk->press(Qt::Key_Down);
    select(-1);
    expectModule("PAY", "Payroll");
    EXPECT_EQ(highlight(), 1);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_THAT(net.settings.rows(), ElementsAre("PAY"));
}

TEST_F(AccessItems, ASelectionIsRememberedThoughAnotherHasEmptiedTheTable) {
    openWith("PAY");
    net.settings.remove("MODULEID", "PAY");
    select(0);
    EXPECT_THAT(net.settings.rows(), ElementsAre("ACC"));
}

// Searching.

TEST_F(AccessItems, ASearchGoesToTheItem) {
    for (int i = 0; i < 12; ++i)
        net.accessItems.add(
            {{10 + i, "PAY", "P" + std::to_string(10 + i), "Page " + std::to_string(10 + i), ""}});
    openWith("PAY");
    desk->press(Qt::Key_Down);
    const Visit<search_print::frmvdSearch> visit([](search_print::frmvdSearch& search) {
        const WindowDriver atSearch(search);
        EXPECT_EQ(atSearch.text("lblSearchTitle"), "UAI Codes for Module: Payroll");
        atSearch.type("page 18");
        atSearch.press(Qt::Key_Return);
    });
    desk->click("cmdSearch");
    EXPECT_EQ(page().front(), "P18|Page 18|");
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    desk->press(Qt::Key_E);
    EXPECT_EQ(desk->text("txtUAICODE"), "P18");
}

TEST_F(AccessItems, ACancelledSearchChangesNothing) {
    openWith("PAY");
    desk->press(Qt::Key_Down);
    const Visit<search_print::frmvdSearch> visit(
        [](search_print::frmvdSearch& search) { WindowDriver(search).press(Qt::Key_Escape); });
    desk->press(Qt::Key_S, Qt::AltModifier);
    EXPECT_THAT(page(), ElementsAre("EDIT|Edit a slip|", "RUN|Run the payroll|FRMRUN", endRow));
    EXPECT_EQ(highlight(), 1);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(AccessItems, ASearchWithoutAModuleFindsNothing) {
    open();
    bool searched = false;
    const Visit<search_print::frmvdSearch> visit([&](search_print::frmvdSearch& search) {
        searched = true;
        WindowDriver(search).press(Qt::Key_Return);
        WindowDriver(search).press(Qt::Key_Escape);
    });
    desk->click("cmdSearch");
    EXPECT_TRUE(searched);
    EXPECT_THAT(page(), ElementsAre(" |Select A Module First.| "));
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

// The record would be another module's.
TEST_F(AccessItems, NoModuleIsSelectedInTheMiddleOfAnEdit) {
    openWith("PAY");
    desk->press(Qt::Key_E);
    for (const char* button : {"cmdSearch", "cmdSelect"}) {
        EXPECT_TRUE(desk->isShown(button));
        EXPECT_FALSE(desk->control(button).isEnabled());
    }
    desk->press(Qt::Key_M, Qt::AltModifier);
    desk->press(Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(isEditing());
    desk->press(Qt::Key_Escape);
    EXPECT_TRUE(desk->control("cmdSelect").isEnabled());
    select(0);
    expectModule("ACC", "Accounts");
}

TEST_F(AccessItems, OfAModuleWhoseCodeIsChangedAreReachedByItsOldCodeOnly) {
    net.modules.change("MODULEID", "PAY", "NEW");
    openWith("NEW");
    EXPECT_THAT(page(), ElementsAre(" |List is Empty.| "));
    net.modules.add({{"PAY", "Payroll again"}});
    select(2);
    expectModule("PAY", "Payroll again");
    EXPECT_EQ(page().size(), 3U);
}

// Adding, editing, deleting.

TEST_F(AccessItems, AnAddedOneGetsTheNextTagAndTheModule) {
    openWith("PAY");
    desk->press(Qt::Key_A);
    expectBoxesOver(2);
    desk->type("print");
    desk->press(Qt::Key_Tab);
    desk->type("Print slips");
    desk->press(Qt::Key_Tab);
    desk->type("frmPrint");
    desk->keepPicture("access-items-add");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_THAT(net.accessItems.rows(), testing::Contains("50|PAY|PRINT|Print slips|FRMPRINT"));
    EXPECT_THAT(net.tags.rows(), ElementsAre("51|60|70"));
    EXPECT_THAT(page(), ElementsAre("EDIT|Edit a slip|", "PRINT|Print slips|FRMPRINT",
                                    "RUN|Run the payroll|FRMRUN", endRow));
    EXPECT_EQ(highlight(), 1);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(AccessItems, TheFirstOfAllGetsTagOneAndTheCounterHoldsTwo) {
    net.tags.remove("UAITAG", 50);
    openWith("ZZZ");
    desk->press(Qt::Key_A);
    desk->type("a");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(net.accessItems.rows(),
                testing::Contains("1|ZZZ|A|" + std::string(50, ' ') + "|" + std::string(16, ' ')));
    EXPECT_THAT(net.tags.rows(), ElementsAre("2|Null|Null"));
}

TEST_F(AccessItems, ACodeMayBeGivenTwice) {
    for (const char* module : {"PAY", "ACC"}) {
        openWith(module);
        desk->press(Qt::Key_A);
        desk->type("run");
        desk->press(Qt::Key_U, Qt::AltModifier);
        window->unload();
        net.settings.remove("MODULEID", module);
    }
    EXPECT_THAT(person.boxes, IsEmpty());
    const std::string blanks = "|RUN|" + std::string(50, ' ') + "|" + std::string(16, ' ');
    EXPECT_THAT(net.accessItems.rows(),
                IsSupersetOf(std::vector<std::string>{"1|PAY|RUN|Run the payroll|FRMRUN", "50|PAY" + blanks,
                                                      "51|ACC" + blanks}));
}

TEST_F(AccessItems, ABlankCodeOrDescriptionIsRefusedButNoBlankFormName) {
    openWith("PAY");
    desk->press(Qt::Key_A);
    desk->press(Qt::Key_Tab);
    expectRefusal("Blank Code Detected.");
    EXPECT_EQ(desk->focus(), "txtUAICODE");
    desk->type("a");
    desk->press(Qt::Key_Tab);
    desk->press(Qt::Key_Tab);
    ASSERT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes[1].text, "Blank Description Detected.");
    EXPECT_EQ(person.boxes[1].title, "Cannot Update Record");
    EXPECT_EQ(desk->focus(), "txtDESC");
    desk->type("b");
    desk->press(Qt::Key_Tab);
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(person.boxes.size(), 2U);
    EXPECT_THAT(net.accessItems.rows(), testing::Contains("50|PAY|A|b|" + std::string(16, ' ')));
}

TEST_F(AccessItems, AnEditKeepsTagAndModule) {
    openWith("PAY");
    desk->press(Qt::Key_E);
    EXPECT_EQ(desk->text("txtUAICODE"), "EDIT");
    EXPECT_EQ(desk->text("txtDESC"), "Edit a slip");
    desk->type("change");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(net.accessItems.rows(), testing::Contains("3|PAY|CHANGE|Edit a slip|"));
    EXPECT_THAT(net.tags.rows(), ElementsAre("50|60|70"));
}

TEST_F(AccessItems, WhatRefersToADeletedOneStays) {
    net.templateItems.add({{8, 3, true}});
    net.rights.add({{7, 3, true, 8}});
    openWith("PAY");
    desk->press(Qt::Key_D);
    expectBox("OK to Delete User Access Item: EDIT Edit a slip?", QMessageBox::Question, "Confirm Delete");
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK", "cmdCancel"));
    EXPECT_THAT(page(), ElementsAre("RUN|Run the payroll|FRMRUN", endRow));
    EXPECT_THAT(net.templateItems.rows(), ElementsAre("8|3|True"));
    EXPECT_THAT(net.rights.rows(), ElementsAre("7|3|True|8"));
    desk->press(Qt::Key_D);
    EXPECT_THAT(page(), ElementsAre(" |List is Empty.| ")) << "the next record is another module's";
    EXPECT_EQ(net.accessItems.rows().size(), 2U);
}

TEST_F(AccessItems, ADeleteThatIsNotWantedDeletesNothing) {
    openWith("PAY");
    person.answers = {"cmdCancel"};
    desk->press(Qt::Key_D);
    EXPECT_EQ(net.accessItems.rows().size(), 4U);
}

TEST_F(AccessItems, PrintOpensTheReportOfTheModule) {
    openWith("PAY");
    const ReportReader reader([](search_print::ReportWindow& report) {
        EXPECT_EQ(report.objectName(), "frmTOLUAI02");
        const auto texts = textsOf(report.printer());
        EXPECT_THAT(texts, IsSupersetOf({"User Access Items", "EDIT", "RUN"}));
        EXPECT_THAT(texts, testing::Not(testing::Contains("BOOK")));
    });
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(reader.reports, 1);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

// Other windows.

TEST_F(AccessItems, ComeBackFreshFromUnderAnotherWindow) {
    openWith("PAY");
    forms::Form& first = *window;
    const WindowDriver atFirst(first);
    show(std::make_unique<rights::frmTOLMOD01>(""));
    net.accessItems.add({{9, "PAY", "FFF", "Another's", ""}});
    first.showModeless();
    EXPECT_EQ(atFirst.text("lblUAICODE(1)"), "FFF");
    EXPECT_EQ(atFirst.focus(), "hsbMAIN");
}

} // namespace
} // namespace tol::test
