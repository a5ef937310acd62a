// SPDX-License-Identifier: MIT
// What the edit cycle asks of the list: the row for a new record, and the highlighted record.
#include "ListTest.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace screens;
using testing::ElementsAre;
using testing::Values;

/// The row for a new record, found by captions or by counting records.
class RowForAdd : public ListTest, public testing::WithParamInterface<bool> {
  protected:
    int rowForAdd() { return list->rowForAdd(GetParam()); }
};

TEST_P(RowForAdd, IsTheFirstRowOfAnEmptyList) {
    load();
    EXPECT_EQ(rowForAdd(), 0);
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
    list->BrowseFillPage(); // as after Cancel
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
}

TEST_P(RowForAdd, IsTheEndRow) {
    addNumbered(3);
    load();
    EXPECT_EQ(rowForAdd(), 3);
    press(keyDown, 3);
    EXPECT_EQ(list->currentMark(), " ");
    EXPECT_EQ(rowForAdd(), 3);
    EXPECT_EQ(list->row(), 3);
}

TEST_P(RowForAdd, IsTheLastRowOfAPageWithOneRowLeft) {
    addNumbered(7);
    load();
    EXPECT_EQ(rowForAdd(), 7);
    EXPECT_EQ(top(), "01");
}

TEST_P(RowForAdd, ScrollsAFullPage) {
    addNumbered(8);
    load();
    press(keyDown, 2);
    EXPECT_EQ(rowForAdd(), 7);
    EXPECT_THAT(drawing(), ElementsAre("02 N02", "03 N03", ">04 N04", "05 N05", "06 N06", "07 N07", "08 N08",
                                       "End of List."));
    EXPECT_EQ(top(), "02");
    EXPECT_EQ(current(), "04");
    EXPECT_EQ(list->row(), 2);
    list->BrowseFillPage();
    EXPECT_EQ(drawing()[2], ">04 N04");
    EXPECT_EQ(drawing()[7], "End of List.");
}

TEST_P(RowForAdd, ScrollsAFullPageWithMoreRecordsBelow) {
    addNumbered(20);
    load();
    EXPECT_EQ(rowForAdd(), 7);
    EXPECT_EQ(drawing()[7], "End of List.");
    EXPECT_EQ(current(), "02");
    list->BrowseFillPage();
    EXPECT_EQ(drawing()[7], "09 N09");
}

TEST_P(RowForAdd, ScrollsFromTheLastRecordToTheEndRow) {
    addNumbered(8);
    load();
    press(keyDown, 7);
    EXPECT_EQ(rowForAdd(), 7);
    EXPECT_EQ(list->currentMark(), " ");
    EXPECT_EQ(drawing()[7], ">End of List.");
}

TEST_P(RowForAdd, ShowsTheListAfreshWhenItsTopRecordIsGone) {
    addNumbered(9);
    load();
    press(keyDown, 3);
    removeByOther("01");
    EXPECT_EQ(rowForAdd(), 7);
    EXPECT_EQ(current(), "05");
    EXPECT_EQ(list->row(), 2);
    EXPECT_THAT(drawing(), ElementsAre("03 N03", "04 N04", ">05 N05", "06 N06", "07 N07", "08 N08", "09 N09",
                                       "End of List."));
}

TEST_P(RowForAdd, ShowsTheListAfreshWhenItsHighlightedRecordIsGone) {
    addNumbered(9);
    load();
    press(keyDown, 3);
    removeByOther("04");
    EXPECT_EQ(rowForAdd(), 7);
    EXPECT_EQ(current(), "02");
    EXPECT_EQ(list->row(), 0);
    EXPECT_EQ(drawing()[7], "End of List.");
}

INSTANTIATE_TEST_SUITE_P(Ways, RowForAdd, Values(false, true),
                         [](const auto& way) { return way.param ? "ByCaption" : "ByRecord"; });

using BrowseListCurrent = ListTest;

TEST_F(BrowseListCurrent, GoesToTheHighlightedRecord) {
    addNumbered(3);
    load();
    press(keyDown);
    EXPECT_TRUE(list->goToCurrent());
    EXPECT_EQ(codeAt(list->recordset().Bookmark()), "02");
}

TEST_F(BrowseListCurrent, IsNoneOnTheEndRow) {
    load();
    EXPECT_FALSE(list->goToCurrent());
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
}

TEST_F(BrowseListCurrent, IsNoneWhenSomebodyHasDeletedIt) {
    addNumbered(3);
    load();
    press(keyDown);
    removeByOther("02");
    EXPECT_FALSE(list->goToCurrent());
    EXPECT_THAT(drawing(), ElementsAre(">01 N01", "03 N03", "End of List."));
    EXPECT_TRUE(list->goToCurrent());
}

TEST_F(BrowseListCurrent, RowsCanBeTakenOutOfTheHighlight) {
    addNumbered(3);
    load();
    list->rows().BrowseRowOff(list->row());
    EXPECT_TRUE(page->highlighted().empty());
    list->rows().BrowseRowOn(2);
    EXPECT_THAT(page->highlighted(), ElementsAre(2));
}

} // namespace
} // namespace tol::test
