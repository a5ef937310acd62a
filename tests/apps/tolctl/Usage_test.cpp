// SPDX-License-Identifier: MIT
#include "CaseFolder.h"
#include "support/FileBytes.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string_view>

namespace tol::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class UsageTest : public testing::Test {
  protected:
    CaseFolder m_case;
};

TEST_F(UsageTest, HelpGoesToStandardOutput) {
    for (const char* option : {"--help", "-h"}) {
        const Outcome help = m_case.run({option});
        EXPECT_EQ(help.status, 0);
        EXPECT_THAT(help.err, IsEmpty());
        for (const char* command : {"update", "refresh", "log", "dump", "load", "compact", "rights", "locks",
                                    "items-update", "settings", "demo"})
            EXPECT_THAT(help.out, HasSubstr(std::string("\n  ") + command));
        EXPECT_THAT(help.out, HasSubstr("--dir DIR"));
        EXPECT_THAT(help.out, HasSubstr("4 stopped"));
        EXPECT_THAT(help.out, HasSubstr("5 rights differ"));
    }
}

struct CommandHelp {
    const char* command;
    std::vector<const char*> mentions;
};

class CommandHelpTest : public UsageTest, public testing::WithParamInterface<CommandHelp> {};

TEST_P(CommandHelpTest, NamesItsOptions) {
    const Outcome help = m_case.run({GetParam().command, "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.err, IsEmpty());
    EXPECT_THAT(help.out, HasSubstr(std::string("tolctl ") + GetParam().command));
    for (const char* word : GetParam().mentions)
        EXPECT_THAT(help.out, HasSubstr(word));
}

INSTANTIATE_TEST_SUITE_P(
    Commands, CommandHelpTest,
    testing::Values(CommandHelp{"update",
                                {"--site NAME", "--all", "--module CODE", "--on-unconvertible",
                                 "ask|continue|quiet|stop", "--json"}},
                    CommandHelp{"refresh", {"--json"}},
                    CommandHelp{"log", {"--json", TOL_PDF ? "--pdf FILE" : "--json"}},
                    CommandHelp{"dump", {"FILE", "--schema-only"}}, CommandHelp{"load", {"FILE", "JSON"}},
                    CommandHelp{"compact", {"FILE"}}, CommandHelp{"rights", {"effective", "apply"}},
                    CommandHelp{"locks",
                                {"delete", "--user NAME", "--table NAME", "--tag N", "--session N",
                                 "--older-than TIME", "--json", "--csv"}},
                    CommandHelp{"items-update", {"--json"}},
                    CommandHelp{"settings", {"network", "add-user", "select", "--json"}},
                    CommandHelp{"demo", {"DIR"}}),
    [](const auto& test) {
        std::string name = test.param.command;
        std::erase(name, '-');
        return name;
    });

constexpr const char* rightsCommands[] = {"modules",   "items", "templates", "template", "users", "user",
                                          "effective", "who",   "diff",      "check",    "fill",  "apply"};

TEST_F(UsageTest, EachCommandOfRightsTellsItsOptions) {
    for (const char* command : rightsCommands) {
        const Outcome help = m_case.run({"rights", command, "--help"});
        EXPECT_EQ(help.status, 0);
        EXPECT_THAT(help.err, IsEmpty());
        EXPECT_THAT(help.out, HasSubstr(std::string("tolctl rights ") + command));
        EXPECT_THAT(help.out, HasSubstr("--json"));
        EXPECT_THAT(help.out, HasSubstr("--csv"));
    }
    EXPECT_THAT(m_case.run({"rights", "apply", "--help"}).out, HasSubstr("user,item,module,allowed"));
    EXPECT_THAT(m_case.run({"rights", "who", "--help"}).out, HasSubstr("--module CODE"));
}

/// Options in a text, as "--json".
std::set<std::string> optionsIn(const std::string& text) {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz-";
    std::set<std::string> found;
    for (auto at = text.find("--"); at != std::string::npos;) {
        const auto end = std::min(text.find_first_not_of(letters, at), text.size());
        if (end > at + 2)
            found.insert(text.substr(at, end - at));
        at = text.find("--", end);
    }
    return found;
}

TEST_F(UsageTest, TheManualPageTellsEveryCommandAndOption) {
    std::string page = bytesOf(TOL_MAN_PAGE);
    std::erase(page, '\\'); // the page's source says \-\-json
    std::set<std::string> options = optionsIn(m_case.run({"--help"}).out);
    for (const char* command : {"update", "refresh", "log", "dump", "load", "compact", "rights", "locks",
                                "items-update", "settings", "demo"}) {
        EXPECT_THAT(page, HasSubstr(std::string("\n.SS ") + command + "\n"));
        options.merge(optionsIn(m_case.run({command, "--help"}).out));
    }
    for (const char* command : rightsCommands) {
        EXPECT_THAT(page, HasSubstr(std::string("rights ") + command));
        options.merge(optionsIn(m_case.run({"rights", command, "--help"}).out));
    }
    options.merge(optionsIn(m_case.run({"locks", "delete", "--help"}).out));
    options.merge(optionsIn(m_case.run({"settings", "select", "--help"}).out));
    if (!TOL_PDF)
        options.insert("--pdf"); // the page is the same for every build
    EXPECT_EQ(optionsIn(page), options);
}

TEST_F(UsageTest, DemoNeedsAFolderOfItsOwn) {
    m_case.folder.write("full/file", "mine");
    const Outcome outcome = m_case.run({"demo", "full"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("'full' exists and is not an empty folder. (error 75)"));
}

TEST_F(UsageTest, DemoMakesAFolderToWorkIn) {
    EXPECT_EQ(m_case.run({"demo", "site"}).status, 0);
    EXPECT_EQ(m_case.run({"--dir", "site", "log"}).status, 0);
}

TEST_F(UsageTest, TellsItsVersion) {
    const Outcome version = m_case.run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_THAT(version.out, StartsWith("tolctl 1."));
}

class WrongUsageTest : public UsageTest, public testing::WithParamInterface<std::vector<std::string>> {};

TEST_P(WrongUsageTest, IsStatusTwoAndTouchesNothing) {
    const Outcome outcome = m_case.run(GetParam());
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, HasSubstr("--help"));
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, WrongUsageTest,
    testing::Values(std::vector<std::string>{}, std::vector<std::string>{"upgrade"},
                    std::vector<std::string>{"--nonsense"}, std::vector<std::string>{"dump"},
                    std::vector<std::string>{"dump", "A", "B"}, std::vector<std::string>{"load", "A"},
                    std::vector<std::string>{"log", "--all"}, std::vector<std::string>{"log", "dump", "A"},
                    std::vector<std::string>{"update", "--site"}, std::vector<std::string>{"update", "NORTH"},
                    std::vector<std::string>{"update", "--all", "--site", "NORTH"},
                    std::vector<std::string>{"update", "--on-unconvertible", "maybe"},
                    std::vector<std::string>{"--dir"}));

TEST_F(UsageTest, NamesTheWordThatItDoesNotKnow) {
    EXPECT_EQ(m_case.run({"upgrade"}).err,
              "tolctl: there is no command or option \"upgrade\"; see tolctl --help.\n");
    EXPECT_THAT(m_case.run({"--nonsense"}).err, HasSubstr("\"--nonsense\""));
    EXPECT_THAT(m_case.run({"log", "--all"}).err, HasSubstr("--all"));
    for (const char* value : {"maybe", "1", "Stop"}) {
        const Outcome outcome = m_case.run({"update", "--on-unconvertible", value});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.err, HasSubstr("--on-unconvertible: \"" + std::string(value) +
                                           "\" is none of ask|continue|quiet|stop"));
    }
}

TEST_F(UsageTest, HelpThatCanNotBeWrittenIsStatusOne) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"--help"}, {"update", "--help"}, {"--version"}}) {
        Program help(TOL_CTL_PROGRAM, words, m_case.folder.path(),
                     [] { dup2(open("/dev/full", O_WRONLY | O_CLOEXEC), STDOUT_FILENO); });
        EXPECT_EQ(help.wait(), 1);
        EXPECT_THAT(help.err(), HasSubstr("tolctl: standard output can't be written.\n"));
    }
}

TEST_F(UsageTest, WorksInTheFolderThatIsNamed) {
    m_case.load("A.MDB", databaseOf({}));
    std::filesystem::create_directory(m_case.folder / "elsewhere");
    const std::string here = m_case.folder.path();
    EXPECT_EQ(m_case.run({"--dir", here, "dump", "A.MDB"}).status, 0);
    EXPECT_EQ(m_case.run({"dump", "A.MDB", "--dir", here}).status, 0);
    EXPECT_EQ(m_case.run({"--dir", "elsewhere", "dump", "A.MDB"}).status, 1);
    EXPECT_EQ(m_case.run({"--dir", "elsewhere", "dump", "../A.MDB"}).status, 0);
    EXPECT_EQ(m_case.run({"--dir", "elsewhere", "load", "B.MDB", "-"}, R"({"tables": []})").status, 0);
    EXPECT_TRUE(std::filesystem::exists(m_case.folder / "elsewhere" / "B.MDB"));
}

TEST_F(UsageTest, AFolderThatIsMissingIsStatusOne) {
    const Outcome outcome = m_case.run({"--dir", "nowhere", "log"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, StartsWith("tolctl: The folder 'nowhere' can't be entered. (error 76)\n"));
}

TEST_F(UsageTest, AMissingDatabaseIsStatusOneAndNamed) {
    for (const char* command : {"update", "refresh", "log"}) {
        const Outcome outcome = m_case.run({command});
        EXPECT_EQ(outcome.status, 1) << command;
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, HasSubstr(".MDB'. (error 3024)"));
    }
}

} // namespace
} // namespace tol::test
