// SPDX-License-Identifier: MIT
// Rows that a full disk keeps from being stored: who is told of it, however the file is closed.
#include "DataTest.h"

#include "runtime/DeferredErrors.h"
#include "runtime/Host.h"
#include "support/FullDisk.h"
#include "support/TestHost.h"

#include <memory>

using namespace tol::data;
using namespace tol::test;
using tol::runtime::flush;

namespace {

class LostWrites : public DataTest {
  protected:
    LostWrites() { makeTable(); }
    ~LostWrites() override {
        while (tol::runtime::anyDeferred())
            tol::runtime::takeDeferred();
    }

    void makeTable() { make("T", {field("A", dbMemo)}); }

    static std::int64_t inFile(const std::string& file) {
        Workspace reader = DBEngine::CreateWorkspace("wksREAD");
        return reader.OpenDatabase(file, false, true).OpenRecordset("T").RecordCount();
    }
    /// Adds rows until one waits to be stored, and then lets no file of that size grow.
    static std::unique_ptr<FullDisk> addRowThatFindsNoRoom(Recordset& rows, const std::string& file) {
        while (inFile(file) == rows.RecordCount())
            add(rows, {{"A", std::string(50'000, 'x')}});
        return std::make_unique<FullDisk>(std::filesystem::file_size(file));
    }
    [[nodiscard]] std::string noSpace(const std::string& file = "TEST.MDB") const {
        return "3026 Not enough space on disk for '" + (folder / file).string() + "'.";
    }
};

} // namespace

TEST_P(LostWrites, AreTheErrorOfAClose) {
    Recordset rows = open("T");
    const auto full = addRowThatFindsNoRoom(rows, "TEST.MDB");
    EXPECT_EQ(raised([&] { rows.Close(); }), noSpace());
    EXPECT_EQ(raised([] { flush(); }), "");
}

TEST_P(LostWrites, AreToldAfterAHandleIsGone) {
    std::unique_ptr<FullDisk> full;
    {
        Recordset rows = open("T");
        full = addRowThatFindsNoRoom(rows, "TEST.MDB");
    }
    EXPECT_EQ(raised([] { flush(); }), noSpace());
    EXPECT_EQ(raised([] { flush(); }), "");
}

TEST_P(LostWrites, AreToldAfterTheWholeWorkspaceIsGone) {
    std::unique_ptr<FullDisk> full;
    {
        Recordset rows = open("T");
        full = addRowThatFindsNoRoom(rows, "TEST.MDB");
        workspace = Workspace();
    }
    EXPECT_EQ(raised([] { flush(); }), noSpace());
    EXPECT_EQ(raised([] { flush(); }), "");
}

TEST_P(LostWrites, AreToldForEachFile) {
    Database second = workspace.CreateDatabase("SECOND.MDB");
    std::swap(database, second);
    makeTable();
    std::swap(database, second);
    Recordset rows = open("T");
    Recordset others = second.OpenRecordset("T");
    do {
        add(rows, {{"A", "x"}});
        add(others, {{"A", "x"}});
    } while (inFile("TEST.MDB") == rows.RecordCount() || inFile("SECOND.MDB") == others.RecordCount());
    const FullDisk full(0);
    EXPECT_EQ(raised([] { flush(); }), noSpace());
    EXPECT_EQ(raised([] { flush(); }), noSpace("SECOND.MDB"));
    EXPECT_EQ(raised([] { flush(); }), "");
}

TEST_P(LostWrites, DoNotKeepABoxFromBeingShown) {
    TestHost person;
    Recordset rows = open("T");
    const std::int64_t stored = rows.RecordCount();
    {
        const auto full = addRowThatFindsNoRoom(rows, "TEST.MDB");
        tol::runtime::host().msgBox("text");
    }
    EXPECT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(raised([&] { add(rows, {{"A", "z"}}); }), noSpace()); // although there is room by now
    EXPECT_GE(rows.RecordCount(), stored);
    rows.CancelUpdate();
    add(rows, {{"A", "z"}});
    EXPECT_EQ(raised([] { flush(); }), "");
}

TEST_P(LostWrites, OfATransactionAreToldOnce) {
    {
        Workspace other = DBEngine::CreateWorkspace("wksOTHER");
        Database second = other.OpenDatabase("TEST.MDB");
        Recordset rows = second.OpenRecordset("T");
        other.BeginTrans();
        const FullDisk full(std::filesystem::file_size("TEST.MDB"));
        // More than is kept in memory until the end.
        EXPECT_EQ(raised([&] { add(rows, {{"A", std::string(20'000'000, 'x')}}); }), noSpace());
        rows.CancelUpdate();
    }
    EXPECT_EQ(raised([] { flush(); }), "");
    EXPECT_EQ(open("T").RecordCount(), 0);
}

TOL_OVER_ALL_ENGINES(LostWrites);
