// SPDX-License-Identifier: MIT
#include "DataTest.h"

using namespace tol::data;
using namespace tol::test;
using Texts = std::vector<std::string>;

namespace {

std::string inUse(const std::string& table) {
    return "3211 Could not lock table '" + table + "'; it is in use by another user or process.";
}

std::string fileInUse(const Database& database) {
    return "3045 Could not use '" + database.Name() + "'; file already in use.";
}

class Sharing : public DataTest {
  protected:
    Sharing() {
        make("T", {field("A", dbLong), field("B", dbText, 10)}, {plainIndex("A", {"A"})});
        make("FREE", {field("A", dbLong)}, {plainIndex("A", {"A"})});
    }

    /// Every step that needs the table for itself is refused; what needs no such thing is done.
    static void expectRefused(Database& database, const std::string& name) {
        TableDef table = database.TableDefs(name);
        const std::string expected = inUse(name);
        EXPECT_EQ(raised([&] { return table.Fields().Append(table.CreateField("X", dbLong)); }), expected);
        EXPECT_EQ(raised([&] { return table.Fields().Delete("B"); }), expected);
        EXPECT_EQ(raised([&] { return table.Fields("B").Name("X"); }), expected);
        EXPECT_EQ(raised([&] { return table.Indexes().Append(Index(plainIndex("X", {"B"}))); }), expected);
        EXPECT_EQ(raised([&] { return table.Indexes().Delete("A"); }), expected);
        EXPECT_EQ(raised([&] { return table.Name("X"); }), expected);
        EXPECT_EQ(raised([&] { return database.TableDefs().Delete(name); }), expected);
        EXPECT_EQ(raised([&] { DBEngine::CompactDatabase("TEST.MDB"); }), fileInUse(database));
        const bool allowed = table.Fields("B").AllowZeroLength();
        const int position = table.Fields("B").OrdinalPosition();
        EXPECT_EQ(raised([&] { return table.Fields("B").AllowZeroLength(!allowed); }), expected);
        EXPECT_EQ(raised([&] { return table.Fields("B").OrdinalPosition(position + 5); }), expected);
        table.Fields("B").AllowZeroLength(allowed); // what holds already needs no change
        table.Fields("B").OrdinalPosition(position);
        EXPECT_EQ(table.Fields("B").AllowZeroLength(), allowed);
        EXPECT_EQ(table.Fields("B").OrdinalPosition(), position);
        EXPECT_EQ(table.Fields().Count(), 2);
        EXPECT_EQ(table.Name(), name);
    }
};

} // namespace

TEST_P(Sharing, OpenTableIsNotChanged) {
    Recordset rows = open("T");
    expectRefused(database, "T");
    database.TableDefs("FREE").Indexes().Delete("A"); // another table may be
    rows.Close();
    TableDef table = database.TableDefs("T");
    table.Fields().Delete("B");
    table.Fields().Append(table.CreateField("C", dbLong));
}

TEST_P(Sharing, OnlyUserOfATableMayChangeItsEntries) {
    Recordset first = open("T");
    first.Fields("B").AllowZeroLength(true);
    first.Fields("B").OrdinalPosition(7);
    EXPECT_TRUE(database.TableDefs("T").Fields("B").AllowZeroLength());
    expectRefused(database, "T"); // it is still in use
    {
        Recordset second = open("T");
        EXPECT_EQ(raised([&] { return first.Fields("B").AllowZeroLength(false); }), inUse("T"));
        EXPECT_EQ(raised([&] { return second.Fields("B").OrdinalPosition(0); }), inUse("T"));
    }
    first.Fields("B").AllowZeroLength(false);
    first.Close();
    TableDef table = database.TableDefs("T");
    EXPECT_EQ(table.Fields("B").OrdinalPosition(), 7);
    table.Fields().Append(table.CreateField("C", dbLong));
}

TEST_P(Sharing, EveryRecordsetCounts) {
    Recordset first = open("T");
    Recordset second = open("t");
    first.Close();
    expectRefused(database, "T");
    second.Close();
    database.TableDefs().Delete("T");
}

TEST_P(Sharing, OtherDatabasesAndWorkspacesCount) {
    Database same = workspace.OpenDatabase("TEST.MDB");
    Workspace other = DBEngine::CreateWorkspace("wksOTHER");
    std::filesystem::create_symlink("TEST.MDB", "LINK.MDB");
    Database second = other.OpenDatabase("LINK.MDB"); // the same file by another name
    {
        Recordset rows = same.OpenRecordset("T");
        expectRefused(database, "T");
    }
    Recordset rows = second.OpenRecordset("T");
    expectRefused(database, "T");
    expectRefused(same, "T");
    second.Close();
    database.TableDefs().Delete("T");
    EXPECT_EQ(raised([&] { return same.OpenRecordset("T"); }), "3078 Cannot find the table 'T'.");
}

TEST_P(Sharing, UseEndsWithTheRecordset) {
    {
        Recordset rows = open("T");
        const Field number = rows.Fields("A");
        rows = Recordset();
        database.TableDefs("T").Name("RENAMED"); // a handle on a field holds nothing
    }
    Recordset rows = open("RENAMED");
    rows = open("FREE");
    database.TableDefs().Delete("RENAMED");
}

TEST_P(Sharing, FailedOpeningHoldsNothing) {
    EXPECT_EQ(raised([&] { return open("NONE"); }).substr(0, 4), "3078");
    make("NONE", {field("A", dbLong)});
    database.TableDefs().Delete("NONE");
}

TEST_P(Sharing, RecordsetsSeeEachOthersRowsAtOnce) {
    Workspace other = DBEngine::CreateWorkspace("wksOTHER");
    Database second = other.OpenDatabase("TEST.MDB");
    Recordset theirs = second.OpenRecordset("T");
    Recordset ours = open("T");
    ours.Index("A");
    theirs.Index("A");
    for (const int number : {10, 20, 30})
        add(ours, {{"A", number}});
    EXPECT_EQ(theirs.RecordCount(), 3);
    EXPECT_EQ(walk(theirs, "A"), (Texts{"10", "20", "30"}));

    ours.MoveFirst();
    theirs.MoveFirst();
    change(theirs, {{"B", "new"}});
    EXPECT_EQ(at(ours, "B"), "new"); // of the record on which it stands
    add(theirs, {{"A", 15}});
    ours.MoveNext();
    EXPECT_EQ(at(ours, "A"), "15");
    theirs.Seek("=", {20});
    theirs.Delete();
    ours.MoveNext();
    EXPECT_EQ(at(ours, "A"), "30");
    EXPECT_EQ(ours.RecordCount(), 3);
    EXPECT_EQ(theirs.RecordCount(), 3);

    theirs.Seek("=", {15});
    change(theirs, {{"A", 40}});
    EXPECT_EQ(walk(ours, "A"), (Texts{"10", "30", "40"}));
    ours.MoveLast();
    ours.Delete();
    EXPECT_EQ(raised([&] { return theirs.Fields("A").Value(); }), "3167 Record is deleted.");
    EXPECT_EQ(theirs.RecordCount(), 2);
}

TEST_P(Sharing, WalkGoesOnFromWhereTheRecordStood) {
    Recordset ours = open("T");
    Recordset theirs = open("T");
    for (const int number : {10, 20, 30, 40})
        add(ours, {{"A", number}});
    ours.Index("A");
    ours.MoveNext(); // on 20
    theirs.Index("A");
    theirs.Seek("=", {20});
    change(theirs, {{"A", 35}}); // moved by another
    EXPECT_EQ(at(ours, "A"), "35");
    ours.MoveNext();
    EXPECT_EQ(at(ours, "A"), "30");
    theirs.Seek("=", {30});
    theirs.Delete();
    ours.MovePrevious();
    EXPECT_EQ(at(ours, "A"), "10");
}

TEST_P(Sharing, CountStaysExactThroughManyChanges) {
    Recordset ours = open("T");
    Recordset theirs = open("T");
    std::int64_t expected = 0;
    unsigned state = 1;
    for (int i = 0; i < 400; ++i) {
        state = state * 1103515245U + 12345U;
        Recordset& rows = (state >> 16) % 2 == 0 ? ours : theirs;
        if ((state >> 20) % 3 != 0 || expected == 0) {
            add(rows, {{"A", i}});
            ++expected;
        } else {
            rows.MoveFirst();
            rows.Delete();
            --expected;
        }
        ASSERT_EQ(ours.RecordCount(), expected);
        ASSERT_EQ(theirs.RecordCount(), expected);
    }
}

TEST_P(Sharing, DefinitionsAreSeenThroughEveryHandle) {
    Workspace other = DBEngine::CreateWorkspace("wksOTHER");
    Database second = other.OpenDatabase("TEST.MDB");
    TableDef ours = database.TableDefs("T");
    TableDef theirs = second.TableDefs("T");
    ours.Fields().Append(ours.CreateField("C", dbLong));
    EXPECT_EQ(theirs.Fields().Count(), 3);
    theirs.Fields().Delete("B");
    EXPECT_EQ(ours.Fields().Count(), 2);
    EXPECT_EQ(raised([&] { return ours.Fields("B"); }), "3265 Item not found in this collection.");
    ours.Indexes().Delete("A");
    EXPECT_EQ(theirs.Indexes().Count(), 0);
    EXPECT_EQ(second.OpenRecordset("T").Fields().Count(), 2);
}

TOL_OVER_ALL_ENGINES(Sharing);
