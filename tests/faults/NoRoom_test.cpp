// SPDX-License-Identifier: MIT
#include "DemoRun.h"
#include "platform/Paths.h"
#include "support/FileBytes.h"
#include "support/Program.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <map>
#include <set>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::HasSubstr;

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
    for (const fs::path& file : databasesBelow(folder))
        contents[file] = bytesOf(file);
    return contents;
}

/// The rows of a table of ZOVDEF.MDB, without the time of a run.
using Rows = std::multiset<std::vector<std::string>>;

Rows rowsOf(const std::string& table) {
    Rows rows;
    forEachRow("ZOVDEF.MDB", table, [&](const data::Recordset& row) {
        std::vector<std::string> values;
        for (int i = 0; i < row.Fields().Count(); ++i) {
            if (const std::string field = row.Fields(i).Name(); field != "FDATE" && field != "PTIME")
                values.push_back(text(row, field));
        }
        rows.insert(std::move(values));
    });
    return rows;
}

/// Runs over one Job Site, under limits from almost nothing to more than its longest file.
class FullDiskRun : public DemoRun {
  protected:
    static constexpr int limits = 10;

    /// A whole run with room enough, to which the others are compared.
    void runWhole() {
        enterCopy();
        EXPECT_EQ(update(), 0);
        rememberWholeRun();
        m_log = rowsOf("ACTIVITYLOG");
        for (const fs::path& file : filesOfRun())
            m_longest = std::max(m_longest, fs::file_size(file));
    }
    /// The Job Sites' limits lie between each other's. The last is as long as the longest file at least.
    [[nodiscard]] rlim_t room(int limit) const {
        return m_longest * static_cast<rlim_t>(limit * demoSites + GetParam() + 1) /
               ((limits - 1) * demoSites);
    }
    void expectTruth(int status, const std::string& talk) const {
        if (status == 0) {
            expectValuesOfAWholeRun();
            EXPECT_EQ(rowsOf("ACTIVITYLOG"), m_log);
        } else {
            EXPECT_THAT(status, AnyOf(1, 3, 4));
            EXPECT_THAT(talk, HasSubstr("Not enough space on disk for '" + fs::current_path().string()));
            expectWholeFields();
        }
    }
    void expectRepair() {
        for (int run = 0; run < 2 && !isComplete(); ++run)
            EXPECT_THAT(update(), AnyOf(0, 3));
        expectSoundFiles();
        expectValuesOfAWholeRun();
        expectOthersUntouched();
    }

  private:
    Rows m_log;
    std::uintmax_t m_longest = 0;
};

TEST_P(FullDiskRun, TellsWhatIsMissingAndIsRepairedByTwoFurtherRuns) {
    runWhole();
    for (int limit = 0; limit < limits && !HasFailure(); ++limit) {
        SCOPED_TRACE(fmt::format("no file longer than {} bytes", room(limit)));
        enterCopy();
        Program full(TOL_CTL_PROGRAM, arguments(), fs::current_path(), diskFullAt(room(limit)));
        const int status = full.wait();
        EXPECT_TRUE(status != 0 || limit > 0);
        EXPECT_TRUE(status == 0 || limit + 1 < limits);
        expectSoundFiles();
        expectTruth(status, full.err());
        expectRepair();
    }
}

INSTANTIATE_TEST_SUITE_P(JobSites, FullDiskRun, testing::Range(0, demoSites));

/// Refreshes of a definition that lacks something.
class FullDiskRefresh : public testing::Test {
  protected:
    static constexpr int limits = 16;

    FullDiskRefresh() {
        for (const char* const table : {"NEWDEF", "NEWINDEXES", "MODULES", "USERACCESSITEMS"}) {
            data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
            data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
            data::Recordset rows = definitions.OpenRecordset(table);
            rows.MoveFirst();
            rows.Delete();
        }
        fs::copy_file("ZOVDEF.MDB", "OLD");
    }

    struct Filled {
        Rows fields, indexes, modules, items;
        bool operator==(const Filled&) const = default;
        [[nodiscard]] bool sameDefinition(const Filled& other) const {
            return fields == other.fields && indexes == other.indexes;
        }
    };
    static Filled filled() {
        return {rowsOf("NEWDEF"), rowsOf("NEWINDEXES"), rowsOf("MODULES"), rowsOf("USERACCESSITEMS")};
    }
    [[nodiscard]] int refresh() const { return Program(TOL_CTL_PROGRAM, {"refresh"}, demo.path()).wait(); }
    /// Updates don't begin on a definition that is neither the old one nor the new one.
    void expectUpdatesAreRefused() const {
        const auto before = contentsBelow(demo.path());
        EXPECT_EQ(Program(TOL_CTL_PROGRAM, {"update", "--all"}, demo.path()).wait(), 1);
        EXPECT_EQ(contentsBelow(demo.path()), before);
    }

    DemoFolder demo;
};

TEST_F(FullDiskRefresh, IsWholeOrKeepsUpdatesFromBeginning) {
    const Filled old = filled();
    const auto length = static_cast<rlim_t>(fs::file_size("OLD"));
    ASSERT_EQ(refresh(), 0);
    const Filled fresh = filled();
    ASSERT_FALSE(old.sameDefinition(fresh));
    for (int limit = 1; limit <= limits && !HasFailure(); ++limit) {
        const rlim_t room = length * static_cast<rlim_t>(limit) / limits;
        SCOPED_TRACE(fmt::format("no file longer than {} bytes", room));
        fs::copy_file("OLD", "ZOVDEF.MDB", fs::copy_options::overwrite_existing);
        Program full(TOL_CTL_PROGRAM, {"refresh"}, demo.path(), diskFullAt(room));
        const int status = full.wait();
        EXPECT_EQ(damageIn("ZOVDEF.MDB"), "");
        const Filled now = filled();
        if (status == 0) {
            EXPECT_TRUE(now == fresh);
        } else {
            EXPECT_THAT(full.err(), HasSubstr("Not enough space on disk for '" + demo.path().string()));
        }
        if (!now.sameDefinition(old) && !now.sameDefinition(fresh))
            expectUpdatesAreRefused();
        EXPECT_EQ(refresh(), 0);
        EXPECT_TRUE(filled() == fresh);
    }
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
