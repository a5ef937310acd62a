// SPDX-License-Identifier: MIT
#include "ModulesTest.h"

#include "../search_print/document/Drawn.h"
#include "data/DBEngine.h"
#include "forms/controls/TextBox.h"
#include "forms/windows/Form.h"
#include "forms/windows/LoadedForms.h"
#include "search_print/ReportWindow.h"
#include "support/ReportReader.h"
#include "support/SecondProcess.h"

#include <fmt/core.h>
#include <gmock/gmock.h>

#include <QPushButton>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

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
    for (const Qt::Key key : {Qt::Key_D, Qt::Key_Delete, Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End,
                              Qt::Key_PageUp, Qt::Key_PageDown}) {
        desk->press(key);
        EXPECT_FALSE(isEditing()) << key;
    }
    desk->control("cmdPrint").setFocus();
    desk->press(Qt::Key_E);
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(desk->focus(), "hsbMAIN") << "an edit of nothing gives the keyboard back to the list";
    for (const char* button : {"cmdEdit", "cmdDelete", "cmdPrint", "cmdVDBHOME", "cmdVDBEND"}) {
        desk->click(button);
        EXPECT_EQ(desk->focus(), "hsbMAIN") << button;
    }
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(page(), ElementsAre(" |List is Empty."));
    EXPECT_EQ(highlight(), 0);
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(Modules, TabGoesFromTheListToTheButtonsThatAreReachedByIt) {
    openWith({{"A", "First"}});
    for (const char* next : {"cmdAdd", "cmdEdit", "cmdDelete", "cmdPrint", "hsbMAIN"}) {
        desk->press(Qt::Key_Tab);
        EXPECT_EQ(desk->focus(), next);
    }
}

TEST_F(Modules, PrintOpensTheReport) {
    openWith({{"A", "First"}});
    const ReportReader reader([](search_print::ReportWindow& report) {
        EXPECT_EQ(report.objectName(), "frmTOLMOD02");
        EXPECT_THAT(textsOf(report.printer()), IsSupersetOf({"Modules", "A", "First"}));
    });
    desk->press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(reader.reports, 1);
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

const char* const deletedText = "This Record has been Deleted by Another User.\n"
                                "Click Update to Add it as a New Record, or Cancel to Give it Up.";

class ModuleGone : public Modules {
  protected:
    ModuleGone() {
        person.onBox = [this](QMessageBox& box) {
            behindTheBox = page();
            box.findChild<QPushButton*>("cmdOK")->click();
        };
        openWith({{"A", "First"}, {"B", "Second"}, {"C", "Third"}});
        desk->press(Qt::Key_Down);
        desk->press(Qt::Key_E);
        desk->press(Qt::Key_Tab);
        desk->type("Typed");
        table.remove("MODULEID", "B");
        desk->press(Qt::Key_U, Qt::AltModifier);
    }
    std::vector<std::string> behindTheBox;
};

TEST_F(ModuleGone, IsToldBeforeTheListShowsItselfAfresh) {
    EXPECT_THAT(behindTheBox, ElementsAre("A|First", "B|Second", "C|Third", " |End of List."));
    EXPECT_THAT(page(), ElementsAre("A|First", "C|Third", " |End of List."));
}

TEST_F(ModuleGone, IsToldAndWhatWasTypedStaysInTheBoxes) {
    expectRefusal(deletedText);
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK"));
    EXPECT_TRUE(isEditing());
    expectBoxesOver(2);
    EXPECT_EQ(desk->text("txtMODULEID"), "B");
    EXPECT_EQ(desk->text("txtMODULENAME"), "Typed");
    EXPECT_EQ(desk->focus(), "txtMODULEID");
    EXPECT_EQ(highlight(), -1);
    EXPECT_THAT(page(), ElementsAre("A|First", "C|Third", " |End of List."));
    desk->keepPicture("modules-record-gone");
}

TEST_F(ModuleGone, IsAddedByAnotherUpdate) {
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(person.boxes.size(), 1U);
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(table.rows(), ElementsAre("A|First", "B|Typed", "C|Third"));
    EXPECT_THAT(page(), ElementsAre("A|First", "B|Typed", "C|Third", " |End of List."));
}

TEST_F(ModuleGone, IsNotAddedOverAnother) {
    table.add({{"B", "Theirs"}});
    desk->press(Qt::Key_U, Qt::AltModifier);
    ASSERT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes[1].text,
              "Duplicate Module Code Detected.\nThe Module Code you have entered already exists.");
    EXPECT_THAT(table.rows(), ElementsAre("A|First", "B|Theirs", "C|Third"));
}

TEST_F(ModuleGone, IsGivenUpByCancel) {
    desk->press(Qt::Key_Escape);
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(table.rows(), ElementsAre("A|First", "C|Third"));
    EXPECT_THAT(page(), ElementsAre("A|First", "C|Third", " |End of List."));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(Modules, TheOnlyRecordMayGoWhileItIsEdited) {
    openWith({{"A", "First"}});
    desk->press(Qt::Key_E);
    table.remove("MODULEID", "A");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectRefusal(deletedText);
    expectBoxesOver(0);
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(table.rows(), ElementsAre("A|First"));
    EXPECT_THAT(page(), ElementsAre("A|First", " |End of List."));
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
