// SPDX-License-Identifier: MIT
#include "ListTest.h"
#include "shell/vdfunctions/vdNullCheck.h"

#include <fmt/core.h>
#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace screens;
using testing::ElementsAre;

using BrowseListTest = ListTest;

// ---------------------------------------------------------------- an empty list

TEST_F(BrowseListTest, AnEmptyTableShowsThatItIsEmpty) {
    load();
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
    EXPECT_EQ(page->caption(0, 0), " ");
    EXPECT_EQ(page->caption(0, 1), "List is Empty.");
    EXPECT_EQ(page->caption(7, 0), " ");
    EXPECT_EQ(list->currentMark(), " ");
    EXPECT_EQ(list->topMark(), " ");
    EXPECT_EQ(list->row(), 0);
    EXPECT_EQ(person.yields, 0);
}

TEST_F(BrowseListTest, NoKeyMovesInAnEmptyTable) {
    load();
    for (const int key : {keyDown, keyUp, keyLeft, keyRight, keyPageDown, keyPageUp, keyHome, keyEnd}) {
        press(key);
        EXPECT_THAT(drawing(), ElementsAre(">List is Empty.")) << key;
        EXPECT_EQ(list->currentMark(), " ");
    }
    EXPECT_TRUE(done.empty());
}

TEST_F(BrowseListTest, InAnEmptyTableEnterAdds) {
    load();
    press(keyReturn);
    press('A');
    list->act();
    EXPECT_THAT(done, ElementsAre("add", "add", "add"));
}

TEST_F(BrowseListTest, AClickInAnEmptyListOnlyTakesTheFocus) {
    load();
    list->BrowseRowClick(0);
    list->BrowseRowClick(3);
    EXPECT_EQ(page->focusTaken, 2);
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
    EXPECT_TRUE(done.empty());
}

TEST_F(BrowseListTest, TheTextsAreTheDescriptions) {
    BrowseDescription description = wholeTable();
    description.endText = "End of List";
    description.emptyText = "List is Empty";
    description.descriptionColumn = 0;
    make(description).BrowseLoad();
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty"));
    EXPECT_EQ(page->caption(0, 0), "List is Empty");
    add({"A"});
    list->BrowseLoad();
    EXPECT_THAT(drawing(), ElementsAre(">A NA", "End of List"));
    EXPECT_EQ(page->caption(1, 0), "End of List");
}

// ---------------------------------------------------------------- few records

TEST_F(BrowseListTest, OneRecord) {
    add({"A"});
    load();
    EXPECT_THAT(drawing(), ElementsAre(">A NA", "End of List."));
    EXPECT_EQ(current(), "A");
    press(keyDown);
    EXPECT_THAT(drawing(), ElementsAre("A NA", ">End of List."));
    EXPECT_EQ(list->currentMark(), " ");
    press(keyDown);
    EXPECT_THAT(drawing(), ElementsAre("A NA", ">End of List."));
    press(keyUp);
    EXPECT_THAT(drawing(), ElementsAre(">A NA", "End of List."));
    EXPECT_EQ(current(), "A");
    for (const int key : {keyHome, keyEnd, keyPageUp, keyPageDown}) {
        press(key);
        EXPECT_THAT(drawing(), ElementsAre(">A NA", "End of List.")) << key;
        EXPECT_EQ(current(), "A");
        EXPECT_EQ(top(), "A");
    }
}

TEST_F(BrowseListTest, PageDownStopsOnTheLastOfThreeRecords) {
    add({"A", "B", "C"});
    load();
    press(keyDown);
    press(keyPageDown);
    EXPECT_THAT(drawing(), ElementsAre(">C NC", "End of List."));
    EXPECT_EQ(current(), "C");
    EXPECT_EQ(top(), "C");
}

TEST_F(BrowseListTest, AFullPageHasNoEndRowUntilTheListScrolls) {
    addNumbered(8);
    load();
    EXPECT_EQ(drawing().back(), "08 N08");
    press(keyDown, 7);
    EXPECT_EQ(drawing().back(), ">08 N08");
    press(keyDown);
    EXPECT_THAT(drawing(), ElementsAre("02 N02", "03 N03", "04 N04", "05 N05", "06 N06", "07 N07", "08 N08",
                                       ">End of List."));
    EXPECT_EQ(list->currentMark(), " ");
    EXPECT_EQ(top(), "02");
}

// ---------------------------------------------------------------- many records

TEST_F(BrowseListTest, PageDownAndUpKeepTheRow) {
    addNumbered(20);
    load();
    press(keyDown, 3);
    press(keyPageDown);
    EXPECT_THAT(drawing(),
                ElementsAre("08 N08", "09 N09", "10 N10", ">11 N11", "12 N12", "13 N13", "14 N14", "15 N15"));
    EXPECT_EQ(top(), "08");
    press(keyPageUp);
    EXPECT_THAT(drawing(),
                ElementsAre("01 N01", "02 N02", "03 N03", ">04 N04", "05 N05", "06 N06", "07 N07", "08 N08"));
}

TEST_F(BrowseListTest, PageUpNearTheTopFindsTheRowAgain) {
    addNumbered(20);
    load();
    press(keyDown, 9);
    EXPECT_EQ(top(), "03");
    EXPECT_EQ(list->row(), 7);
    press(keyPageUp);
    EXPECT_EQ(top(), "01");
    EXPECT_EQ(current(), "03");
    EXPECT_EQ(drawing()[2], ">03 N03");
    press(keyPageUp);
    EXPECT_EQ(current(), "01");
    EXPECT_EQ(drawing()[0], ">01 N01");
}

TEST_F(BrowseListTest, EndBringsTheLastRecordToTheTop) {
    addNumbered(20);
    load();
    press(keyEnd);
    EXPECT_THAT(drawing(), ElementsAre(">20 N20", "End of List."));
    press(keyUp);
    EXPECT_THAT(drawing(), ElementsAre(">19 N19", "20 N20", "End of List."));
    EXPECT_EQ(top(), "19");
    press(keyHome);
    EXPECT_EQ(drawing().front(), ">01 N01");
    EXPECT_EQ(drawing().back(), "08 N08");
}

TEST_F(BrowseListTest, UpOnTheFirstRecordStays) {
    addNumbered(3);
    load();
    press(keyUp);
    EXPECT_THAT(drawing(), ElementsAre(">01 N01", "02 N02", "03 N03", "End of List."));
    EXPECT_EQ(top(), "01");
}

TEST_F(BrowseListTest, TheLastRecordOfASubsetIsFoundWithoutAWalk) {
    addNumbered(20);
    add({"A", "B"}, 2);
    make(subset()).BrowseLoad();
    EXPECT_EQ(person.yields, 0);
    EXPECT_EQ(page->focusTaken, 0);
    press(keyEnd);
    EXPECT_THAT(drawing(), ElementsAre(">20 N20", "End of List."));
}

TEST_F(BrowseListTest, ThePageGoesDownToTheEndAndUpAgainLineByLine) {
    addNumbered(20);
    load();
    press(keyDown, 20);
    EXPECT_THAT(drawing(), ElementsAre("14 N14", "15 N15", "16 N16", "17 N17", "18 N18", "19 N19", "20 N20",
                                       ">End of List."));
    press(keyDown);
    press(keyPageDown);
    EXPECT_EQ(top(), "14");
    press(keyUp, 7);
    EXPECT_EQ(drawing().front(), ">14 N14");
    press(keyUp);
    EXPECT_THAT(drawing(),
                ElementsAre(">13 N13", "14 N14", "15 N15", "16 N16", "17 N17", "18 N18", "19 N19", "20 N20"));
    press(keyUp, 20);
    EXPECT_EQ(drawing().front(), ">01 N01");
    EXPECT_EQ(drawing().back(), "08 N08");
}

TEST_F(BrowseListTest, PageUpFromTheEndRowCountsFromTheLastRecord) {
    addNumbered(20);
    load();
    press(keyDown, 20);
    press(keyPageUp);
    EXPECT_EQ(current(), "13");
    EXPECT_EQ(top(), "07");
    EXPECT_THAT(drawing(),
                ElementsAre("07 N07", "08 N08", "09 N09", "10 N10", "11 N11", "12 N12", ">13 N13", "14 N14"));
}

TEST_F(BrowseListTest, HoldsMoreRecordsThanItsCountersCount) {
    constexpr int records = 40'000;
    std::vector<std::string> codes;
    for (int number = 1; number <= records; ++number)
        codes.push_back(fmt::format("{:05}", number));
    add(codes);
    load();
    EXPECT_EQ(person.yields, 0) << "the last record is found from the end";
    press(keyEnd);
    EXPECT_EQ(current(), "40000");
    press(keyPageUp);
    EXPECT_EQ(current(), "39993");
    list->BrowseReload();
    EXPECT_EQ(current(), "39993");
    press(keyHome);
    EXPECT_EQ(current(), "00001");
}

TEST_F(BrowseListTest, AListOfOneRowScrollsAtEachStep) {
    addNumbered(2);
    BrowseDescription description = wholeTable();
    description.rows = 1;
    make(description).BrowseLoad();
    press(keyDown);
    EXPECT_THAT(drawing(), ElementsAre(">02 N02"));
    press(keyPageDown);
    EXPECT_THAT(drawing(), ElementsAre(">02 N02"));
    press(keyUp);
    press(keyUp);
    EXPECT_THAT(drawing(), ElementsAre(">01 N01"));
}

TEST_F(BrowseListTest, ColumnsShowFieldsNullsAndTextsOfTheirOwn) {
    BrowseDescription description = wholeTable();
    description.columns.push_back({"lblTAG", "lblHTAG", "", 0, "", [](data::Recordset& items) {
                                       return "#" + shell::vdNullCheckText(items.Fields("PARENT"));
                                   }});
    data::Recordset items = database.OpenRecordset("ITEMS");
    items.AddNew();
    items.Fields("CODE").Value("A");
    items.Update();
    make(description).BrowseLoad();
    EXPECT_EQ(page->caption(0, 0), "A");
    EXPECT_EQ(page->caption(0, 1), std::string(20, ' '));
    EXPECT_EQ(page->caption(0, 2), "#0");
    press(keyDown);
    EXPECT_EQ(page->caption(1, 2), " ");
}

TEST_F(BrowseListTest, AListWithoutIndexIsInStoredOrder) {
    add({"C", "A", "B"});
    BrowseDescription description = wholeTable();
    description.index = "";
    make(description).BrowseLoad();
    EXPECT_THAT(drawing(), ElementsAre(">C NC", "A NA", "B NB", "End of List."));
    press(keyEnd);
    EXPECT_EQ(current(), "B");
    list->BrowseReload();
    EXPECT_THAT(drawing(), ElementsAre(">B NB", "End of List."));
    press(keyUp, 2);
    EXPECT_THAT(drawing(), ElementsAre(">C NC", "A NA", "B NB", "End of List."));
}

// ---------------------------------------------------------------- keys

struct KeyRow {
    int key;
    int row; ///< where the highlight is afterwards, from row 1 of 20 records
    const char* top;
    std::vector<std::string> done;
};

TEST_F(BrowseListTest, EveryKeyDoesItsWorkAndIsUsedUp) {
    addNumbered(20);
    const KeyRow keys[] = {
        {keyDown, 2, "01", {}},           {keyRight, 2, "01", {}},    {keyUp, 0, "01", {}},
        {keyLeft, 0, "01", {}},           {keyPageDown, 1, "08", {}}, {keyPageUp, 0, "01", {}},
        {keyHome, 0, "01", {}},           {keyEnd, 0, "20", {}},      {keyReturn, 1, "01", {"edit"}},
        {keyDelete, 1, "01", {"delete"}}, {'A', 1, "01", {"add"}},    {'E', 1, "01", {"edit"}},
        {'D', 1, "01", {"delete"}},       {'X', 1, "01", {"exit"}},
    };
    for (const KeyRow& row : keys) {
        load();
        press(keyDown);
        int key = row.key;
        list->BrowseKeyDown(key, 0);
        EXPECT_EQ(key, keyNone) << row.key;
        EXPECT_EQ(list->row(), row.row) << row.key;
        EXPECT_EQ(top(), row.top) << row.key;
        EXPECT_EQ(done, row.done) << row.key;
        done.clear();
    }
}

TEST_F(BrowseListTest, OtherKeysAreLeftToTheWindow) {
    addNumbered(3);
    load();
    for (const int other : {int{'T'}, int{'B'}, int{keyEscape}, int{keyTab}, int{keyF1}, 'a' + 0}) {
        int key = other;
        list->BrowseKeyDown(key, 0);
        EXPECT_EQ(key, other);
    }
    EXPECT_TRUE(done.empty());
    EXPECT_EQ(list->row(), 0);
}

TEST_F(BrowseListTest, ShiftIsNotLookedAt) {
    addNumbered(3);
    load();
    int key = keyDown;
    list->BrowseKeyDown(key, 7);
    EXPECT_EQ(list->row(), 1);
}

TEST_F(BrowseListTest, OnTheEndRowEnterAddsAndTheDeleteKeyDoesNothing) {
    addNumbered(1);
    load();
    press(keyDown);
    press(keyReturn);
    press(keyDelete);
    press('D'); // asks no question here: deleting knows itself that there is no record
    list->act();
    EXPECT_THAT(done, ElementsAre("add", "delete", "add"));
}

TEST_F(BrowseListTest, TheExitKeyMayEndTheListsLife) {
    make(wholeTable());
    list = std::make_unique<BrowseList>(*page, wholeTable(), recordset, reopen, BrowseActions{.exit = [this] {
        list.reset();
        done.emplace_back("gone");
    }});
    list->BrowseLoad();
    press('X');
    EXPECT_THAT(done, ElementsAre("gone"));
}

TEST_F(BrowseListTest, AnActionThatTheWindowDoesNotHaveIsNothing) {
    make(wholeTable());
    list = std::make_unique<BrowseList>(*page, wholeTable(), recordset, reopen, BrowseActions{});
    list->BrowseLoad();
    for (const int key : {int{keyReturn}, int{'A'}, int{'E'}, int{'D'}, int{'X'}})
        press(key);
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
}

// ---------------------------------------------------------------- clicks

TEST_F(BrowseListTest, AClickHighlightsTheRow) {
    addNumbered(20);
    load();
    press(keyPageDown);
    list->BrowseRowClick(5);
    EXPECT_EQ(current(), "13");
    EXPECT_THAT(page->highlighted(), ElementsAre(5));
    list->BrowseRowClick(2);
    EXPECT_EQ(current(), "10");
    EXPECT_THAT(page->highlighted(), ElementsAre(2));
    EXPECT_EQ(top(), "08");
    EXPECT_TRUE(done.empty());
}

TEST_F(BrowseListTest, ASecondClickEdits) {
    addNumbered(3);
    load();
    list->BrowseRowClick(0);
    list->BrowseRowClick(1);
    list->BrowseRowClick(1);
    EXPECT_THAT(done, ElementsAre("edit", "edit"));
}

TEST_F(BrowseListTest, AClickOnARowWithoutRecordOnlyTakesTheFocus) {
    addNumbered(3);
    load();
    for (const int row : {3, 4, 7}) { // the End of List row first
        page->focusTaken = 0;
        list->BrowseRowClick(row);
        EXPECT_EQ(page->focusTaken, 1);
        EXPECT_THAT(page->highlighted(), ElementsAre(0));
        EXPECT_EQ(current(), "01");
    }
    press(keyEnd);
    press(keyDown);
    list->BrowseRowClick(1); // highlighted, but its key caption is blank
    EXPECT_TRUE(done.empty());
}

TEST_F(BrowseListTest, WhereTheKeyColumnShowsTheEndAClickThereChangesNothing) {
    addNumbered(3);
    BrowseDescription description = wholeTable();
    description.descriptionColumn = 0;
    make(description).BrowseLoad();
    press(keyDown);
    list->BrowseRowClick(3);
    EXPECT_EQ(current(), "02");
    EXPECT_THAT(drawing(), ElementsAre("01 N01", ">02 N02", "03 N03", "End of List."));
    press(keyDown, 2);
    list->BrowseRowClick(3);
    EXPECT_THAT(done, ElementsAre("add"));
}

} // namespace
} // namespace tol::test
