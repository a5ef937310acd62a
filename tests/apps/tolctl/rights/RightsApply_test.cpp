// SPDX-License-Identifier: MIT
#include "RightsCase.h"

#include "support/FileBytes.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <sys/ioctl.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <random>

namespace tol::test {
namespace {

using namespace nlohmann::literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const runtime::Null none;

class RightsApply : public testing::Test {
  protected:
    /// The verdicts of a file with that text.
    [[nodiscard]] std::vector<std::string> verdicts(const std::string& text, int status = 0,
                                                    const std::vector<std::string>& more = {}) const {
        m_case.folder().write("rights.csv", text);
        std::vector<std::string> words = {"apply", "rights.csv"};
        words.insert(words.end(), more.begin(), more.end());
        std::vector<std::string> result;
        for (const Json& line : m_case.json(words, status))
            result.push_back(line["verdict"]);
        return result;
    }
    [[nodiscard]] std::vector<std::string> rights() const { return m_case.network.rights.rows(); }

    RightsCase m_case;
    const std::vector<std::string> before = rights();
};

TEST_F(RightsApply, AddsAndChangesRowsByHand) {
    m_case.folder().write("rights.csv", "user,item,module,allowed\n"
                                        "mroe,NADD,N,Y\n"
                                        "jdoe,PADD,,y\n"
                                        "jdoe,PADD,P,Y\n"
                                        "MROE, ndel ,n,n\n");
    const Outcome outcome = m_case.run({"apply", "rights.csv"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "Line  User  Item  Module  Allowed  Verdict\n"
                           "2     mroe  NADD  N       Y        added\n"
                           "3     jdoe  PADD          y        changed\n"
                           "4     jdoe  PADD  P       Y        unchanged\n"
                           "5     MROE  ndel  n       n        added\n");
    EXPECT_EQ(outcome.err, "2 added, 1 changed, 1 unchanged.\n");
    EXPECT_THAT(rights(), ElementsAre("1|1|True|1", "1|2|False|1", "1|2|True|2", "1|3|True|2",
                                      "1|3|True|Null", "2|1|True|Null", "2|2|False|Null"));
}

TEST_F(RightsApply, LeavesTheRowsOfTemplates) {
    EXPECT_THAT(verdicts("jdoe,NADD,N,N"), ElementsAre("added"));
    EXPECT_THAT(rights(), testing::Contains("1|1|True|1"));
    EXPECT_THAT(rights(), testing::Contains("1|1|False|Null"));
}

TEST_F(RightsApply, ZeroAndNullAreBothByHand) {
    m_case.network.rights.add({{2, 1, true, 0}});
    EXPECT_THAT(verdicts("mroe,NADD,N,Y\nmroe,NADD,N,N"), ElementsAre("unchanged", "changed"));
    EXPECT_THAT(rights(), testing::Contains("2|1|False|0"));
}

TEST_F(RightsApply, DoubledRowsByHandAllBecomeWhatIsWished) {
    m_case.network.rights.add({{2, 1, true, 0}, {2, 1, false, none}});
    EXPECT_THAT(verdicts("mroe,NADD,N,N"), ElementsAre("changed"));
    EXPECT_THAT(rights(), testing::Contains("2|1|False|0"));
    EXPECT_THAT(rights(), testing::Contains("2|1|False|Null"));
    EXPECT_THAT(verdicts("mroe,NADD,N,N"), ElementsAre("unchanged"));
}

TEST_F(RightsApply, ALineCountsOnThoseInFrontOfIt) {
    EXPECT_THAT(verdicts("mroe,NADD,N,Y\nmroe,NADD,N,Y\nmroe,NADD,N,N\njdoe,PADD,P,Y\njdoe,PADD,P,N"),
                ElementsAre("added", "unchanged", "changed", "changed", "changed"));
    std::vector<std::string> expected = before;
    expected.emplace_back("2|1|False|Null");
    EXPECT_EQ(rights(), expected);
}

TEST_F(RightsApply, TheSameFileAgainChangesNothing) {
    EXPECT_THAT(verdicts("mroe,NADD,N,Y\njdoe,PADD,P,Y"), ElementsAre("added", "changed"));
    const std::vector<std::string> after = rights();
    EXPECT_THAT(verdicts("mroe,NADD,N,Y\njdoe,PADD,P,Y"), ElementsAre("unchanged", "unchanged"));
    EXPECT_EQ(rights(), after);
}

struct BadLine {
    const char* line;
    const char* verdict;
};

class RightsApplyBadLines : public RightsApply, public testing::WithParamInterface<BadLine> {};

TEST_P(RightsApplyBadLines, IsRefusedAndNothingIsWritten) {
    const std::string text = "mroe,NDEL,N,Y\n" + std::string(GetParam().line) + "\n";
    EXPECT_THAT(verdicts(text, 1), ElementsAre("added", GetParam().verdict));
    EXPECT_EQ(rights(), before);
    EXPECT_THAT(verdicts(text, 1, {"--dry-run"}), ElementsAre("added", GetParam().verdict));
    EXPECT_EQ(m_case.run({"apply", "rights.csv"}).err,
              fmt::format("1 added, 1 {}; nothing was written.\n", GetParam().verdict));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, RightsApplyBadLines,
    testing::Values(BadLine{"nobody,NADD,N,Y", "unknown user"}, BadLine{",NADD,N,Y", "unknown user"},
                    BadLine{"jdoe,NONE,N,Y", "unknown item"}, BadLine{"jdoe,,N,Y", "unknown item"},
                    BadLine{"jdoe,NDEL,P,Y", "unknown item"}, BadLine{"jdoe,NADD,X,Y", "unknown item"},
                    BadLine{"jdoe,NADD,,Y", "code in several modules"},
                    BadLine{"jdoe,NADD, ,Y", "code in several modules"}, BadLine{"jdoe,NADD,N,", "bad value"},
                    BadLine{"jdoe,NADD,N,Yes", "bad value"}, BadLine{"jdoe,NADD,N,1", "bad value"},
                    BadLine{"jdoe,NADD,N", "bad value"}, BadLine{"jdoe,NADD,N,Y,Y", "bad value"},
                    BadLine{"jdoe,NADD,N,\"Y", "bad value"}, BadLine{"jdoe,NADD,N,\"Y\"x", "bad value"},
                    BadLine{"jdoe,NADD,N,Y\"", "bad value"}, BadLine{"jdoe", "unknown item"},
                    BadLine{"user,item,module,allowed", "unknown user"},
                    BadLine{"\xFF\xFE,NADD,N,Y", "unknown user"}));

TEST_F(RightsApply, ACodeTwiceInOneModuleMeansTheFirst) {
    m_case.network.accessItems.add({{9, "P", "PADD", "Once more", ""}});
    EXPECT_THAT(verdicts("mroe,PADD,,Y"), ElementsAre("added"));
    EXPECT_THAT(rights(), testing::Contains("2|3|True|Null"));
}

TEST_F(RightsApply, AUserWithoutANameIsNobody) {
    m_case.network.users.add({{7, none, "", false}});
    EXPECT_THAT(verdicts(",PADD,,Y", 1), ElementsAre("unknown user"));
}

TEST_F(RightsApply, ReadsQuotesLineEndsAndAByteOrderMark) {
    EXPECT_THAT(verdicts("\xEF\xBB\xBFUser,Item,Module,Allowed\r\n\"mroe\",\"NADD\",\"N\",\"Y\"\r\n\r\n"
                         "mroe,NDEL,N,N\r\n"),
                ElementsAre("added", "added"));
    EXPECT_THAT(rights(), testing::Contains("2|1|True|Null"));
}

TEST_F(RightsApply, ALineIsTheOneOnWhichItBegins) {
    m_case.folder().write("rights.csv", "\"two\r\nlines\",NADD,N,Y\r\n\r\nnobody,NADD,N,Y");
    const Json lines = m_case.json({"apply", "rights.csv"}, 1);
    EXPECT_EQ(lines[0], R"({"line": 1, "user": "two\r\nlines", "item": "NADD", "module": "N", "allowed": "Y",
                            "verdict": "unknown user"})"_json);
    EXPECT_EQ(lines[1]["line"], 4);
}

TEST_F(RightsApply, AFileWithoutLinesIsNoWish) {
    for (const char* text : {"", "\r\n", "user,item,module,allowed\n", "\xEF\xBB\xBF"}) {
        EXPECT_THAT(verdicts(text), IsEmpty());
        EXPECT_EQ(m_case.run({"apply", "rights.csv"}).err, "no lines.\n");
    }
}

TEST_F(RightsApply, ReadsStandardInput) {
    const Outcome outcome = m_case.run({"apply", "-", "--csv"}, "mroe,NADD,N,Y");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "line,user,item,module,allowed,verdict\r\n1,mroe,NADD,N,Y,added\r\n");
    EXPECT_THAT(rights(), testing::Contains("2|1|True|Null"));
}

TEST_F(RightsApply, AFileThatCanNotBeReadIsStatusOne) {
    for (const char* file : {"missing.csv", ".", "missing/rights.csv"}) {
        const Outcome outcome = m_case.run({"apply", file});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, HasSubstr("tolctl: '" + std::string(file) + "' can't be read: "));
    }
}

TEST_F(RightsApply, ADryRunWritesNoByte) {
    const std::string bytes = bytesOf(m_case.folder() / NetworkTables::file);
    EXPECT_THAT(verdicts("mroe,NADD,N,Y\njdoe,PADD,P,Y", 0, {"--dry-run"}), ElementsAre("added", "changed"));
    EXPECT_EQ(m_case.run({"apply", "rights.csv", "--dry-run"}).err,
              "1 added, 1 changed; nothing was written.\n");
    EXPECT_EQ(bytesOf(m_case.folder() / NetworkTables::file), bytes);
    EXPECT_EQ(rights(), before);
}

// Half of the lines are new, half are there already; each is looked up among all.
TEST_F(RightsApply, TakesAHundredThousandLines) {
    constexpr int count = 100'000, users = 1000;
    std::vector<TestTable::Row> people, items;
    for (int i = 0; i < users; ++i)
        people.push_back({100 + i, fmt::format("user{}", i), "", false});
    for (int i = 0; i < count / users; ++i)
        items.push_back({100 + i, "P", fmt::format("I{}", i), "", ""});
    m_case.network.users.add(people);
    m_case.network.accessItems.add(items);
    std::string text = "user,item,module,allowed\r\n";
    for (int i = 0; i < count; ++i)
        text += fmt::format("user{},I{},,{}\r\n", i % users, i / users, i % 3 == 0 ? 'Y' : 'N');
    std::vector<std::string> all = verdicts(text);
    EXPECT_EQ(std::ranges::count(all, "added"), count);
    all = verdicts(text);
    EXPECT_EQ(std::ranges::count(all, "unchanged"), count);
    std::ranges::replace(text, 'Y', 'N');
    all = verdicts(text);
    EXPECT_EQ(std::ranges::count(all, "changed"), (count + 2) / 3);
    EXPECT_EQ(rights().size(), before.size() + count);
}

// The text does not end before the signal, so that what was read of it is not all.
TEST_F(RightsApply, AnInterruptedReadAppliesNothing) {
    int ends[2] = {};
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    const std::string half = "mroe,NADD,N,Y\n";
    ASSERT_EQ(write(ends[1], half.data(), half.size()), static_cast<ssize_t>(half.size()));
    Program apply(TOL_CTL_PROGRAM, {"rights", "apply", "-"}, m_case.folder().path(),
                  [&] { dup2(ends[0], STDIN_FILENO); });
    for (int unread = 1; unread > 0;)
        ASSERT_EQ(ioctl(ends[0], FIONREAD, &unread), 0);
    apply.signal(SIGINT);
    close(ends[0]);
    close(ends[1]);
    EXPECT_EQ(apply.wait(), 4);
    EXPECT_EQ(apply.err(), "tolctl: stopped.\n");
    EXPECT_EQ(rights(), before);
}

TEST_F(RightsApply, AKilledOneHasAppliedAllOrNothing) {
    std::string text;
    std::vector<TestTable::Row> people;
    for (int i = 0; i < 5000; ++i) {
        people.push_back({100 + i, fmt::format("user{}", i), "", false});
        text += fmt::format("user{0},NADD,N,Y\nuser{0},NDEL,N,N\n", i);
    }
    m_case.network.users.add(people);
    m_case.folder().write("rights.csv", text);
    std::mt19937 random(8);
    for (int round = 0; round < 10; ++round) {
        Program apply(TOL_CTL_PROGRAM, {"rights", "apply", "rights.csv"}, m_case.folder().path());
        apply.waitFor(std::chrono::milliseconds(random() % 200));
        apply.kill();
        const std::size_t added = rights().size() - before.size();
        EXPECT_TRUE(added == 0 || added == 10'000) << added;
    }
    EXPECT_EQ(m_case.run({"apply", "rights.csv"}).status, 0);
    EXPECT_EQ(rights().size(), before.size() + 10'000);
}

TEST_F(RightsApply, ARefusalOfTheTableTakesAllBack) {
    {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database database = workspace.OpenDatabase(NetworkTables::file);
        data::TableDef table = database.TableDefs("USERRIGHTS");
        data::Index index = table.CreateIndex("ONCE");
        index.Fields().Append(index.CreateField("UAITAG"));
        index.Fields().Append(index.CreateField("ALLOWED"));
        index.Fields().Append(index.CreateField("URTTAG"));
        index.Unique(true);
        table.Indexes().Append(index);
    }
    m_case.network.rights.add({{1, 4, true, 0}, {2, 4, false, 0}});
    const std::vector<std::string> rows = rights();
    m_case.folder().write("rights.csv", "jdoe,NDEL,N,Y\nmroe,NADD,P,Y\n");
    const Outcome outcome = m_case.run({"apply", "rights.csv"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, HasSubstr("'ONCE'"));
    EXPECT_THAT(outcome.err, HasSubstr(NetworkTables::file));
    EXPECT_THAT(outcome.err, HasSubstr("(error 3022)"));
    EXPECT_EQ(rights(), rows);
}

} // namespace
} // namespace tol::test
