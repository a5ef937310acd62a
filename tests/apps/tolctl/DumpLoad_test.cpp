// SPDX-License-Identifier: MIT
#include "CaseFolder.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

namespace tol::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
namespace fs = std::filesystem;

class DumpLoadTest : public testing::Test {
  protected:
    static constexpr const char* jobs = R"({"tables": [{"name": "JOBS",
        "fields": [{"name": "TAG", "type": 4}, {"name": "NAME", "type": 10, "size": 5}],
        "indexes": [{"name": "JOBS", "fields": ["TAG"], "unique": true}],
        "rows": [
            [1, "one"],
            [2, "two"]]}]})";

    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(m_case.folder.path()))
            found.push_back(entry.path().filename());
        return found;
    }

    CaseFolder m_case;
};

TEST_F(DumpLoadTest, LoadOfADumpGivesTheSameDump) {
    ASSERT_EQ(m_case.run({"load", "A.MDB", "-"}, jobs).status, 0);
    const Outcome first = m_case.run({"dump", "A.MDB"});
    EXPECT_EQ(first.status, 0);
    EXPECT_THAT(first.err, IsEmpty());
    m_case.folder.write("a.json", first.out);
    ASSERT_EQ(m_case.run({"load", "B.MDB", "a.json"}).status, 0);
    EXPECT_EQ(m_case.run({"dump", "b.mdb"}).out, first.out);
    EXPECT_THAT(names(), testing::UnorderedElementsAre("A.MDB", "B.MDB", "a.json", "drives"));
}

TEST_F(DumpLoadTest, TheSchemaComesWithoutRows) {
    ASSERT_EQ(m_case.run({"load", "A.MDB", "-"}, jobs).status, 0);
    const Outcome schema = m_case.run({"dump", "--schema-only", "A.MDB"});
    EXPECT_EQ(schema.status, 0);
    EXPECT_FALSE(schema.json()["tables"][0].contains("rows"));
    EXPECT_EQ(schema.json()["tables"][0]["fields"][1]["size"], 5);
}

TEST_F(DumpLoadTest, LoadRefusesAFileThatExists) {
    m_case.folder.write("A.MDB", "mine");
    const Outcome outcome = m_case.run({"load", "a.mdb", "-"}, jobs);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("already exists. (error 3204)"));
    EXPECT_EQ(m_case.folder.read("A.MDB"), "mine");
}

TEST_F(DumpLoadTest, MalformedTextIsToldWithItsLineAndLeavesNoFile) {
    std::string broken = jobs;
    broken.replace(broken.find("\"two\""), 5, "two");
    const Outcome outcome = m_case.run({"load", "A.MDB", "-"}, broken);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, StartsWith("tolctl: Line 6: Not valid JSON: "));
    EXPECT_THAT(names(), testing::ElementsAre("drives"));
}

TEST_F(DumpLoadTest, AValueThatDoesNotFitIsToldWithItsRowAndLeavesNoFile) {
    std::string broken = jobs;
    broken.replace(broken.find("two"), 3, "too long");
    const Outcome outcome = m_case.run({"load", "A.MDB", "-"}, broken);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, StartsWith("tolctl: Line 6: table \"JOBS\", row 2, field \"NAME\": "));
    EXPECT_THAT(names(), testing::ElementsAre("drives"));
}

TEST_F(DumpLoadTest, TextThatCannotBeReadIsStatusOne) {
    const Outcome missing = m_case.run({"load", "A.MDB", "nowhere.json"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.err,
                HasSubstr("'nowhere.json' can't be read: No such file or directory. (error 53)"));
    EXPECT_EQ(m_case.run({"load", "A.MDB", "drives"}).status, 1);
    EXPECT_THAT(names(), testing::ElementsAre("drives"));
}

TEST_F(DumpLoadTest, DumpRefusesWhatIsNoDatabase) {
    m_case.folder.write("text.mdb", "hello, I am no database at all");
    const Outcome outcome = m_case.run({"dump", "text.mdb"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, HasSubstr("text.mdb"));
    EXPECT_THAT(outcome.err, HasSubstr("(error 3343)"));
}

TEST_F(DumpLoadTest, DumpReadsAFileThatMayOnlyBeRead) {
    ASSERT_EQ(m_case.run({"load", "A.MDB", "-"}, jobs).status, 0);
    fs::permissions(m_case.folder / "A.MDB", fs::perms::owner_read);
    fs::permissions(m_case.folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    Program dump(TOL_CTL_PROGRAM, {"dump", "A.MDB"}, m_case.folder.path(), withoutRightsOfRoot);
    EXPECT_EQ(dump.wait(), 0) << dump.err();
    EXPECT_THAT(dump.out(), HasSubstr("[1, \"one\"]"));
    fs::permissions(m_case.folder.path(), fs::perms::owner_all);
}

TEST_F(DumpLoadTest, LoadNeedsAFolderThatCanBeWritten) {
    fs::permissions(m_case.folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    Program load(TOL_CTL_PROGRAM, {"load", "A.MDB", "-"}, m_case.folder.path(), withoutRightsOfRoot);
    EXPECT_EQ(load.wait(), 1);
    EXPECT_THAT(load.err(), HasSubstr("A.MDB"));
    EXPECT_THAT(load.err(), HasSubstr("(error 3051)"));
    fs::permissions(m_case.folder.path(), fs::perms::owner_all);
    EXPECT_THAT(names(), testing::ElementsAre("drives"));
}

TEST_F(DumpLoadTest, OutputThatCannotBeWrittenIsStatusOne) {
    ASSERT_EQ(m_case.run({"load", "A.MDB", "-"}, jobs).status, 0);
    Program dump(TOL_CTL_PROGRAM, {"dump", "A.MDB"}, m_case.folder.path(),
                 [] { dup2(open("/dev/full", O_WRONLY | O_CLOEXEC), STDOUT_FILENO); });
    EXPECT_EQ(dump.wait(), 1);
    EXPECT_EQ(dump.err(), "tolctl: standard output can't be written.\n");
}

// The text does not end before the signal, which thus surely comes while the database is half made.
TEST_F(DumpLoadTest, AnInterruptedLoadLeavesNoFile) {
    int ends[2] = {};
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    Program load(TOL_CTL_PROGRAM, {"load", "A.MDB", "-"}, m_case.folder.path(),
                 [&] { dup2(ends[0], STDIN_FILENO); });
    std::string text = jobs;
    text.resize(text.rfind(']', text.size() - 4));
    for (int row = 3; row < 5000; ++row)
        text += ",\n[" + std::to_string(row) + ", null]";
    ASSERT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    while (names().size() < 2)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    load.signal(SIGINT);
    close(ends[1]);
    EXPECT_EQ(load.wait(), 4);
    EXPECT_THAT(load.err(), HasSubstr("tolctl: stopped."));
    EXPECT_THAT(names(), testing::ElementsAre("drives"));
    close(ends[0]);
}

} // namespace
} // namespace tol::test
