// SPDX-License-Identifier: MIT
#include "jobsites/frmDBPBrowse.h"

#include "forms/controls/FolderControls.h"
#include "forms/controls/TextBox.h"
#include "forms/windows/Form.h"
#include "forms/windows/LoadedForms.h"
#include "jobsites/frmDBPSearch.h"
#include "runtime/Text.h"
#include "screens/RowLabel.h"
#include "search_print/ReportWindow.h"
#include "support/KeepPicture.h"
#include "support/ListWindowTest.h"
#include "support/Visit.h"

#include <gmock/gmock.h>

#include <functional>

#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string reminder = "Remember, if you changed the Location of Database Files\n"
                             "for an existing Job Site then you need to Reselect that Job Site\n"
                             "(Main Menu Option: File, 1 - Select Job Site)\n"
                             "in order for the changes to take effect.";

/// The folder's DBPATHS.MDB is made anew, with its tables.
struct JobSitesFolder {
    JobSitesFolder() { std::filesystem::remove("DBPATHS.MDB"); }
};

class JobSites : public ListWindowTest {
  protected:
    JobSites() : ListWindowTest({"PATHNAME", "PATHTEXT"}) {}

    void open() { show(std::make_unique<jobsites::frmDBPBrowse>()); }
    void openWith(const std::vector<TestTable::Row>& rows) {
        table.add(rows);
        open();
    }
    void fill(const QString& name, const QString& path) const {
        desk->type(name);
        desk->press(Qt::Key_Tab);
        desk->type(path);
    }

    JobSitesFolder fresh;
    TestTable table{
        "DBPATHS.MDB",
        "DBPATHS",
        {{"DBTAG", data::dbLong}, {"PATHNAME", data::dbText, 16}, {"PathText", data::dbText, 100}},
        {{"DBPATHS", {"PATHNAME"}}}};
    TestTable counter{"DBPATHS.MDB", "DBTAGS", {{"DBTAG", data::dbLong}}};
};

TestTable::Row site(std::int32_t tag, const char* name, const char* path) {
    return {tag, name, path};
}

std::vector<TestTable::Row> eightSites() {
    std::vector<TestTable::Row> rows;
    for (std::int32_t i = 1; i <= 8; ++i)
        rows.push_back({i, "SITE" + std::to_string(i), R"(C:\SITE)" + std::to_string(i)});
    return rows;
}

// Browse state.

TEST_F(JobSites, ShowsTheTable) {
    openWith({site(1, "SOUTH", "C:\\SOUTH"), site(2, "NORTH", "C:\\NORTH")});
    EXPECT_EQ(window->windowTitle(), "Job Sites");
    EXPECT_EQ(pageSize(), 8U);
    EXPECT_THAT(page(), ElementsAre("NORTH|C:\\NORTH", "SOUTH|C:\\SOUTH", " |End of List"));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    desk->keepPicture("job-sites");
    EXPECT_EQ(desk->text("lblHPATHNAME"), "Job Site");
    EXPECT_EQ(desk->text("lblHPATHTEXT"), " Location of Database Files");
    for (const char* hidden : {"cmdUpdate", "cmdSelectPath", "txtPATHNAME", "txtPATHTEXT"})
        EXPECT_FALSE(desk->isShown(hidden)) << hidden;
    EXPECT_EQ(desk->control<forms::TextBox>("txtPATHNAME").MaxLength(), 16);
    EXPECT_EQ(desk->control<forms::TextBox>("txtPATHTEXT").MaxLength(), 100);
    EXPECT_EQ(desk->control("cmdSelectPath").toolTip(), "Click for Location Selection Form");
}

TEST_F(JobSites, SaysWhenTheTableIsEmpty) {
    open();
    EXPECT_THAT(page(), ElementsAre(" |List is Empty"));
    EXPECT_EQ(highlight(), 0);
    desk->keepPicture("job-sites-empty");
}

TEST_F(JobSites, ALongPathIsCutInItsMiddle) {
    const std::string location = "C:\\JOBS\\" + std::string(70, 'W') + "\\NORTH";
    openWith({{std::int32_t{1}, "NORTH", location}});
    const QString shown = desk->control<screens::RowLabel>("lblPATHTEXT(0)").shownText();
    EXPECT_TRUE(shown.startsWith("C:\\JOBS\\WW") && shown.endsWith("WW\\NORTH")) << shown.toStdString();
    EXPECT_EQ(desk->text("lblPATHTEXT(0)"), location);
}

TEST_F(JobSites, ANullIsShownAsABlank) {
    openWith({{std::int32_t{1}, "NORTH", runtime::Null()}});
    EXPECT_THAT(page(), ElementsAre("NORTH|" + std::string(100, ' '), " |End of List"));
}

// Adding and editing.

TEST_F(JobSites, AnAddGetsTheNextNumber) {
    counter.add({{std::int32_t{57}}});
    openWith({site(3, "SOUTH", "C:\\SOUTH")});
    desk->press(Qt::Key_A);
    expectBoxesOver(1);
    EXPECT_EQ(desk->focus(), "txtPATHNAME");
    EXPECT_EQ(desk->text("txtPATHNAME"), std::string(16, ' '));
    EXPECT_EQ(desk->text("txtPATHTEXT"), std::string(100, ' '));
    EXPECT_TRUE(desk->isShown("cmdSelectPath"));
    fill("north", "c:\\north");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(table.rows(), ElementsAre("57|NORTH|C:\\NORTH", "3|SOUTH|C:\\SOUTH"));
    EXPECT_THAT(counter.rows(), ElementsAre("58"));
    EXPECT_THAT(page(), ElementsAre("NORTH|C:\\NORTH", "SOUTH|C:\\SOUTH", " |End of List"));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(JobSites, TabGoesFromBoxToBoxToTheButtons) {
    openWith({site(1, "NORTH", "C:\\NORTH")});
    desk->press(Qt::Key_E);
    for (const char* next : {"txtPATHTEXT", "cmdSelectPath", "cmdUpdate", "cmdExit", "txtPATHNAME"}) {
        desk->press(Qt::Key_Tab);
        EXPECT_EQ(desk->focus(), next);
    }
    desk->press(Qt::Key_Return);
    EXPECT_EQ(desk->focus(), "txtPATHTEXT") << "Enter is Tab in a box";
}

TEST_F(JobSites, TextsAreFoldedWhenTheirBoxIsLeft) {
    openWith({site(1, "NORTH", "C:\\NORTH")});
    desk->press(Qt::Key_E);
    desk->type("south");
    EXPECT_EQ(desk->text("txtPATHNAME"), "south");
    desk->press(Qt::Key_Tab);
    EXPECT_EQ(desk->text("txtPATHNAME"), "SOUTH");
    desk->type("c:\\site\\\\");
    desk->press(Qt::Key_Tab);
    EXPECT_EQ(desk->text("txtPATHTEXT"), "C:\\SITE\\") << "one backslash only";
}

TEST_F(JobSites, ATrailingBackslashIsNotStored) {
    open();
    desk->press(Qt::Key_A);
    fill("here", "C:\\");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(table.rows(), ElementsAre("1|HERE|C:"));
}

TEST_F(JobSites, TwoMayHaveOneName) {
    openWith({site(1, "NORTH", "C:\\NORTH")});
    desk->press(Qt::Key_A);
    fill("north", "c:\\other");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(table.rows().size(), 2U);
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(JobSites, AFullPageScrollsForAnAdd) {
    openWith(eightSites());
    desk->press(Qt::Key_A);
    expectBoxesOver(7);
    desk->keepPicture("job-sites-add");
    EXPECT_EQ(page().front(), "SITE2|C:\\SITE2");
    EXPECT_EQ(page().back(), " |End of List");
    fill("site0", "x");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(page().front(), "SITE0|X");
    EXPECT_EQ(highlight(), 0) << "there are no seven records above it";
}

TEST_F(JobSites, AnAddOnTheEndOfListRowStaysInIt) {
    openWith({site(1, "A", "X"), site(2, "B", "Y")});
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_Down);
    EXPECT_EQ(highlight(), 2);
    desk->press(Qt::Key_Return);
    expectBoxesOver(2);
    desk->press(Qt::Key_Escape);
    EXPECT_EQ(highlight(), 2);
    EXPECT_EQ(page().back(), " |End of List");
}

TEST_F(JobSites, ABlankNameAndOkLeadBackToTheNameBox) {
    open();
    desk->press(Qt::Key_A);
    desk->press(Qt::Key_Tab);
    EXPECT_THAT(person.boxes, IsEmpty()) << "nothing is checked before Update";
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectBox("Database Name is Empty.", QMessageBox::Critical, "Cannot Update Record");
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK", "cmdCancel"));
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(desk->focus(), "txtPATHNAME");
    desk->type("n");
    EXPECT_EQ(desk->text("txtPATHNAME"), "n") << "the whole text was marked";
    EXPECT_THAT(table.rows(), IsEmpty());
}

TEST_F(JobSites, ABlankNameAndCancelEndTheEdit) {
    open();
    person.answers = {"cmdCancel"};
    desk->press(Qt::Key_A);
    desk->click("cmdUpdate");
    EXPECT_EQ(person.boxes.size(), 1U);
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(page(), ElementsAre(" |List is Empty"));
    EXPECT_THAT(table.rows(), IsEmpty());
    EXPECT_THAT(counter.rows(), IsEmpty()) << "no number is spent";
}

TEST_F(JobSites, ABlankPathIsRefused) {
    openWith({site(1, "NORTH", "C:\\NORTH")});
    desk->press(Qt::Key_E);
    fill("north", " ");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectBox("Path String is Empty.", QMessageBox::Critical, "Cannot Update Record");
    EXPECT_EQ(desk->focus(), "txtPATHNAME");
}

TEST_F(JobSites, AFailedNumberIsTakenForZero) {
    counter.add({{std::int32_t{2147483647}}});
    open();
    desk->press(Qt::Key_A);
    fill("n", "x");
    desk->press(Qt::Key_U, Qt::AltModifier);
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, "Error: vdGetNewTag");
    EXPECT_THAT(table.rows(), ElementsAre("0|N|X"));
}

// Both boxes are full, so that nothing may grow in upper case.
TEST_F(JobSites, ANameAndAPathAreStoredWhole) {
    open();
    desk->press(Qt::Key_A);
    const QString name("gro\u00dfe stra\u00dfe 123");
    const QString path = "c:\\" + QString(97, QChar(0xdf));
    fill(name, path);
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(table.rows(), ElementsAre("1|GRO\u00dfE STRA\u00dfE 123|C" + path.mid(1).toStdString()));
}

TEST_F(JobSites, ARecordThatAnotherDeletedIsToldAndMayBeAdded) {
    counter.add({{std::int32_t{7}}});
    openWith({site(1, "NORTH", "C:\\NORTH"), site(2, "SOUTH", "C:\\SOUTH")});
    desk->press(Qt::Key_E);
    fill("east", "c:\\east");
    table.remove("PATHNAME", "NORTH");
    person.onBox = [this](QMessageBox& box) {
        EXPECT_EQ(page().front(), "NORTH|C:\\NORTH") << "it is told before the list shows itself afresh";
        box.findChild<QPushButton*>("cmdOK")->click();
    };
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(page().front(), "SOUTH|C:\\SOUTH");
    expectBox("This Record has been Deleted by Another User.\n"
              "Click Update to Add it as a New Record, or Cancel to Give it Up.",
              QMessageBox::Critical, "Cannot Update Record");
    EXPECT_TRUE(isEditing());
    expectBoxesOver(1);
    EXPECT_EQ(desk->text("txtPATHTEXT"), "C:\\EAST");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(table.rows(), ElementsAre("7|EAST|C:\\EAST", "2|SOUTH|C:\\SOUTH"));
    desk->press(Qt::Key_X);
    EXPECT_EQ(person.boxes.size(), 1U) << "nothing was changed of which to remind";
}

class UniqueSites : public JobSites {
  protected:
    UniqueSites() {
        std::filesystem::remove("DBPATHS.MDB");
        table = {"DBPATHS.MDB",
                 "DBPATHS",
                 {{"DBTAG", data::dbLong}, {"PATHNAME", data::dbText, 16}, {"PathText", data::dbText, 100}},
                 {{"DBPATHS", {"PATHNAME"}}, {"BYPATH", {"PathText"}, true}}};
        counter = {"DBPATHS.MDB", "DBTAGS", {{"DBTAG", data::dbLong}}};
        counter.add({{std::int32_t{7}}});
        openWith({site(1, "NORTH", "C:\\NORTH"), site(2, "SOUTH", "C:\\SOUTH")});
    }
    void expectIndexTold() const {
        expectBox("The change was not made: it would create duplicate values in the index or primary key "
                  "'BYPATH'.\nFile: " +
                      (folder / "DBPATHS.MDB").string(),
                  QMessageBox::Critical, "Cannot Update Record");
        EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK"));
        EXPECT_TRUE(isEditing());
        EXPECT_EQ(desk->focus(), "txtPATHNAME");
    }
};

TEST_F(UniqueSites, AnEditThatAUniqueIndexRefusesGoesOn) {
    desk->press(Qt::Key_E);
    fill("north", "c:\\south");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectIndexTold();
    EXPECT_EQ(desk->text("txtPATHTEXT"), "C:\\SOUTH");
    EXPECT_THAT(table.rows(), ElementsAre("1|NORTH|C:\\NORTH", "2|SOUTH|C:\\SOUTH"));
    fill("north", "c:\\west");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(person.boxes.size(), 1U);
    EXPECT_THAT(table.rows(), ElementsAre("1|NORTH|C:\\WEST", "2|SOUTH|C:\\SOUTH"));
}

TEST_F(UniqueSites, AnAddThatAUniqueIndexRefusesGoesOnAndHasSpentItsNumber) {
    desk->press(Qt::Key_A);
    fill("west", "c:\\south");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectIndexTold();
    EXPECT_THAT(counter.rows(), ElementsAre("8"));
    fill("west", "c:\\west");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(table.rows(), ElementsAre("1|NORTH|C:\\NORTH", "2|SOUTH|C:\\SOUTH", "8|WEST|C:\\WEST"));
    EXPECT_THAT(page(), ElementsAre("NORTH|C:\\NORTH", "SOUTH|C:\\SOUTH", "WEST|C:\\WEST", " |End of List"));
}

// Deleting.

TEST_F(JobSites, ADeleteAsksFirst) {
    openWith({site(1, " NORTH ", "C:\\NORTH"), site(2, "SOUTH", "C:\\SOUTH")});
    person.onBox = [](QMessageBox& box) {
        keepPicture(box, "question");
        box.findChild<QAbstractButton*>("cmdOK")->click();
    };
    desk->press(Qt::Key_Delete);
    expectBox("OK to Delete Job Site: NORTH  ?", QMessageBox::Question, "Confirm Delete");
    EXPECT_THAT(table.rows(), ElementsAre("2|SOUTH|C:\\SOUTH"));
    EXPECT_THAT(page(), ElementsAre("SOUTH|C:\\SOUTH", " |End of List"));
    desk->keepPicture("job-sites-one");
}

// Exit.

TEST_F(JobSites, AnEditThatChangesNothingRaisesTheReminder) {
    openWith({site(1, "NORTH", "C:\\NORTH")});
    desk->press(Qt::Key_E);
    desk->keepPicture("job-sites-edit");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(person.boxes, IsEmpty());
    desk->press(Qt::Key_X);
    expectBox(reminder, QMessageBox::NoIcon, "Reminder");
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK"));
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST_F(JobSites, AnAddOrACancelledEditDoesNotRaiseTheReminder) {
    open();
    desk->press(Qt::Key_A);
    fill("north", "x");
    desk->press(Qt::Key_U, Qt::AltModifier);
    desk->press(Qt::Key_E);
    desk->press(Qt::Key_Escape);
    desk->press(Qt::Key_Escape);
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
    EXPECT_THAT(person.boxes, IsEmpty());
}

class PickingALocation : public JobSites {
  protected:
    /// Opens the picker from an edit and leaves it with a key.
    void pickAndPress(Qt::Key key, Qt::KeyboardModifiers held = {}) {
        openWith({site(1, "NORTH", "C:\\NORTH")});
        desk->press(Qt::Key_E);
        const Visit<jobsites::frmDBPSearch> visit([=, this](jobsites::frmDBPSearch& picker) {
            EXPECT_LE((picker.geometry().center() - parent.frameGeometry().center()).manhattanLength(), 4);
            WindowDriver(picker).press(key, held);
        });
        desk->click("cmdSelectPath");
    }
};

TEST_F(PickingALocation, PutsItIntoTheBox) {
    pickAndPress(Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(desk->text("txtPATHTEXT"), runtime::upperCase(folder.path().string()));
}

TEST_F(PickingALocation, ADrivesOwnFolderLosesItsBackslash) {
    openWith({site(1, "NORTH", "C:\\NORTH")});
    desk->press(Qt::Key_E);
    const Visit<jobsites::frmDBPSearch> visit([](jobsites::frmDBPSearch& picker) {
        const WindowDriver atPicker(picker);
        auto& drives = atPicker.control<forms::DriveList>("Drive1");
        drives.setFocus();
        atPicker.press(Qt::Key_Home);
        for (int i = 0; i < drives.count() && drives.Drive() != "C:"; ++i)
            atPicker.press(Qt::Key_Down);
        EXPECT_EQ(atPicker.text("lblPATHNAME"), "C:\\");
        atPicker.press(Qt::Key_S, Qt::AltModifier);
    });
    desk->click("cmdSelectPath");
    EXPECT_EQ(desk->text("txtPATHTEXT"), "C:");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(table.rows(), ElementsAre("1|NORTH|C:"));
}

TEST_F(PickingALocation, EscLeavesTheBoxAsItIs) {
    pickAndPress(Qt::Key_Escape);
    EXPECT_EQ(desk->text("txtPATHTEXT"), "C:\\NORTH");
    EXPECT_TRUE(isEditing());
}

TEST_F(PickingALocation, CancelBlanksTheBoxSoThatUpdateRefusesIt) {
    pickAndPress(Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(desk->text("txtPATHTEXT"), " ");
    desk->click("cmdUpdate");
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_THAT(person.boxes[0].text, testing::HasSubstr("Path String is Empty."));
}

TEST_F(PickingALocation, AfterCancelABoxOfBlanksTakesAPath) {
    pickAndPress(Qt::Key_C, Qt::AltModifier);
    desk->click("txtPATHTEXT");
    desk->type("c:\\east");
    EXPECT_EQ(desk->text("txtPATHTEXT"), "c:\\east");
}

TEST_F(JobSites, PrintsTheList) {
    openWith({site(1, "NORTH", "C:\\NORTH"), site(2, "SOUTH", "C:\\SOUTH")});
    std::vector<std::string> texts;
    const Visit<search_print::ReportWindow> visit([&](search_print::ReportWindow& report) {
        EXPECT_EQ(report.windowTitle(), "Print the List of Job Sites");
        for (const search_print::Page& page : report.printer().document().pages)
            for (const search_print::Primitive& primitive : page.primitives)
                if (const auto* text = std::get_if<search_print::Text>(&primitive))
                    texts.push_back(text->text.trimmed().toStdString());
        report.close();
    });
    desk->press(Qt::Key_P, Qt::AltModifier);
    for (const char* expected : {"List of Job Sites", "Job Site", "Location of Database Files", "NORTH",
                                 "C:\\NORTH", "SOUTH", "C:\\SOUTH"})
        EXPECT_THAT(texts, testing::Contains(expected));
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(JobSites, IsNotReadAnewWhenItComesToTheFront) {
    openWith({site(1, "A", "X")});
    forms::Form& first = *window;
    const WindowDriver atFirst(first);
    open();
    table.add({site(2, "B", "Y")});
    first.showModeless();
    EXPECT_EQ(atFirst.text("lblPATHTEXT(1)"), "End of List");
}

// Load.

TEST_F(JobSites, AMissingTableLeavesOnlyTheExitButton) {
    std::filesystem::remove("DBPATHS.MDB");
    const TestTable other("DBPATHS.MDB", "OTHER", {{"A", data::dbLong}});
    open();
    expectBox("Error Loading Form: frmDBPBrowse\n\nError Number: 3078\n\nError Description: " +
                  runtime::describe(runtime::ErrorNumber{3078}, {"DBPATHS"}),
              QMessageBox::Critical, "Error Displaying Form");
    expectOnlyTheExitButton();
    parent.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&parent));
    EXPECT_TRUE(desk->control("cmdExit").hasFocus());
    desk->keepPicture("job-sites-failed");
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_A, Qt::Key_D, Qt::Key_E, Qt::Key_End})
        desk->press(key);
    EXPECT_EQ(person.boxes.size(), 1U);
    desk->click("cmdExit");
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST_F(JobSites, AMissingDatabaseLeavesOnlyTheExitButton) {
    std::filesystem::remove("DBPATHS.MDB");
    open();
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, "Error Displaying Form");
    EXPECT_THAT(person.boxes[0].text,
                testing::HasSubstr("Error Loading Form: frmDBPBrowse\n\nError Number: 3024\n\n"));
    expectOnlyTheExitButton();
    EXPECT_FALSE(std::filesystem::exists("DBPATHS.MDB"));
    desk->press(Qt::Key_Escape);
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST_F(JobSites, ADamagedDatabaseIsTold) {
    folder.write("DBPATHS.MDB", std::string(9000, 'x'));
    open();
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_THAT(person.boxes[0].text,
                testing::HasSubstr("Error Loading Form: frmDBPBrowse\n\nError Number: 3343\n\n"));
    desk->press(Qt::Key_Escape);
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST(ModuleName, IsThatOfTheLetter) {
    const std::pair<const char*, const char*> names[] = {{"L", "Orvane Module"},
                                                         {"E", "Brimel Module"},
                                                         {"M", "Sennet Module"},
                                                         {"N", "Sennet Intake"},
                                                         {"I", "Wendry Module"},
                                                         {"", ""},
                                                         {"l", ""},
                                                         {"X", ""}};
    for (const auto& [letter, name] : names)
        EXPECT_EQ(jobsites::vdModuleName(letter), name) << letter;
}

} // namespace
} // namespace tol::test
