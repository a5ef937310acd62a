// SPDX-License-Identifier: MIT
#include "DataTest.h"

#include "runtime/Host.h"
#include "support/SecondProcess.h"

#include <gmock/gmock.h>

#include <chrono>
#include <stdexcept>
#include <thread>

using namespace tol::data;
using namespace tol::test;
using Texts = std::vector<std::string>;

namespace {

class Transactions : public DataTest {
  protected:
    Transactions() { make("T", {field("A", dbLong)}, {plainIndex("A", {"A"})}); }

    /// What the file holds for others.
    Texts inFile() {
        Workspace reader = DBEngine::CreateWorkspace("wksREAD");
        Database readOnly = reader.OpenDatabase("TEST.MDB", false, true);
        Recordset rows = readOnly.OpenRecordset("T");
        return walk(rows, "A");
    }
};

} // namespace

TEST_P(Transactions, CommitKeepsTheChanges) {
    Recordset rows = open("T");
    workspace.BeginTrans();
    add(rows, {{"A", 1}});
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(inFile(), Texts{});
    workspace.CommitTrans(dbForceOSFlush);
    EXPECT_EQ(inFile(), Texts{"1"});
}

TEST_P(Transactions, CloseOfTheWorkspaceRollsBack) {
    {
        Recordset rows = open("T");
        add(rows, {{"A", 1}});
        add(rows, {{"A", 2}});
    }
    Workspace other = DBEngine::CreateWorkspace("wksOTHER");
    Database second = other.OpenDatabase("TEST.MDB");
    Recordset rows = second.OpenRecordset("T");
    rows.Index("A");
    other.BeginTrans();
    add(rows, {{"A", 3}});
    change(rows, {{"A", 9}});
    rows.MoveLast();
    rows.Delete();
    rows.Close();
    second.Close(); // the transaction is the workspace's
    {
        Recordset here = open("T");
        EXPECT_EQ(here.RecordCount(), 2);
    }
    other.Close();
    Recordset here = open("T");
    EXPECT_EQ(here.RecordCount(), 2);
    EXPECT_EQ(walk(here, "A"), (Texts{"1", "2"}));
    add(here, {{"A", 4}}); // written in nobody's transaction
    DBEngine::flush();
    EXPECT_EQ(inFile(), (Texts{"1", "2", "4"}));
}

TEST_P(Transactions, HandleThatGoesRollsBack) {
    Recordset held = open("T");
    {
        Workspace other = DBEngine::CreateWorkspace("wksOTHER");
        Database second = other.OpenDatabase("TEST.MDB");
        other.BeginTrans();
        Recordset rows = second.OpenRecordset("T");
        add(rows, {{"A", 3}});
        EXPECT_EQ(held.RecordCount(), 1);
    }
    EXPECT_EQ(held.RecordCount(), 0);
    EXPECT_TRUE(held.AtEOF());
}

TEST_P(Transactions, RollbackTakesDefinitionsBack) {
    database.Close();
    {
        Workspace other = DBEngine::CreateWorkspace("wksOTHER");
        Database second = other.OpenDatabase("TEST.MDB");
        other.BeginTrans();
        TableDef table = second.TableDefs("T");
        table.Fields().Append(table.CreateField("B", dbLong));
        table.Name("RENAMED");
        TableDef more = second.CreateTableDef("MORE");
        second.TableDefs().Append(more);
        EXPECT_EQ(second.TableDefs().Count(), 2);
    }
    database = workspace.OpenDatabase("TEST.MDB");
    EXPECT_EQ(database.TableDefs().Count(), 1);
    EXPECT_EQ(database.TableDefs("T").Fields().Count(), 1);
    EXPECT_EQ(open("T").Fields().Count(), 1);
}

TEST_P(Transactions, NeedABegin) {
    EXPECT_EQ(raised([&] { return workspace.CommitTrans(); }), "3034 Commit or Rollback without BeginTrans.");
    workspace.BeginTrans();
    EXPECT_EQ(raised([&] { return workspace.CommitTrans(7); }), "3001 Invalid argument.");
    workspace.CommitTrans();
    EXPECT_EQ(raised([&] { return workspace.CommitTrans(); }), "3034 Commit or Rollback without BeginTrans.");
}

TEST_P(Transactions, RollbackLeavesTheDatabaseOpenAndAsItWas) {
    {
        Recordset rows = open("T");
        add(rows, {{"A", 1}});
    }
    TableDef table = database.TableDefs("T");
    workspace.BeginTrans();
    workspace.BeginTrans();
    table.Fields().Append(table.CreateField("B", dbLong));
    {
        Recordset rows = open("T");
        add(rows, {{"A", 2}, {"B", 2}});
    }
    workspace.Rollback();
    EXPECT_EQ(table.Fields().Count(), 1);
    Recordset rows = open("T");
    EXPECT_EQ(walk(rows, "A"), Texts{"1"});
    rows.Close();
    table.Fields().Append(table.CreateField("B", dbText, 5));
    DBEngine::flush();
    reopen();
    EXPECT_EQ(database.TableDefs("T").Fields()("B").Type(), dbText);
    EXPECT_EQ(raised([&] { workspace.Rollback(); }), "3034 Commit or Rollback without BeginTrans.");
}

TEST_P(Transactions, TheLookWhetherTheFileTakesChangesLeavesItAsItIs) {
    Recordset rows = open("T");
    add(rows, {{"A", 1}});
    add(rows, {{"A", 2}});
    database.RequireUpdatable();
    add(rows, {{"A", 3}});
    EXPECT_EQ(walk(rows, "A"), (Texts{"1", "2", "3"}));
    Workspace reader = DBEngine::CreateWorkspace("wksREAD");
    EXPECT_THAT(raised([&] { reader.OpenDatabase("TEST.MDB", false, true).RequireUpdatable(); }),
                testing::StartsWith("3027 "));
}

TEST_P(Transactions, NestedOnesCommitWithTheOutermost) {
    Recordset rows = open("T");
    workspace.BeginTrans();
    add(rows, {{"A", 1}});
    workspace.BeginTrans();
    add(rows, {{"A", 2}});
    workspace.CommitTrans();
    EXPECT_EQ(inFile(), Texts{});
    workspace.CommitTrans();
    EXPECT_EQ(inFile(), (Texts{"1", "2"}));
}

TEST_P(Transactions, CoverAllDatabasesOfTheWorkspace) {
    Database before = workspace.CreateDatabase("BEFORE.MDB");
    Database same = workspace.OpenDatabase("TEST.MDB"); // a second handle on one file
    workspace.BeginTrans();
    Database during = workspace.CreateDatabase("DURING.MDB");
    for (Database* each : {&before, &during}) {
        TableDef table = each->CreateTableDef("T");
        table.Fields().Append(table.CreateField("A", dbLong));
        each->TableDefs().Append(table);
    }
    {
        Recordset rows = same.OpenRecordset("T");
        add(rows, {{"A", 1}});
    }
    workspace.Close();
    Workspace later = DBEngine::CreateWorkspace("wksLATER");
    for (const char* name : {"BEFORE.MDB", "DURING.MDB"})
        EXPECT_EQ(later.OpenDatabase(name).TableDefs().Count(), 0) << name;
    EXPECT_EQ(inFile(), Texts{});
}

TEST_P(Transactions, FlushingLeavesThemAlone) {
    Recordset rows = open("T");
    workspace.BeginTrans();
    add(rows, {{"A", 1}});
    DBEngine::flush();
    tol::runtime::flush();
    open("T").Close();
    EXPECT_EQ(inFile(), Texts{});
    workspace.CommitTrans();
    EXPECT_EQ(inFile(), Texts{"1"});
}

TEST_P(Transactions, KeepOtherWorkspacesFromWriting) {
    Workspace other = DBEngine::CreateWorkspace("wksOTHER");
    Database second = other.OpenDatabase("TEST.MDB");
    Recordset theirs = second.OpenRecordset("T");
    Recordset rows = open("T");
    workspace.BeginTrans();
    add(rows, {{"A", 1}});
    const std::string locked =
        "3218 Could not update '" + (folder / "TEST.MDB").string() + "'; currently locked.";
    EXPECT_EQ(raised([&] { return theirs.AddNew(); }), locked);
    theirs.MoveFirst(); // reading goes on
    EXPECT_EQ(at(theirs, "A"), "1");
    EXPECT_EQ(raised([&] { return theirs.Edit(); }), locked);
    EXPECT_EQ(raised([&] { return theirs.Delete(); }), locked);
    EXPECT_EQ(raised([&] { return second.TableDefs("T").Fields("A").AllowZeroLength(true); }), locked);
    EXPECT_EQ(raised([&] { return other.BeginTrans(); }), locked);
    workspace.CommitTrans();
    other.BeginTrans();
    add(theirs, {{"A", 2}});
    other.CommitTrans();
    EXPECT_EQ(inFile(), (Texts{"1", "2"}));
}

TEST_P(Transactions, BeginThatFailsHoldsNothing) {
    Database first = workspace.CreateDatabase("A.MDB");
    Workspace other = DBEngine::CreateWorkspace("wksOTHER");
    Database second = other.OpenDatabase("TEST.MDB");
    other.BeginTrans();
    EXPECT_EQ(raised([&] { return workspace.BeginTrans(); }).substr(0, 4), "3218");
    EXPECT_EQ(raised([&] { return workspace.CommitTrans(); }).substr(0, 4), "3034");
    other.CommitTrans();
    workspace.BeginTrans();
    workspace.CommitTrans();
}

TEST_P(Transactions, WritesInARowAreCommittedByTheClock) {
    Recordset rows = open("T");
    const auto start = std::chrono::steady_clock::now();
    int written = 0;
    while (std::chrono::steady_clock::now() - start < std::chrono::milliseconds(400)) {
        add(rows, {{"A", written}});
        ++written;
    }
    EXPECT_GT(inFile().size(), 0U); // long before the end of the run
    DBEngine::flush();
    EXPECT_EQ(inFile().size(), static_cast<std::size_t>(written));
}

TEST_P(Transactions, EveryCloseFlushes) {
    const auto writeAll = [](Recordset& rows) {
        for (int i = 0; i < 50; ++i)
            add(rows, {{"A", i}});
    };
    {
        Recordset rows = open("T");
        writeAll(rows);
        rows.Close();
        EXPECT_EQ(inFile().size(), 50U);
        rows = open("T");
        writeAll(rows);
    }
    EXPECT_EQ(inFile().size(), 100U);
    {
        Recordset rows = open("T");
        writeAll(rows);
        database.Close();
        EXPECT_EQ(inFile().size(), 150U);
    }
    database = workspace.OpenDatabase("TEST.MDB");
    Recordset rows = open("T");
    writeAll(rows);
    tol::runtime::flush(); // what a host does before it waits
    EXPECT_EQ(inFile().size(), 200U);
    writeAll(rows);
    workspace.Close();
    EXPECT_EQ(inFile().size(), 250U);
}

TOL_OVER_ALL_ENGINES(Transactions);
