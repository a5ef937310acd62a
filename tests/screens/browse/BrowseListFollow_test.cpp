// SPDX-License-Identifier: MIT
// A list whose window opens the table afresh again and again, while others add and delete records.
#include "ListTest.h"
#include "runtime/RuntimeError.h"

#include <fmt/core.h>
#include <gmock/gmock.h>

#include <random>
#include <set>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class BrowseListFollow : public ListTest {
  protected:
    /// What a window does at each look.
    void follow() {
        recordset = reopen();
        list->BrowseFollow();
    }
};

TEST_F(BrowseListFollow, ShowsAddedRecordsAndKeepsTheHighlight) {
    addNumbered(5);
    load();
    press(keyDown, 2);
    add({"00", "025", "09"});
    follow();
    EXPECT_THAT(drawing(), ElementsAre("00 N00", "01 N01", "02 N02", "025 N025", ">03 N03", "04 N04",
                                       "05 N05", "09 N09"));
    press(keyEnd);
    EXPECT_EQ(current(), "09");
}

TEST_F(BrowseListFollow, KeepsTheRowOfARecordThatLeavesThePage) {
    addNumbered(8);
    load();
    press(keyDown, 7);
    add({"001", "002"});
    follow();
    EXPECT_EQ(list->row(), 7);
    EXPECT_EQ(drawing().back(), ">08 N08");
    EXPECT_EQ(top(), "01");
}

TEST_F(BrowseListFollow, KeepsAScrolledPage) {
    addNumbered(20);
    load();
    press(keyPageDown);
    press(keyDown, 2);
    add({"00", "21"});
    follow();
    EXPECT_EQ(top(), "08");
    EXPECT_EQ(current(), "10");
    EXPECT_EQ(list->row(), 2);
}

TEST_F(BrowseListFollow, AGoneRecordLeavesTheHighlightToItsRow) {
    addNumbered(5);
    load();
    press(keyDown, 2);
    removeByOther("03");
    follow();
    EXPECT_THAT(drawing(), ElementsAre("01 N01", "02 N02", ">04 N04", "05 N05", "End of List."));
    EXPECT_EQ(current(), "04");
    removeByOther("04");
    removeByOther("05");
    follow();
    EXPECT_THAT(drawing(), ElementsAre("01 N01", "02 N02", ">End of List."));
    EXPECT_EQ(current(), "");
}

TEST_F(BrowseListFollow, AGoneHighlightFarDownComesUpToTheEnd) {
    addNumbered(8);
    load();
    press(keyDown, 6);
    for (const char* code : {"03", "04", "05", "06", "07", "08"})
        removeByOther(code);
    follow();
    EXPECT_THAT(drawing(), ElementsAre("01 N01", "02 N02", ">End of List."));
}

TEST_F(BrowseListFollow, AGonePageBeginsAtTheFirst) {
    addNumbered(20);
    load();
    press(keyEnd);
    removeByOther("20");
    follow();
    EXPECT_EQ(top(), "01");
    EXPECT_EQ(current(), "01");
}

TEST_F(BrowseListFollow, GoesFromEmptyToTheFirstRecordAndBack) {
    load();
    follow();
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
    add({"A", "B"});
    follow();
    EXPECT_THAT(drawing(), ElementsAre(">A NA", "B NB", "End of List."));
    removeAllByOther();
    follow();
    EXPECT_THAT(drawing(), ElementsAre(">List is Empty."));
    EXPECT_EQ(list->currentMark(), " ");
    EXPECT_EQ(list->topMark(), " ");
}

TEST_F(BrowseListFollow, FollowsTheChildrenOfAParent) {
    addNumbered(3);
    add({"X"}, 2);
    make(subset()).BrowseLoad();
    press(keyDown, 2);
    removeByOther("03");
    follow();
    EXPECT_THAT(drawing(), ElementsAre("01 N01", "02 N02", ">End of List."));
}

// Whatever others do, the highlighted row shows the record that is current, and the page the table as it is.
TEST_F(BrowseListFollow, TheHighlightedRowShowsTheCurrentRecord) {
    std::mt19937 random(20031); // NOLINT: the same each time
    const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    std::set<std::string> codes;
    load();
    for (int step = 0; step < 500; ++step) {
        for (int change = below(4); change > 0; --change) {
            const std::string code = fmt::format("{:02}", below(30));
            if (codes.erase(code) != 0)
                removeByOther(code);
            else if (codes.insert(code).second)
                add({code});
        }
        follow();
        ASSERT_THAT(page->highlighted(), ElementsAre(list->row())) << step;
        const std::string shown = drawing()[static_cast<std::size_t>(list->row())];
        const std::string text = codes.empty() ? "List is Empty." : "End of List.";
        ASSERT_EQ(shown, ">" + (current().empty() ? text : current() + " N" + current())) << step;
        auto next = codes.find(top());
        ASSERT_TRUE(next != codes.end() || codes.empty()) << step;
        for (int row = 0; next != codes.end() && row < rows; ++row, ++next)
            ASSERT_EQ(page->caption(row, 0), *next) << step;
        press(std::array{keyDown, keyUp, keyPageDown, keyPageUp, keyEnd, keyDown}[random() % 6]);
    }
}

TEST_F(BrowseListFollow, AMoveThatFailsLeadsToItsAction) {
    addNumbered(3);
    page.emplace(8, 2);
    recordset = reopen();
    int failures = 0;
    list = std::make_unique<screens::BrowseList>(
        *page, wholeTable(), recordset, reopen,
        screens::BrowseActions{.edit = [&] { done.emplace_back("edit"); }, .failed = [&] { ++failures; }});
    list->BrowseLoad();
    list->BrowseRowClick(0);
    EXPECT_THAT(done, ElementsAre("edit"));
    recordset.Close();
    press(keyDown);
    EXPECT_EQ(failures, 1);
    list->BrowseRowClick(1);
    EXPECT_EQ(failures, 2);
    EXPECT_THAT(drawing(), ElementsAre(">01 N01", "02 N02", "03 N03", "End of List."));
}

} // namespace
} // namespace tol::test
