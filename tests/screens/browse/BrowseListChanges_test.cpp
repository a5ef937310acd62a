// SPDX-License-Identifier: MIT
// A list whose records change: by its own edits, followed by a reload, and by others, between its keys.
#include "ListTest.h"
#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdRecords.h"
#include "support/Raises.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace screens;
using testing::ElementsAre;

using BrowseListReload = ListTest;

TEST_F(BrowseListReload, KeepsTheHighlightedRecordInItsRow) {
    addNumbered(20);
    load();
    press(keyPageDown);
    press(keyDown, 4);
    add({"085", "09A", "15A"});
    list->BrowseReload();
    EXPECT_EQ(current(), "12");
    EXPECT_THAT(drawing(), ElementsAre("09 N09", "09A N09A", "10 N10", "11 N11", ">12 N12", "13 N13",
                                       "14 N14", "15 N15"));
    press(keyEnd);
    EXPECT_EQ(current(), "20");
    press(keyHome);
    EXPECT_EQ(current(), "01");
    EXPECT_EQ(person.yields, 0); // nothing walks the whole table
}

TEST_F(BrowseListReload, GoesUpWithTheListsBegin) {
    addNumbered(10);
    load();
    press(keyDown, 4);
    removeByOther("01");
    removeByOther("03");
    list->BrowseReload();
    EXPECT_EQ(list->row(), 2);
    EXPECT_EQ(drawing()[0], "02 N02");
    EXPECT_EQ(drawing()[2], ">05 N05");
}

TEST_F(BrowseListReload, KeepsTheEndRow) {
    addNumbered(20);
    load();
    press(keyEnd);
    press(keyDown);
    EXPECT_EQ(list->row(), 1);
    add({"21", "22"});
    list->BrowseReload();
    EXPECT_THAT(drawing(), ElementsAre("22 N22", ">End of List."));
    press(keyUp);
    EXPECT_EQ(current(), "22");
}

TEST_F(BrowseListReload, MovesTheEndRowUpWhenRecordsAreMissing) {
    addNumbered(8);
    load();
    press(keyDown, 8);
    for (const char* code : {"03", "04", "05", "06", "07", "08"})
        removeByOther(code);
    list->BrowseReload();
    EXPECT_THAT(drawing(), ElementsAre("01 N01", "02 N02", ">End of List."));
}

TEST_F(BrowseListReload, ShowsARecordThatWasAddedWhereItWasTyped) {
    addNumbered(8);
    load();
    const int row = list->rowForAdd(true);
    data::Recordset& items = list->recordset();
    items.AddNew();
    items.Fields("CODE").Value("00");
    items.Update();
    list->setCurrent(items.LastModified(), row);
    list->BrowseReload();
    EXPECT_EQ(current(), "00");
    EXPECT_EQ(list->row(), 0); // nothing comes before it
    press(keyEnd);
    EXPECT_EQ(current(), "08");
}

TEST_F(BrowseListReload, AfterTheOnlyRecordIsDeletedTheListIsEmpty) {
    addNumbered(1);
    load();
    const std::string next = shell::vdNextBookmark(list->recordset(), list->currentMark());
    EXPECT_EQ(next, " ");
    ASSERT_TRUE(list->goToCurrent());
    list->recordset().Delete();
    list->setCurrent(next, list->row());
    list->BrowseReload();
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
    EXPECT_EQ(list->currentMark(), " ");
    EXPECT_EQ(list->topMark(), " ");
}

TEST_F(BrowseListReload, OfATableThatOthersEmptiedHasOneHighlight) {
    addNumbered(8);
    load();
    press(keyDown, 5);
    removeAllByOther();
    list->BrowseReload();
    EXPECT_THAT(page->highlighted(), ElementsAre(0));
    EXPECT_EQ(list->row(), 0);
}

/// The row stays, so the records lie above the page's begin until the highlight goes up to them.
TEST_F(BrowseListReload, OfAListThatWasEmptyStandsOnTheEndRow) {
    load();
    add({"A", "B"});
    list->BrowseReload();
    EXPECT_THAT(drawing(), ElementsAre(">End of List."));
    EXPECT_EQ(list->currentMark(), " ");
    press(keyUp);
    EXPECT_THAT(drawing(), ElementsAre(">B NB", "End of List."));
    EXPECT_EQ(top(), "B");
    press(keyUp);
    EXPECT_THAT(drawing(), ElementsAre(">A NA", "B NB", "End of List."));
}

TEST_F(BrowseListReload, PageUpFromAnEndRowInTheFirstRowFindsTheRecords) {
    load();
    addNumbered(10);
    list->BrowseReload();
    press(keyPageUp);
    EXPECT_EQ(current(), "03");
    EXPECT_EQ(drawing()[0], ">03 N03");
}

TEST_F(BrowseListReload, GoesToTheFirstRecordWhenTheHighlightedOneIsGone) {
    addNumbered(20);
    load();
    press(keyEnd);
    removeByOther("20");
    list->BrowseReload();
    EXPECT_EQ(current(), "01");
    EXPECT_EQ(top(), "01");
    EXPECT_EQ(drawing().front(), ">01 N01");
    EXPECT_EQ(page->focusTaken, 1);
    EXPECT_TRUE(person.boxes.empty());
    press(keyEnd);
    EXPECT_EQ(current(), "19");
}

TEST_F(BrowseListReload, DoesNothingAfterAnErrorWhileTheWindowIsNotShown) {
    addNumbered(3);
    load();
    removeByOther("01");
    const auto before = drawing();
    page->shown = false;
    list->BrowseReload();
    EXPECT_EQ(drawing(), before);
    EXPECT_EQ(page->focusTaken, 0);
}

TEST_F(BrowseListReload, GoesToTheFirstRecordWhenTheTableCanNotBeOpened) {
    addNumbered(9);
    reopen = [this, times = 0]() mutable {
        if (++times > 1)
            runtime::raise(runtime::errTableInUse, {"ITEMS"});
        return database.OpenRecordset("ITEMS");
    };
    load(); // opens it the first time
    reopen = nullptr;
    press(keyDown, 8);
    list->BrowseReload();
    EXPECT_EQ(current(), "01");
    EXPECT_EQ(drawing().front(), ">01 N01");
    press(keyDown);
    EXPECT_EQ(current(), "02");
}

TEST_F(BrowseListReload, TellsTheErrorWhenThereIsNoRecordsetLeft) {
    addNumbered(2);
    reopen = [this, times = 0]() mutable {
        if (++times > 1)
            runtime::raise(runtime::errTableInUse, {"ITEMS"});
        return database.OpenRecordset("ITEMS");
    };
    load();
    recordset.Close();
    EXPECT_EQ(errorOf([&] { list->BrowseReload(); }), runtime::errTableInUse);
}

TEST_F(BrowseListReload, OpensARecordsetThatWasClosed) {
    addNumbered(2);
    load();
    press(keyDown);
    recordset.Close();
    list->BrowseReload();
    EXPECT_THAT(drawing(), ElementsAre("01 N01", ">02 N02", "End of List."));
}

// ---------------------------------------------------------------- others, between the keys

using BrowseListOthers = ListTest;

TEST_F(BrowseListOthers, ARecordDeletedUnderTheHighlightShowsTheListAfresh) {
    for (const int key : {keyDown, keyUp, keyPageDown, keyPageUp}) {
        removeAllByOther();
        addNumbered(9);
        load();
        press(keyDown, 4);
        removeByOther("05");
        press(key);
        EXPECT_THAT(drawing(), ElementsAre(">01 N01", "02 N02", "03 N03", "04 N04", "06 N06", "07 N07",
                                           "08 N08", "09 N09"))
            << key;
        EXPECT_EQ(current(), "01");
    }
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(BrowseListOthers, TheFirstOrLastRecordDeletedShowsTheListAfresh) {
    addNumbered(9);
    load();
    press(keyDown, 2);
    removeByOther("01");
    press(keyHome);
    EXPECT_EQ(current(), "03");
    EXPECT_EQ(drawing()[1], ">03 N03");
    EXPECT_EQ(drawing()[0], "02 N02");
    removeByOther("09");
    press(keyEnd);
    EXPECT_EQ(current(), "03");
    press(keyEnd);
    EXPECT_EQ(current(), "08");
    press(keyHome);
    EXPECT_EQ(current(), "02");
}

TEST_F(BrowseListOthers, UpFromTheEndRowWithTheLastRecordDeletedShowsTheListAfresh) {
    addNumbered(3);
    load();
    press(keyDown, 3);
    removeByOther("03");
    press(keyUp);
    EXPECT_THAT(drawing(), ElementsAre("01 N01", "02 N02", ">End of List."));
    press(keyUp);
    EXPECT_EQ(current(), "02");
}

TEST_F(BrowseListOthers, PageUpFromTheEndRowWithTheLastRecordDeletedShowsTheListAfresh) {
    addNumbered(3);
    load();
    press(keyDown, 3);
    removeByOther("03");
    press(keyPageUp);
    EXPECT_THAT(drawing(), ElementsAre("01 N01", "02 N02", ">End of List."));
}

TEST_F(BrowseListOthers, TheTopRecordDeletedDoesNotStopTheScrolling) {
    addNumbered(20);
    load();
    press(keyDown, 7);
    removeByOther("01");
    press(keyDown);
    EXPECT_EQ(current(), "09");
    EXPECT_THAT(drawing(),
                ElementsAre("02 N02", "03 N03", "04 N04", "05 N05", "06 N06", "07 N07", "08 N08", ">09 N09"));
}

TEST_F(BrowseListOthers, TheTopRecordDeletedDoesNotStopTheEndRow) {
    addNumbered(8);
    load();
    press(keyDown, 7);
    removeByOther("01");
    press(keyDown);
    EXPECT_EQ(list->currentMark(), " ");
    EXPECT_THAT(drawing(), ElementsAre("02 N02", "03 N03", "04 N04", "05 N05", "06 N06", "07 N07", "08 N08",
                                       ">End of List."));
}

TEST_F(BrowseListOthers, AClickOnAPageWithoutItsTopRecordOnlyShowsItAfresh) {
    addNumbered(9);
    load();
    press(keyDown, 2);
    removeByOther("01");
    list->BrowseRowClick(5);
    EXPECT_EQ(current(), "03");
    EXPECT_EQ(drawing()[1], ">03 N03");
    EXPECT_THAT(page->highlighted(), ElementsAre(1));
}

TEST_F(BrowseListOthers, AClickOnARecordThatIsNoLongerThereOnlyShowsThePageAfresh) {
    addNumbered(3);
    load();
    removeByOther("03");
    list->BrowseRowClick(2);
    EXPECT_EQ(current(), "01");
    EXPECT_THAT(drawing(), ElementsAre(">01 N01", "02 N02", "End of List."));
}

TEST_F(BrowseListOthers, AClickInATableThatOthersEmptiedTakesTheFocus) {
    addNumbered(3);
    load();
    removeAllByOther();
    list->BrowseRowClick(2);
    EXPECT_EQ(page->focusTaken, 1);
    EXPECT_THAT(page->highlighted(), ElementsAre(0));
    for (const int key : {keyDown, keyUp, keyPageDown, keyPageUp, keyHome, keyEnd})
        press(key);
    EXPECT_THAT(page->highlighted(), ElementsAre(0));
    list->BrowseFillPage();
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
}

TEST_F(BrowseListOthers, ARowAddedToAnEmptyListIsShownAtTheNextMove) {
    for (const int key : {keyUp, keyPageUp, keyHome, keyEnd}) {
        removeAllByOther();
        load();
        add({"A", "B"});
        press(key);
        EXPECT_THAT(drawing(), ElementsAre(">A NA", "B NB", "End of List.")) << key;
        EXPECT_EQ(current(), "A");
    }
}

TEST_F(BrowseListOthers, DownOnAnEmptyListStaysOnTheBottom) {
    load();
    add({"A"});
    press(keyDown);
    press(keyPageDown);
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
}

TEST_F(BrowseListOthers, RecordsPutBetweenTopAndHighlightDoNotPushItOffThePage) {
    add({"01", "09", "20", "30"});
    load();
    press(keyDown, 2);
    add({"10", "11", "12", "13", "14", "15", "16", "17", "18"});
    for (const int key : {keyPageDown, keyPageUp}) {
        press(key);
        EXPECT_EQ(page->highlighted().size(), 1U);
        EXPECT_EQ(drawing()[static_cast<std::size_t>(list->row())], ">" + current() + " N" + current());
    }
}

TEST_F(BrowseListOthers, TheFirstRecordDeletedDuringTheLoadIsNotShown) {
    addNumbered(9);
    screens::BrowseDescription description = subset();
    description.columns[0].text = [this](data::Recordset& items) {
        std::string code = shell::vdNullCheckText(items.Fields("CODE"));
        if (std::exchange(page->shown, false)) { // while the first row is filled for the first time
            removeByOther("01");
            static_cast<void>(items.Fields("NAME").Value());
        }
        return code;
    };
    make(description).BrowseLoad();
    EXPECT_EQ(current(), "02");
    EXPECT_EQ(drawing().front(), ">02 N02");
    EXPECT_EQ(drawing().back(), "09 N09");
}

TEST_F(BrowseListOthers, AnErrorThatTellsOfNoMarkPassesThrough) {
    addNumbered(9);
    load();
    recordset.Close();
    EXPECT_EQ(errorOf([&] { list->BrowseFillPage(); }), runtime::errObjectInvalid);
    EXPECT_EQ(errorOf([&] { press(keyDown); }), runtime::errObjectInvalid);
    EXPECT_EQ(errorOf([&] { list->rowForAdd(false); }), runtime::errObjectInvalid);
    EXPECT_EQ(errorOf([&] { list->BrowseLoad(); }), runtime::errObjectInvalid);
}

} // namespace
} // namespace tol::test
