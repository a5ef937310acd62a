// SPDX-License-Identifier: MIT
#include "rights/frmTOLMOD01.h"

#include "forms/Form.h"
#include "forms/LoadedForms.h"
#include "forms/TextBox.h"
#include "support/ListWindowTest.h"
#include "support/SecondProcess.h"

#include <fmt/core.h>
#include <gmock/gmock.h>

#include <QPushButton>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

const std::string duplicateText =
    "Duplicate Module Code Detected.\nThe Module Code you have entered already exists.";
const std::string noName(50, ' ');

class Modules : public ListWindowTest {
  protected:
    Modules() : ListWindowTest({"MODULEID", "MODULENAME"}) {}

    void open() { show(std::make_unique<rights::frmTOLMOD01>("")); }
    void openWith(const std::vector<TestTable::Row>& rows) {
        table.add(rows);
        open();
    }
    void expectRefusal(const std::string& text) const {
        expectBox(text, QMessageBox::Critical, "Cannot Update Record");
    }

    TestTable table{"ZOVNET.MDB",
                    "MODULES",
                    {{"MODULEID", data::dbText, 3}, {"MODULENAME", data::dbText, 50}},
                    {{"MODULES", {"MODULEID"}, true}}};
};

std::vector<TestTable::Row> sevenModules() {
    std::vector<TestTable::Row> rows;
    for (const char* code : {"A", "B", "C", "D", "E", "F", "G"})
        rows.push_back({code, std::string("Module ") + code});
    return rows;
}

// Browse state.

TEST_F(Modules, ShowsTheTableInOrderOfItsCodes) {
    openWith({{"B", "Second"}, {"A", "First"}});
    EXPECT_EQ(window->windowTitle(), "Modules");
    EXPECT_EQ(pageSize(), 7U);
    EXPECT_THAT(page(), ElementsAre("A|First", "B|Second", " |End of List."));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_EQ(desk->text("lblHMODULEID"), "Code");
    EXPECT_EQ(desk->text("lblHMODULENAME"), " Module Name");
    desk->keepPicture("modules");
}

TEST_F(Modules, ShowsItsButtons) {
    openWith({{"A", "First"}});
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
    EXPECT_EQ(desk->text("cmdUpdate"), "&Update");
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(desk->control<forms::TextBox>("txtMODULEID").MaxLength(), 3);
    EXPECT_EQ(desk->control<forms::TextBox>("txtMODULENAME").MaxLength(), 50);
}

TEST_F(Modules, AnEmptyTableSaysSoAndEditDeleteAndPrintDoNothing) {
    open();
    EXPECT_THAT(page(), ElementsAre(" |List is Empty."));
    EXPECT_EQ(highlight(), 0);
    desk->keepPicture("modules-empty");
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_D, Qt::Key_Delete, Qt::Key_Down, Qt::Key_Up, Qt::Key_Home,
                              Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown})
        desk->press(key);
    for (const char* button : {"cmdEdit", "cmdDelete", "cmdPrint", "cmdVDBHOME", "cmdVDBEND"}) {
        desk->click(button);
        EXPECT_EQ(desk->focus(), "hsbMAIN") << button;
    }
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(page(), ElementsAre(" |List is Empty."));
    EXPECT_EQ(highlight(), 0);
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(Modules, PrintIsNotReady) {
    openWith({{"A", "First"}});
    desk->press(Qt::Key_P, Qt::AltModifier);
    expectBox("Development is Pending on this Option.", QMessageBox::Information, "Option Not Ready");
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(Modules, MovesByKeys) {
    openWith(sevenModules());
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_Right);
    EXPECT_EQ(highlight(), 2);
    desk->press(Qt::Key_Left);
    EXPECT_EQ(highlight(), 1);
    desk->press(Qt::Key_End);
    EXPECT_THAT(page(), ElementsAre("G|Module G", " |End of List."));
    EXPECT_EQ(highlight(), 0);
    desk->press(Qt::Key_Home);
    EXPECT_EQ(page().size(), 7U);
    EXPECT_EQ(highlight(), 0);
}

TEST_F(Modules, MovesByItsButtons) {
    openWith(sevenModules());
    const std::pair<const char*, int> steps[] = {{"cmdVDBDNARROW", 1}, {"cmdVDBDNARROW", 2},
                                                 {"cmdVDBUPARROW", 1}, {"cmdVDBHOME", 0},
                                                 {"cmdVDBPGDN", 0},    {"cmdVDBEND", 0}};
    for (const auto& [button, row] : steps) {
        desk->click(button);
        EXPECT_EQ(desk->focus(), "hsbMAIN") << button;
        EXPECT_EQ(highlight(), row) << button;
    }
    EXPECT_THAT(page(), ElementsAre("G|Module G", " |End of List."));
    desk->click("cmdVDBPGUP");
    EXPECT_THAT(page(), testing::Contains("A|Module A"));
}

TEST_F(Modules, TheActionButtonEditsARecordAndAddsWhereThereIsNone) {
    openWith({{"A", "First"}});
    desk->click("cmdVDBACTION");
    EXPECT_EQ(desk->text("txtMODULEID"), "A");
    desk->press(Qt::Key_Escape);
    desk->press(Qt::Key_Down);
    desk->click("cmdVDBACTION");
    EXPECT_EQ(desk->text("txtMODULEID"), "   ");
    expectBoxesOver(1);
}

// Adding.

TEST_F(Modules, AnAddCoversTheRowBehindTheLastRecord) {
    openWith({{"A", "First"}, {"C", "Third"}});
    desk->press(Qt::Key_A);
    EXPECT_TRUE(isEditing());
    expectBoxesOver(2);
    EXPECT_EQ(desk->text("txtMODULEID"), "   ");
    EXPECT_EQ(desk->text("txtMODULENAME"), noName);
    EXPECT_EQ(desk->focus(), "txtMODULEID");
    EXPECT_EQ(highlight(), -1);
    for (const char* button : {"cmdAdd", "cmdEdit", "cmdDelete", "cmdPrint"})
        EXPECT_FALSE(desk->isShown(button)) << button;
    EXPECT_TRUE(desk->isShown("cmdUpdate"));
    EXPECT_EQ(desk->text("cmdExit"), "&Cancel");
    EXPECT_FALSE(desk->control("hsbMAIN").isEnabled());
    EXPECT_FALSE(window->keyPreview());
}

TEST_F(Modules, AddsByKeysAlone) {
    openWith({{"A", "First"}, {"C", "Third"}});
    desk->press(Qt::Key_A, Qt::AltModifier);
    desk->type("b");
    desk->press(Qt::Key_Return);
    EXPECT_EQ(desk->focus(), "txtMODULENAME");
    EXPECT_EQ(desk->text("txtMODULEID"), "B");
    desk->type("second");
    desk->press(Qt::Key_Return);
    EXPECT_EQ(desk->focus(), "cmdUpdate");
    desk->press(Qt::Key_Return);
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(table.rows(), ElementsAre("A|First", "B|second", "C|Third"));
    EXPECT_THAT(page(), ElementsAre("A|First", "B|second", "C|Third", " |End of List."));
    EXPECT_EQ(highlight(), 1) << "the added record";
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_TRUE(window->keyPreview());
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(Modules, AddsByMouseButForTheTyping) {
    openWith({{"A", "First"}});
    desk->click("cmdAdd");
    desk->type("b");
    desk->click("txtMODULENAME");
    desk->type("second");
    desk->click("cmdUpdate");
    EXPECT_THAT(table.rows(), ElementsAre("A|First", "B|second"));
}

TEST_F(Modules, AnAddOnAnEmptyListCoversItsRow) {
    open();
    desk->press(Qt::Key_Return);
    expectBoxesOver(0);
    desk->press(Qt::Key_Escape);
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(page(), ElementsAre(" |List is Empty."));
    EXPECT_EQ(highlight(), 0);
    EXPECT_THAT(table.rows(), IsEmpty());
}

TEST_F(Modules, TheFirstRecordOfAllIsAdded) {
    open();
    desk->press(Qt::Key_A);
    desk->type("ABC");
    desk->press(Qt::Key_Tab);
    desk->type("First");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(page(), ElementsAre("ABC|First", " |End of List."));
    EXPECT_EQ(highlight(), 0);
}

TEST_F(Modules, AnAddOnAFullPageScrollsIt) {
    openWith(sevenModules());
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_A);
    expectBoxesOver(6);
    EXPECT_THAT(page(), ElementsAre("B|Module B", "C|Module C", "D|Module D", "E|Module E", "F|Module F",
                                    "G|Module G", " |End of List."));
    desk->click("cmdExit");
    EXPECT_EQ(page().back(), " |End of List.") << "the page stays as it was scrolled";
    EXPECT_EQ(highlight(), 1);
    desk->press(Qt::Key_E);
    EXPECT_EQ(desk->text("txtMODULEID"), "C") << "the record on which the highlight is";
}

TEST_F(Modules, AnAddedRecordMayLandElsewhereThanItsRow) {
    openWith(sevenModules());
    desk->press(Qt::Key_A);
    desk->type("AA");
    desk->press(Qt::Key_Tab);
    desk->type("Between");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(page(), ElementsAre("A|Module A", "AA|Between", "B|Module B", "C|Module C", "D|Module D",
                                    "E|Module E", "F|Module F"));
    EXPECT_EQ(highlight(), 1);
}

// Editing.

TEST_F(Modules, AnEditCoversItsRowAndChangesTheRecord) {
    openWith({{"A", "First"}, {"B", "Second"}});
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_Return);
    expectBoxesOver(1);
    desk->keepPicture("modules-edit");
    EXPECT_EQ(desk->text("txtMODULEID"), "B");
    EXPECT_EQ(desk->text("txtMODULENAME"), "Second");
    desk->press(Qt::Key_Tab);
    desk->type("Other");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(table.rows(), ElementsAre("A|First", "B|Other"));
    EXPECT_EQ(highlight(), 1);
}

TEST_F(Modules, ASecondClickEditsWithTheFocusInTheColumnClicked) {
    openWith({{"A", "First"}, {"B", "Second"}});
    desk->click("lblMODULENAME(1)");
    EXPECT_EQ(highlight(), 1);
    EXPECT_FALSE(isEditing());
    desk->click("lblMODULENAME(1)");
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(desk->focus(), "txtMODULENAME");
    desk->press(Qt::Key_Escape);
    desk->press(Qt::Key_E);
    EXPECT_EQ(desk->focus(), "txtMODULEID") << "every cycle begins with the first box again";
}

TEST_F(Modules, ADoubleClickEdits) {
    openWith({{"A", "First"}, {"B", "Second"}});
    desk->doubleClick("lblMODULEID(1)");
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(desk->text("txtMODULEID"), "B");
}

TEST_F(Modules, AClickOnABlankRowGivesTheFocusBack) {
    openWith({{"A", "First"}});
    for (const char* label : {"lblMODULEID(1)", "lblMODULENAME(4)"}) {
        desk->click(label);
        EXPECT_EQ(highlight(), 0) << label;
        EXPECT_EQ(desk->focus(), "hsbMAIN");
        EXPECT_FALSE(isEditing());
    }
}

TEST_F(Modules, RowsAndMoveButtonsAreOutOfUseWhileEditing) {
    openWith({{"A", "First"}, {"B", "Second"}});
    desk->press(Qt::Key_E);
    desk->click("lblMODULEID(1)");
    EXPECT_FALSE(desk->control("cmdVDBDNARROW").isEnabled());
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_PageDown);
    EXPECT_EQ(highlight(), -1);
    EXPECT_EQ(desk->text("txtMODULEID"), "A");
    desk->press(Qt::Key_Escape);
    EXPECT_EQ(highlight(), 0);
}

TEST_F(Modules, CancelWritesNothing) {
    openWith({{"A", "First"}, {"B", "Second"}});
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_E);
    desk->type("ZZZ");
    desk->press(Qt::Key_C, Qt::AltModifier);
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(table.rows(), ElementsAre("A|First", "B|Second"));
    EXPECT_EQ(highlight(), 1);
    EXPECT_EQ(desk->text("cmdExit"), "E&xit");
    EXPECT_FALSE(desk->isShown("cmdUpdate"));
    EXPECT_THAT(person.boxes, IsEmpty()) << "a box that is given up is not checked";
}

TEST_F(Modules, TheCodeMayStayAsItIs) {
    openWith({{"ABC", "First"}});
    desk->press(Qt::Key_E);
    desk->type("abc");
    desk->press(Qt::Key_Tab);
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_EQ(desk->focus(), "txtMODULENAME");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(table.rows(), ElementsAre("ABC|First"));
}

// Checks.

TEST_F(Modules, ABlankCodeIsRefusedWhenItIsLeft) {
    openWith({{"A", "First"}});
    desk->press(Qt::Key_A);
    desk->press(Qt::Key_Tab);
    expectRefusal("Empty Module Code Detected");
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK"));
    EXPECT_EQ(desk->focus(), "txtMODULEID");
    EXPECT_TRUE(isEditing());
    desk->type("b");
    EXPECT_EQ(desk->text("txtMODULEID"), "b") << "the whole text was marked";
    desk->press(Qt::Key_Tab);
    EXPECT_EQ(desk->focus(), "txtMODULENAME");
    EXPECT_EQ(person.boxes.size(), 1U);
}

TEST_F(Modules, ABlankCodeIsRefusedAtUpdate) {
    openWith({{"A", "First"}});
    desk->press(Qt::Key_A);
    desk->click("cmdUpdate");
    expectRefusal("Empty Module Code Detected");
    EXPECT_EQ(desk->focus(), "txtMODULEID");
    EXPECT_TRUE(isEditing());
    EXPECT_THAT(table.rows(), ElementsAre("A|First"));
}

TEST_F(Modules, ACodeThatIsTakenIsRefusedInAnyCase) {
    openWith({{"ABC", "First"}});
    desk->press(Qt::Key_A);
    desk->type("abc");
    desk->click("txtMODULENAME");
    expectRefusal(duplicateText);
    EXPECT_EQ(desk->text("txtMODULEID"), "ABC");
    EXPECT_EQ(desk->focus(), "txtMODULEID");
}

TEST_F(Modules, AnotherRecordsCodeIsRefused) {
    openWith({{"A", "First"}, {"B", "Second"}});
    desk->press(Qt::Key_E);
    desk->type("b");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectRefusal(duplicateText);
    EXPECT_EQ(desk->focus(), "txtMODULEID");
    EXPECT_TRUE(isEditing());
    EXPECT_THAT(table.rows(), ElementsAre("A|First", "B|Second"));
}

TEST_F(Modules, ABlankNameIsRefused) {
    openWith({{"A", "First"}});
    desk->press(Qt::Key_E);
    desk->press(Qt::Key_Tab);
    desk->type(" ");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectRefusal("Blank Module Name Detected.");
    EXPECT_EQ(desk->focus(), "txtMODULENAME");
    EXPECT_TRUE(isEditing());
    desk->press(Qt::Key_Backtab);
    EXPECT_EQ(person.boxes.size(), 2U) << "it is checked whichever way it is left";
    EXPECT_EQ(desk->focus(), "txtMODULENAME");
}

TEST_F(Modules, UpdateChecksOnlyTheBoxThatWasUsedLast) {
    open();
    desk->press(Qt::Key_A);
    desk->type("b");
    desk->click("cmdUpdate");
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_THAT(table.rows(), ElementsAre("B|" + noName));
}

TEST_F(Modules, AFailedCheckDoesNotOutliveItsEdit) {
    openWith({{"A", "First"}});
    desk->press(Qt::Key_A);
    desk->press(Qt::Key_Tab);
    ASSERT_EQ(person.boxes.size(), 1U);
    desk->press(Qt::Key_Escape);
    desk->press(Qt::Key_E);
    desk->press(Qt::Key_Tab);
    EXPECT_EQ(desk->focus(), "txtMODULENAME");
    desk->type("Other");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(table.rows(), ElementsAre("A|Other"));
    EXPECT_EQ(person.boxes.size(), 1U);
}

// Deleting.

TEST_F(Modules, ADeleteAsksFirst) {
    openWith({{"A  ", "First  "}, {"B", "Second"}});
    person.answers = {"cmdCancel"};
    desk->press(Qt::Key_Delete);
    expectBox("OK to Delete Module Code A   First?", QMessageBox::Question, "Confirm Delete");
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK", "cmdCancel"));
    EXPECT_EQ(table.rows().size(), 2U);
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(Modules, ADeleteGoesToTheNextRecordAndFromTheLastToTheOneBefore) {
    openWith({{"A", "First"}, {"B", "Second"}, {"C", "Third"}});
    desk->press(Qt::Key_Down);
    desk->click("cmdDelete");
    EXPECT_THAT(page(), ElementsAre("A|First", "C|Third", " |End of List."));
    EXPECT_EQ(highlight(), 1);
    desk->press(Qt::Key_D);
    EXPECT_THAT(page(), ElementsAre("A|First", " |End of List."));
    EXPECT_EQ(highlight(), 0);
    desk->press(Qt::Key_D, Qt::AltModifier);
    EXPECT_THAT(page(), ElementsAre(" |List is Empty."));
    EXPECT_EQ(highlight(), 0);
    EXPECT_THAT(table.rows(), IsEmpty());
}

// Other users.

TEST_F(Modules, ARecordThatAnotherDeletedIsNeitherEditedNorDeleted) {
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_D}) {
        table.add({{"A", "First"}, {"B", "Second"}});
        open();
        table.remove("MODULEID", "A");
        desk->press(key);
        EXPECT_FALSE(isEditing());
        EXPECT_THAT(person.boxes, IsEmpty());
        EXPECT_THAT(page(), ElementsAre("B|Second", " |End of List."));
        EXPECT_EQ(highlight(), 0);
        EXPECT_EQ(desk->focus(), "hsbMAIN");
        window->unload();
        table.remove("MODULEID", "B");
    }
}

TEST_F(Modules, ARecordThatGoesWhileTheQuestionStandsIsNotDeletedAgain) {
    openWith({{"A", "First"}, {"B", "Second"}});
    person.onBox = [&](QMessageBox& box) {
        table.remove("MODULEID", "A");
        box.findChild<QPushButton*>("cmdOK")->click();
    };
    desk->press(Qt::Key_D);
    EXPECT_THAT(table.rows(), ElementsAre("B|Second"));
    EXPECT_THAT(page(), ElementsAre("B|Second", " |End of List."));
    EXPECT_EQ(highlight(), 0);
}

TEST_F(Modules, ARecordThatGoesWhileItIsEditedEndsTheEdit) {
    openWith({{"A", "First"}, {"B", "Second"}});
    desk->press(Qt::Key_E);
    table.remove("MODULEID", "A");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(table.rows(), ElementsAre("B|Second"));
    EXPECT_THAT(page(), ElementsAre("B|Second", " |End of List."));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(Modules, ComesBackFreshFromUnderAnotherWindow) {
    openWith({{"A", "First"}});
    forms::Form& first = *window;
    const WindowDriver atFirst(first);
    open();
    table.add({{"B", "Second"}});
    EXPECT_THAT(page(), ElementsAre("A|First", " |End of List."));
    first.showModeless();
    EXPECT_EQ(atFirst.text("lblMODULEID(1)"), "B");
    EXPECT_EQ(atFirst.focus(), "hsbMAIN");
}

TEST_F(Modules, AnEditUnderAnotherWindowIsLeftAlone) {
    openWith({{"A", "First"}});
    forms::Form& first = *window;
    const WindowDriver atFirst(first);
    desk->press(Qt::Key_E);
    desk->type("Q");
    open();
    first.showModeless();
    EXPECT_TRUE(atFirst.isShown("txtMODULEID"));
    EXPECT_EQ(atFirst.text("txtMODULEID"), "Q");
    EXPECT_EQ(atFirst.focus(), "txtMODULEID");
}

TEST_F(Modules, ABoxIsNoReasonToReadTheListAnew) {
    openWith({{"A", "First"}});
    table.add({{"B", "Second"}});
    person.answers = {"cmdCancel"};
    desk->press(Qt::Key_D);
    EXPECT_THAT(page(), ElementsAre("A|First", " |End of List."));
}

class ModulesDeathTest : public Modules {
  protected:
    /// Writes the error box to the standard error and presses OK.
    void readAloud() {
        person.onBox = [](QMessageBox& box) {
            fmt::print(stderr, "[{}|{}]", box.windowTitle().toStdString(), box.text().toStdString());
            box.close();
        };
    }
    void change(const QString& name) const {
        desk->press(Qt::Key_E);
        desk->press(Qt::Key_Tab);
        desk->type(name);
        desk->press(Qt::Key_U, Qt::AltModifier);
        fmt::print(stderr, "still running");
    }
};

TEST_F(ModulesDeathTest, ACodeThatAnotherTookMeanwhileEndsTheProgram) {
    const auto run = [this] {
        open();
        desk->press(Qt::Key_A);
        desk->type("b");
        desk->press(Qt::Key_Tab);
        desk->type("Mine");
        table.add({{"B", "Theirs"}});
        readAloud();
        desk->press(Qt::Key_U, Qt::AltModifier);
        fmt::print(stderr, "still running");
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(1), R"(^\[Tolvane Module\|Run-time error '3022':)");
}

TEST_F(ModulesDeathTest, ATableThatAnotherHoldsEndsTheProgram) {
    table.add({{"A", "First"}});
    const auto run = [this] {
        const SecondProcess other([](const SecondProcess::Steps& steps) {
            data::Workspace workspace = data::DBEngine::CreateWorkspace("wksOTHER");
            const data::Database database = workspace.OpenDatabase("ZOVNET.MDB");
            workspace.BeginTrans();
            steps.done();
            steps.wait();
        });
        if (!other.await())
            return;
        open();
        readAloud();
        change("Other");
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(1), R"(^\[Tolvane Module\|Run-time error '3218':)");
}

// Load, Unload and Exit.

TEST_F(Modules, EscAndXCloseTheWindow) {
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_X}) {
        open();
        desk->press(key);
        EXPECT_EQ(forms::LoadedForms::Count(), 0);
    }
    open();
    desk->click("cmdExit");
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(Modules, AMissingNetworkDatabaseLeavesOnlyTheExitButton) {
    std::filesystem::remove(folder / "ZOVNET.MDB");
    open();
    ASSERT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes[0].title, "Cannot Access");
    EXPECT_EQ(person.boxes[1].title, "Error Displaying Form");
    EXPECT_EQ(person.boxes[1].icon, QMessageBox::Critical);
    EXPECT_THAT(person.boxes[1].text,
                testing::MatchesRegex("Error Loading Form: frmTOLMOD01\n\nError Number: 3024\n\n"
                                      "Error Description: .*ERROR.*"));
    expectOnlyTheExitButton();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_A, Qt::Key_D, Qt::Key_E, Qt::Key_End})
        desk->press(key);
    EXPECT_EQ(person.boxes.size(), 2U);
    desk->click("cmdExit");
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST_F(Modules, ADamagedNetworkDatabaseIsTold) {
    folder.write("ZOVNET.MDB", std::string(9000, 'x'));
    open();
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_THAT(person.boxes[0].text,
                testing::HasSubstr("Error Loading Form: frmTOLMOD01\n\nError Number: 3343\n\n"));
    desk->press(Qt::Key_Escape);
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST_F(Modules, UnloadLetsGoOfTheTable) {
    open();
    window->unload();
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase("ZOVNET.MDB");
    EXPECT_NO_THROW(database.TableDefs().Delete("MODULES")) << "it needs the table alone";
}

} // namespace
} // namespace tol::test
