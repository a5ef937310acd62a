// SPDX-License-Identifier: MIT
// What killed programs leave beside a database, and what a finished one does not.
#include "EngineTest.h"
#include "support/SecondProcess.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>

namespace tol::test {
namespace {

using namespace data;
using testing::ElementsAre;
using testing::HasSubstr;

/// A.MDB has a table "T" of 1,000 rows; H.MDB is a copy of it from the middle of a change.
class Remains : public testing::Test {
  protected:
    Remains() {
        {
            const auto store = engine.create(file());
            makeTable(*store);
            addRows(*store, "T", 1, 1000);
        }
        PlainSqlite writer(file());
        writer.execute("PRAGMA cache_size = 2; BEGIN; UPDATE T SET Note = hex(zeroblob(200))");
        for (const std::string ending : {"", "-journal"})
            std::filesystem::copy_file(file().native() + ending, halfDone().native() + ending);
        writer.execute("ROLLBACK");
    }

    [[nodiscard]] std::filesystem::path file() const { return folder / "A.MDB"; }
    [[nodiscard]] std::filesystem::path halfDone() const { return folder / "H.MDB"; }

    /// The names of the files beside a database that begin with its name.
    static std::vector<std::string> beside(const std::filesystem::path& database) {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(database.parent_path())) {
            const std::string name = entry.path().filename();
            if (name.starts_with(database.filename().native()) && name != database.filename())
                names.push_back(name);
        }
        std::ranges::sort(names);
        return names;
    }

    [[nodiscard]] std::size_t rowsReadFrom(const std::filesystem::path& database, bool readOnly = true) {
        return column(*engine.open(database, readOnly), "T", 0, "ById").size();
    }

    /// The error of an opening for reading alone by somebody whom permissions bind.
    runtime::RuntimeError errorOfAnother(const std::filesystem::path& database, unsigned folderMode,
                                         unsigned fileMode) {
        const auto told = folder / "drives" / "told";
        std::filesystem::permissions(told.parent_path(), std::filesystem::perms(0777));
        SecondProcess other([&](const SecondProcess::Steps&) {
            std::filesystem::permissions(database, std::filesystem::perms(fileMode));
            std::filesystem::permissions(folder.path(), std::filesystem::perms(folderMode));
            if (::getuid() == 0 && ::seteuid(65534) != 0)
                throw std::runtime_error("can't become another user");
            const auto error = errorOf([&] { engine.open(database, true); });
            folder.write(told, std::to_string(error.number()) + error.description());
        });
        EXPECT_EQ(other.finish(), 0);
        std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
        const std::string text = folder.read(told);
        return {std::stoi(text), text.substr(std::to_string(std::stoi(text)).size())};
    }

    TempFolder folder;
    sqlite::SqliteEngine engine;
};

TEST_F(Remains, AReaderUndoesWhatWasHalfDone) {
    ASSERT_THAT(beside(halfDone()), ElementsAre("H.MDB-journal"));
    EXPECT_EQ(rowsReadFrom(halfDone()), 1000U);
    EXPECT_THAT(beside(halfDone()), ElementsAre());
    EXPECT_TRUE(PlainSqlite(halfDone()).isIntact());
    EXPECT_EQ(PlainSqlite(halfDone()).text("SELECT count(Note) FROM T"), "0");
}

TEST_F(Remains, AReaderIsToldWhyItCannotUndoWhatWasHalfDone) {
    for (const auto& [folderMode, fileMode] : {std::pair{0777U, 0444U}, std::pair{0555U, 0666U}}) {
        const auto error = errorOfAnother(halfDone(), folderMode, fileMode);
        EXPECT_EQ(error.number(), 3051) << error.description();
        EXPECT_THAT(error.description(), HasSubstr("'" + halfDone().native() + "'"));
        EXPECT_THAT(error.description(), HasSubstr("A killed program has left a change half done"));
        EXPECT_THAT(error.description(), HasSubstr("'" + halfDone().native() + "-journal'"));
        EXPECT_THAT(beside(halfDone()), ElementsAre("H.MDB-journal"));
    }
}

TEST_F(Remains, AReaderIsToldWhyALogCannotBeKept) {
    PlainSqlite(file()).execute("PRAGMA journal_mode = WAL");
    const auto error = errorOfAnother(file(), 0555, 0666);
    EXPECT_EQ(error.number(), 3051) << error.description();
    EXPECT_THAT(error.description(), HasSubstr("'" + file().native() + "'"));
    EXPECT_THAT(error.description(), HasSubstr("It keeps a write-ahead log"));
}

TEST_F(Remains, AReaderOfAFileWithALogLeavesNone) {
    PlainSqlite(file()).execute("PRAGMA journal_mode = WAL");
    EXPECT_EQ(rowsReadFrom(file()), 1000U);
    EXPECT_THAT(beside(file()), ElementsAre());
}

TEST_F(Remains, ALogThatAKilledProgramLeftIsTakenIn) {
    {
        PlainSqlite writer(file());
        writer.execute("PRAGMA journal_mode = WAL; INSERT INTO T (Id) VALUES (1001)");
        for (const std::string ending : {"", "-wal", "-shm"})
            std::filesystem::copy_file(file().native() + ending, (folder / "W.MDB").native() + ending);
    }
    EXPECT_EQ(rowsReadFrom(folder / "W.MDB"), 1001U);
    EXPECT_THAT(beside(folder / "W.MDB"), ElementsAre());
}

TEST_F(Remains, AJournalInWhichNothingStandsIsCleared) {
    for (const bool readOnly : {true, false}) {
        for (const std::size_t length : {0U, 600U}) {
            folder.write("A.MDB-journal", std::string(length, '\0'));
            EXPECT_EQ(rowsReadFrom(file(), readOnly), 1000U);
            EXPECT_THAT(beside(file()), ElementsAre());
        }
    }
}

TEST_F(Remains, TheJournalOfAChangeInWorkIsLeftAlone) {
    PlainSqlite writer(file());
    writer.execute("BEGIN; UPDATE T SET Note = 'new'");
    ASSERT_THAT(beside(file()), ElementsAre("A.MDB-journal"));
    EXPECT_EQ(rowsReadFrom(file()), 1000U);
    EXPECT_THAT(beside(file()), ElementsAre("A.MDB-journal"));
    writer.execute("COMMIT");
    EXPECT_EQ(writer.text("SELECT count(Note) FROM T"), "1000");
}

TEST_F(Remains, ALockFileThatAKilledProgramLeftIsCleared) {
    for (const bool readOnly : {true, false}) {
        folder.write("A.MDB.lock", "");
        EXPECT_EQ(rowsReadFrom(file(), readOnly), 1000U);
        EXPECT_THAT(beside(file()), ElementsAre());
    }
}

} // namespace
} // namespace tol::test
