// SPDX-License-Identifier: MIT
#include "data/sqlite/connection/LockFile.h"

#include "EngineTest.h"
#include "data/sqlite/rows/TableLocks.h"
#include "support/SecondProcess.h"

#include <functional>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace tol::test {
namespace {

using data::sqlite::LockFile;
using data::sqlite::TableLocks;
using namespace std::chrono_literals;

class LockFileTest : public testing::Test {
  protected:
    LockFileTest() { folder.write("A.MDB", ""); }
    [[nodiscard]] bool lockFileExists() const { return std::filesystem::exists(folder / "A.MDB.lock"); }

    TempFolder folder;
    std::filesystem::path database = folder / "A.MDB";
};

TEST_F(LockFileTest, SharesAndExcludes) {
    LockFile one(database);
    LockFile two(database);
    EXPECT_FALSE(lockFileExists()); // until it is needed
    EXPECT_TRUE(one.share(5));
    EXPECT_TRUE(two.share(5));
    EXPECT_FALSE(two.take(5));
    EXPECT_TRUE(two.take(6));
    EXPECT_FALSE(one.share(6));
    one.release(5);
    EXPECT_TRUE(two.take(5));
    EXPECT_FALSE(one.take(5));
    EXPECT_TRUE(two.share(5));
    EXPECT_TRUE(one.share(5));
    EXPECT_TRUE(one.take(LockFile::lastByte));
}

TEST_F(LockFileTest, IsRemovedByTheLastUser) {
    {
        LockFile one(database);
        ASSERT_TRUE(one.share(1));
        {
            LockFile two(database);
            ASSERT_TRUE(two.share(1));
        }
        EXPECT_TRUE(lockFileExists());
    }
    EXPECT_FALSE(lockFileExists());
}

TEST_F(LockFileTest, MayBeLockedByWhoeverMayWriteToTheDatabase) {
    ::chmod(database.c_str(), 0660);
    LockFile file(database);
    ASSERT_TRUE(file.share(1));
    struct stat status = {};
    ASSERT_EQ(::stat((database.native() + ".lock").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0660U);
}

TEST_F(LockFileTest, OutlivesComingAndGoingOfMany) {
    const auto comeAndGo = [&](const SecondProcess::Steps& /*steps*/) {
        for (int turn = 0; turn < 300; ++turn) {
            LockFile file(database);
            if (!file.share(1) || !file.take(2 + ::getpid()))
                throw std::runtime_error("a lock was refused");
        }
    };
    SecondProcess one(comeAndGo);
    SecondProcess two(comeAndGo);
    for (int turn = 0; turn < 300; ++turn) {
        LockFile file(database);
        ASSERT_TRUE(file.share(1));
        ASSERT_TRUE(lockFileExists());
        LockFile other(database);
        ASSERT_FALSE(other.take(1)); // both stand on the same file
    }
    EXPECT_EQ(one.finish(), 0);
    EXPECT_EQ(two.finish(), 0);
    EXPECT_FALSE(lockFileExists());
}

TEST_F(LockFileTest, GrantsAllWhereNothingCanBeWritten) {
    // Permissions don't bind the superuser, so another user tries.
    SecondProcess process([&](const SecondProcess::Steps&) {
        std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
        if (::getuid() == 0 && ::seteuid(65534) != 0)
            throw std::runtime_error("can't become another user");
        LockFile file(database);
        if (!file.share(1) || !file.take(2))
            throw std::runtime_error("a lock was refused");
    });
    EXPECT_EQ(process.finish(), 0);
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    EXPECT_FALSE(lockFileExists());
}

TEST_F(LockFileTest, SharesAFileThatMayOnlyBeRead) {
    LockFile owner(database);
    ASSERT_TRUE(owner.share(1));
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0777));
    SecondProcess process([&](const SecondProcess::Steps&) {
        std::filesystem::permissions(database.native() + ".lock", std::filesystem::perms(0444));
        if (::getuid() == 0 && ::seteuid(65534) != 0)
            throw std::runtime_error("can't become another user");
        LockFile file(database);
        if (!file.share(1))
            throw std::runtime_error("a lock was refused");
        if (errorOf([&] { static_cast<void>(file.take(2)); }).number() != 3051)
            throw std::runtime_error("no permission was needed");
    });
    EXPECT_EQ(process.finish(), 0);
}

TEST_F(LockFileTest, ShowsWhoHasTheDatabaseOpen) {
    LockFile one(database);
    LockFile two(database);
    EXPECT_TRUE(one.enter());
    EXPECT_TRUE(two.enter());
    EXPECT_TRUE(lockFileExists());
    EXPECT_FALSE(two.takeAll());
    EXPECT_TRUE(two.take(1));
    two.release(1);
    {
        LockFile alone(folder / "B.MDB");
        EXPECT_TRUE(alone.takeAll());
        LockFile late(folder / "B.MDB");
        EXPECT_FALSE(late.takeAll());
        EXPECT_FALSE(late.enter());
        EXPECT_FALSE(late.share(1));
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "B.MDB.lock"));
}

TEST_F(LockFileTest, IsOneForAllLinksToTheDatabase) {
    std::filesystem::create_symlink(database, folder / "LINK.MDB");
    LockFile one(database);
    LockFile two(folder / "LINK.MDB");
    ASSERT_TRUE(one.share(1));
    EXPECT_FALSE(two.take(1));
}

TEST_F(LockFileTest, NeverRemovesWhatSomebodyHasPutThere) {
    folder.write("A.MDB.lock", "my own notes");
    {
        LockFile one(database);
        LockFile two(database);
        ASSERT_TRUE(one.share(1));
        EXPECT_FALSE(two.take(1)); // it serves all the same
    }
    EXPECT_EQ(folder.read("A.MDB.lock"), "my own notes");
}

TEST_F(LockFileTest, RefusesWhatIsNoFile) {
    const std::filesystem::path name = folder / "A.MDB.lock";
    const std::function<void()> ways[] = {
        [&] { std::filesystem::create_directory(name); },
        [&] { ASSERT_EQ(::mkfifo(name.c_str(), 0666), 0); },
        [&] { std::filesystem::create_symlink(folder / "nowhere", name); },
    };
    for (const auto& make : ways) {
        make();
        {
            LockFile file(database);
            const auto error = errorOf([&] { static_cast<void>(file.enter()); });
            EXPECT_EQ(error.number(), 3051);
            EXPECT_EQ(error.description(),
                      "Cannot open or write to the file '" + name.string() +
                          "': no permission, or opened exclusively by another user. What has this name is "
                          "no file, so that table use can't be marked on it.");
        }
        EXPECT_TRUE(std::filesystem::exists(std::filesystem::symlink_status(name)));
        std::filesystem::remove(name);
    }
}

TEST_F(LockFileTest, TablesAreKnownInAnyCase) {
    LockFile one(database);
    LockFile two(database);
    TableLocks locks(one, false);
    TableLocks others(two, false);
    locks.share("Größe", 0);
    EXPECT_EQ(errorOf([&] { others.hold("gRÖßE", 0); }).number(), 3211);
    locks.release("GRÖßE");
    others.hold("größe", 0);
    EXPECT_EQ(errorOf([&] { locks.share("Größe", 0); }).description(),
              "Could not lock table 'Größe'; it is in use by another user or process.");
    others.releaseHeld();
    locks.share("Größe", 0);
}

TEST_F(LockFileTest, ATableOfThisProcessIsKnownWithoutALock) {
    LockFile file(database);
    TableLocks locks(file, true);
    locks.share("T", 0);
    EXPECT_FALSE(lockFileExists());
    EXPECT_EQ(errorOf([&] { locks.hold("T", 1); }).number(), 3211);
}

} // namespace
} // namespace tol::test
