// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/Compaction.h"

#include "EngineTest.h"
#include "support/SecondProcess.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <csignal>

namespace tol::test {
namespace {

using namespace data;
using namespace std::chrono_literals;
using runtime::Value;
using testing::HasSubstr;
using testing::UnorderedElementsAre;
namespace fs = std::filesystem;

class Compaction : public testing::Test {
  protected:
    /// A file of another maker with free space in it.
    void makeForeign() {
        PlainSqlite plain(file());
        plain.execute("CREATE TABLE t(a, b); CREATE INDEX i ON t(a);"
                      "WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n WHERE x < 2000)"
                      "INSERT INTO t SELECT x, hex(zeroblob(50)) FROM n; DELETE FROM t WHERE a % 3 = 0");
    }
    runtime::RuntimeError compact() {
        return errorOf([this] { engine.compact(file()); });
    }
    /// That compaction is refused, and nothing has happened to the file or come beside it.
    void expectRefused(int number) {
        const std::string before = folder.read(file());
        const auto names = this->names();
        const auto error = compact();
        EXPECT_EQ(error.number(), number) << error.description();
        EXPECT_THAT(error.description(), HasSubstr("'" + file().native() + "'"));
        EXPECT_EQ(folder.read(file()), before);
        EXPECT_EQ(this->names(), names);
    }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder.path()))
            found.push_back(entry.path().filename());
        std::erase(found, "drives");
        std::ranges::sort(found);
        return found;
    }
    [[nodiscard]] fs::path file() const { return folder / "A.MDB"; }

    TempFolder folder;
    sqlite::SqliteEngine engine;
};

TEST_F(Compaction, RemovesTheBytesAndKeepsTheBookmarks) {
    std::string bookmark;
    {
        const auto store = engine.create(file());
        makeTable(*store);
        addRows(*store, "T", 1, 50);
        const auto cursor = openCursor(*store, "T");
        ASSERT_TRUE(cursor->last());
        const Assignment change[] = {{2, "a note that is soon gone"}};
        cursor->update(change);
        bookmark = cursor->bookmark();
        ASSERT_TRUE(cursor->previous());
        const Assignment row[] = {{2, "a row that is soon gone"}};
        cursor->update(row);
        store->flush();
        cursor->remove();
        store->alter("T", DropField{"Note"});
    }
    EXPECT_EQ(compact().number(), 0);
    EXPECT_EQ(folder.read(file()).find("soon gone"), std::string::npos);
    EXPECT_THAT(names(), UnorderedElementsAre("A.MDB"));
    {
        PlainSqlite plain(file());
        EXPECT_EQ(plain.text("SELECT group_concat(name) FROM pragma_table_info('T')"), "MSysKey,Id,Name");
        EXPECT_EQ(plain.text("SELECT count(*) FROM MSysFields WHERE Deleted"), "0");
        EXPECT_TRUE(plain.isIntact());
    }
    const auto store = engine.open(file(), false);
    EXPECT_EQ(store->definition("T")->indexes.size(), 2U);
    const auto cursor = openCursor(*store, "T");
    ASSERT_TRUE(cursor->seekBookmark(bookmark));
    EXPECT_EQ(cursor->value(0), Value(50));
    EXPECT_EQ(cursor->insert({}), "51"); // and no key is given out twice
}

TEST_F(Compaction, KeepsTheRowIdsOfOtherMakersTables) {
    PlainSqlite(file()).execute("CREATE TABLE t(a); INSERT INTO t(rowid, a) VALUES (5, 'five'), (9, 'nine')");
    EXPECT_EQ(compact().number(), 0);
    EXPECT_EQ(PlainSqlite(file()).text("SELECT group_concat(rowid || a) FROM t"), "5five,9nine");
}

TEST_F(Compaction, LeavesADamagedFileAlone) {
    makeForeign();
    // A row that its index does not know: a copy could be made of it.
    PlainSqlite(file()).execute("PRAGMA writable_schema = ON;"
                                "UPDATE sqlite_schema SET sql = 'CREATE INDEX i ON t(b)' WHERE name = 'i'");
    expectRefused(3049);
    std::string bytes = folder.read(file());
    std::fill(bytes.begin() + 8192, bytes.begin() + 9000, '\xA5');
    folder.write(file(), bytes);
    expectRefused(3049);
}

TEST_F(Compaction, LeavesTheFileAloneWhereTheCopyFindsNoRoom) {
    makeForeign();
    const std::string before = folder.read(file());
    SecondProcess process([&](const SecondProcess::Steps&) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{20'000, RLIM_INFINITY};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
            throw std::runtime_error("no limit");
        const auto error = compact();
        if (error.number() != 3026 || error.description().find(file().native()) == std::string::npos)
            throw std::runtime_error(error.description());
    });
    EXPECT_EQ(process.finish(), 0);
    EXPECT_EQ(folder.read(file()), before);
    EXPECT_THAT(names(), UnorderedElementsAre("A.MDB"));
}

TEST_F(Compaction, NeedsTheFileAloneWhoeverHasItOpen) {
    makeForeign();
    {
        const auto store = engine.open(file(), false); // with no table open
        expectRefused(3045);
    }
    SecondProcess other([&](const SecondProcess::Steps& steps) {
        const auto store = engine.open(file(), false);
        steps.done();
        steps.wait();
    });
    ASSERT_TRUE(other.await());
    expectRefused(3045);
    other.next();
    EXPECT_EQ(other.finish(), 0);
    EXPECT_EQ(compact().number(), 0);
}

TEST_F(Compaction, WaitsFiveSecondsForAReader) {
    makeForeign();
    SecondProcess other([&](const SecondProcess::Steps& steps) {
        PlainSqlite plain(file());
        plain.execute("BEGIN");
        plain.text("SELECT count(*) FROM t");
        steps.done();
        steps.wait();
    });
    ASSERT_TRUE(other.await());
    const auto begin = std::chrono::steady_clock::now();
    expectRefused(3218);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 8s);
}

TEST_F(Compaction, DoesNotPartANameFromItsSecondOne) {
    makeForeign();
    fs::create_hard_link(file(), folder / "B.MDB");
    expectRefused(3045);
}

TEST_F(Compaction, FollowsALinkToTheFile) {
    makeForeign();
    fs::create_symlink(file(), folder / "LINK.MDB");
    const auto before = fs::file_size(file());
    engine.compact(folder / "LINK.MDB");
    EXPECT_TRUE(fs::is_symlink(folder / "LINK.MDB"));
    EXPECT_LT(fs::file_size(file()), before);
}

TEST_F(Compaction, KeepsAWriteAheadLogWhereThereIsOne) {
    makeForeign();
    {
        PlainSqlite plain(file());
        plain.execute("PRAGMA journal_mode = WAL; INSERT INTO t VALUES ('in the log', 0)");
        for (const std::string ending : {"", "-wal"})
            fs::copy_file(file().native() + ending, (folder / "W.MDB").native() + ending);
    }
    engine.compact(folder / "W.MDB");
    EXPECT_THAT(names(), UnorderedElementsAre("A.MDB", "W.MDB"));
    PlainSqlite plain(folder / "W.MDB");
    EXPECT_EQ(plain.text("PRAGMA journal_mode"), "wal");
    EXPECT_EQ(plain.text("SELECT count(*) FROM t WHERE a = 'in the log'"), "1");
    EXPECT_TRUE(plain.isIntact());
}

TEST_F(Compaction, LosesNothingThatSomebodyWritesToTheOldFile) {
    makeForeign();
    PlainSqlite other(file());
    EXPECT_EQ(other.text("SELECT count(*) FROM t"), "1334");
    EXPECT_EQ(compact().number(), 0);
    EXPECT_THROW(other.execute("INSERT INTO t VALUES (1, 2)"), std::runtime_error);
}

} // namespace
} // namespace tol::test
