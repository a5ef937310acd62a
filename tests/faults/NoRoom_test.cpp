// SPDX-License-Identifier: MIT
#include "FileState.h"
#include "demo_support/DemoFolder.h"
#include "platform/Paths.h"
#include "support/Program.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <map>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::HasSubstr;
using testing::IsEmpty;

const std::vector<std::string> wholeRun{"update", "--all", "--on-unconvertible", "continue"};

/// In the new process: no file may become longer than that, as on a full disk. What it tells on standard
/// error counts too, and is let through to no one where it would not fit.
std::function<void()> diskFullAt(rlim_t bytes) {
    return [bytes] {
        const rlimit limit{bytes, bytes};
        setrlimit(RLIMIT_FSIZE, &limit);
        signal(SIGXFSZ, SIG_IGN);
        dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
    };
}

std::vector<fs::path> databasesBelow(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        const std::string kind = entry.path().extension();
        if (entry.is_regular_file() && (kind == ".MDB" || kind == ".mdb"))
            files.push_back(entry.path());
    }
    return files;
}

std::map<fs::path, std::string> contentsBelow(const fs::path& folder) {
    std::map<fs::path, std::string> contents;
    for (const fs::path& file : databasesBelow(folder)) {
        std::ifstream stream(file, std::ios::binary);
        contents[file] = {std::istreambuf_iterator<char>(stream), {}};
    }
    return contents;
}

TEST(FullDisk, ARunTellsTheFileAndLeavesWhatALaterOneCompletes) {
    const DemoFolder demo;
    std::map<std::pair<std::string, std::string>, std::int64_t> rows;
    for (const auto& [file, database] : demo.targets()) {
        const Definitions wanted = demo.wanted(database);
        for (const auto& [table, definition] : definitionsOf(file)) {
            if (wanted.contains(table))
                rows[{file, table}] = rowCount(file, table);
        }
    }
    constexpr rlim_t room = 120U << 10U;
    Program full(TOL_CTL_PROGRAM, wholeRun, demo.path(), diskFullAt(room));
    EXPECT_THAT(full.wait(), AnyOf(1, 3, 4));
    EXPECT_THAT(full.err(), HasSubstr("Not enough space on disk for '" + demo.path().string()));
    for (const fs::path& file : databasesBelow(demo.path()))
        EXPECT_EQ(damageIn(file), "") << file;

    for (int run = 0; run < 2; ++run)
        EXPECT_THAT(Program(TOL_CTL_PROGRAM, wholeRun, demo.path()).wait(), AnyOf(0, 3));
    for (const auto& [file, database] : demo.targets())
        EXPECT_THAT(differences(definitionsOf(file), demo.wanted(database)), IsEmpty()) << file;
    for (const auto& [place, count] : rows)
        EXPECT_EQ(rowCount(place.first, place.second), count) << place.first << " " << place.second;
}

TEST(FullDisk, WhereNothingCanBeWrittenNothingChanges) {
    const DemoFolder demo;
    const auto before = contentsBelow(demo.path());
    Program full(TOL_CTL_PROGRAM, {"compact", "MAIN.MDB"}, demo.path(), [] {
        diskFullAt(0)();
        dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
    });
    EXPECT_EQ(full.wait(), 1);
    EXPECT_EQ(contentsBelow(demo.path()), before);
}

TEST(FullDisk, NoHalfMadeDemoStays) {
    const TempFolder folder;
    Program full(TOL_CTL_PROGRAM, {"demo", "made"}, folder.path(), diskFullAt(40U << 10U));
    EXPECT_EQ(full.wait(), 1);
    EXPECT_THAT(full.err(), HasSubstr("Not enough space on disk for '"));
    EXPECT_FALSE(fs::exists(folder / "made"));
}

/// Files that may be read and not written. Permissions do not bind an administrator, so that the program
/// runs as the user "nobody" where the test does not.
class ReadOnly : public testing::Test {
  protected:
    static constexpr uid_t nobody = 65534;

    ReadOnly() { fs::permissions(demo.path(), fs::perms(0755)); }
    ~ReadOnly() override { lock(0644, 0755); }

    /// Gives all files and folders of the Job Site these rights, and all else of the demo to everyone.
    void lock(unsigned fileRights, unsigned folderRights) const {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(demo.path()))
            if (!entry.is_symlink())
                fs::permissions(entry.path(), fs::perms(entry.is_directory() ? 0777U : 0666U));
        for (const fs::directory_entry& entry : fs::directory_iterator(site))
            fs::permissions(entry.path(), fs::perms(fileRights));
        fs::permissions(site, fs::perms(folderRights));
        fs::permissions(demo.path(), fs::perms(0777));
    }

    int runAsNobody(std::string& talk) const {
        Program run(TOL_CTL_PROGRAM, {"update", "--site", "HOLLOW CREEK", "--on-unconvertible", "continue"},
                    demo.path(), [] {
                        if (geteuid() == 0 && setuid(nobody) != 0)
                            _exit(126);
                    });
        const int status = run.wait();
        talk = run.err();
        return status;
    }

    void expectRefusalsAndNoChange(int number, const std::string& sentence) const {
        const auto before = contentsBelow(site);
        std::string talk;
        // Status 4 where the box came back for ever: the field that can't be added is tried again.
        EXPECT_THAT(runAsNobody(talk), AnyOf(3, 4));
        EXPECT_THAT(talk, HasSubstr(fmt::format("Error: {} ", number)));
        EXPECT_THAT(talk, HasSubstr(fmt::format(fmt::runtime(sentence), (site / "MAIN.MDB").string())));
        EXPECT_EQ(contentsBelow(site), before);
    }

    DemoFolder demo;
    const fs::path site = platform::hostPath(R"(S:\SITES\HOLLOW)");
};

TEST_F(ReadOnly, FilesAreToldAndLeftAlone) {
    lock(0444, 0777);
    expectRefusalsAndNoChange(3027, "Cannot update. Database or object '{}' is read-only.");
}

TEST_F(ReadOnly, AFolderIsToldAndLeftAlone) {
    lock(0666, 0555);
    expectRefusalsAndNoChange(3027, "Cannot update. Database or object '{}' is read-only.");
}

TEST_F(ReadOnly, FilesThatMayNotBeReadAreToldAndLeftAlone) {
    lock(0000, 0777);
    expectRefusalsAndNoChange(3051, "Cannot open or write to the file '{}': no permission, or opened "
                                    "exclusively by another user.");
}

} // namespace
} // namespace tol::test
