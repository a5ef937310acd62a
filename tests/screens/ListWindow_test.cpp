// SPDX-License-Identifier: MIT
#include "screens/ListWindow.h"

#include "data/DBEngine.h"
#include "forms/windows/LoadedForms.h"
#include "frmItems.h"
#include "support/ListWindowTest.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Row = TestTable::Row;

constexpr std::int32_t nail = 1, screw = 2, gone = 9;

class Items : public ListWindowTest {
  protected:
    Items() : ListWindowTest({"CODE", "DESC", "ALLOWED"}) {
        goods.add({{nail, "NAIL", "A nail"}, {screw, "SCREW", "A screw"}});
    }

    frmItems& open(std::int32_t box = 7) {
        auto made = std::make_unique<frmItems>(box);
        frmItems& items = *made;
        show(std::move(made));
        return items;
    }
    void openWith(const std::vector<Row>& rows) {
        table.add(rows);
        open();
    }
    [[nodiscard]] QRect place(const QString& control) const { return desk->control(control).geometry(); }

    TestTable goods{"STORE.MDB",
                    "GOODS",
                    {{"TAG", data::dbLong}, {"CODE", data::dbText, 8}, {"DESC", data::dbText, 50}},
                    {{"TAG", {"TAG"}}, {"CODE", {"CODE"}}}};
    TestTable slips{"STORE.MDB", "SLIPS", {{"GOODS", data::dbLong}}, {{"GOODS", {"GOODS"}}}};
    TestTable table{"STORE.MDB",
                    "ITEMS",
                    {{"BOX", data::dbLong}, {"GOODS", data::dbLong}, {"ALLOWED", data::dbBoolean}},
                    {{"ITEMS", {"BOX", "GOODS"}, true}}};
};

Row item(std::int32_t box, std::int32_t goods, bool allowed = true) {
    return {box, goods, allowed};
}

TEST_F(Items, ShowsTheChildrenOfOneParent) {
    openWith({item(6, nail), item(7, nail), item(7, gone, false), item(8, screw)});
    EXPECT_THAT(page(), ElementsAre("NAIL|A nail|Yes", "????????|????????|No", " |End of List.| "));
    desk->press(Qt::Key_End);
    EXPECT_THAT(page(), ElementsAre("????????|????????|No", " |End of List.| "));
}

TEST_F(Items, WithoutAParentNothingIsAdded) {
    open(0);
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Return, Qt::Key_E, Qt::Key_D, Qt::Key_Down, Qt::Key_Home})
        desk->press(key);
    desk->click("cmdVDBACTION");
    EXPECT_FALSE(desk->isShown("txtCODE"));
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_EQ(highlight(), 0);
}

TEST_F(Items, AnAddWritesWhatTheBoxesStandFor) {
    openWith({item(7, screw, false)});
    desk->press(Qt::Key_A);
    EXPECT_EQ(desk->text("lblTDESC"), " ");
    desk->type("nail");
    desk->press(Qt::Key_Tab);
    EXPECT_EQ(desk->focus(), "cmdSearch");
    desk->press(Qt::Key_Tab);
    EXPECT_EQ(desk->text("lblTDESC"), "A nail");
    desk->type("y");
    desk->press(Qt::Key_Tab);
    EXPECT_EQ(desk->text("txtALLOWED"), "Y") << "checked when Update gets the focus";
    EXPECT_EQ(desk->focus(), "cmdUpdate");
    desk->press(Qt::Key_Space);
    EXPECT_THAT(table.rows(), ElementsAre("7|1|True", "7|2|False"));
    EXPECT_THAT(page(), ElementsAre("NAIL|A nail|Yes", "SCREW|A screw|No", " |End of List.| "));
    EXPECT_EQ(highlight(), 0);
}

TEST_F(Items, AnEditMayPointTheRecordElsewhere) {
    openWith({item(7, nail)});
    desk->press(Qt::Key_E);
    EXPECT_EQ(desk->text("txtCODE"), "NAIL");
    EXPECT_EQ(desk->text("txtALLOWED"), "Y");
    EXPECT_EQ(desk->text("lblTDESC"), "A nail");
    desk->type("screw");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(table.rows(), ElementsAre("7|2|True"));
}

TEST_F(Items, AFailureOnTheWayToUpdateStopsTheSave) {
    openWith({item(7, nail)});
    desk->press(Qt::Key_E);
    desk->type("bolt");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectBox("Cannot Find Code: BOLT", QMessageBox::Critical, "Cannot Update Record");
    EXPECT_TRUE(desk->isShown("txtCODE"));
    EXPECT_EQ(desk->focus(), "txtCODE");
    EXPECT_THAT(table.rows(), ElementsAre("7|1|True"));
    desk->press(Qt::Key_C, Qt::AltModifier);
    EXPECT_FALSE(desk->isShown("txtCODE"));
    EXPECT_EQ(person.boxes.size(), 1U);
}

TEST_F(Items, AClickOnAColumnLeadsToItsBoxAndToTheFirstWhereThereIsNone) {
    openWith({item(7, nail)});
    desk->click("lblALLOWED(0)");
    EXPECT_EQ(desk->focus(), "txtALLOWED");
    desk->press(Qt::Key_Escape);
    desk->click("lblDESC(0)");
    EXPECT_EQ(desk->focus(), "txtCODE");
}

TEST_F(Items, WhatLiesOverTheRowMovesThereAndBack) {
    openWith({item(7, nail), item(7, screw)});
    const QRect home = place("cmdSearch");
    const int homeTop = place("txtCODE").top();
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_E);
    EXPECT_EQ(place("txtCODE").topLeft(), place("lblCODE(1)").topLeft());
    EXPECT_EQ(place("lblTDESC"), place("lblDESC(1)"));
    EXPECT_EQ(place("txtALLOWED"), place("lblALLOWED(1)"));
    EXPECT_EQ(place("cmdSearch").right(), place("lblCODE(1)").right());
    EXPECT_EQ(place("cmdSearch").top() - place("txtCODE").top(), 1) << "20 twips";
    EXPECT_EQ(place("txtCODE").right() + 1, place("cmdSearch").left());
    desk->press(Qt::Key_Escape);
    EXPECT_EQ(place("cmdSearch"), home);
    EXPECT_EQ(place("txtCODE").top(), homeTop);
    EXPECT_EQ(homeTop - home.top(), 1) << "20 twips above";
    for (const char* hidden : {"txtCODE", "txtALLOWED", "lblTDESC", "cmdSearch"})
        EXPECT_FALSE(desk->isShown(hidden)) << hidden;
}

TEST_F(Items, ADeleteTakesTheDependentsAlong) {
    slips.add({{nail}, {nail}, {screw}});
    openWith({item(7, nail), item(8, screw)});
    desk->press(Qt::Key_D);
    expectBox("OK to Delete NAIL?", QMessageBox::Question, "Confirm Delete");
    EXPECT_THAT(slips.rows(), ElementsAre("2"));
    EXPECT_THAT(table.rows(), ElementsAre("8|2|True"));
    EXPECT_THAT(page(), ElementsAre(" |List is Empty.| ")) << "the next record is another parent's";
    EXPECT_EQ(highlight(), 0);
}

/// A delete that takes a packing slip along, and what happens meanwhile.
class DeleteAtWork : public Items {
  protected:
    void deleteNail(const std::function<void()>& meanwhile) {
        slips.add({{nail}});
        openWith({item(7, nail), item(7, screw)});
        dynamic_cast<frmItems&>(*window).atYield = [&] {
            meanwhile();
            ++yields;
        };
        desk->press(Qt::Key_D);
        EXPECT_EQ(yields, 1);
    }
    int yields = 0;
};

TEST_F(DeleteAtWork, TakesNeitherKeysNorClicks) {
    deleteNail([&] {
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_A, Qt::Key_E, Qt::Key_D, Qt::Key_Escape})
            desk->press(key);
        desk->press(Qt::Key_A, Qt::AltModifier);
        EXPECT_FALSE(desk->control("cmdAdd").isEnabled());
        EXPECT_FALSE(isEditing());
    });
    EXPECT_EQ(person.boxes.size(), 1U) << "no second question";
    EXPECT_THAT(table.rows(), ElementsAre("7|2|True")) << "the record of the question, and no other";
    EXPECT_THAT(page(), ElementsAre("SCREW|A screw|Yes", " |End of List.| "));
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_TRUE(desk->control("cmdAdd").isEnabled());
    desk->press(Qt::Key_E);
    EXPECT_TRUE(isEditing());
}

TEST_F(DeleteAtWork, IsFinishedBeforeTheWindowCloses) {
    deleteNail([&] { window->parentWidget()->close(); });
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
    EXPECT_THAT(table.rows(), ElementsAre("7|2|True"));
}

TEST_F(DeleteAtWork, ARecordThatGoesMeanwhileIsNotDeletedAgain) {
    deleteNail([&] { table.remove("GOODS", nail); });
    EXPECT_THAT(table.rows(), ElementsAre("7|2|True"));
    EXPECT_THAT(page(), ElementsAre("SCREW|A screw|Yes", " |End of List.| "));
}

// What the database refuses.

TEST_F(Items, ARowThatAUniqueIndexRefusesIsToldAndTheEditGoesOn) {
    openWith({item(7, nail), item(7, screw, false)});
    desk->press(Qt::Key_E);
    desk->type("screw");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectBox("The change was not made: it would create duplicate values in the index or primary key "
              "'ITEMS'.\nFile: " +
                  (folder / "STORE.MDB").string(),
              QMessageBox::Critical, "Cannot Update Record");
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK"));
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(desk->text("txtCODE"), "SCREW");
    EXPECT_EQ(desk->text("txtALLOWED"), "Y");
    EXPECT_EQ(desk->focus(), "txtCODE");
    EXPECT_THAT(table.rows(), ElementsAre("7|1|True", "7|2|False"));
}

TEST_F(Items, AfterARefusalTheEditIsSavedOrGivenUp) {
    openWith({item(7, nail), item(7, screw, false)});
    desk->press(Qt::Key_A);
    desk->type("nail");
    desk->press(Qt::Key_Tab);
    desk->press(Qt::Key_Tab);
    desk->type("n");
    desk->press(Qt::Key_U, Qt::AltModifier);
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_TRUE(isEditing());
    table.remove("GOODS", nail);
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(table.rows(), ElementsAre("7|1|False", "7|2|False"));
    EXPECT_THAT(page(), ElementsAre("NAIL|A nail|No", "SCREW|A screw|No", " |End of List.| "));
    desk->press(Qt::Key_E);
    desk->type("screw");
    desk->press(Qt::Key_U, Qt::AltModifier);
    ASSERT_EQ(person.boxes.size(), 2U);
    desk->press(Qt::Key_Escape);
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(page(), ElementsAre("NAIL|A nail|No", "SCREW|A screw|No", " |End of List.| "));
    EXPECT_THAT(table.rows(), ElementsAre("7|1|False", "7|2|False"));
}

TEST_F(Items, ADeletedRecordIsToldBeforeTheListShowsItselfAfresh) {
    openWith({item(7, nail), item(7, screw)});
    desk->press(Qt::Key_E);
    table.remove("GOODS", nail);
    std::vector<std::string> behindTheBox;
    person.onBox = [&](QMessageBox& box) {
        behindTheBox = page();
        box.findChild<QPushButton*>("cmdOK")->click();
    };
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(behindTheBox, ElementsAre("NAIL|A nail|Yes", "SCREW|A screw|Yes", " |End of List.| "));
    EXPECT_THAT(page(), ElementsAre("SCREW|A screw|Yes", " |End of List.| "));
    EXPECT_TRUE(isEditing());
}

TEST_F(Items, FurtherButtonsStayInUseWhileEditing) {
    frmItems& items = open();
    desk->click("cmdDetail");
    EXPECT_EQ(desk->control("cmdDetail").toolTip(), "Shows more");
    desk->press(Qt::Key_A);
    EXPECT_TRUE(desk->isShown("cmdDetail"));
    desk->press(Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(items.details, 2);
    desk->click("cmdSearch");
    EXPECT_EQ(desk->text("txtCODE"), "NAIL");
}

TEST_F(Items, EnterOnAButtonPressesItRatherThanEdits) {
    openWith({item(7, nail)});
    auto& items = dynamic_cast<frmItems&>(*window);
    desk->control("cmdPrint").setFocus();
    desk->press(Qt::Key_Return);
    EXPECT_EQ(items.prints, 1);
    EXPECT_FALSE(desk->isShown("txtCODE"));
    desk->press(Qt::Key_Down);
    EXPECT_EQ(highlight(), 1) << "other keys are the list's wherever the focus is";
}

TEST_F(Items, ControlsAreReadableWithoutSight) {
    openWith({item(7, nail)});
    EXPECT_EQ(desk->control("hsbMAIN").accessibleName(), "Items");
    EXPECT_EQ(desk->control("hsbMAIN").accessibleDescription(), "NAIL, A nail, Yes");
    desk->press(Qt::Key_Down);
    EXPECT_EQ(desk->control("hsbMAIN").accessibleDescription(), "End of List.");
    EXPECT_EQ(desk->control("txtCODE").accessibleName(), "Code");
    EXPECT_EQ(desk->control("txtALLOWED").accessibleName(), "Allowed?");
    EXPECT_EQ(desk->control("cmdSearch").accessibleName(), "Click to Display Search Window");
    for (const QPushButton* button : window->findChildren<QPushButton*>())
        EXPECT_FALSE(button->text().isEmpty() && button->accessibleName().isEmpty())
            << button->objectName().toStdString();
}

TEST_F(Items, UnloadClosesWhatWasOpened) {
    open();
    window->unload();
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase("STORE.MDB");
    for (const char* name : {"ITEMS", "GOODS", "SLIPS"})
        EXPECT_NO_THROW(database.TableDefs().Delete(name)) << name;
}

TEST_F(Items, LoadsAfreshAfterAnUnload) {
    auto items = std::make_unique<frmItems>(7);
    items->load();
    items->unload();
    table.add({item(7, nail)});
    items->load();
    EXPECT_EQ(items->findChild<QLabel*>("lblCODE(0)")->text(), "NAIL");
}

} // namespace
} // namespace tol::test
