// SPDX-License-Identifier: MIT
#include "SharedRoutineTest.h"
#include "shell/vdfunctions/vdRecords.h"

namespace tol::test {
namespace {

using namespace shell;

class Records : public SharedRoutineTest {
  protected:
    Records() {
        make("A.MDB", "T",
             R"([{"name": "SITE", "type": 10, "size": 10}, {"name": "NUMBER", "type": 4},
                 {"name": "NOTE", "type": 10, "size": 4}])",
             R"([{"name": "BYSITE", "fields": ["SITE", "NUMBER"], "unique": true, "primary": false},
                 {"name": "BYNUMBER", "fields": ["NUMBER"], "unique": false, "primary": false}])",
             R"([["North", 1, null], ["North", 2, "b"], ["South", 1, "c"]])");
        database = workspace.OpenDatabase("A.MDB");
        rows = database.OpenRecordset("T");
        rows.Index("BYSITE");
    }

    /// The mark of the record, which the recordset then stands on.
    std::string markOf(const std::string& site, std::int32_t number) {
        rows.Seek("=", {site, number});
        return rows.Bookmark();
    }
    [[nodiscard]] KeyPairs of(const char* site) const { return {{site, rows.Fields("SITE")}}; }
    [[nodiscard]] KeyPairs of(const char* site, std::int32_t number) const {
        return {{site, rows.Fields("SITE")}, {number, rows.Fields("NUMBER")}};
    }

    data::Database database;
    data::Recordset rows;
};

TEST_F(Records, RecordOKTellsWhetherThereIsARecord) {
    EXPECT_TRUE(vdRecordOK(rows));
    rows.MovePrevious();
    EXPECT_FALSE(vdRecordOK(rows)) << "at the beginning";
    rows.MoveLast();
    EXPECT_TRUE(vdRecordOK(rows));
    rows.MoveNext();
    EXPECT_FALSE(vdRecordOK(rows)) << "at the end";
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(Records, RecordOKComparesTheKeys) {
    EXPECT_TRUE(vdRecordOK(rows, of("North")));
    EXPECT_TRUE(vdRecordOK(rows, of("NORTH", 1))) << "case does not matter";
    EXPECT_FALSE(vdRecordOK(rows, of("North", 2)));
    EXPECT_FALSE(vdRecordOK(rows, of("South", 1)));
    EXPECT_TRUE(vdRecordOK(rows, {{1.0, rows.Fields("NUMBER")}})) << "numbers compare by amount";
    EXPECT_TRUE(vdRecordOK(rows, {{"    ", rows.Fields("NOTE")}})) << "Null compares as its blanks";
    EXPECT_FALSE(vdRecordOK(rows, {{"", rows.Fields("NOTE")}}));
}

TEST_F(Records, RecordOKOnAnEmptyTable) {
    while (vdRecordOK(rows)) {
        rows.Delete();
        if (rows.RecordCount() > 0)
            rows.MoveNext();
    }
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_FALSE(vdRecordOK(rows));
}

TEST_F(Records, RecordOKOnATableThatAnotherRecordsetHasEmptied) {
    ASSERT_TRUE(vdRecordOK(rows));
    data::Recordset other = database.OpenRecordset("T");
    for (; !other.AtEOF(); other.MoveNext())
        other.Delete();
    EXPECT_FALSE(vdRecordOK(rows));
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(Records, RecordOKWithoutACurrentRecord) {
    rows.Delete();
    EXPECT_TRUE(vdRecordOK(rows)) << "neither at an end nor empty: that is all it looks at";
    EXPECT_FALSE(vdRecordOK(rows, of("North")));
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, "vd NullCheck Error");
}

TEST_F(Records, RecordOKIsFalseOnAnyError) {
    const KeyPairs pairs = of("North");
    rows.Close();
    EXPECT_FALSE(vdRecordOK(rows));
    EXPECT_FALSE(vdRecordOK(rows, pairs));
    data::Recordset none;
    EXPECT_FALSE(vdRecordOK(none));
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(Records, NextBookmarkPrefersTheNextRecord) {
    const std::string second = markOf("North", 2), first = markOf("North", 1);
    EXPECT_EQ(vdNextBookmark(rows, first), second);
    EXPECT_EQ(rows.Bookmark(), second);
    EXPECT_EQ(vdNextBookmark(rows, first, of("North")), second);
}

TEST_F(Records, NextBookmarkFallsBackToThePreviousRecord) {
    const std::string third = markOf("South", 1), second = markOf("North", 2), first = markOf("North", 1);
    EXPECT_EQ(vdNextBookmark(rows, third), second) << "the last record";
    EXPECT_EQ(vdNextBookmark(rows, second, of("North")), first) << "the last record of its keys";
}

TEST_F(Records, NextBookmarkOfTheOnlyRecordIsBlank) {
    const std::string third = markOf("South", 1);
    EXPECT_EQ(vdNextBookmark(rows, third, of("South")), " ");
    for (const std::int32_t number : {1, 2}) {
        markOf("North", number);
        rows.Delete();
    }
    EXPECT_EQ(vdNextBookmark(rows, third), " ");
}

TEST_F(Records, NextBookmarkPassesErrorsOn) {
    EXPECT_EQ(errorOf([&] { vdNextBookmark(rows, " "); }), 3159);
    const std::string first = markOf("North", 1);
    rows.Delete();
    EXPECT_EQ(errorOf([&] { vdNextBookmark(rows, first); }), 3167);
}

TEST_F(Records, FindFirstLooksAtTheFirstRecordOnly) {
    const std::string second = markOf("North", 2), third = markOf("South", 1), first = markOf("North", 1);
    EXPECT_EQ(vdFindFirst(rows, "BYSITE", of("NORTH")), first);
    EXPECT_EQ(vdFindFirst(rows, "BYSITE", of("North", 2)), second);
    EXPECT_EQ(rows.Bookmark(), second);
    EXPECT_EQ(vdFindFirst(rows, "BYSITE", of("South")), third);
    EXPECT_EQ(vdFindFirst(rows, "BYSITE", of("North", 3)), "") << "another record comes first";
    EXPECT_EQ(vdFindFirst(rows, "BYSITE", of("West")), "") << "none comes at all";
    EXPECT_EQ(vdFindFirst(rows, "bynumber", {{std::int32_t{2}, rows.Fields("NUMBER")}}), second);
    EXPECT_EQ(rows.Index(), "BYNUMBER");
    EXPECT_EQ(vdFindFirst(rows, "BYNUMBER", {{std::int32_t{1}, rows.Fields("SITE")}}), "")
        << "the field decides, not the index";
}

TEST_F(Records, FindFirstDoesNotTakeNullForBlanks) {
    EXPECT_EQ(vdFindFirst(rows, "BYSITE",
                          {{"North", rows.Fields("SITE")}, {std::int32_t{1}, rows.Fields("NUMBER")}}),
              markOf("North", 1));
    rows.Edit();
    rows.Fields("SITE").Value(runtime::Null{});
    rows.Update();
    EXPECT_EQ(vdFindFirst(rows, "BYSITE", {{"", rows.Fields("SITE")}}), "");
}

TEST_F(Records, FindFirstPassesErrorsOn) {
    EXPECT_EQ(errorOf([&] { vdFindFirst(rows, "NONE", of("North")); }), 3015);
    EXPECT_EQ(errorOf([&] { vdFindFirst(rows, "BYSITE", {}); }), 3001);
}

} // namespace
} // namespace tol::test
