// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "../search_print/document/Drawn.h"
#include "AssignedItemsTest.h"
#include "forms/controls/TextBox.h"
#include "forms/windows/LoadedForms.h"
#include "runtime/Text.h"
#include "search_print/ReportWindow.h"
#include "support/ReportReader.h"

namespace tol::test {
namespace {

using runtime::Null;
using testing::ElementsAre;
using testing::IsEmpty;
using Row = TestTable::Row;

const std::string eight(8, '?'), thirty(30, '?');

class TemplateItems : public AssignedItemsTest {
  protected:
    TemplateItems() : AssignedItemsTest({"UAICODE", "DESC", "ALLOWED"}) {}

    void open(const std::string& code = "CLERK") { openFor(rights::templateItems, code); }
    void openWith(const std::vector<Row>& items) {
        net.templateItems.add(items);
        open();
    }
    [[nodiscard]] std::vector<std::string> stored() const { return net.templateItems.rows(); }
    [[nodiscard]] QRect place(const QString& control) const { return desk->control(control).geometry(); }
};

// Browse state.

TEST_F(TemplateItems, ShowsTheItemsOfItsTemplate) {
    openWith({{clerk, bills, false}, {clerk, accounts, true}, {driver, cars, true}});
    EXPECT_EQ(window->windowTitle(), "User Rights Template Detail");
    EXPECT_EQ(pageSize(), 7U);
    EXPECT_THAT(page(),
                ElementsAre("ACCOUNTS|All accounts|Yes", "BILLS|Bills to pay|No", " |End of List.| "));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    const std::pair<const char*, const char*> labels[] = {
        {"lblHMODULE", "URT Code:"}, {"lblURTCODE", "CLERK"},      {"lblURTNAME", "Clerks of the office"},
        {"lblHUAICODE", "UAI Code"}, {"lblHDESC", " Description"}, {"lblHALLOWED", "Allowed?"}};
    for (const auto& [name, text] : labels)
        EXPECT_EQ(desk->text(name), text) << name;
    desk->keepPicture("template-items");
}

TEST_F(TemplateItems, ShowsItsControls) {
    open();
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
    EXPECT_EQ(window->findChild<QWidget*>("cmdURTFill"), nullptr) << "only a user is filled";
    EXPECT_EQ(desk->control<forms::TextBox>("txtUAICODE").MaxLength(), 8);
    EXPECT_EQ(desk->control<forms::TextBox>("txtALLOWED").MaxLength(), 1);
    EXPECT_EQ(desk->text("cmdUAISearch"), "=");
    EXPECT_EQ(desk->control("cmdUAISearch").toolTip(), "Click to Display Search Window");
}

TEST_F(TemplateItems, ATemplateWithoutItemsSaysSoAndEditDeleteAndPrintDoNothing) {
    openWith({{driver, cars, true}});
    EXPECT_THAT(page(), ElementsAre(" |List is Empty.| "));
    EXPECT_EQ(highlight(), 0);
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_D, Qt::Key_Delete, Qt::Key_Down, Qt::Key_Up, Qt::Key_Home,
                              Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown}) {
        desk->press(key);
        EXPECT_FALSE(isEditing()) << key;
    }
    desk->click("cmdPrint");
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_THAT(page(), ElementsAre(" |List is Empty.| "));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(TemplateItems, StopsAtTheLastItemOfItsTemplate) {
    openWith({{clerk - 1, cars, true}, {clerk, bills, false}, {clerk, accounts, true}, {driver, cars, true}});
    desk->press(Qt::Key_End);
    EXPECT_THAT(page(), ElementsAre("BILLS|Bills to pay|No", " |End of List.| "));
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_Down);
    EXPECT_EQ(highlight(), 1);
    for (int i = 0; i < 4; ++i)
        desk->press(Qt::Key_Up);
    EXPECT_THAT(page(),
                ElementsAre("ACCOUNTS|All accounts|Yes", "BILLS|Bills to pay|No", " |End of List.| "));
    EXPECT_EQ(highlight(), 0);
}

TEST_F(TemplateItems, PrintOpensTheReport) {
    openWith({{clerk, accounts, true}, {clerk, gone, false}, {driver, cars, true}});
    const ReportReader reader([](search_print::ReportWindow& report) {
        EXPECT_EQ(report.objectName(), "frmTOLURT04");
        const std::vector<std::string> texts = textsOf(report.printer());
        EXPECT_THAT(texts, testing::IsSupersetOf({"ACCOUNTS", "All accounts", "Yes", "No"}));
        EXPECT_THAT(texts, testing::Contains(testing::EndsWith("CLERK")));
        EXPECT_THAT(texts, testing::Contains(testing::EndsWith("Clerks of the office")));
        EXPECT_THAT(texts, testing::Not(testing::Contains("CARS")));
    });
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(reader.reports, 1);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_EQ(highlight(), 1);
    desk->press(Qt::Key_Up);
    EXPECT_EQ(highlight(), 0) << "the list is as it was";
}

TEST_F(TemplateItems, AnItemThatIsGoneShowsQuestionMarks) {
    openWith({{clerk, gone, true}});
    EXPECT_THAT(page(), ElementsAre(eight + "|" + thirty + "|Yes", " |End of List.| "));
    desk->keepPicture("template-items-gone");
}

TEST_F(TemplateItems, NullsAreBlankValues) {
    net.templates.add({{8, "NULLS", Null{}}});
    net.accessItems.add({{77, Null{}, Null{}, Null{}, Null{}}});
    net.templateItems.add({{8, 77, true}, {8, Null{}, Null{}}, {Null{}, cars, true}});
    open("NULLS");
    EXPECT_EQ(desk->text("lblURTNAME"), runtime::space(50));
    EXPECT_EQ(desk->rows({"lblUAICODE", "lblDESC", "lblALLOWED"})[0], eight + "|" + thirty + "|No");
    EXPECT_EQ(desk->rows({"lblUAICODE", "lblDESC", "lblALLOWED"})[1],
              runtime::space(8) + "|" + runtime::space(50) + "|Yes");
}

// Adding.

TEST_F(TemplateItems, AddsByKeysAlone) {
    openWith({{clerk, bills, false}});
    desk->press(Qt::Key_A);
    EXPECT_EQ(desk->text("txtUAICODE"), runtime::space(8));
    EXPECT_EQ(desk->text("txtALLOWED"), " ");
    EXPECT_EQ(desk->text("lblTDESC"), " ");
    EXPECT_EQ(desk->focus(), "txtUAICODE");
    desk->type("accounts");
    desk->press(Qt::Key_Return);
    EXPECT_EQ(desk->focus(), "cmdUAISearch");
    desk->press(Qt::Key_Tab);
    EXPECT_EQ(desk->focus(), "txtALLOWED");
    EXPECT_EQ(desk->text("txtUAICODE"), "ACCOUNTS");
    EXPECT_EQ(desk->text("lblTDESC"), "All accounts");
    desk->keepPicture("template-items-add");
    desk->type("y");
    desk->press(Qt::Key_Return);
    EXPECT_EQ(desk->focus(), "cmdUpdate");
    EXPECT_EQ(desk->text("txtALLOWED"), "Y") << "checked on the way to Update";
    desk->press(Qt::Key_Return);
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(stored(), ElementsAre("5|10|True", "5|11|False"));
    EXPECT_THAT(page(),
                ElementsAre("ACCOUNTS|All accounts|Yes", "BILLS|Bills to pay|No", " |End of List.| "));
    EXPECT_EQ(highlight(), 0) << "the added record";
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(TemplateItems, AddsByMouseButForTheTyping) {
    open();
    desk->click("cmdAdd");
    desk->type("cars");
    desk->click("txtALLOWED");
    EXPECT_EQ(desk->text("lblTDESC"), "Cars and vans") << "of any module";
    desk->type("n");
    desk->click("cmdUpdate");
    EXPECT_THAT(stored(), ElementsAre("5|12|False"));
    EXPECT_THAT(page(), ElementsAre("CARS|Cars and vans|No", " |End of List.| "));
}

TEST_F(TemplateItems, TheFirstOfTwoItemsWithTheSameCodeWins) {
    net.accessItems.add({{13, "DDD", "TWICE", "The first", ""}, {14, "EEE", "TWICE", "The second", ""}});
    open();
    desk->press(Qt::Key_A);
    desk->type("twice");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(stored(), ElementsAre("5|13|False"));
}

TEST_F(TemplateItems, AnItemMayBeAddedTwice) {
    openWith({{clerk, cars, true}});
    desk->press(Qt::Key_A);
    desk->type("cars");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(stored(), testing::UnorderedElementsAre("5|12|True", "5|12|False"));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(TemplateItems, TheOptionTakesOneCharacter) {
    open();
    desk->press(Qt::Key_A);
    desk->type("cars");
    desk->click("txtALLOWED");
    desk->type("YES");
    EXPECT_EQ(desk->text("txtALLOWED"), "Y");
}

TEST_F(TemplateItems, UpdateChecksOnlyTheBoxThatWasUsedLast) {
    open();
    desk->press(Qt::Key_A);
    desk->type("cars");
    desk->click("cmdUpdate");
    EXPECT_THAT(stored(), ElementsAre("5|12|False")) << "the blank option stands for No";
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(TemplateItems, WhatLiesOverTheRowMovesThereAndBack) {
    openWith({{clerk, accounts, true}, {clerk, bills, false}});
    const int home = place("txtUAICODE").top();
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_E);
    EXPECT_EQ(place("txtUAICODE").topLeft(), place("lblUAICODE(1)").topLeft());
    EXPECT_EQ(place("txtALLOWED"), place("lblALLOWED(1)"));
    EXPECT_EQ(place("lblTDESC"), place("lblDESC(1)"));
    EXPECT_EQ(place("cmdUAISearch").right(), place("lblUAICODE(1)").right());
    EXPECT_TRUE(desk->isShown("cmdUAISearch"));
    desk->press(Qt::Key_Escape);
    EXPECT_EQ(place("txtUAICODE").top(), home);
    for (const char* hidden : {"txtUAICODE", "txtALLOWED", "lblTDESC", "cmdUAISearch"})
        EXPECT_FALSE(desk->isShown(hidden)) << hidden;
}

// Checks.

TEST_F(TemplateItems, ABlankCodeIsRefused) {
    open();
    desk->press(Qt::Key_A);
    desk->click("txtALLOWED");
    expectRefusal("Blank Code Detected.");
    EXPECT_EQ(desk->focus(), "txtUAICODE");
    desk->click("cmdUpdate");
    expectRefusal("Blank Code Detected.");
    EXPECT_EQ(desk->focus(), "txtUAICODE");
    EXPECT_TRUE(isEditing());
    EXPECT_THAT(stored(), IsEmpty());
}

TEST_F(TemplateItems, AnUnknownCodeIsRefused) {
    openWith({{clerk, cars, true}});
    desk->press(Qt::Key_E);
    desk->type(" vans ");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectRefusal("Cannot Find Code: VANS");
    EXPECT_EQ(desk->text("txtUAICODE"), " VANS ");
    EXPECT_EQ(desk->focus(), "txtUAICODE");
    EXPECT_THAT(stored(), ElementsAre("5|12|True"));
}

TEST_F(TemplateItems, ABlankOptionIsRefused) {
    openWith({{clerk, cars, true}});
    desk->click("lblALLOWED(0)");
    EXPECT_EQ(desk->focus(), "txtALLOWED");
    desk->type(" ");
    desk->click("cmdUpdate");
    expectRefusal("Blank 'Allowed?' Option Detected.");
    EXPECT_EQ(desk->focus(), "txtALLOWED");
    EXPECT_TRUE(isEditing());
}

TEST_F(TemplateItems, AnOptionThatIsNeitherYesNorNoIsRefused) {
    openWith({{clerk, cars, true}});
    desk->click("lblALLOWED(0)");
    desk->type("j");
    desk->click("txtUAICODE");
    expectRefusal("'Allowed' Option Must Be 'Y/N'.");
    EXPECT_EQ(desk->text("txtALLOWED"), "J");
    EXPECT_EQ(desk->focus(), "txtALLOWED");
    desk->type("n");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(stored(), ElementsAre("5|12|False"));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(TemplateItems, AFailedCheckDoesNotOutliveItsEdit) {
    openWith({{clerk, cars, true}});
    desk->press(Qt::Key_A);
    desk->click("cmdUpdate");
    expectRefusal("Blank Code Detected.");
    desk->press(Qt::Key_Escape);
    desk->click("lblALLOWED(0)");
    desk->type("n");
    desk->click("cmdUpdate");
    EXPECT_THAT(stored(), ElementsAre("5|12|False"));
}

// Editing and deleting.

TEST_F(TemplateItems, AnEditMayPointTheRecordAtAnotherItem) {
    openWith({{clerk, accounts, true}});
    desk->press(Qt::Key_E);
    EXPECT_EQ(desk->text("txtUAICODE"), "ACCOUNTS");
    EXPECT_EQ(desk->text("lblTDESC"), "All accounts");
    EXPECT_EQ(desk->text("txtALLOWED"), "Y");
    desk->type("cars");
    desk->click("txtALLOWED");
    EXPECT_EQ(desk->text("lblTDESC"), "Cars and vans");
    desk->type("n");
    desk->click("cmdUpdate");
    EXPECT_THAT(stored(), ElementsAre("5|12|False"));
    EXPECT_THAT(page(), ElementsAre("CARS|Cars and vans|No", " |End of List.| "));
}

TEST_F(TemplateItems, TheCodeOfAnItemThatIsGoneHasToBeEnteredAnew) {
    openWith({{clerk, gone, true}});
    desk->press(Qt::Key_E);
    EXPECT_EQ(desk->text("txtUAICODE"), "") << "as it was";
    EXPECT_EQ(desk->text("txtALLOWED"), "Y");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectRefusal("Blank Code Detected.");
    desk->type("bills");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(stored(), ElementsAre("5|11|True"));
}

TEST_F(TemplateItems, TheOptionOfAnItemThatIsGoneMayBeChanged) {
    openWith({{clerk, bills, true}, {clerk, gone, true}});
    desk->press(Qt::Key_E);
    desk->press(Qt::Key_Escape);
    desk->press(Qt::Key_Down);
    desk->click("lblALLOWED(1)");
    EXPECT_EQ(desk->text("txtUAICODE"), "BILLS") << "as it was";
    desk->type("n");
    desk->click("cmdUpdate");
    EXPECT_THAT(stored(), ElementsAre("5|11|True", "5|99|False"));
}

TEST_F(TemplateItems, CancelWritesNothing) {
    openWith({{clerk, cars, true}});
    desk->press(Qt::Key_E);
    desk->type("bills");
    desk->press(Qt::Key_C, Qt::AltModifier);
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(stored(), ElementsAre("5|12|True"));
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_EQ(highlight(), 0);
}

TEST_F(TemplateItems, ADeleteAsksFirst) {
    net.accessItems.change("UAICODE", "CARS", "CARS  ");
    net.accessItems.change("Desc", "Cars and vans", " Cars ");
    openWith({{clerk, cars, true}});
    person.answers = {"cmdCancel"};
    desk->press(Qt::Key_Delete);
    expectBox("OK to Delete URT Item: CARS - Cars?", QMessageBox::Question, "Confirm Delete");
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK", "cmdCancel"));
    EXPECT_THAT(stored(), ElementsAre("5|12|True"));
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(TemplateItems, ADeleteStaysInItsTemplate) {
    openWith({{clerk, accounts, true}, {clerk, gone, false}, {driver, cars, true}});
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_D);
    expectBox("OK to Delete URT Item: " + eight + " - " + thirty + "?", QMessageBox::Question,
              "Confirm Delete");
    EXPECT_THAT(page(), ElementsAre("ACCOUNTS|All accounts|Yes", " |End of List.| "));
    EXPECT_EQ(highlight(), 0) << "the record before, not that of the next template";
    desk->click("cmdDelete");
    EXPECT_THAT(page(), ElementsAre(" |List is Empty.| "));
    EXPECT_THAT(stored(), ElementsAre("6|12|True"));
}

TEST_F(TemplateItems, ChangesReachNoUser) {
    net.rights.add({{anna, cars, true, clerk}});
    openWith({{clerk, cars, true}});
    desk->press(Qt::Key_D);
    EXPECT_THAT(net.rights.rows(), ElementsAre("1|12|True|5"));
}

// Load and Unload.

TEST_F(TemplateItems, EscAndXCloseTheWindow) {
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_X}) {
        open();
        desk->press(key);
        EXPECT_EQ(forms::LoadedForms::Count(), 0);
    }
}

TEST_F(TemplateItems, UnloadClosesWhatWasOpened) {
    open();
    window->unload();
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase(NetworkTables::file);
    for (const char* table : {"URTITEMS", "URTEMPLATES", "USERACCESSITEMS"})
        EXPECT_NO_THROW(database.TableDefs().Delete(table)) << table;
}

} // namespace
} // namespace tol::test
