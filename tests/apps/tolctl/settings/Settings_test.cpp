// SPDX-License-Identifier: MIT
#include "CaseFolder.h"
#include "platform/Paths.h"
#include "support/NetworkTables.h"
#include "support/StartFolder.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

namespace tol::test {
namespace {

using namespace nlohmann::literals;
using runtime::Value;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

class Settings : public testing::Test {
  protected:
    Settings() { folder.remove("drives/c/ZOVUSER/ZOVUSER.MDB"); }

    [[nodiscard]] Outcome run(std::vector<std::string> words,
                              const std::function<void()>& prepare = {}) const {
        words.insert(words.begin(), "settings");
        Program program(TOL_CTL_PROGRAM, words, folder.path(), prepare);
        const int status = program.wait();
        return {status, program.out(), program.err()};
    }
    /// What it prints as JSON where it has nothing to complain of.
    [[nodiscard]] Json json(std::vector<std::string> words = {}) const {
        words.emplace_back("--json");
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.err, IsEmpty());
        return outcome.json();
    }
    static void expectFailure(const Outcome& outcome, int status, const std::string& error) {
        EXPECT_EQ(outcome.status, status);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, HasSubstr(error));
    }

    Environment login{"LOGNAME", "Ann"};
    Environment drives{"TOL_DRIVES", nullptr};
    StartFolder folder;
    NetworkTables net;
    TestTable sites{
        "DBPATHS.MDB",
        "DBPATHS",
        {{"DBTAG", data::dbLong}, {"PATHNAME", data::dbText, 16}, {"PathText", data::dbText, 100}},
        {{"DBPATHS", {"PATHNAME"}}}};
};

class UsersSettings : public Settings {
  protected:
    UsersSettings() {
        sites.add({{1, "NORTH", "C:\\NORTH"}, {2, "SOUTH", "C:\\SOUTH"}});
        settings.add({{1, "Office"}});
        ofSites.add({{2, "Trailer"}});
    }

    TestTable settings{
        R"(C:\ZOVUSER\ZOVUSER.MDB)", "SETTINGS", {{"DBTAG", data::dbLong}, {"PRINTER", data::dbText, 20}}};
    TestTable ofSites{R"(C:\ZOVUSER\ZOVUSER.MDB)",
                      "DBSETTINGS",
                      {{"DBTAG", data::dbLong}, {"PRINTER", data::dbText, 20}},
                      {{"DBSETTINGS", {"DBTAG"}}}};
};

// What is told.

TEST_F(UsersSettings, AreToldInLines) {
    net.users.add({{31, "ann", "", false}});
    const Outcome outcome = run({});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "Network location   " + platform::currentFolder() +
                               "\n"
                               "User name          Ann\n"
                               "User number        31\n"
                               "Job Site in force  NORTH\n");
    EXPECT_THAT(outcome.err, IsEmpty());
}

TEST_F(UsersSettings, AreToldAsOneObject) {
    net.users.add({{31, "ann", "", false}});
    Json wanted = R"({"userName": "Ann", "userNumber": 31,
                      "jobSite": {"number": 1, "name": "NORTH", "folder": "C:\\NORTH"}})"_json;
    wanted["networkLocation"] = platform::currentFolder();
    EXPECT_EQ(json(), wanted);
    EXPECT_EQ(run({"--json"}).out.find("{\"networkLocation\":"), 0U) << "not in the order of the lines";
}

TEST_F(Settings, ThatAreNotThereAreToldAsSuch) {
    EXPECT_THAT(run({}).out, HasSubstr("\nUser number        <none>\nJob Site in force  <not recorded>\n"));
    const Json told = json();
    EXPECT_EQ(told["userNumber"], nullptr);
    EXPECT_EQ(told["jobSite"], nullptr);
}

TEST_F(UsersSettings, OfASiteThatIsNoneTellItsNumber) {
    settings.change("DBTAG", 1, 7);
    EXPECT_THAT(run({}).out, HasSubstr("Job Site in force  <not in the list>\n"));
    EXPECT_EQ(json()["jobSite"]["number"], 7);
}

TEST_F(Settings, NeedAttentionWhenTheNetworkDatabaseCanNotBeReached) {
    folder.addPath("C:\\NOWHERE\\");
    const Outcome outcome = run({});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.out,
                HasSubstr("Network location   C:\\NOWHERE\nUser name          Ann\nUser number        \n"));
    EXPECT_EQ(outcome.err,
              "Cannot Access\n"
              "  Cannot Find the Database: C:\\NOWHERE\\ZOVNET.MDB\n\n"
              "  Find the correct location for ZOVNET.mdb and update your Network Database Location "
              "setting.\n");
}

TEST_F(Settings, CanNotBeToldWithoutTheirDatabase) {
    folder.remove("NETPATH.MDB");
    expectFailure(run({}), 1, "File not found: 'NETPATH.MDB' (error 53)");
    expectFailure(run({"network", "C:\\NET"}), 1, "File not found: 'NETPATH.MDB' (error 53)");
    EXPECT_FALSE(std::filesystem::exists("NETPATH.MDB"));
}

TEST_F(Settings, CanNotBeToldFromAHalfDatabase) {
    const TestTable other{R"(C:\ZOVUSER\ZOVUSER.MDB)", "OTHER", {{"A", data::dbLong}}};
    expectFailure(run({}), 1, "Cannot find the table 'SETTINGS'. (error 3078)");
}

TEST_F(Settings, ThatNobodyReadsAreAnError) {
    Program program(TOL_CTL_PROGRAM, {"settings"}, folder.path(),
                    [] { dup2(open("/dev/full", O_WRONLY | O_CLOEXEC), STDOUT_FILENO); });
    EXPECT_EQ(program.wait(), 1);
    EXPECT_THAT(program.err(), HasSubstr("standard output can't be written"));
}

// The location.

TEST_F(Settings, TheLocationIsStoredTrimmed) {
    folder.addPath("C:\\OLD");
    EXPECT_EQ(run({"network", "  s:\\new place\\ "}).out, "Network location  s:\\new place\\\n");
    EXPECT_THAT(folder.paths(), ElementsAre(Value("s:\\new place\\")));
    EXPECT_EQ(json({"network", "C:\\NET"}), R"({"networkLocation": "C:\\NET"})"_json);
    EXPECT_EQ(run({"--json", "network", "C:\\NET"}).json(), R"({"networkLocation": "C:\\NET"})"_json);
    EXPECT_THAT(folder.paths(), ElementsAre(Value("C:\\NET")));
}

TEST_F(Settings, TheLocationHasAHundredCharactersAtMost) {
    folder.addPath("C:\\OLD");
    std::string longest;
    for (int i = 0; i < 100; ++i)
        longest += "\u00fc";
    expectFailure(run({"network", longest + "x"}), 2,
                  "the location has 101 characters, and at most 100 can be stored.");
    EXPECT_THAT(folder.paths(), ElementsAre(Value("C:\\OLD")));
    EXPECT_EQ(run({"network", longest}).status, 0);
    EXPECT_THAT(folder.paths(), ElementsAre(Value(longest)));
}

TEST_F(Settings, ALocationThatMayOnlyBeReadStays) {
    folder.addPath(platform::currentFolder());
    std::filesystem::permissions("NETPATH.MDB", std::filesystem::perms::owner_read);
    expectFailure(run({"network", "C:\\NEW"}, withoutRightsOfRoot), 1,
                  "NETPATH.MDB' is read-only. (error 3027)");
    EXPECT_EQ(run({}, withoutRightsOfRoot).status, 0);
    EXPECT_THAT(folder.paths(), ElementsAre(Value(platform::currentFolder())));
}

TEST_F(Settings, TheCurrentFolderCanNotBecomeALocationThatMayOnlyBeRead) {
    std::filesystem::permissions("NETPATH.MDB", std::filesystem::perms::owner_read);
    expectFailure(run({}, withoutRightsOfRoot), 1, "NETPATH.MDB' is read-only. (error 3027)");
    EXPECT_THAT(folder.paths(), IsEmpty());
}

// The user.

TEST_F(Settings, TheUserIsAddedOnce) {
    const Outcome added = run({"add-user"});
    EXPECT_EQ(added.status, 0);
    EXPECT_EQ(added.out, "User name    ann\nUser number  1\n");
    EXPECT_EQ(added.err, "User List Updated\n  The User Name: ann\n  has been added to the list of users.\n");
    EXPECT_THAT(net.users.rows(),
                ElementsAre(MatchesRegex("1\\|ann\\|Added on: [0-9]+/[0-9]+/[0-9]+\\|False")));
    expectFailure(run({"add-user"}), 1,
                  "Cannot Update Record\n  Duplicate User Name Detected.\n  The User Name you have entered "
                  "already exists.\n");
    EXPECT_EQ(json()["userNumber"], 1);
}

TEST_F(Settings, AUserWithLettersBeyondASCIIIsAdded) {
    const Environment other("LOGNAME", "\u00c4NNE");
    EXPECT_EQ(run({"add-user", "--json"}).json(), R"({"userName": "\u00e4nne", "userNumber": 1})"_json);
}

TEST_F(Settings, AUserWithoutNameIsNotAdded) {
    const Environment blank("LOGNAME", "  ");
    expectFailure(run({"add-user", "--json"}), 1, "Cannot Update Record\n  Empty User Name Detected\n");
}

TEST_F(Settings, AUserIsNotAddedWithoutTheDatabase) {
    folder.remove("ZOVNET.MDB");
    expectFailure(run({"add-user"}), 1, "Cannot Access\n");
}

TEST_F(Settings, AUserWhoseNameDoesNotFitIsNotAdded) {
    const Environment other("LOGNAME", "a name of more than twenty");
    expectFailure(run({"add-user"}), 1, "(error 3163)");
    EXPECT_THAT(net.users.rows(), IsEmpty());
}

// The Job Site.

TEST_F(UsersSettings, AreChangedToAnotherSiteAndBack) {
    EXPECT_EQ(run({"select", "south"}).out, "Job Site in force  SOUTH\n");
    EXPECT_THAT(settings.rows(), ElementsAre("2|Trailer"));
    EXPECT_THAT(ofSites.rows(), ElementsAre("1|Office", "2|Trailer"));
    EXPECT_EQ(json({"select", "NORTH"}),
              R"({"jobSite": {"number": 1, "name": "NORTH", "folder": "C:\\NORTH"}})"_json);
    EXPECT_THAT(settings.rows(), ElementsAre("1|Office"));
}

TEST_F(UsersSettings, AreKeptForTheSiteThatIsNamed) {
    settings.change("DBTAG", 1, runtime::Null());
    expectFailure(run({"select", "SOUTH"}), 1, "does not tell whose settings are in force");
    expectFailure(run({"select", "SOUTH", "--from", "EAST"}), 2, "no Job Site is named \"EAST\".");
    EXPECT_THAT(ofSites.rows(), ElementsAre("2|Trailer"));
    EXPECT_EQ(run({"select", "SOUTH", "--from", "north"}).status, 0);
    EXPECT_THAT(settings.rows(), ElementsAre("2|Trailer"));
    EXPECT_THAT(ofSites.rows(), ElementsAre("1|Office", "2|Trailer"));
}

TEST_F(UsersSettings, AreNotChangedToASiteThatIsNone) {
    for (const char* name : {"EAST", "", " "})
        expectFailure(run({"select", name}), 2, "no Job Site is named");
    EXPECT_THAT(settings.rows(), ElementsAre("1|Office"));
}

TEST_F(UsersSettings, ThatCanNotBeChangedAreToldAndStay) {
    settings.remove("DBTAG", 1);
    expectFailure(run({"select", "SOUTH", "--from", "NORTH"}), 3,
                  "Error\n  Could not Save User Settings for Job Site\n");
}

TEST_F(Settings, OfWrongUseAreStatusTwo) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{"network"},
                                                  {"network", "A", "B"},
                                                  {"select"},
                                                  {"add-user", "bob"},
                                                  {"other"},
                                                  {"--csv"}})
        EXPECT_EQ(run(words).status, 2) << words.front();
}

TEST_F(Settings, AreExplained) {
    const std::string help = run({"--help"}).out;
    for (const char* word : {"network", "add-user", "select", "--json"})
        EXPECT_THAT(help, HasSubstr(word));
    EXPECT_THAT(run({"select", "--help"}).out, HasSubstr("--from NAME"));
}

} // namespace
} // namespace tol::test
