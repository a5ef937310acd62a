// SPDX-License-Identifier: MIT
#include "ListTest.h"

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

} // namespace
} // namespace tol::test
