// SPDX-License-Identifier: MIT
#include "CaseFolder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tol::test {
namespace {

using namespace nlohmann::literals;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
namespace fs = std::filesystem;

class RefreshTest : public testing::Test {
  protected:
    RefreshTest() {
        fs::create_directories(m_case.folder.driveC() / "REF");
        fs::create_directories(m_case.folder.driveC() / "NET");
        addReference("WORK");
        m_case.load("drives/c/REF/WORK.MDB", databaseOf({crew()}));
    }

    static Json crew() {
        Json table = tableOf("Crew", R"([["Tag", 4, 4], ["Name", 10, 16]])"_json, Json::array());
        table["indexes"] = R"([{"name": "CREW", "fields": ["Tag", "Name"]}])"_json;
        return table;
    }

    void addReference(const std::string& name) {
        m_case.addDatabaseRow(Json::array({name, "DBPATHS", "N", false, "C:\\REF", "", name}));
    }
    /// The network database in that folder of the case.
    void makeNetwork(const std::string& folder) const {
        Json modules = tableOf("MODULES", R"([["MODULEID", 10, 3], ["MODULENAME", 10, 30]])"_json,
                               Json::array({Json::array({"NET", "Network"})}));
        modules["indexes"] = R"([{"name": "MODULES", "fields": ["MODULEID"]}])"_json;
        Json items = tableOf("USERACCESSITEMS",
                             R"([["UAITAG", 4, 4], ["MODULEID", 10, 3], ["UAICODE", 10, 10], ["Desc", 10, 40],
                ["FORMNAME", 10, 20]])"_json,
                             R"([[7, "NET", "LOCKS", "Delete locks", "frmTOLRLKS01"]])"_json);
        items["indexes"] = R"([{"name": "USERACCESSITEMS", "fields": ["UAICODE"]}])"_json;
        m_case.load(folder + "ZOVNET.MDB", databaseOf({modules, items}));
    }
    void storeNetPath(const Json& rows) const {
        m_case.load("NETPATH.MDB", databaseOf({tableOf("NETPATH", R"([["Path", 10, 100]])"_json, rows)}));
    }

    CaseFolder m_case;
};

TEST_F(RefreshTest, FillsDefinitionsAndLists) {
    makeNetwork("");
    m_case.finish();
    const Outcome outcome = m_case.run({"refresh"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_EQ(outcome.err, "Finished. Database Definitions Have Been Refreshed.\n  NEWDEF: 2 rows\n"
                           "  NEWINDEXES: 1 rows\n  MODULES: 1 rows\n  USERACCESSITEMS: 1 rows\n");
    EXPECT_EQ(m_case.rows("ZOVDEF.MDB", "NEWDEF"),
              R"([["WORK", "CREW", "TAG", 4, 4, 0], ["WORK", "CREW", "NAME", 16, 10, 1]])"_json);
    EXPECT_EQ(m_case.rows("ZOVDEF.MDB", "NEWINDEXES")[0][3], "TagName");
    EXPECT_EQ(m_case.rows("ZOVDEF.MDB", "MODULES"), Json::array({Json::array({"NET", "Network"})}));
    EXPECT_EQ(m_case.rows("ZOVDEF.MDB", "USERACCESSITEMS")[0][4], "frmTOLRLKS01");
}

TEST_F(RefreshTest, ReportsAsJson) {
    makeNetwork("");
    m_case.finish();
    const Outcome outcome = m_case.run({"refresh", "--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, IsEmpty());
    EXPECT_EQ(outcome.json(), R"({"result": "Finished", "messages": [],
        "counts": {"NEWDEF": 2, "NEWINDEXES": 1, "MODULES": 1, "USERACCESSITEMS": 1}})"_json);
}

TEST_F(RefreshTest, AMissingReferenceIsStatusThree) {
    makeNetwork("");
    addReference("GONE");
    m_case.finish();
    const Outcome outcome = m_case.run({"refresh", "--json"});
    EXPECT_EQ(outcome.status, 3);
    const Json report = outcome.json();
    EXPECT_EQ(report["result"], "Finished");
    EXPECT_EQ(report["messages"], R"([{"title": "Cannot Locate Target", "answer": "OK",
        "text": "Cannot Locate Target Database: C:\\REF\\GONE.MDB"}])"_json);
    EXPECT_EQ(report["counts"]["NEWDEF"], 2);
}

// Many references may be missing alike; that comes to an end.
TEST_F(RefreshTest, ManyBoxesAlikeDoNotStopIt) {
    makeNetwork("");
    for (int i = 0; i < 5; ++i)
        m_case.addDatabaseRow(
            Json::array({"DB" + std::to_string(i), "DBPATHS", "N", false, "C:\\REF", "GONE", ""}));
    m_case.finish();
    const Outcome outcome = m_case.run({"refresh", "--json"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.json()["messages"].size(), 5U);
}

TEST_F(RefreshTest, AMissingNetworkDatabaseIsStatusThree) {
    m_case.finish();
    const Outcome outcome = m_case.run({"refresh"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.err,
                HasSubstr("INCOMPLETE. Database Definitions Have Been Refreshed, the Network Lists "
                          "Have Not.\n"));
    EXPECT_THAT(outcome.err, Not(HasSubstr("Finished")));
    EXPECT_EQ(m_case.run({"refresh", "--json"}).json()["result"], "INCOMPLETE");
    EXPECT_EQ(m_case.rows("ZOVDEF.MDB", "NEWDEF").size(), 2U);
}

TEST_F(RefreshTest, OneThatBreaksOffKeepsUpdatesFromBeginning) {
    makeNetwork("");
    addReference("ZTORN");
    m_case.folder.write("drives/c/REF/ZTORN.MDB", "torn to pieces, every single page of it");
    m_case.addSite("NORTH YARD", "C:\\NORTH");
    m_case.load("drives/c/NORTH/WORK.MDB",
                databaseOf({tableOf("Kept", R"([["A", 4, 4]])"_json, Json::array())}));
    m_case.finish();
    const Outcome torn = m_case.run({"refresh"});
    EXPECT_EQ(torn.status, 3);
    EXPECT_THAT(torn.err, HasSubstr("INCOMPLETE. Database Definitions ARE INCOMPLETE"));

    const Outcome refused = m_case.run({"update", "--json"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.out, IsEmpty());
    EXPECT_THAT(refused.err,
                StartsWith("Error During Processing\n  The Last Refresh of the Database Definitions Did "
                           "Not Finish.\n"));
    EXPECT_EQ(m_case.dump("drives/c/NORTH/WORK.MDB")["tables"][0]["name"], "Kept");

    fs::remove(m_case.folder.driveC() / "REF" / "ZTORN.MDB");
    m_case.load("drives/c/REF/ZTORN.MDB", databaseOf({crew()}));
    EXPECT_EQ(m_case.run({"refresh"}).status, 0);
    EXPECT_EQ(m_case.run({"update"}).status, 0);
    EXPECT_EQ(m_case.dump("drives/c/NORTH/WORK.MDB")["tables"][0]["name"], "CREW");
}

// The lists are emptied in the file of that name in the network's folder.
TEST_F(RefreshTest, TakesTheNetworkFolderFromItsDatabase) {
    makeNetwork("drives/c/NET/");
    storeNetPath(R"([["C:\\NET\\"]])"_json);
    m_case.finish();
    const Outcome without = m_case.run({"refresh", "--json"});
    EXPECT_EQ(without.status, 3);
    EXPECT_EQ(without.json()["messages"].back()["text"], "Cannot Refresh Network Modules List");
    EXPECT_THAT(without.json()["messages"][0]["text"].get<std::string>(), HasSubstr("MODULES"));

    fs::create_symlink("../../../ZOVDEF.MDB", m_case.folder.driveC() / "NET" / "ZOVDEF.MDB");
    const Outcome with = m_case.run({"refresh", "--json"});
    EXPECT_EQ(with.status, 0) << with.out;
    EXPECT_EQ(with.json()["counts"]["USERACCESSITEMS"], 1);
}

TEST_F(RefreshTest, ABlankNetworkFolderIsTheCurrentOne) {
    for (const char* rows : {R"([])", R"([[null]])", R"([["  "]])"}) {
        CaseFolder other;
        fs::remove(m_case.folder / "NETPATH.MDB");
        fs::current_path(m_case.folder.path());
        storeNetPath(Json::parse(rows));
        if (!fs::exists(m_case.folder / "ZOVNET.MDB")) {
            makeNetwork("");
            m_case.finish();
        }
        EXPECT_EQ(m_case.run({"refresh", "--json"}).status, 0) << rows;
    }
}

TEST_F(RefreshTest, ADefinitionDatabaseWithoutItsTablesCannotStart) {
    m_case.load("ZOVDEF.MDB", databaseOf({}));
    const Outcome outcome = m_case.run({"refresh", "--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_THAT(outcome.err, StartsWith("tolctl: Cannot find the table 'NEWDEF'."));
}

TEST_F(RefreshTest, ADefinitionDatabaseThatMayOnlyBeReadCannotStart) {
    makeNetwork("");
    m_case.finish();
    fs::permissions(m_case.folder / "ZOVDEF.MDB", fs::perms::owner_read);
    Program refresh(TOL_CTL_PROGRAM, {"refresh", "--json"}, m_case.folder.path(), withoutRightsOfRoot);
    EXPECT_EQ(refresh.wait(), 1);
    EXPECT_THAT(refresh.out(), IsEmpty());
    EXPECT_THAT(refresh.err(), HasSubstr("Error: 3027 RefreshDefinitions"));
    EXPECT_THAT(refresh.err(), HasSubstr("'" + (m_case.folder / "ZOVDEF.MDB").string() + "' is read-only."));
}

} // namespace
} // namespace tol::test
