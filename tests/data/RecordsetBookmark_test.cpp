// SPDX-License-Identifier: MIT
#include "DataTest.h"

#include "runtime/Text.h"

#include <set>

using namespace tol::data;
using namespace tol::test;
using Texts = std::vector<std::string>;

namespace {

class RecordsetBookmark : public DataTest {
  protected:
    RecordsetBookmark() {
        make("T", {field("N", dbLong)}, {plainIndex("BYN", {"N"})});
        make("OTHER", {field("N", dbLong)});
    }

    /// Fills the table and gives the bookmarks in stored order.
    Texts filled(std::initializer_list<int> numbers) {
        Recordset rows = open("T");
        Texts marks;
        for (const int number : numbers) {
            add(rows, {{"N", number}});
            marks.push_back(rows.LastModified());
        }
        return marks;
    }
};

} // namespace

TEST_P(RecordsetBookmark, NamesItsRecord) {
    const Texts marks = filled({30, 10, 20});
    Recordset rows = open("T");
    EXPECT_EQ(std::set<std::string>(marks.begin(), marks.end()).size(), 3U);
    for (const std::string& mark : marks)
        EXPECT_FALSE(tol::runtime::trim(mark).empty());
    EXPECT_EQ(rows.Bookmark(), marks[0]);
    rows.Bookmark(marks[2]);
    EXPECT_EQ(at(rows, "N"), "20");
    EXPECT_EQ(rows.Bookmark(), marks[2]);
    rows.Bookmark(marks[1]);
    EXPECT_EQ(at(rows, "N"), "10");
}

TEST_P(RecordsetBookmark, StepsGoOnFromIt) {
    const Texts marks = filled({30, 10, 20});
    Recordset rows = open("T");
    rows.Bookmark(marks[1]);
    rows.MoveNext();
    EXPECT_EQ(at(rows, "N"), "20"); // stored order
    rows.Index("BYN");
    rows.Bookmark(marks[2]);
    rows.MoveNext();
    EXPECT_EQ(at(rows, "N"), "30"); // index order
    rows.Bookmark(marks[2]);
    rows.MovePrevious();
    EXPECT_EQ(at(rows, "N"), "10");
    rows.Bookmark(marks[0]);
    rows.MoveNext();
    EXPECT_TRUE(rows.AtEOF());
    rows.Bookmark(marks[1]);
    rows.MovePrevious();
    EXPECT_TRUE(rows.AtBOF());
    rows.Bookmark(marks[1]); // from beyond the end
    EXPECT_EQ(at(rows, "N"), "10");
}

TEST_P(RecordsetBookmark, ServesOtherRecordsetsAndSurvivesReopening) {
    const Texts marks = filled({30, 10, 20});
    Recordset rows = open("T");
    Recordset second = open("t");
    second.Index("BYN");
    rows.MoveLast();
    second.Bookmark(rows.Bookmark());
    EXPECT_EQ(at(second, "N"), "20");
    rows.Close();
    second.Close();
    rows = open("T");
    rows.Bookmark(marks[2]);
    EXPECT_EQ(at(rows, "N"), "20");
    rows.Close();
    reopen();
    rows = open("T");
    rows.Index("BYN");
    rows.Bookmark(marks[0]);
    EXPECT_EQ(at(rows, "N"), "30");
    EXPECT_EQ(rows.Bookmark(), marks[0]);
}

TEST_P(RecordsetBookmark, StaysWithTheRecordWhateverChanges) {
    const Texts marks = filled({30, 10, 20});
    {
        Recordset rows = open("T");
        rows.Index("BYN");
        rows.Bookmark(marks[0]);
        change(rows, {{"N", 5}});
        EXPECT_EQ(rows.Bookmark(), marks[0]);
        rows.Bookmark(marks[1]);
        rows.Delete();
    }
    TableDef table = database.TableDefs("T");
    table.Indexes().Delete("BYN");
    table.Fields().Append(table.CreateField("MORE", dbText, 10));
    table.Fields().Append(table.CreateField("N2", dbLong));
    table.Fields().Delete("MORE");
    table.Name("RENAMED");
    compact();
    Recordset rows = open("RENAMED");
    rows.Bookmark(marks[0]);
    EXPECT_EQ(at(rows, "N"), "5");
    rows.Bookmark(marks[2]);
    EXPECT_EQ(at(rows, "N"), "20");
}

TEST_P(RecordsetBookmark, OfADeletedRecordNeverNamesAnother) {
    const Texts marks = filled({1, 2, 3});
    Recordset rows = open("T");
    rows.Bookmark(marks[2]); // the newest
    rows.Delete();
    add(rows, {{"N", 4}});
    EXPECT_NE(rows.LastModified(), marks[2]);
    EXPECT_EQ(raised([&] { return rows.Bookmark(marks[2]); }), "3167 Record is deleted.");
    rows.Close();
    reopen();
    rows = open("T");
    rows.MoveLast();
    rows.Delete();
    add(rows, {{"N", 5}});
    rows.MoveLast();
    EXPECT_NE(rows.Bookmark(), marks[2]);
    while (rows.RecordCount() > 0) {
        rows.MoveFirst();
        rows.Delete();
    }
    add(rows, {{"N", 6}});
    for (const std::string& mark : marks)
        EXPECT_NE(rows.LastModified(), mark);
}

TEST_P(RecordsetBookmark, ThatIsNoneIsRefused) {
    const Texts marks = filled({1, 2});
    Recordset rows = open("T");
    rows.MoveNext();
    for (const char* text : {"", " ", "   ", "no bookmark", "12x", "\x01\x02"})
        EXPECT_EQ(raised([&] { return rows.Bookmark(text); }), "3159 Not a valid bookmark.") << text;
    rows.MoveFirst();
    EXPECT_EQ(rows.Bookmark(), marks[0]);
}

TEST_P(RecordsetBookmark, WorksInATableWithoutFields) {
    make("NONE", {});
    Recordset rows = open("NONE");
    EXPECT_EQ(rows.Fields().Count(), 0);
    for (int i = 0; i < 3; ++i)
        add(rows, {});
    EXPECT_EQ(rows.RecordCount(), 3);
    rows.MoveLast();
    const std::string mark = rows.Bookmark();
    rows.MoveFirst();
    EXPECT_NE(rows.Bookmark(), mark);
    change(rows, {});
    rows.Delete();
    rows.Bookmark(mark);
    rows.MovePrevious();
    rows.MovePrevious();
    EXPECT_TRUE(rows.AtBOF());
    EXPECT_EQ(rows.RecordCount(), 2);
}

TOL_OVER_ALL_ENGINES(RecordsetBookmark);
