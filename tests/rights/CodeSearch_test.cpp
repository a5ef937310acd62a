// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "AssignedItemsTest.h"
#include "forms/controls/TextBox.h"
#include "rights/frmTOLURL05.h"
#include "runtime/Text.h"
#include "support/ModalPerson.h"

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Acts = std::function<void(const WindowDriver&)>;

/// In the search window: types so much of a code, which moves the highlight, and takes the record.
Acts take(const QString& code) {
    return [code](const WindowDriver& search) {
        EXPECT_EQ(search.control("CmdSelect").window()->windowTitle().left(7), "Search ");
        search.type(code);
        search.press(Qt::Key_Return);
    };
}
const Acts takeFirst = [](const WindowDriver& search) {
    search.press(Qt::Key_Home);
    search.press(Qt::Key_Return);
};
const Acts giveUp = [](const WindowDriver& search) { search.click("CmdCancel"); };

class ItemSearch : public AssignedItemsTest {
  protected:
    ItemSearch() : AssignedItemsTest({"UAICODE", "DESC", "ALLOWED"}) {}

    void open() {
        openFor(rights::templateItems, "CLERK");
        desk->press(Qt::Key_A);
    }
    /// How many searches come up while something is done at the desk.
    int searches(const Acts& inSearch, const std::function<void()>& acts) {
        const ModalPerson searching("frmvdSearch", inSearch);
        acts();
        return searching.windows;
    }
};

TEST_F(ItemSearch, AQuestionMarkOpensItAtOnce) {
    open();
    EXPECT_EQ(searches(take("car"), [&] { desk->type("b?"); }), 1);
    EXPECT_EQ(desk->text("txtUAICODE"), "CARS") << "of any module";
    EXPECT_EQ(desk->text("lblTDESC"), "Cars and vans");
    EXPECT_EQ(desk->focus(), "txtUAICODE");
    desk->keepPicture("template-items-searched");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(net.templateItems.rows(), ElementsAre("5|12|False"));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(ItemSearch, SoDoASlashAndTheButton) {
    open();
    EXPECT_EQ(searches(take("bil"), [&] { desk->type("/"); }), 1);
    EXPECT_EQ(desk->text("txtUAICODE"), "BILLS");
    EXPECT_EQ(searches(take("acc"), [&] { desk->click("cmdUAISearch"); }), 1);
    EXPECT_EQ(desk->text("txtUAICODE"), "ACCOUNTS");
    EXPECT_EQ(desk->text("lblTDESC"), "All accounts");
    EXPECT_EQ(desk->focus(), "txtUAICODE");
}

TEST_F(ItemSearch, AMarkAnywhereInTheTextOpensIt) {
    open();
    desk->type("cars");
    desk->control<forms::TextBox>("txtUAICODE").setCursorPosition(2);
    EXPECT_EQ(searches(giveUp, [&] { desk->type("?"); }), 1);
    EXPECT_EQ(desk->text("txtUAICODE"), "ca?rs");
}

TEST_F(ItemSearch, LeftWithNothingChosenTheTextStaysAndIsRefusedWhenItIsLeft) {
    open();
    searches(giveUp, [&] { desk->type("b?"); });
    EXPECT_EQ(desk->text("txtUAICODE"), "b?");
    EXPECT_EQ(desk->text("lblTDESC"), " ");
    EXPECT_EQ(desk->focus(), "txtUAICODE");
    desk->click("txtALLOWED");
    expectRefusal("Cannot Find Code: B?");
    EXPECT_EQ(desk->focus(), "txtUAICODE");
    EXPECT_EQ(searches(giveUp, [&] { desk->click("cmdUAISearch"); }), 1);
    EXPECT_EQ(desk->text("txtUAICODE"), "B?");
}

TEST_F(ItemSearch, LeftWithNothingChosenAnEditKeepsItsItem) {
    net.templateItems.add({{clerk, bills, false}});
    openFor(rights::templateItems, "CLERK");
    desk->press(Qt::Key_E);
    searches(giveUp, [&] { desk->click("cmdUAISearch"); });
    EXPECT_EQ(desk->text("txtUAICODE"), "BILLS");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(net.templateItems.rows(), ElementsAre("5|11|False"));
}

TEST_F(ItemSearch, ACodeWithAMarkIsShownWithoutASearch) {
    net.accessItems.add({{20, "ACC", "A/P?", "Payable", ""}});
    net.templateItems.add({{clerk, 20, true}});
    openFor(rights::templateItems, "CLERK");
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(searches(giveUp, [&] { desk->press(Qt::Key_E); }), 0);
        EXPECT_EQ(desk->text("txtUAICODE"), "A/P?");
        EXPECT_EQ(searches(takeFirst, [&] { desk->click("cmdUAISearch"); }), 1);
        EXPECT_EQ(desk->text("txtUAICODE"), "A/P?");
        desk->press(Qt::Key_Escape);
    }
}

TEST_F(ItemSearch, AnItemThatAnotherDeletesMeanwhileIsNotChosen) {
    open();
    const Acts takeGone = [&](const WindowDriver& search) {
        search.type("bil");
        net.accessItems.remove("UAITAG", bills);
        search.press(Qt::Key_Return);
        if (search.isShown("CmdCancel"))
            search.click("CmdCancel");
    };
    searches(takeGone, [&] { desk->type("?"); });
    EXPECT_EQ(desk->text("txtUAICODE"), "?");
    EXPECT_EQ(desk->text("lblTDESC"), " ");
}

TEST_F(ItemSearch, OfAUserIsTheSame) {
    net.rights.add({{anna, bills, true, clerk}});
    openFor(rights::userRights, "anna");
    desk->press(Qt::Key_E);
    EXPECT_EQ(searches(take("car"), [&] { desk->type("/"); }), 1);
    EXPECT_EQ(desk->text("txtUAICODE"), "CARS");
    desk->click("cmdUpdate");
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|12|True|5"));
}

class TemplateSearch : public ItemSearch {
  protected:
    /// Opens the window that asks for a template, acts in it, and cancels.
    void choose(const Acts& acts) {
        const ModalPerson dialogs("frmTOLURL05", [&](const WindowDriver& dialog) {
            acts(dialog);
            dialog.click("cmdCancel");
        });
        openFor(rights::userRights, "anna");
        desk->click("cmdURTFill");
        EXPECT_EQ(dialogs.windows, 1);
    }
};

TEST_F(TemplateSearch, MarksAndTheButtonOpenIt) {
    choose([&](const WindowDriver& dialog) {
        EXPECT_EQ(searches(take("driv"), [&] { dialog.type("?"); }), 1);
        EXPECT_EQ(dialog.text("txtURTCODE"), "DRIVER");
        EXPECT_EQ(dialog.text("lblURTNAME"), "Drivers");
        EXPECT_EQ(dialog.focus(), "txtURTCODE");
        dialog.keepPicture("user-rights-template-searched");
        EXPECT_EQ(searches(take("cler"), [&] { dialog.type("c/"); }), 1);
        EXPECT_EQ(dialog.text("txtURTCODE"), "CLERK");
        EXPECT_EQ(searches(take("driv"), [&] { dialog.click("cmdURTSearch"); }), 1);
        EXPECT_EQ(dialog.text("lblURTNAME"), "Drivers");
    });
}

TEST_F(TemplateSearch, LeftWithNothingChosenTheTextStays) {
    choose([&](const WindowDriver& dialog) {
        searches(giveUp, [&] { dialog.type("c?"); });
        EXPECT_EQ(dialog.text("txtURTCODE"), "c?");
        EXPECT_EQ(dialog.text("lblURTNAME"), "");
        dialog.click("cmdOK");
        expectBox("Cannot Find User Rights Template Code: C?", QMessageBox::Critical, "Invalid Item");
        EXPECT_EQ(dialog.focus(), "txtURTCODE");
    });
}

TEST_F(TemplateSearch, AFillGoesOnFromASearch) {
    net.templateItems.add({{driver, cars, true}});
    openFor(rights::userRights, "anna");
    const ModalPerson searching("frmvdSearch", take("driv"));
    const ModalPerson dialogs("frmTOLURL05", [](const WindowDriver& dialog) {
        dialog.type("?");
        dialog.click("cmdOK");
    });
    desk->click("cmdURTFill");
    EXPECT_EQ(searching.windows, 1);
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|12|True|6"));
}

} // namespace
} // namespace tol::test
