// SPDX-License-Identifier: MIT
// Killed programs, full disks, files that can't be written to, and others who hold on.
#include "EngineTest.h"
#include "support/SecondProcess.h"

#include <csignal>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tol::test {
namespace {

using namespace data;
using namespace std::chrono_literals;
using Steps = SecondProcess::Steps;

/// Processes are made before any database is open in this one.
class Faults : public testing::Test {
  protected:
    Faults() {
        const auto store = engine.create(file());
        makeTable(*store);
        addRows(*store, "T", 1, 1000);
    }

    [[nodiscard]] std::filesystem::path file() const { return folder / "A.MDB"; }
    std::shared_ptr<Store> open() { return engine.open(file(), false); }

    static void require(bool condition, const char* what) {
        if (!condition)
            throw std::runtime_error(what);
    }
    static void becomeAnotherUser() {
        if (::getuid() == 0) // whom no permission binds
            require(::seteuid(65534) == 0, "can't become another user");
    }

    TempFolder folder;
    sqlite::SqliteEngine engine;
};

TEST_F(Faults, AKilledProgramLeavesAnIntactFileAndLosesOneTransactionAtMost) {
    std::mt19937 random(3);
    for (int turn = 0; turn < 15; ++turn) {
        auto writer = std::make_unique<SecondProcess>([&](const Steps& steps) {
            const auto store = open();
            const auto cursor = openCursor(*store, "T");
            store->begin();
            cursor->insert({});
            store->commit();
            steps.done();
            for (int round = 0;; ++round) {
                for (bool row = cursor->first(); row; row = cursor->next()) {
                    const Assignment change[] = {{2, "round " + std::to_string(round)}};
                    cursor->update(change);
                }
                cursor->insert({});
            }
        });
        ASSERT_TRUE(writer->await());
        std::this_thread::sleep_for(std::chrono::milliseconds(random() % 120));
        writer.reset(); // kills it
        PlainSqlite plain(file());
        EXPECT_TRUE(plain.isIntact());
        EXPECT_GE(std::stoi(plain.text("SELECT count(*) FROM T")), 1001 + turn);
        EXPECT_EQ(plain.text("SELECT count(*) FROM T WHERE Id BETWEEN 1 AND 1000"), "1000");
    }
    const auto store = open();
    store->alter("T", DropField{"Note"}); // no table is in use any more
    EXPECT_FALSE(std::filesystem::exists(file().native() + "-journal"));
}

TEST_F(Faults, AFullDiskUndoesWhatDidNotFitAndNamesTheFile) {
    const auto store = open();
    auto& connection = dynamic_cast<sqlite::SqliteStore&>(*store).session().connection();
    connection.execute("PRAGMA max_page_count = " + connection.text("PRAGMA page_count"));
    const auto cursor = openCursor(*store, "T");
    const Assignment row[] = {{2, std::string(5000, 'x')}};
    const auto error = errorOf([&] { cursor->insert(row); });
    EXPECT_EQ(error.number(), 3026);
    EXPECT_EQ(error.description(), "Not enough space on disk for '" + file().string() + "'.");
    EXPECT_EQ(cursor->count(), 1000);
    ASSERT_TRUE(cursor->first());
    const Assignment change[] = {{1, "short"}};
    cursor->update(change);
    store->flush();
    EXPECT_TRUE(PlainSqlite(file()).isIntact());
    EXPECT_EQ(PlainSqlite(file()).text("SELECT Name FROM T WHERE Id = 1"), "short");
}

TEST_F(Faults, AFullDiskInARunIsReportedAndTheFileIsWhole) {
    SecondProcess writer([&](const Steps&) {
        const auto store = open();
        const auto cursor = openCursor(*store, "T");
        std::signal(SIGXFSZ, SIG_IGN);
        const auto size = static_cast<rlim_t>(std::filesystem::file_size(file()));
        const rlimit limit{size + 100'000, RLIM_INFINITY};
        require(::setrlimit(RLIMIT_FSIZE, &limit) == 0, "no limit");
        int number = 0;
        std::int64_t written = 0;
        while (number == 0) {
            number = errorOf([&] {
                         const Assignment row[] = {{2, std::string(3000, 'x')}};
                         cursor->insert(row);
                         ++written;
                     }).number();
        }
        require(number == 3026, "another error");
        require(cursor->count() <= 1000 + written, "rows counted that are not there");
        const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
        require(::setrlimit(RLIMIT_FSIZE, &none) == 0, "no limit");
        // The store goes on as soon as there is room again.
        const std::int64_t kept = cursor->count();
        cursor->insert({});
        store->flush();
        require(cursor->count() == kept + 1, "a row is missing");
        require(static_cast<std::int64_t>(column(*store, "T", 0).size()) == kept + 1, "another count");
    });
    EXPECT_EQ(writer.finish(), 0);
    EXPECT_TRUE(PlainSqlite(file()).isIntact());
    EXPECT_GT(std::stoi(PlainSqlite(file()).text("SELECT count(*) FROM T")), 1000);
}

TEST_F(Faults, AReadOnlyFileCanBeReadAndRefusesChanges) {
    const std::string before = folder.read(file());
    SecondProcess user([&](const Steps&) {
        std::filesystem::permissions(file(), std::filesystem::perms(0444));
        std::filesystem::permissions(folder.path(), std::filesystem::perms(0777));
        becomeAnotherUser();
        const auto store = open();
        require(column(*store, "T", 0, "ByName").size() == 1000, "rows can't be read");
        const auto use = store->useTable("T");
        const auto cursor = openCursor(*store, "T");
        require(cursor->first(), "no row");
        const auto error = errorOf([&] { cursor->remove(); });
        require(error.number() == 3027, "another error for a row");
        require(error.description() ==
                    "Cannot update. Database or object '" + file().string() + "' is read-only.",
                "another text");
        require(errorOf([&] { createTable(*store, definitionOf("N")); }).number() == 3027,
                "another error for a step");
        require(errorOf([&] { engine.compact(file()); }).number() == 3027, "another error for compaction");
        require(errorOf([&] { store->requireWritable(); }).number() == 3027, "counts as writable");
    });
    EXPECT_EQ(user.finish(), 0);
    EXPECT_EQ(folder.read(file()), before);
}

TEST_F(Faults, AReadOnlyFolderLetsTheFileBeReadAndRefusesChanges) {
    const std::string before = folder.read(file());
    SecondProcess user([&](const Steps&) {
        std::filesystem::permissions(file(), std::filesystem::perms(0666));
        std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
        becomeAnotherUser();
        const auto store = open();
        const auto use = store->useTable("T");
        require(column(*store, "T", 0).size() == 1000, "rows can't be read");
        const auto cursor = openCursor(*store, "T");
        require(cursor->first(), "no row");
        for (const auto& write : std::initializer_list<std::function<void()>>{
                 [&] { store->requireWritable(); }, [&] { cursor->remove(); }}) {
            const auto error = errorOf(write);
            require(error.number() == 3027 || error.number() == 3051, "another error");
            require(error.description().find(file().string()) != std::string::npos, "no file named");
        }
    });
    EXPECT_EQ(user.finish(), 0);
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    EXPECT_EQ(folder.read(file()), before);
}

TEST_F(Faults, AStoreOpenedForReadingLeavesNoTrace) {
    const std::string before = folder.read(file());
    const auto store = engine.open(file(), true);
    const auto use = store->useTable("T");
    EXPECT_EQ(column(*store, "T", 0, "ById").size(), 1000U);
    EXPECT_FALSE(std::filesystem::exists(file().native() + ".lock"));
    EXPECT_EQ(errorOf([&] { openCursor(*store, "T")->insert({}); }).number(), 3027);
    EXPECT_EQ(errorOf([&] { createTable(*store, definitionOf("N")); }).number(), 3027);
    EXPECT_EQ(folder.read(file()), before);
}

TEST_F(Faults, AnothersTransactionIsWaitedForAndThenReported) {
    SecondProcess holder([&](const Steps& steps) {
        PlainSqlite plain(file());
        plain.execute("BEGIN IMMEDIATE");
        steps.done();
        steps.wait();
        plain.execute("COMMIT");
        plain.execute("BEGIN IMMEDIATE");
        steps.done();
        std::this_thread::sleep_for(100ms);
        plain.execute("COMMIT");
    });
    ASSERT_TRUE(holder.await());
    const auto store = open();
    auto& connection = dynamic_cast<sqlite::SqliteStore&>(*store).session().connection();
    connection.setBusyWait(50ms);
    const auto cursor = openCursor(*store, "T");
    EXPECT_EQ(errorOf([&] { cursor->insert({}); }).number(), 3218);
    EXPECT_EQ(errorOf([&] { store->begin(); }).number(), 3218);
    EXPECT_EQ(errorOf([&] { createTable(*store, definitionOf("N")); }).number(), 3218);
    EXPECT_EQ(cursor->count(), 1000);
    holder.next();
    ASSERT_TRUE(holder.await());
    connection.setBusyWait(5s);
    cursor->insert({});
    EXPECT_EQ(cursor->count(), 1001);
    EXPECT_EQ(holder.finish(), 0);
}

TEST_F(Faults, ARunLetsOthersIn) {
    SecondProcess runner([&](const Steps& steps) {
        const auto store = open();
        const auto use = store->useTable("T");
        const auto cursor = openCursor(*store, "T");
        cursor->insert({});
        steps.done();
        const auto end = std::chrono::steady_clock::now() + 1500ms;
        while (std::chrono::steady_clock::now() < end)
            cursor->insert({});
    });
    ASSERT_TRUE(runner.await());
    const auto store = open();
    const auto use = store->useTable("T");
    const auto cursor = openCursor(*store, "T");
    for (int turn = 0; turn < 4; ++turn) {
        const auto before = std::chrono::steady_clock::now();
        cursor->insert({});
        EXPECT_LT(std::chrono::steady_clock::now() - before, 600ms);
        std::this_thread::sleep_for(60ms);
    }
    EXPECT_EQ(runner.finish(), 0);
}

TEST_F(Faults, AStepNotYetCommittedKeepsOthersOutOfItsTable) {
    SecondProcess other([&](const Steps& steps) {
        steps.wait();
        const auto store = open();
        const int number = errorOf([&] { const auto use = store->useTable("T"); }).number();
        steps.done();
        require(number == 3211, "the table was open to others");
        steps.wait();
        const auto use = store->useTable("T");
        require(store->definition("T")->findField("Note") < 0, "the change is not seen");
    });
    const auto store = open();
    store->begin();
    store->alter("T", DropField{"Note"});
    other.next();
    ASSERT_TRUE(other.await());
    store->commit();
    other.next();
    EXPECT_EQ(other.finish(), 0);
}

} // namespace
} // namespace tol::test
