// SPDX-License-Identifier: MIT
#include "DataTest.h"

#include "support/SecondProcess.h"

#include <chrono>
#include <stdexcept>
#include <thread>

using namespace tol::data;
using namespace tol::test;
using Texts = std::vector<std::string>;
using Steps = SecondProcess::Steps;

namespace {

void require(bool held, const std::string& what) {
    if (!held)
        throw std::runtime_error(what);
}

/// The other process is started before anything is open here; it first waits until the test has made its
/// database.
class TwoProcesses : public testing::TestWithParam<EngineUnderTest> {
  protected:
    /// What the other process has open.
    struct Other {
        EngineScope engine;
        Workspace workspace = DBEngine::CreateWorkspace("wksOTHER");
        Database database = workspace.OpenDatabase("TEST.MDB");
        Recordset rows = database.OpenRecordset("T");
    };

    /// Starts the other process with the table open in it.
    void start(std::function<void(Other&, const Steps&)> function) {
        process = std::make_unique<SecondProcess>([function = std::move(function)](const Steps& steps) {
            steps.wait();
            Other other{EngineScope(GetParam().make())};
            steps.done();
            steps.wait();
            function(other, steps);
        });
        engine = std::make_unique<EngineScope>(GetParam().make());
        workspace = DBEngine::CreateWorkspace("wksTEST");
        database = workspace.CreateDatabase("TEST.MDB");
        TableDef table = database.CreateTableDef("T");
        table.Fields().Append(table.CreateField("A", dbLong));
        table.Fields().Append(table.CreateField("B", dbText, 10));
        table.Indexes().Append(Index(plainIndex("A", {"A"})));
        database.TableDefs().Append(table);
        process->next();
        ASSERT_TRUE(process->await());
    }

    /// Writes what waits here and lets the other process go to its next step.
    void step() const {
        DBEngine::flush();
        process->next();
        ASSERT_TRUE(process->await());
    }

    TempFolder folder;
    std::unique_ptr<SecondProcess> process;
    std::unique_ptr<EngineScope> engine;
    Workspace workspace;
    Database database;
};

} // namespace

TEST_P(TwoProcesses, SeeEachOthersRows) {
    start([](Other& other, const Steps& steps) {
        for (const int number : {10, 20})
            add(other.rows, {{"A", number}});
        DBEngine::flush();
        steps.done();
        steps.wait();
        require(other.rows.RecordCount() == 3, "count after the add");
        other.rows.Index("A");
        require(walk(other.rows, "A") == Texts{"10", "15", "20"}, "rows after the add");
        other.rows.Seek("=", {15});
        change(other.rows, {{"B", "new"}});
        other.rows.MoveLast();
        other.rows.Delete();
        DBEngine::flush();
        steps.done();
    });
    Recordset rows = database.OpenRecordset("T");
    rows.Index("A");
    EXPECT_EQ(rows.RecordCount(), 0);
    step();
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(walk(rows, "A"), (Texts{"10", "20"}));
    add(rows, {{"A", 15}});
    const std::string mark = rows.LastModified();
    DBEngine::flush();
    rows.MoveLast();
    step();
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(raised([&] { return rows.Fields("A").Value(); }), "3167 Record is deleted.");
    rows.Bookmark(mark);
    EXPECT_EQ(at(rows, "B"), "new");
    EXPECT_EQ(process->finish(), 0);
}

TEST_P(TwoProcesses, TableThatTheOtherEmptiesIsAtBothEnds) {
    start([](Other& other, const Steps& steps) {
        other.rows.MoveFirst();
        other.rows.Delete();
        DBEngine::flush();
        steps.done();
    });
    Recordset rows = database.OpenRecordset("T");
    add(rows, {{"A", 1}});
    rows.MoveFirst();
    EXPECT_FALSE(rows.AtEOF());
    step();
    std::this_thread::sleep_for(std::chrono::milliseconds(20)); // longer than between two looks at the file
    EXPECT_TRUE(rows.AtEOF());
    EXPECT_TRUE(rows.AtBOF());
    EXPECT_EQ(process->finish(), 0);
}

TEST_P(TwoProcesses, TableInUseElsewhereIsNotChanged) {
    start([](Other& other, const Steps& steps) {
        other.rows.Close();
        steps.done();
        steps.wait();
        require(other.database.TableDefs().Count() == 1, "tables");
        require(other.database.TableDefs("T").Fields().Count() == 3, "fields");
        Recordset again = other.database.OpenRecordset("T");
        require(again.Fields().Count() == 3, "fields of the recordset");
        steps.done();
        steps.wait();
    });
    TableDef table = database.TableDefs("T");
    const std::string expected = "3211 Could not lock table 'T'; it is in use by another user or process.";
    const auto append = [&](const char* name) {
        return raised([&] { return table.Fields().Append(table.CreateField(name, dbLong)); });
    };
    EXPECT_EQ(append("C"), expected);
    EXPECT_EQ(raised([&] { return table.Fields().Delete("B"); }), expected);
    EXPECT_EQ(raised([&] { return table.Name("X"); }), expected);
    EXPECT_EQ(raised([&] { return table.Indexes().Delete("A"); }), expected);
    EXPECT_EQ(raised([&] { return table.Indexes().Append(Index(plainIndex("X", {"B"}))); }), expected);
    EXPECT_EQ(raised([&] { return database.TableDefs().Delete("T"); }), expected);
    EXPECT_EQ(raised([&] { return table.Fields("B").AllowZeroLength(true); }), expected);
    EXPECT_EQ(raised([&] { return table.Fields("B").OrdinalPosition(9); }), expected);
    table.Fields("B").AllowZeroLength(false); // holds already
    step();
    EXPECT_EQ(append("C"), "");
    step();
    EXPECT_EQ(append("D"), expected);
    process->next();
    EXPECT_EQ(process->finish(), 0);
    EXPECT_EQ(append("D"), "");
}

TEST_P(TwoProcesses, UserOfATableThatTheOtherHasOpenChangesNoEntry) {
    start([](Other& other, const Steps& steps) {
        other.rows.Close();
        steps.done();
        steps.wait();
    });
    Recordset rows = database.OpenRecordset("T");
    const std::string expected = "3211 Could not lock table 'T'; it is in use by another user or process.";
    EXPECT_EQ(raised([&] { return rows.Fields("B").AllowZeroLength(true); }), expected);
    step();
    rows.Fields("B").AllowZeroLength(true);
    process->next();
    EXPECT_EQ(process->finish(), 0);
}

TEST_P(TwoProcesses, UseVanishesWithAKilledProcess) {
    start([](Other&, const Steps&) { _exit(3); });
    EXPECT_EQ(raised([&] { return database.TableDefs().Delete("T"); }).substr(0, 4), "3211");
    process->next();
    EXPECT_EQ(process->finish(), 3);
    database.TableDefs().Delete("T");
    EXPECT_EQ(database.TableDefs().Count(), 0);
}

TEST_P(TwoProcesses, DefinitionsOfTheOtherAreSeen) {
    start([](Other& other, const Steps& steps) {
        other.rows.Close();
        TableDef table = other.database.TableDefs("T");
        table.Fields("B").AllowZeroLength(true);
        table.Fields("A").OrdinalPosition(5);
        table.Fields().Append(table.CreateField("C", dbLong));
        TableDef more = other.database.CreateTableDef("MORE");
        more.Fields().Append(more.CreateField("X", dbText, 5));
        other.database.TableDefs().Append(more);
        DBEngine::flush();
        steps.done();
        steps.wait();
        other.database.TableDefs().Delete("MORE");
        table.Name("RENAMED");
        DBEngine::flush();
        steps.done();
        steps.wait();
    });
    const TableDef table = database.TableDefs("T");
    EXPECT_EQ(table.Fields().Count(), 2);
    step();
    EXPECT_EQ(database.TableDefs().Count(), 2);
    EXPECT_EQ(table.Fields().Count(), 3);
    EXPECT_TRUE(table.Fields("B").AllowZeroLength());
    EXPECT_EQ(table.Fields("A").OrdinalPosition(), 5);
    {
        Recordset more = database.OpenRecordset("MORE");
        EXPECT_EQ(more.Fields("X").Size(), 5);
    }
    step();
    EXPECT_EQ(raised([&] { return database.OpenRecordset("MORE"); }), "3078 Cannot find the table 'MORE'.");
    EXPECT_EQ(database.TableDefs().Count(), 1);
    EXPECT_EQ(database.TableDefs()(0).Name(), "RENAMED");
    EXPECT_EQ(raised([&] { return table.Name(); }), "3420 Object invalid or no longer set.");
    process->next();
    EXPECT_EQ(process->finish(), 0);
}

TEST_P(TwoProcesses, WriterWaitsForTheOthersTransaction) {
    start([](Other& other, const Steps& steps) {
        other.workspace.BeginTrans();
        add(other.rows, {{"A", 1}});
        steps.done();
        steps.wait();
        usleep(300000); // the test's write waits meanwhile
        other.workspace.CommitTrans();
    });
    Recordset rows = database.OpenRecordset("T");
    step();
    EXPECT_EQ(rows.RecordCount(), 0); // reading need not wait
    process->next();
    add(rows, {{"A", 2}});
    DBEngine::flush();
    EXPECT_EQ(walk(rows, "A"), (Texts{"1", "2"}));
    EXPECT_EQ(process->finish(), 0);
}

TEST_P(TwoProcesses, CountersNeverHandOutANumberTwice) {
    constexpr int rounds = 40;
    const auto take = [](Workspace& session) {
        Database counter = session.OpenDatabase("TEST.MDB");
        Recordset rows = counter.OpenRecordset("T", dbOpenTable, dbSeeChanges, dbPessimistic);
        session.BeginTrans();
        rows.MoveFirst();
        change(rows, {{"A", std::stoi(at(rows, "A")) + 1}});
        session.CommitTrans(dbForceOSFlush);
    };
    start([&](Other& other, const Steps&) {
        for (int i = 0; i < rounds; ++i)
            take(other.workspace);
    });
    {
        Recordset rows = database.OpenRecordset("T");
        add(rows, {{"A", 0}});
    }
    process->next();
    for (int i = 0; i < rounds; ++i)
        take(workspace);
    EXPECT_EQ(process->finish(), 0);
    EXPECT_EQ(at(database.OpenRecordset("T"), "A"), std::to_string(2 * rounds));
}

TOL_OVER_ALL_ENGINES(TwoProcesses);
