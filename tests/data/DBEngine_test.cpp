// SPDX-License-Identifier: MIT
#include "DataTest.h"
#include "PlayedEngine.h"

#include "runtime/DeferredErrors.h"
#include "runtime/Host.h"

#include <gmock/gmock.h>

using namespace tol::data;
using namespace tol::test;
using testing::ElementsAre;
using testing::IsEmpty;
using tol::runtime::RuntimeError;

namespace {

/// Two played engines, "ONE" and "TWO", on files of the test's own.
class EngineRegistry : public testing::Test {
  protected:
    EngineRegistry() : m_scope(std::make_unique<PlayedEngine>("ONE", played)) {
        DBEngine::addEngine(std::make_unique<PlayedEngine>("TWO", played));
        folder.write("1.MDB", "ONE" + std::string(500, 'x'));
        folder.write("2.MDB", "TWO");
    }

    ~EngineRegistry() override {
        while (tol::runtime::anyDeferred())
            tol::runtime::takeDeferred();
    }

    std::vector<std::string> calls() { return played->take(); }
    void failAt(const std::string& call) {
        played->onCall = [call](const std::string& made) {
            if (made == call)
                throw RuntimeError(tol::runtime::errNoDiskSpace, "No space.", "said the disk");
        };
    }

    TempFolder folder;
    std::shared_ptr<PlayedCalls> played = std::make_shared<PlayedCalls>();
    Workspace workspace = DBEngine::CreateWorkspace("wksTEST");

  private:
    EngineScope m_scope;
};

} // namespace

TEST_F(EngineRegistry, FirstEngineThatRecognisesTheFileOpensIt) {
    Database first = workspace.OpenDatabase("1.MDB");
    EXPECT_THAT(calls(), ElementsAre("ONE sees 100", "ONE opens 1.MDB", "refresh"));
    Database second = workspace.OpenDatabase("2.MDB");
    EXPECT_THAT(calls(), ElementsAre("ONE sees 3", "TWO sees 3", "TWO opens 2.MDB", "refresh"));
}

TEST_F(EngineRegistry, FirstEngineMakesNewFiles) {
    Database made = workspace.CreateDatabase("NEW.MDB");
    EXPECT_THAT(calls(), ElementsAre("ONE creates NEW.MDB"));
    Database again = workspace.OpenDatabase("NEW.MDB");
    EXPECT_THAT(calls(), ElementsAre("refresh")); // it is open already
}

TEST_F(EngineRegistry, WithoutAnEngineNothingIsOpened) {
    const auto engines = StoreRegistry::instance().exchangeEngines({});
    const std::string unrecognised =
        "3343 Unrecognized database format '" + (folder / "1.MDB").string() + "'.";
    EXPECT_EQ(raised([&] { return workspace.OpenDatabase("1.MDB"); }), unrecognised);
    EXPECT_EQ(raised([&] { return workspace.CreateDatabase("NEW.MDB"); }).substr(0, 4), "3251");
    EXPECT_FALSE(std::filesystem::exists("NEW.MDB"));
}

TEST_F(EngineRegistry, FileHasOneStoreHoweverItIsReached) {
    std::filesystem::create_symlink("1.MDB", "SOFT.MDB");
    std::filesystem::create_hard_link("1.MDB", "HARD.MDB");
    Workspace other = DBEngine::CreateWorkspace("wksOTHER");
    Database first = workspace.OpenDatabase("1.MDB");
    calls();
    Database second = other.OpenDatabase("SOFT.MDB");
    Database third = other.OpenDatabase("HARD.MDB");
    EXPECT_THAT(calls(), ElementsAre("refresh", "refresh")); // no look at its bytes: that would cost locks
    first.Close();
    second.Close();
    EXPECT_THAT(calls(), ElementsAre("flush", "flush"));
    third.Close();
    EXPECT_THAT(calls(), ElementsAre("flush", "~store 1.MDB"));
    first = workspace.OpenDatabase("1.MDB");
    EXPECT_THAT(calls(), ElementsAre("ONE sees 100", "ONE opens 1.MDB", "refresh"));
}

TEST_F(EngineRegistry, StoreForReadingIsKeptApart) {
    Database writer = workspace.OpenDatabase("1.MDB");
    calls();
    Database reader = workspace.OpenDatabase("1.MDB", false, true);
    EXPECT_THAT(calls(), ElementsAre("ONE reads 1.MDB", "refresh"));
    Database another = workspace.OpenDatabase("1.MDB", false, true);
    EXPECT_THAT(calls(), ElementsAre("refresh"));
    workspace.BeginTrans(); // of which there is nothing for a reader
    EXPECT_THAT(calls(), ElementsAre("begin 1.MDB"));
    workspace.CommitTrans();
}

TEST_F(EngineRegistry, NewFileUnderAnOldNameIsAnotherFile) {
    Database first = workspace.OpenDatabase("1.MDB");
    std::filesystem::rename("1.MDB", "OLD.MDB");
    folder.write("1.MDB", "TWO");
    calls();
    Database second = workspace.OpenDatabase("1.MDB");
    EXPECT_THAT(calls(), ElementsAre("ONE sees 3", "TWO sees 3", "TWO opens 1.MDB", "refresh"));
}

TEST_F(EngineRegistry, TableIsInUseBeforeItsDefinitionCounts) {
    Database database = workspace.OpenDatabase("1.MDB");
    calls();
    Recordset rows = database.OpenRecordset("T");
    EXPECT_THAT(calls(), ElementsAre("refresh", "useTable", "refresh", "openRows"));
    rows.Close();
    EXPECT_THAT(calls(), ElementsAre("~rows", "flush", "~use"));
    EXPECT_EQ(raised([&] { return database.OpenRecordset("NONE"); }).substr(0, 4), "3078");
    EXPECT_THAT(calls(), ElementsAre("refresh"));
    failAt("openRows");
    EXPECT_EQ(raised([&] { return database.OpenRecordset("T"); }), "3026 No space.");
    EXPECT_EQ(calls().back(), "~use");
}

TEST_F(EngineRegistry, DefinitionsAreLookedUpOnceUntilTheyMayHaveChanged) {
    Database database = workspace.OpenDatabase("1.MDB");
    TableDef table = database.TableDefs("T");
    calls();
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(table.Fields("A").Type(), dbLong);
    EXPECT_THAT(calls(), IsEmpty());
    table.Fields("A").OrdinalPosition(3);
    EXPECT_THAT(calls(), ElementsAre("alter"));
    EXPECT_EQ(table.Fields("A").OrdinalPosition(), 3);
    EXPECT_THAT(calls(), IsEmpty());
    table.Fields("A").AllowZeroLength(false); // as it is
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(EngineRegistry, ErrorsOfTheEngineKeepItsWords) {
    failAt("insert");
    Database database = workspace.OpenDatabase("1.MDB");
    Recordset rows = database.OpenRecordset("T");
    rows.AddNew();
    rows.Fields("A").Value(1);
    try {
        rows.Update();
        FAIL() << "no error came through";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), tol::runtime::errNoDiskSpace);
        EXPECT_EQ(error.engineText(), "said the disk");
    }
    EXPECT_EQ(rows.Fields("A").Value(), tol::runtime::Value(1)); // the buffer is still there
}

TEST_F(EngineRegistry, CloseThatFailsClosesAllTheSame) {
    Database database = workspace.OpenDatabase("1.MDB");
    Recordset rows = database.OpenRecordset("T");
    Recordset second = database.OpenRecordset("T");
    failAt("flush");
    EXPECT_EQ(raised([&] { return rows.Close(); }), "3026 No space.");
    EXPECT_FALSE(rows.isOpen());
    calls();
    EXPECT_EQ(raised([&] { return workspace.Close(); }), "3026 No space.");
    EXPECT_FALSE(second.isOpen());
    EXPECT_FALSE(database.isOpen());
    EXPECT_THAT(calls(), ElementsAre("~rows", "flush", "~use", "flush", "~store 1.MDB"));
    EXPECT_EQ(raised([] { tol::runtime::raiseDeferred(); }), "3026 No space."); // the database's own
}

TEST_F(EngineRegistry, HandlesThatGoOweWhatTheyCantRaise) {
    Database database = workspace.OpenDatabase("1.MDB");
    {
        Recordset rows = database.OpenRecordset("T");
        failAt("flush");
    }
    database = Database();
    EXPECT_EQ(calls().back(), "~store 1.MDB");
    EXPECT_EQ(raised([] { DBEngine::flush(); }), "3026 No space."); // the recordset's
    EXPECT_EQ(raised([] { DBEngine::flush(); }), "3026 No space."); // the database's
    EXPECT_EQ(raised([] { DBEngine::flush(); }), "");
}

TEST_F(EngineRegistry, HostFlushesEveryFile) {
    Database first = workspace.OpenDatabase("1.MDB");
    Database second = workspace.OpenDatabase("2.MDB");
    calls();
    tol::runtime::flush();
    EXPECT_THAT(calls(), ElementsAre("flush", "flush"));
    failAt("flush");
    EXPECT_EQ(raised([] { DBEngine::flush(); }), "3026 No space.");
    EXPECT_THAT(calls(), ElementsAre("flush", "flush")); // the second one in spite of the first
    EXPECT_EQ(raised([] { tol::runtime::raiseDeferred(); }), "3026 No space.");
    EXPECT_EQ(raised([] { tol::runtime::raiseDeferred(); }), "");
}

TEST_F(EngineRegistry, TransactionBeginsOnAllFilesOrNone) {
    Database first = workspace.OpenDatabase("1.MDB");
    Database second = workspace.OpenDatabase("2.MDB");
    calls();
    failAt("begin 2.MDB");
    EXPECT_EQ(raised([&] { return workspace.BeginTrans(); }), "3026 No space.");
    EXPECT_THAT(calls(), ElementsAre("begin 1.MDB", "begin 2.MDB", "rollback 1.MDB"));
    EXPECT_EQ(raised([&] { return workspace.CommitTrans(); }).substr(0, 4), "3034");
}

TEST_F(EngineRegistry, CommitThatFailsMayBeTriedAgain) {
    Database first = workspace.OpenDatabase("1.MDB");
    Database second = workspace.OpenDatabase("2.MDB");
    workspace.BeginTrans();
    failAt("commit 1.MDB");
    EXPECT_EQ(raised([&] { return workspace.CommitTrans(); }), "3026 No space.");
    played->onCall = nullptr;
    calls();
    workspace.CommitTrans();
    EXPECT_THAT(calls(), ElementsAre("commit 1.MDB")); // the other is through
    workspace.BeginTrans();
    failAt("commit 1.MDB");
    EXPECT_EQ(raised([&] { return workspace.CommitTrans(); }), "3026 No space.");
    calls();
    workspace.Close();
    EXPECT_THAT(calls(), testing::Contains("rollback 1.MDB"));
}
