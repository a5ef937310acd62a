// SPDX-License-Identifier: MIT
// The network database where it is missing, incomplete, or somebody else's.
#include "RightsCase.h"

#include "runtime/Host.h"
#include "support/SecondProcess.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

namespace tol::test {
namespace {

using namespace nlohmann::literals;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

using Words = std::vector<std::string>;

const std::vector<Words> questions = {{"modules"},
                                      {"items"},
                                      {"items", "--module", "N"},
                                      {"templates"},
                                      {"template", "OFFICE"},
                                      {"users"},
                                      {"user", "jdoe"},
                                      {"effective", "jdoe"},
                                      {"who", "NADD"},
                                      {"diff", "jdoe"},
                                      {"check"},
                                      {"fill", "jdoe", "OFFICE"},
                                      {"apply", "rights.csv", "--dry-run"},
                                      {"apply", "rights.csv"}};

class RightsFile : public testing::Test {
  protected:
    RightsFile() { m_case.folder().write("rights.csv", "jdoe,NADD,N,Y\n"); }

    static void change(const std::function<void(data::Database&)>& work) {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database database = workspace.OpenDatabase(NetworkTables::file);
        work(database);
    }

    RightsCase m_case;
};

TEST_F(RightsFile, IsToldWhereItIsMissing) {
    std::filesystem::remove(m_case.folder() / NetworkTables::file);
    for (const Words& words : questions) {
        const Outcome outcome = m_case.run(words);
        EXPECT_EQ(outcome.status, 1) << words[0];
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, StartsWith("Cannot Access\n  Cannot Find the Database: "));
        EXPECT_THAT(outcome.err, HasSubstr("tolctl: there is no network database.\n"));
    }
}

TEST_F(RightsFile, IsFoundWhereNetpathSays) {
    std::filesystem::create_directory(m_case.folder() / "net");
    std::filesystem::rename(m_case.folder() / NetworkTables::file, m_case.folder() / "net/ZOVNET.MDB");
    const TestTable located("NETPATH.MDB", "NETPATH", {{"Path", data::dbText, 200}});
    located.add({{(m_case.folder() / "net").string()}});
    EXPECT_EQ(m_case.json({"modules"}).size(), 2U);
}

TEST_F(RightsFile, IsNamedWhereItIsNoDatabase) {
    m_case.folder().write(NetworkTables::file, "nothing of the kind, but long enough to be looked at");
    for (const Words& words : questions) {
        const Outcome outcome = m_case.run(words);
        EXPECT_EQ(outcome.status, 1) << words[0];
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, HasSubstr("ZOVNET.MDB"));
        EXPECT_THAT(outcome.err, HasSubstr("(error 3343)"));
    }
}

TEST_F(RightsFile, ATableThatIsMissingIsNamedWithTheFile) {
    change([](data::Database& database) { database.TableDefs().Delete("USERRIGHTS"); });
    for (const char* command : {"user", "effective", "diff"}) {
        const Outcome outcome = m_case.run({command, "jdoe"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_EQ(outcome.err, "tolctl: Cannot find the table 'USERRIGHTS'. (" +
                                   (m_case.folder() / NetworkTables::file).string() + ") (error 3078)\n");
    }
    EXPECT_EQ(m_case.run({"users"}).status, 0) << "a list asks only for what it shows";
}

TEST_F(RightsFile, EveryTableThatIsMissingIsAnError) {
    for (const char* table : {"MODULES", "USERACCESSITEMS", "URTEMPLATES", "URTITEMS", "USERLIST",
                              "USERRIGHTS", "NETTAGS", "NETSETTINGS", "RECORDLOCKS"}) {
        const RightsCase rights;
        change([&](data::Database& database) { database.TableDefs().Delete(table); });
        const Outcome outcome = rights.run({"check", "--json"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, HasSubstr("'" + std::string(table) + "'"));
        EXPECT_THAT(outcome.err, HasSubstr(NetworkTables::file));
    }
}

TEST_F(RightsFile, AFieldThatIsMissingIsNamedWithTableAndFile) {
    change([](data::Database& database) { database.TableDefs("USERLIST").Fields().Delete("REMARKS"); });
    const Outcome outcome = m_case.run({"users"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err,
                StartsWith("tolctl: Table \"USERLIST\", field \"REMARKS\": Item not found in this "
                           "collection. ("));
    EXPECT_THAT(outcome.err, HasSubstr(NetworkTables::file));
    EXPECT_THAT(outcome.err, HasSubstr("(error 3265)"));
}

TEST_F(RightsFile, AValueThatMakesNoSenseIsNamedWithItsPlace) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(NetworkTables::file, &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, "UPDATE USERRIGHTS SET ALLOWED = 'perhaps' WHERE URTTAG = 2", nullptr,
                           nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(database);
    for (const char* command : {"user", "effective", "diff"}) {
        const Outcome outcome = m_case.run({command, "jdoe", "--json"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, HasSubstr("Table \"USERRIGHTS\", field \"ALLOWED\": "));
        EXPECT_THAT(outcome.err, HasSubstr(NetworkTables::file));
    }
}

TEST_F(RightsFile, AnIndexThatIsMissingIsNamedWithTheFile) {
    change([](data::Database& database) { database.TableDefs("MODULES").Indexes().Delete("MODULES"); });
    const Outcome outcome = m_case.run({"modules"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("'MODULES' is not an index"));
    EXPECT_THAT(outcome.err, HasSubstr(NetworkTables::file));
}

/// Makes every field of the table's first record Null, one by one or all of them, and asks after each.
void emptyFields(const std::string& table, const std::function<void()>& ask) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase(NetworkTables::file);
    data::Recordset rows = database.OpenRecordset(table);
    for (int field = 0; field < rows.Fields().Count(); ++field) {
        const auto set = [&](const runtime::Value& value) {
            rows.MoveFirst();
            rows.Edit();
            rows.Fields(field).Value(value);
            rows.Update();
            runtime::flush();
        };
        rows.MoveFirst();
        const runtime::Value value = rows.Fields(field).Value();
        set(runtime::Null{});
        ask();
        set(value);
    }
}

TEST_F(RightsFile, NullInAnyFieldIsNoTrouble) {
    m_case.network.locks.add({{1, "MODULES", "jdoe", runtime::Null{}, 1, 1}});
    for (const char* table : {"MODULES", "USERACCESSITEMS", "URTEMPLATES", "URTITEMS", "USERLIST",
                              "USERRIGHTS", "NETTAGS", "NETSETTINGS", "RECORDLOCKS"})
        emptyFields(table, [&] {
            for (const Words& words : questions) {
                const Outcome outcome = m_case.run(words);
                EXPECT_TRUE(
                    outcome.status == 0 || outcome.status == 5 ||
                    (outcome.status == 1 && outcome.err.find("there is no") != std::string::npos) ||
                    (outcome.status == 1 && outcome.err.find("nothing was written") != std::string::npos))
                    << table << " " << words[0] << " " << outcome.status << " " << outcome.err;
            }
        });
}

TEST_F(RightsFile, NullIsABlankAZeroOrANo) {
    const runtime::Null none;
    m_case.network.users.add({{none, none, none, none}});
    EXPECT_EQ(m_case.json({"users"})[0],
              R"({"USERTAG": 0, "UserName": "", "REMARKS": "", "ADMIN": false})"_json);
    m_case.network.accessItems.add({{none, none, none, none, none}});
    EXPECT_EQ(m_case.json({"items"})[0],
              R"({"UAITAG": 0, "MODULEID": "", "UAICODE": "", "Desc": "", "FORMNAME": ""})"_json);
    m_case.network.rights.add({{none, none, none, none}});
    EXPECT_EQ(m_case.json({"check"}, 5)[0]["kind"], "item-without-module");
}

/// Another program that has the database open, reads in it and goes on reading.
TEST(RightsOfOthers, AreReadWhileSomebodyReads) {
    const RightsCase rights;
    SecondProcess reader([&](const SecondProcess::Steps& steps) {
        sqlite3* database = nullptr;
        if (sqlite3_open((rights.folder() / NetworkTables::file).c_str(), &database) != SQLITE_OK ||
            sqlite3_exec(database, "BEGIN; SELECT count(*) FROM USERRIGHTS", nullptr, nullptr, nullptr) !=
                SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(database));
        steps.done();
        steps.wait();
        sqlite3_close(database);
    });
    ASSERT_TRUE(reader.await());
    for (const Words& words : questions) {
        if (words[0] != "fill" && words[0] != "apply") {
            EXPECT_EQ(rights.run(words).status, 0) << words[0];
        }
    }
    reader.next();
    EXPECT_EQ(reader.finish(), 0);
}

/// A sibling that is about to write: what it has stored is read, and it is not kept from going on.
TEST(RightsOfOthers, AreReadWhileSomebodyWrites) {
    const RightsCase rights;
    SecondProcess writer([&](const SecondProcess::Steps& steps) {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database database = workspace.OpenDatabase((rights.folder() / NetworkTables::file).string());
        data::Recordset rows = database.OpenRecordset("MODULES");
        workspace.BeginTrans();
        rows.AddNew();
        rows.Fields("MODULEID").Value("Z");
        rows.Update();
        steps.done();
        steps.wait();
        workspace.CommitTrans();
    });
    ASSERT_TRUE(writer.await());
    EXPECT_EQ(rights.json({"modules"}).size(), 2U);
    EXPECT_EQ(rights.json({"check"}), Json::array());
    writer.next();
    EXPECT_EQ(writer.finish(), 0);
    EXPECT_EQ(rights.json({"modules"}).size(), 3U);
}

TEST_F(RightsFile, MayBeOneThatCanOnlyBeRead) {
    namespace fs = std::filesystem;
    fs::permissions(m_case.folder() / NetworkTables::file, fs::perms::owner_read);
    fs::permissions(m_case.folder().path(), fs::perms::owner_read | fs::perms::owner_exec);
    const auto run = [&](const Words& words) {
        Words all = words;
        all.insert(all.begin(), "rights");
        auto program =
            std::make_unique<Program>(TOL_CTL_PROGRAM, all, m_case.folder().path(), withoutRightsOfRoot);
        program->wait();
        return program;
    };
    EXPECT_EQ(run({"check"})->wait(), 0);
    EXPECT_EQ(run({"apply", "rights.csv", "--dry-run"})->wait(), 0);
    const auto apply = run({"apply", "rights.csv"});
    EXPECT_EQ(apply->wait(), 1);
    EXPECT_THAT(apply->err(), HasSubstr(NetworkTables::file));
    fs::permissions(m_case.folder().path(), fs::perms::owner_all);
}

class RightsReader : public RightsFile {
  protected:
    /// Runs a command whose output goes to a pipe that nobody reads.
    std::unique_ptr<Program> unread(const Words& words, bool signalIsIgnored) const {
        int ends[2] = {};
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        close(ends[0]);
        Words all = words;
        all.insert(all.begin(), "rights");
        auto program = std::make_unique<Program>(TOL_CTL_PROGRAM, all, m_case.folder().path(), [&] {
            dup2(ends[1], STDOUT_FILENO);
            signal(SIGPIPE, signalIsIgnored ? SIG_IGN : SIG_DFL);
        });
        close(ends[1]);
        return program;
    }
};

TEST_F(RightsReader, WhoGoesAwayHearsNoMore) {
    for (const Words& words : questions)
        for (const char* form : {"--json", "--csv"}) {
            Words all = words;
            all.emplace_back(form);
            const auto signalled = unread(all, false);
            EXPECT_EQ(signalled->wait(), -SIGPIPE) << words[0];
            const auto told = unread(all, true);
            const bool isWritten = words[0] == "fill" || words.back() == "rights.csv";
            EXPECT_EQ(told->wait(), isWritten ? 3 : 1) << words[0];
            for (const auto* program : {signalled.get(), told.get()})
                EXPECT_THAT(program->err(), testing::Not(HasSubstr("tolctl"))) << words[0];
        }
    EXPECT_THAT(m_case.network.rights.rows(), testing::Contains("1|1|True|Null")) << "what was applied stays";
}

TEST_F(RightsReader, APlaceThatIsFullIsTold) {
    Program check(TOL_CTL_PROGRAM, {"rights", "users"}, m_case.folder().path(),
                  [] { dup2(open("/dev/full", O_WRONLY | O_CLOEXEC), STDOUT_FILENO); });
    EXPECT_EQ(check.wait(), 1);
    EXPECT_EQ(check.err(), "tolctl: standard output can't be written.\n");
}

TEST_F(RightsFile, WrongUsageIsStatusTwo) {
    const std::vector<Words> cases = {{},
                                      {"nonsense"},
                                      {"--nonsense"},
                                      {"user"},
                                      {"user", "a", "b"},
                                      {"template"},
                                      {"modules", "N"},
                                      {"items", "--module"},
                                      {"users", "--json", "--csv"},
                                      {"who"},
                                      {"fill", "jdoe"},
                                      {"apply"},
                                      {"apply", "rights.csv", "--dry"},
                                      {"check", "jdoe"}};
    for (const Words& words : cases) {
        const Outcome outcome = m_case.run(words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.out, IsEmpty());
        EXPECT_THAT(outcome.err, HasSubstr("--help"));
    }
    EXPECT_THAT(m_case.run({"nonsense"}).err, HasSubstr("\"nonsense\""));
}

} // namespace
} // namespace tol::test
