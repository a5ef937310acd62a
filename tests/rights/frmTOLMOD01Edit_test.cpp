// SPDX-License-Identifier: MIT
#include "ModulesTest.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string duplicateText =
    "Duplicate Module Code Detected.\nThe Module Code you have entered already exists.";
const std::string noName(50, ' ');

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

TEST_F(Modules, ACodeThatAnotherEntersAfterItsCheckIsRefusedByTheIndex) {
    openWith({{"A", "First"}});
    desk->press(Qt::Key_A);
    desk->type("b");
    desk->press(Qt::Key_Tab);
    table.add({{"B", "Theirs"}});
    desk->type("Mine");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectRefusal("The change was not made: it would create duplicate values in the index or primary key "
                  "'MODULES'.\nFile: " +
                  (folder / "ZOVNET.MDB").string());
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK"));
    EXPECT_TRUE(isEditing());
    expectBoxesOver(1);
    EXPECT_EQ(desk->text("txtMODULEID"), "B");
    EXPECT_EQ(desk->text("txtMODULENAME"), "Mine");
    EXPECT_EQ(desk->focus(), "txtMODULEID");
    desk->type("c");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(person.boxes.size(), 1U);
    EXPECT_THAT(table.rows(), ElementsAre("A|First", "B|Theirs", "C|Mine"));
    EXPECT_THAT(page(), ElementsAre("B|Theirs", "C|Mine", " |End of List.")) << "it keeps the row of its Add";
}

// A letter whose capitals are two keeps its one place.
TEST_F(Modules, ACodeIsAsLongInUpperCase) {
    openWith({{"A\u00dfB", "First"}, {"ASS", "Second"}});
    desk->press(Qt::Key_A);
    desk->type("a\u00dfb");
    desk->press(Qt::Key_Tab);
    expectRefusal(duplicateText);
    EXPECT_EQ(desk->text("txtMODULEID"), "A\u00dfB");
    desk->type("a\u00dfc");
    desk->press(Qt::Key_Tab);
    desk->type("Third");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(person.boxes.size(), 1U);
    EXPECT_THAT(table.rows(), testing::Contains("A\u00dfC|Third"));
}

TEST_F(Modules, ABoxOfBlanksTakesTypingAfterClicks) {
    openWith({{"A", "First"}});
    desk->press(Qt::Key_A);
    desk->click("txtMODULEID");
    desk->type("b");
    desk->click("txtMODULENAME");
    desk->click("txtMODULENAME");
    desk->type("second");
    EXPECT_EQ(desk->text("txtMODULENAME"), "second");
    desk->click("cmdUpdate");
    EXPECT_THAT(table.rows(), ElementsAre("A|First", "B|second"));
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

} // namespace
} // namespace tol::test
