// SPDX-License-Identifier: MIT
#include "data/engine/StagedFile.h"

#include "runtime/RuntimeError.h"
#include "support/SecondProcess.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using data::StagedFile;
using testing::UnorderedElementsAre;

class StagedFileTest : public testing::Test {
  protected:
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder.path()))
            found.push_back(entry.path().filename());
        std::erase(found, "drives");
        return found;
    }
    [[nodiscard]] fs::path target() const { return folder / "X.MDB"; }
    static int numberRaisedBy(const std::function<void()>& call) {
        try {
            call();
        } catch (const runtime::RuntimeError& error) {
            return error.number();
        }
        return 0;
    }

    TempFolder folder;
};

TEST_F(StagedFileTest, LeavesNothingOfWhatWasNotPublished) {
    {
        const StagedFile staged(target());
        folder.write(staged.path(), "new");
        folder.write(staged.folder() / "more", "more");
    }
    EXPECT_THAT(names(), UnorderedElementsAre());
}

TEST_F(StagedFileTest, PublishesANewFileOnly) {
    StagedFile staged(target());
    folder.write(staged.path(), "new");
    folder.write("X.MDB", "mine");
    EXPECT_EQ(numberRaisedBy([&] { staged.publish(); }), 3204);
    fs::remove(target());
    staged.publish();
    EXPECT_EQ(folder.read("X.MDB"), "new");
}

TEST_F(StagedFileTest, ClearsAwayWhatAKilledProgramLeft) {
    auto killed = std::make_unique<SecondProcess>([&](const SecondProcess::Steps& steps) {
        const StagedFile staged(target());
        folder.write(staged.path(), "half");
        steps.done();
        steps.wait();
    });
    ASSERT_TRUE(killed->await());
    {
        const StagedFile other(folder / "Y.MDB");
        EXPECT_EQ(names().size(), 2U); // the first is still at work
    }
    killed.reset(); // kills it
    EXPECT_EQ(names().size(), 1U);
    { const StagedFile next(folder / "Y.MDB"); }
    EXPECT_THAT(names(), UnorderedElementsAre());
}

TEST_F(StagedFileTest, LeavesWhatIsNotItsOwnAlone) {
    fs::create_directory(folder / ".making-of");
    fs::create_directory(folder / "making-ABCDEF");
    folder.write(".making-ABCDEF", "a file");
    { const StagedFile staged(target()); }
    EXPECT_THAT(names(), UnorderedElementsAre(".making-of", "making-ABCDEF", ".making-ABCDEF"));
}

TEST_F(StagedFileTest, TakesOverTheRightsOfTheFileThatItReplaces) {
    folder.write("X.MDB", "old");
    ASSERT_EQ(::chmod(target().c_str(), 0640), 0);
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(target().c_str(), 1234, 4321), 0);
    }
    const bool takesAttributes = ::setxattr(target().c_str(), "user.note", "kept", 4, 0) == 0;
    struct stat before = {};
    ASSERT_EQ(::stat(target().c_str(), &before), 0);
    {
        StagedFile staged(target());
        folder.write(staged.path(), "new");
        staged.replace();
    }
    struct stat after = {};
    ASSERT_EQ(::stat(target().c_str(), &after), 0);
    EXPECT_EQ(folder.read("X.MDB"), "new");
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    char note[8] = {};
    EXPECT_EQ(::getxattr(target().c_str(), "user.note", note, sizeof note), takesAttributes ? 4 : -1);
    EXPECT_THAT(names(), UnorderedElementsAre("X.MDB"));
}

TEST_F(StagedFileTest, DoesNotReplaceAFileWhoseOwnerItCannotKeep) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can make a file that belongs to somebody else";
    folder.write("X.MDB", "old");
    fs::permissions(folder.path(), fs::perms(0777));
    SecondProcess other([&](const SecondProcess::Steps&) {
        if (::seteuid(65534) != 0)
            throw std::runtime_error("can't become another user");
        StagedFile staged(target());
        folder.write(staged.path(), "new");
        if (numberRaisedBy([&] { staged.replace(); }) != 3051)
            throw std::runtime_error("the owner has changed");
    });
    EXPECT_EQ(other.finish(), 0);
    EXPECT_EQ(folder.read("X.MDB"), "old");
    EXPECT_THAT(names(), UnorderedElementsAre("X.MDB"));
}

} // namespace
} // namespace tol::test
