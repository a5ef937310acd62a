// SPDX-License-Identifier: MIT
// The refresh of the wanted definition from reference databases, and of the network's lists.
#include "UpdateWorld.h"

#include "definition_update/engine/DefinitionRefresh.h"
#include "support/FullDisk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using update::RefreshLabel;
using update::RefreshOutcome;

const std::string blankSlot(20, ' ');

class RefreshRecorder : public update::RefreshView {
  public:
    void showLabel(RefreshLabel label, const std::string& text) override {
        labels[label] = text;
        history[label].push_back(text);
    }
    void enableCancel() override {
        ++cancelEnabled;
        if (onFilling)
            onFilling();
    }

    std::function<void()> onFilling; ///< behind the emptying
    std::map<RefreshLabel, std::string> labels;
    std::map<RefreshLabel, std::vector<std::string>> history;
    int cancelEnabled = 0;
};

class Refresh : public testing::Test {
  protected:
    Refresh() {
        const Json reference = Json::parse(R"({
            "Orders": {"fields": [["Id", 4], ["note", 12], ["Zip", 10, 5]], "indexes": {"ById": ["Id", "Zip"]}},
            "Bare": {},
            "mSysOwn": {"fields": [["X", 4]], "indexes": {"ByX": ["X"]}}})");
        world.addFile("drives/c/REF/JOBS.MDB", reference);
        world.addFile("drives/c/REF/NETCOPY.MDB",
                      Json::parse(R"({"MODULES": {"fields": [["MODULEID", 10, 3]]}})"));
        world.addFile("NETPATH.MDB",
                      Json::parse(R"({"NETPATH": {"fields": [["Path", 10, 50]], "rows": [["C:\\NET"]]}})"));
        world.addFile("drives/c/NET/ZOVNET.MDB", Json::parse(R"({
            "MODULES": {"fields": [["MODULEID", 10, 3], ["MODULENAME", 10, 30]], "indexes": {"MODULES": ["MODULEID"]},
                        "rows": [["PAY", "Payroll"], ["ACC", null]]},
            "USERACCESSITEMS": {
                "fields": [["UAITAG", 4], ["MODULEID", 10, 3], ["UAICODE", 10, 10], ["Desc", 10, 40], ["FORMNAME", 10, 20],
                           ["EXTRA", 4]],
                "indexes": {"USERACCESSITEMS": ["MODULEID", "UAICODE"]},
                "rows": [[2, "PAY", "RUN", "Run it", "frmRUN", 9], [1, "ACC", "SEE", "See it", "frmSEE", 9]]}})"));
    }

    static void list(const Json& databases) { UpdateWorld::addRowsOf("DATABASES", databases); }
    static void listJobsAndNet() {
        list(Json::parse(R"([["ZNET", "NETPATH", "N", false, "c:\\ref", " netcopy ", "Network"],
                             ["jobs", "DBPATHS", "N", false, " C:\\REF", null, "Jobs of a site"]])"));
    }
    static Json table(const std::string& name) { return readDatabase("ZOVDEF.MDB")[name]["rows"]; }

    bool refresh(const std::string& netLocation = " ", int cancelAtYield = 0) {
        update::DefinitionRefresh refreshing(view, netLocation);
        world.host.onYield = [&] {
            if (world.host.yields == cancelAtYield)
                refreshing.Cancel();
        };
        outcome = refreshing.RefreshDefinitions();
        world.host.onYield = {};
        return outcome == RefreshOutcome::Finished;
    }

    /// Whether an update begins, and does its work, on what the refresh left. Where it does not, a box says
    /// so and nothing is touched.
    bool updateBegins() {
        if (!std::filesystem::exists(world.folder.driveC() / "SITE")) {
            world.addFile("drives/c/SITE/JOBS.mdb",
                          Json::parse(R"({"KEPT": {"fields": [["A", 4]], "rows": [[1]]}})"));
            UpdateWorld::addSites(Json::parse(R"([["SITE", "C:\\SITE"]])"));
            UpdateWorld::addRowsOf("ACTIVITYLOG", Json::parse(R"([["of the last run"]])"));
        }
        world.host.boxes.clear();
        UpdateRun run;
        run(world);
        if (run.ended)
            return true;
        EXPECT_THAT(world.host.texts(),
                    ElementsAre(testing::HasSubstr("Refresh the Database Definitions First.")));
        EXPECT_THAT(run.view.states, IsEmpty());
        EXPECT_EQ(table("ACTIVITYLOG").size(), 1U);
        EXPECT_TRUE(readDatabase("C:\\SITE\\JOBS.mdb").contains("KEPT"));
        return false;
    }
    /// A file that another program made.
    void addForeignFile(const std::string& name, const std::string& sql) const {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open((world.folder.path() / name).c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(database);
    }

    UpdateWorld world;
    RefreshRecorder view;
    RefreshOutcome outcome = RefreshOutcome::NotBegun;
};

TEST_F(Refresh, fillsTheWantedDefinitionInUpperCase) {
    listJobsAndNet();
    UpdateWorld::addRowsOf("NEWDEF", Json::parse(R"([["OLD", "T", "F", 4, 4, 0]])"));
    UpdateWorld::addRowsOf("NEWINDEXES", Json::parse(R"([["OLD", "T", "I", "F", "F"]])"));
    EXPECT_TRUE(refresh());
    EXPECT_EQ(table("NEWDEF"),
              Json::parse(R"([["JOBS", "ORDERS", "ID", 4, 4, 0], ["JOBS", "ORDERS", "NOTE", 0, 12, 1],
                                               ["JOBS", "ORDERS", "ZIP", 5, 10, 2], ["ZNET", "MODULES", "MODULEID", 3, 10, 0]])"));
    Json index = Json::parse(R"(["JOBS", "Orders", "ById", "IdZip", "Id", "Zip"])");
    for (int slot = 3; slot <= 10; ++slot)
        index.push_back(blankSlot);
    EXPECT_EQ(table("NEWINDEXES"), Json::array({index}));
    EXPECT_THAT(world.host.boxes, IsEmpty());
}

TEST_F(Refresh, leavesASiteThatEqualsTheReferenceAsItIs) {
    Json fields = Json::array();
    for (const char* letter : {"ß", "ŉ", "ǰ", "ΐ", "ı", "İ", "ſ", "ﬁ", "µ", "ς", "ᾳ", "ǅ", "\u212A", "SS"})
        fields.push_back(Json::array({std::string("F") + letter, 4}));
    Json row = Json::array();
    for (std::size_t value = 0; value < fields.size(); ++value)
        row.push_back(value);
    const Json tables{{"Größe", {{"fields", fields}, {"rows", Json::array({row})}}}};
    for (const char* file : {"drives/c/REF/GROSS.MDB", "drives/c/NORTH/GROSS.MDB"})
        world.addFile(file, tables);
    list(Json::parse(R"([["GROSS", "DBPATHS", "N", false, "C:\\REF", " ", " "]])"));
    EXPECT_TRUE(refresh());
    UpdateWorld::addSites(Json::array({Json::array({"NORTH", "C:\\NORTH"})}));
    UpdateRun update;
    update(world);
    EXPECT_EQ(readDatabase("C:\\NORTH\\GROSS.MDB"), completed(tables));
    for (const Json& logged : UpdateWorld::activityLog())
        EXPECT_EQ(logged.at(5), "Database Ok. No Changes Made.");
}

TEST_F(Refresh, copiesTheNetworksLists) {
    listJobsAndNet();
    UpdateWorld::addRowsOf("MODULES", Json::parse(R"([["OLD", "Old"]])"));
    EXPECT_TRUE(refresh());
    EXPECT_EQ(table("MODULES"),
              Json::array({Json::array({"ACC", std::string(30, ' ')}), Json::array({"PAY", "Payroll"})}));
    EXPECT_EQ(
        table("USERACCESSITEMS"),
        Json::parse(R"([[1, "ACC", "SEE", "See it", "frmSEE"], [2, "PAY", "RUN", "Run it", "frmRUN"]])"));
}

TEST_F(Refresh, showsHowFarItHasCome) {
    listJobsAndNet();
    refresh();
    EXPECT_EQ(view.cancelEnabled, 1);
    EXPECT_THAT(view.history[RefreshLabel::DBNAME], ElementsAre("JOBS", "ZNET", "Finished"));
    EXPECT_THAT(view.history[RefreshLabel::DBDESC],
                ElementsAre("Jobs of a site", "Network", "Database Definitions Have Been Refreshed."));
    EXPECT_THAT(view.history[RefreshLabel::TNAME],
                ElementsAre(" ", "BARE", "ORDERS", "Bare", "Orders", " ", "MODULES", "MODULES", " "));
    EXPECT_THAT(view.history[RefreshLabel::FNAME],
                ElementsAre(" ", "ID", "NOTE", "ZIP", "Id", "Zip", " ", "MODULEID", " "));
    EXPECT_THAT(view.history[RefreshLabel::INAME], ElementsAre(" ", "ById", " ", " "));
}

TEST_F(Refresh, asksForNothingWhenAReferenceIsMissing) {
    list(Json::parse(R"([["AWAY", "DBPATHS", "N", false, "C:\\REF", "", "Not there"],
                         ["JOBS", "DBPATHS", "N", false, "C:\\REF", "", "Jobs"]])"));
    EXPECT_TRUE(refresh());
    ASSERT_EQ(world.host.boxes.size(), 1U);
    EXPECT_EQ(world.host.boxes[0].title, "Cannot Locate Target");
    EXPECT_EQ(world.host.boxes[0].text, "Cannot Locate Target Database: C:\\REF\\AWAY.MDB");
    EXPECT_EQ(world.host.boxes[0].style.icon, runtime::MsgIcon::Information);
    EXPECT_EQ(table("NEWDEF").size(), 3U);
}

TEST_F(Refresh, cancelledKeepsWhatItHasAndStillCopiesTheLists) {
    listJobsAndNet();
    EXPECT_FALSE(refresh(" ", 1));
    EXPECT_EQ(table("NEWDEF").size(), 3U);
    EXPECT_EQ(view.labels[RefreshLabel::DBNAME], "Process Canceled");
    EXPECT_EQ(view.labels[RefreshLabel::DBDESC], "Database Definitions ARE INCOMPLETE.");
    EXPECT_EQ(table("MODULES").size(), 2U);
    EXPECT_EQ(table("USERACCESSITEMS").size(), 2U);
    EXPECT_EQ(outcome, RefreshOutcome::Canceled);
    EXPECT_FALSE(updateBegins()); // it would take the rest for unwanted
    EXPECT_TRUE(refresh());
    EXPECT_TRUE(updateBegins());
}

TEST_F(Refresh, reportsAReferenceThatCantBeRead) {
    list(Json::parse(
        R"([["JOBS", "DBPATHS", "N", false, "C:\\REF", "", ""], ["TORN", "DBPATHS", "N", false, "C:\\REF", "", ""]])"));
    world.folder.write("drives/c/REF/TORN.MDB", "torn to pieces, every single page of it");
    EXPECT_FALSE(refresh());
    ASSERT_EQ(world.host.boxes.size(), 1U);
    EXPECT_EQ(world.host.boxes[0].title, "Error During Processing");
    EXPECT_EQ(world.host.boxes[0].text,
              "Error Encountered In Form: frmDBURefresh\nError: 3343 RefreshDefinitions\n"
              "Unrecognized database format '" +
                  (world.folder.path() / "drives/c/REF/TORN.MDB").string() + "'.");
    EXPECT_EQ(table("NEWDEF").size(), 3U);
    EXPECT_EQ(table("MODULES").size(), 0U);
    EXPECT_EQ(outcome, RefreshOutcome::Incomplete);
    EXPECT_FALSE(updateBegins());
}

TEST_F(Refresh, reportsANameThatTheDefinitionCantHoldAndGoesOn) {
    const std::string longName(63, 'N');
    world.addFile("drives/c/REF/WIDE.MDB",
                  {{"T", {{"fields", Json::array({Json::array({"A", 4}), Json::array({longName, 4})})}}}});
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
    Json narrow = Json::object();
    narrow["NEWDEF"] = readDatabase("ZOVDEF.MDB")["NEWDEF"];
    narrow["NEWDEF"]["fields"][2][2] = 10;
    definitions.TableDefs().Delete("NEWDEF");
    addTables(definitions, narrow);
    definitions.Close();
    list(Json::parse(
        R"([["WIDE", "DBPATHS", "N", false, "C:\\REF", "", ""], ["ZNET", "DBPATHS", "N", false, "C:\\REF", "NETCOPY", ""]])"));
    EXPECT_FALSE(refresh());
    EXPECT_THAT(world.host.texts(),
                ElementsAre("Error Encountered In Form: frmDBURefresh\nError: 3163 FillNewTableDef\n"
                            "The field 'FNAME' is too small to accept the amount of data."));
    EXPECT_EQ(table("NEWDEF").size(), 2U);
    EXPECT_EQ(view.labels[RefreshLabel::DBNAME], "Finished");
    EXPECT_EQ(view.labels[RefreshLabel::DBDESC], "Database Definitions ARE INCOMPLETE.");
    EXPECT_EQ(table("MODULES").size(), 2U);
    EXPECT_EQ(outcome, RefreshOutcome::Incomplete);
    EXPECT_FALSE(updateBegins());
}

TEST_F(Refresh, refusesANameThatIsTooLongBeforeItEmptiesAnything) {
    listJobsAndNet();
    EXPECT_TRUE(refresh());
    const std::string longName(70, 'n');
    addForeignFile("drives/c/REF/OTHER.MDB", "CREATE TABLE Far (A INTEGER, " + longName + " TEXT)");
    list(Json::parse(R"([["OTHER", "DBPATHS", "N", false, "C:\\REF", "", ""]])"));
    EXPECT_FALSE(refresh());
    EXPECT_THAT(
        world.host.texts(),
        ElementsAre("Error Encountered In Form: frmDBURefresh\nError: 3125 RefreshDefinitions\n'" + longName +
                    "' is not a valid name.\nIn the table 'Far' of 'C:\\REF\\OTHER.MDB'. A name may have 64 "
                    "characters, this one has 70."));
    EXPECT_EQ(outcome, RefreshOutcome::NotBegun);
    EXPECT_EQ(table("NEWDEF").size(), 4U);
    EXPECT_EQ(table("MODULES").size(), 2U);
    EXPECT_TRUE(updateBegins());
}

TEST_F(Refresh, takesNamesOfFullLength) {
    const std::string name(64, 'N');
    addForeignFile("drives/c/REF/OTHER.MDB", "CREATE TABLE " + name + " (A INTEGER)");
    list(Json::parse(R"([["OTHER", "DBPATHS", "N", false, "C:\\REF", "", ""]])"));
    EXPECT_TRUE(refresh());
    EXPECT_EQ(table("NEWDEF")[0][1], name);
}

TEST_F(Refresh, tellsOfRowsThatFindNoRoom) {
    Json fields = Json::array();
    for (int i = 0; i < 200; ++i)
        fields.push_back(Json::array({"A_FIELD_WITH_A_LONG_NAME_" + std::to_string(i), 4}));
    world.addFile("drives/c/REF/WIDE.MDB", {{"T", {{"fields", fields}}}});
    list(Json::parse(R"([["WIDE", "DBPATHS", "N", false, "C:\\REF", "", ""]])"));
    std::unique_ptr<FullDisk> full;
    view.onFilling = [&] { full = std::make_unique<FullDisk>(std::filesystem::file_size("ZOVDEF.MDB")); };
    EXPECT_FALSE(refresh());
    full.reset();
    view.onFilling = {};
    ASSERT_FALSE(world.host.boxes.empty());
    EXPECT_EQ(world.host.texts()[0], "Error Encountered In Form: frmDBURefresh\nError: 3026 "
                                     "FillNewTableDef\nNot enough space on disk for '" +
                                         (world.folder.path() / "ZOVDEF.MDB").string() + "'.");
    EXPECT_EQ(view.labels[RefreshLabel::DBDESC], "Database Definitions ARE INCOMPLETE.");
    EXPECT_EQ(outcome, RefreshOutcome::Incomplete);
    EXPECT_FALSE(updateBegins());
    EXPECT_TRUE(refresh());
    EXPECT_EQ(table("NEWDEF").size(), 200U);
    EXPECT_TRUE(updateBegins());
}

TEST_F(Refresh, doesNotFinishWithoutTheListsRows) {
    listJobsAndNet();
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database network = workspace.OpenDatabase("C:\\NET\\ZOVNET.MDB");
    Json rows = Json::array();
    for (int i = 0; i < 1000; ++i)
        rows.push_back(Json::array({"M" + std::to_string(i % 90), "A module that has a name"}));
    addRows(network, "MODULES", rows);
    network.Close();
    // The rows of the lists are the last ones.
    std::unique_ptr<FullDisk> full;
    update::DefinitionRefresh refreshing(view, " ");
    world.host.onYield = [&] {
        if (world.host.yields == 2)
            full = std::make_unique<FullDisk>(std::filesystem::file_size("ZOVDEF.MDB") + 8192);
    };
    outcome = refreshing.RefreshDefinitions();
    full.reset();
    world.host.onYield = {};
    EXPECT_EQ(outcome, RefreshOutcome::WithoutLists);
    ASSERT_FALSE(world.host.boxes.empty());
    EXPECT_THAT(world.host.texts().back(),
                testing::HasSubstr("3026 RefreshDefinitions\nNot enough space on disk"));
    EXPECT_EQ(table("NEWDEF").size(), 4U);
    EXPECT_TRUE(updateBegins());
}

TEST_F(Refresh, needsAListedDatabase) {
    EXPECT_FALSE(refresh());
    EXPECT_THAT(
        world.host.texts(),
        ElementsAre(
            "Error Encountered In Form: frmDBURefresh\nError: 3021 RefreshDefinitions\nNo current record."));
}

TEST_F(Refresh, skipsTheDefinitionsWhenTheyCantBeEmptied) {
    listJobsAndNet();
    for (const char* name : {"NEWDEF", "NEWINDEXES"}) {
        world.host.boxes.clear();
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksOTHER");
        data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
        const data::Recordset held = definitions.OpenRecordset(name);
        EXPECT_FALSE(refresh());
        EXPECT_THAT(world.host.texts(), ElementsAre("Cannot Obtain Exclusive use of the Table: " +
                                                    std::string(name) + "\nCannot Empty Table."));
        const bool untouched = std::string_view(name) == "NEWDEF";
        EXPECT_EQ(outcome, untouched ? RefreshOutcome::NotBegun : RefreshOutcome::Incomplete);
        EXPECT_EQ(readDatabase("ZOVDEF.MDB").contains("FILLINGNOTENDED"), !untouched);
    }
    EXPECT_EQ(view.cancelEnabled, 0);
    EXPECT_EQ(table("MODULES").size(), 2U);
}

TEST_F(Refresh, tellsWhichListCantBeRefreshed) {
    listJobsAndNet();
    const std::map<std::string, std::string> names{{"MODULES", "Modules"},
                                                   {"USERACCESSITEMS", "User Access Items"}};
    for (const auto& [name, shown] : names) {
        world.host.boxes.clear();
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksOTHER");
        data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
        const data::Recordset held = definitions.OpenRecordset(name);
        EXPECT_FALSE(refresh());
        ASSERT_EQ(world.host.boxes.size(), 2U);
        EXPECT_EQ(world.host.boxes[1].title, "Cannot Refresh");
        EXPECT_EQ(world.host.boxes[1].text, "Cannot Refresh Network " + shown + " List");
        EXPECT_EQ(world.host.boxes[1].style.icon, runtime::MsgIcon::Critical);
        EXPECT_EQ(table("USERACCESSITEMS").size(), 0U);
    }
}

// The copies are emptied in the file of the network location, but filled in that of the current folder.
TEST_F(Refresh, emptiesTheListsOfTheNetworkLocation) {
    listJobsAndNet();
    UpdateWorld::addRowsOf("MODULES", Json::parse(R"([["OLD", "Old"]])"));
    std::filesystem::copy_file("ZOVDEF.MDB", world.folder.driveC() / "NET" / "ZOVDEF.MDB");
    EXPECT_TRUE(refresh("C:\\NET"));
    EXPECT_EQ(table("MODULES").size(), 3U);
    EXPECT_EQ(readDatabase("C:\\NET\\ZOVDEF.MDB")["MODULES"]["rows"].size(), 0U);
}

TEST_F(Refresh, needsAZovdefInTheNetworkLocation) {
    listJobsAndNet();
    EXPECT_FALSE(refresh("C:\\NET"));
    EXPECT_THAT(world.host.texts(),
                ElementsAre("Cannot Obtain Exclusive use of the Table: MODULES\nCannot Empty Table.",
                            "Cannot Refresh Network Modules List"));
}

TEST_F(Refresh, reportsANetworkDatabaseThatIsNotFound) {
    listJobsAndNet();
    std::filesystem::remove(world.folder.driveC() / "NET" / "ZOVNET.MDB");
    EXPECT_FALSE(refresh());
    ASSERT_EQ(world.host.boxes.size(), 2U);
    EXPECT_EQ(world.host.boxes[0].title, "Cannot Access");
    EXPECT_THAT(
        world.host.boxes[1].text,
        testing::StartsWith("Error Encountered In Form: frmDBURefresh\nError: 3024 RefreshDefinitions\n"));
    EXPECT_EQ(table("NEWDEF").size(), 4U);
}

} // namespace
} // namespace tol::test
