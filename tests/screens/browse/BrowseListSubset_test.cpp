// SPDX-License-Identifier: MIT
// A list of the children of one parent record, between the children of others.
#include "ListTest.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace screens;
using testing::ElementsAre;

class BrowseListSubset : public ListTest {
  protected:
    BrowseListSubset() {
        addNumbered(3, 1);
        add({"A", "B", "C"}, 5);
        addNumbered(12, 7);
    }
    void loadChildrenOf(std::int32_t key) {
        parent = key;
        make(subset()).BrowseLoad();
    }
};

TEST_F(BrowseListSubset, ShowsTheChildrenAndNobodyElses) {
    loadChildrenOf(5);
    EXPECT_THAT(drawing(), ElementsAre(">A NA", "B NB", "C NC", "End of List."));
    press(keyUp);
    EXPECT_EQ(current(), "A");
    press(keyDown, 3);
    EXPECT_THAT(drawing(), ElementsAre("A NA", "B NB", "C NC", ">End of List."));
    press(keyDown);
    press(keyUp);
    EXPECT_EQ(current(), "C");
    press(keyHome);
    EXPECT_EQ(current(), "A");
    press(keyEnd);
    EXPECT_THAT(drawing(), ElementsAre(">C NC", "End of List."));
    press(keyPageUp);
    EXPECT_THAT(drawing(), ElementsAre(">A NA", "B NB", "C NC", "End of List."));
}

TEST_F(BrowseListSubset, PagesStopAtTheChildrensEnds) {
    loadChildrenOf(7);
    press(keyDown, 2);
    press(keyPageDown);
    EXPECT_EQ(current(), "10");
    EXPECT_EQ(top(), "08");
    press(keyPageDown);
    EXPECT_EQ(current(), "12");
    EXPECT_EQ(top(), "12");
    press(keyPageUp);
    press(keyPageUp);
    EXPECT_EQ(current(), "01");
    EXPECT_EQ(top(), "01");
}

TEST_F(BrowseListSubset, OfAParentWithoutChildrenIsEmpty) {
    for (const std::int32_t key : {3, 9}) { // between and behind the others
        loadChildrenOf(key);
        EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
        for (const int move : {keyDown, keyUp, keyPageDown, keyPageUp, keyHome, keyEnd}) {
            press(move);
            EXPECT_THAT(drawing(), ElementsAre(">List is Empty.")) << move;
            EXPECT_EQ(list->currentMark(), " ");
        }
        list->BrowseRowClick(0);
        list->BrowseReload();
        EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
        EXPECT_EQ(list->rowForAdd(true), 0);
    }
}

TEST_F(BrowseListSubset, WithoutAParentIsBlankAndStaysAlone) {
    loadChildrenOf(5);
    press(keyDown, 2);
    parent = 0;
    list->BrowseLoad();
    EXPECT_THAT(drawing(), ElementsAre(">"));
    EXPECT_EQ(list->currentMark(), " ");
    list->rows().setCaption(0, 1, "Select A Module First."); // what the window says
    for (const int move : {keyDown, keyUp, keyPageDown, keyPageUp, keyHome, keyEnd})
        press(move);
    list->BrowseRowClick(0);
    list->BrowseReload();
    EXPECT_THAT(drawing(), ElementsAre(">Select A Module First."));
    parent = 7;
    list->BrowseLoad();
    EXPECT_EQ(drawing().front(), ">01 N01");
}

TEST_F(BrowseListSubset, ReloadFindsItsOwnEnds) {
    loadChildrenOf(5);
    press(keyDown);
    add({"AA", "D"}, 5);
    list->BrowseReload();
    EXPECT_THAT(drawing(), ElementsAre("AA NAA", ">B NB", "C NC", "D ND", "End of List."));
    press(keyEnd);
    EXPECT_EQ(current(), "D");
    press(keyHome);
    EXPECT_EQ(current(), "A");
}

TEST_F(BrowseListSubset, ReloadGoesToItsOwnFirstRecordWhenTheHighlightedOneIsGone) {
    loadChildrenOf(5);
    press(keyDown, 2);
    removeByOther("C");
    list->BrowseReload();
    EXPECT_THAT(drawing(), ElementsAre(">A NA", "B NB", "End of List."));
    press(keyEnd);
    EXPECT_EQ(current(), "B");
}

TEST_F(BrowseListSubset, ReloadAfterTheLastChildIsGoneIsEmpty) {
    loadChildrenOf(5);
    press(keyDown);
    for (const char* code : {"A", "B", "C"})
        removeByOther(code);
    list->BrowseReload();
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
    EXPECT_EQ(list->currentMark(), " ");
}

TEST_F(BrowseListSubset, AHighlightedRecordThatGotAnotherParentIsLeft) {
    loadChildrenOf(5);
    press(keyDown, 2);
    data::Recordset items = database.OpenRecordset("ITEMS");
    items.Bookmark(list->currentMark());
    items.Edit();
    items.Fields("PARENT").Value(7);
    items.Update();
    press(keyPageDown);
    EXPECT_THAT(drawing(), ElementsAre(">A NA", "B NB", "End of List."));
    EXPECT_EQ(current(), "A");
}

TEST_F(BrowseListSubset, AFirstChildAddedByOthersIsShownAtTheNextMove) {
    loadChildrenOf(3);
    add({"X"}, 3);
    press(keyHome);
    EXPECT_THAT(drawing(), ElementsAre(">X NX", "End of List."));
}

} // namespace
} // namespace tol::test
