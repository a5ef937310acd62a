// SPDX-License-Identifier: MIT
// Work on many databases: what closes leave to the clock, who is told when it can't be stored, and who is
// kept out meanwhile.
#include "DataTest.h"

#include "runtime/DeferredErrors.h"
#include "runtime/Host.h"
#include "support/FullDisk.h"
#include "support/SecondProcess.h"
#include "support/TestHost.h"

#include <chrono>
#include <stdexcept>
#include <thread>

using namespace tol::data;
using namespace tol::test;
using namespace std::chrono_literals;
using tol::runtime::flush;
using Steps = SecondProcess::Steps;

namespace {

class WriteBatches : public DataTest {
  protected:
    WriteBatches() : log(workspace.CreateDatabase("LOG.MDB")) { make("T", {field("A", dbMemo)}); }
    ~WriteBatches() override {
        while (tol::runtime::anyDeferred())
            tol::runtime::takeDeferred();
    }

    static std::int64_t inFile() {
        Workspace reader = DBEngine::CreateWorkspace("wksREAD");
        return reader.OpenDatabase("TEST.MDB", false, true).OpenRecordset("T").RecordCount();
    }
    [[nodiscard]] std::string noSpace() const {
        return "3026 Not enough space on disk for '" + (folder / "TEST.MDB").string() + "'.";
    }
    void addRow() {
        Recordset rows = open("T");
        add(rows, {{"A", std::string(50'000, 'x')}});
        rows.Close();
    }

    Database log;
};

} // namespace

TEST_P(WriteBatches, LeaveACloseToTheClock) {
    const WriteBatch batch(log);
    addRow();
    EXPECT_EQ(inFile(), 0);
    database.Close();
    EXPECT_EQ(inFile(), 0);
    std::this_thread::sleep_for(520ms);
    EXPECT_EQ(log.TableDefs().Count(), 0); // any call makes the clock go on
    EXPECT_EQ(inFile(), 1);
}

TEST_P(WriteBatches, StoreAllBeforeABox) {
    const TestHost person;
    const WriteBatch batch(log);
    addRow();
    tol::runtime::host().msgBox("text");
    EXPECT_EQ(inFile(), 1);
}

TEST_P(WriteBatches, StoreAllAtTheirEnd) {
    {
        const WriteBatch batch(log);
        workspace.BeginTrans();
        addRow();
        workspace.CommitTrans();
    }
    EXPECT_EQ(inFile(), 1);
}

TEST_P(WriteBatches, TellOfAClosedFileThatFindsNoRoom) {
    const WriteBatch batch(log);
    const FullDisk full(std::filesystem::file_size("TEST.MDB"));
    EXPECT_EQ(raised([&] { addRow(); }), "");
    EXPECT_EQ(raised([&] { database.Close(); }), "");
    EXPECT_EQ(raised([] { flush(); }), noSpace());
    EXPECT_EQ(raised([] { flush(); }), "");
}

TEST_P(WriteBatches, TellOfAHandleThatIsGone) {
    std::unique_ptr<FullDisk> full;
    {
        const WriteBatch batch(log);
        full = std::make_unique<FullDisk>(std::filesystem::file_size("TEST.MDB"));
        addRow();
        database = {};
    }
    EXPECT_EQ(raised([] { flush(); }), noSpace());
}

TEST_P(WriteBatches, StoreNothingOfWhichTheLogCannotTell) {
    TableDef table = log.CreateTableDef("L");
    table.Fields().Append(table.CreateField("A", dbMemo));
    log.TableDefs().Append(table);
    flush();
    {
        const WriteBatch batch(log);
        addRow();
        Recordset lines = log.OpenRecordset("L");
        add(lines, {{"A", std::string(500'000, 'x')}});
        const FullDisk full(300'000); // room enough for the row
        EXPECT_EQ(raised([] { flush(); }),
                  "3026 Not enough space on disk for '" + (folder / "LOG.MDB").string() +
                      "'. What was changed last in '" + (folder / "TEST.MDB").string() + "' is undone.");
        EXPECT_EQ(raised([] { flush(); }), "");
    }
    EXPECT_EQ(inFile(), 0);
}

namespace {

/// Another process that makes a row in a batch and closes its table; then it only looks at another file.
class BatchElsewhere : public testing::TestWithParam<EngineUnderTest> {
  protected:
    static void writeRow(const Steps& steps) {
        const EngineScope engine(GetParam().make());
        Workspace workspace = DBEngine::CreateWorkspace("wksOTHER");
        Database database = workspace.OpenDatabase("TEST.MDB");
        const Database log = workspace.CreateDatabase("LOG.MDB");
        const WriteBatch batch(log);
        Recordset rows = database.OpenRecordset("T");
        add(rows, {{"A", 1}});
        rows.Close();
        steps.done();
        steps.wait();
        const auto end = std::chrono::steady_clock::now() + 1500ms;
        while (std::chrono::steady_clock::now() < end)
            static_cast<void>(log.TableDefs().Count());
        steps.done();
        steps.wait(); // for the kill
    }

    void SetUp() override {
        const EngineScope engine(GetParam().make());
        Workspace workspace = DBEngine::CreateWorkspace("wksTEST");
        Database database = workspace.CreateDatabase("TEST.MDB");
        TableDef table = database.CreateTableDef("T");
        table.Fields().Append(table.CreateField("A", dbLong));
        database.TableDefs().Append(table);
        workspace.Close();
        process = std::make_unique<SecondProcess>(&writeRow);
        ASSERT_TRUE(process->await());
    }

    static std::string removeTable() {
        const EngineScope engine(GetParam().make());
        Workspace workspace = DBEngine::CreateWorkspace("wksTEST");
        Database database = workspace.OpenDatabase("TEST.MDB");
        return raised([&] { database.TableDefs().Delete("T"); });
    }
    static std::int64_t inFile() {
        const EngineScope engine(GetParam().make());
        Workspace workspace = DBEngine::CreateWorkspace("wksTEST");
        return workspace.OpenDatabase("TEST.MDB", false, true).OpenRecordset("T").RecordCount();
    }

    TempFolder folder;
    std::unique_ptr<SecondProcess> process;
};

} // namespace

TEST_P(BatchElsewhere, KeepsAClosedTableUntilItsRowIsStoredAndNoLonger) {
    EXPECT_EQ(removeTable(), "3211 Could not lock table 'T'; it is in use by another user or process.");
    process->next();
    ASSERT_TRUE(process->await());
    EXPECT_EQ(inFile(), 1);
    EXPECT_EQ(removeTable(), "");
}

TEST_P(BatchElsewhere, LosesNothingOfASecondAgoWhenItIsKilled) {
    process->next();
    ASSERT_TRUE(process->await());
    process.reset();
    EXPECT_EQ(inFile(), 1);
}

TOL_OVER_ALL_ENGINES(WriteBatches);
TOL_OVER_ALL_ENGINES(BatchElsewhere);
