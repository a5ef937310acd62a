// SPDX-License-Identifier: MIT
#include "demo/Demo.h"

#include "demo_support/DemoFolder.h"
#include "platform/Paths.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <set>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

std::vector<std::string> column(const std::string& file, const std::string& table, const std::string& field) {
    std::vector<std::string> all;
    forEachRow(file, table, [&](const data::Recordset& row) { all.push_back(text(row, field)); });
    return all;
}

std::int32_t largest(const std::string& file, const std::string& table, const std::string& field) {
    std::int32_t most = 0;
    forEachRow(file, table, [&](const data::Recordset& row) {
        most = std::max(most, runtime::toLong(row.Fields(field).Value()));
    });
    return most;
}

TEST(Demo, TheProgramStartsInItAndNeedsNothingElse) {
    const DemoFolder demo;
    for (const std::string name :
         {"NETPATH.MDB", "DBPATHS.MDB", "ZOVDEF.MDB", "MAIN.MDB", "WNDPATH.mdb", R"(C:\ZOVUSER\ZOVUSER.MDB)",
          R"(C:\ZOVUSER\ZOVTIME.MDB)", R"(C:\ZOVUSER\SNTCOST.MDB)"})
        EXPECT_FALSE(platform::dir(name).empty()) << name;
    EXPECT_FALSE(platform::dir(demo.net()).empty());
}

TEST(Demo, HoldsNoMarkerOfADeveloper) {
    const DemoFolder demo;
    EXPECT_TRUE(platform::dir(R"(C:\VBP\ZOV\ZOVORV.vbp)").empty());
    for (const Site& site : demo.sites())
        EXPECT_TRUE(platform::dir(platform::join(site.location, "ZOVORV.vbp")).empty()) << site.name;
}

TEST(Demo, HasSixJobSitesInFoldersOfTheirOwnAndTheirCounter) {
    const DemoFolder demo;
    const std::vector<Site> sites = demo.sites();
    ASSERT_EQ(sites.size(), 6U);
    std::set<fs::path> folders;
    for (const Site& site : sites) {
        const fs::path folder = platform::hostPath(site.location);
        EXPECT_TRUE(fs::is_directory(folder)) << folder;
        EXPECT_THAT(folder.string(), HasSubstr(demo.path().string())) << "a copy of the demo stands alone";
        folders.insert(folder);
    }
    EXPECT_EQ(folders.size(), 6U);
    EXPECT_EQ(column("DBPATHS.MDB", "DBTAGS", "DBTAG"), std::vector<std::string>{"7"});
    EXPECT_EQ(largest("DBPATHS.MDB", "DBPATHS", "DBTAG"), 6);
}

TEST(Demo, ListsDatabasesOfEveryPathCode) {
    const DemoFolder demo;
    const std::vector<std::string> codes = column("ZOVDEF.MDB", "DATABASES", "PATHCODE");
    EXPECT_THAT(
        std::set<std::string>(codes.begin(), codes.end()),
        UnorderedElementsAre("DBPATHS", "ZOVUSER", "ZOVTIME", "SNTCOST", "DEFAULT", "WNDPATH", "NETPATH"));
    EXPECT_THAT(column("ZOVDEF.MDB", "DATABASES", "Optional"), Contains("True"));
    EXPECT_THAT(column("ZOVDEF.MDB", "DATABASES", "Modules"), Contains("LM")) << "one without module N";
    for (const std::string table : {"OLDDEF", "OLDINDEXES", "ACTIVITYLOG"})
        EXPECT_EQ(rowCount("ZOVDEF.MDB", table), 0) << table;
}

TEST(Demo, OnlyDatabasesThatMayBeMissingAreMissing) {
    const DemoFolder demo;
    std::set<std::string> missing;
    for (const Site& site : demo.sites()) {
        for (const SuiteDatabase& database : demo.databases()) {
            if (platform::dir(demo.fileOf(database, site)).empty())
                missing.insert(database.name);
        }
    }
    EXPECT_THAT(missing, UnorderedElementsAre("SAFETY", "SUBCON"));
}

TEST(Demo, IsAsLargeAsAWorkingSuite) {
    const DemoFolder demo;
    std::int64_t tables = 0, fields = 0, indexes = 0, rows = 0;
    for (const SuiteDatabase& database : demo.databases()) {
        for (const auto& [name, table] : demo.wanted(database.name)) {
            ++tables;
            fields += static_cast<std::int64_t>(table.fields.size());
            indexes += static_cast<std::int64_t>(table.indexes.size());
        }
    }
    for (const auto& [file, database] : demo.targets()) {
        for (const auto& [name, table] : definitionsOf(file))
            rows += rowCount(file, name);
    }
    EXPECT_NEAR(static_cast<double>(tables), 60, 8);
    EXPECT_NEAR(static_cast<double>(fields), 740, 60);
    EXPECT_NEAR(static_cast<double>(indexes), 120, 20);
    EXPECT_NEAR(static_cast<double>(rows), 20'000, 2'000);
}

TEST(Demo, TheNetworkDatabaseHasAllRightsFilledIn) {
    const DemoFolder demo;
    const std::map<std::string, std::int64_t> rows{
        {"MODULES", 8}, {"USERACCESSITEMS", 120}, {"URTEMPLATES", 10}, {"USERLIST", 40},
        {"NETTAGS", 1}, {"NETSETTINGS", 1},       {"SITEINFO", 1},     {"RECORDLOCKS", 9}};
    for (const auto& [table, count] : rows)
        EXPECT_EQ(rowCount(demo.net(), table), count) << table;
    for (const auto& [tag, table] : std::map<std::string, std::string>{
             {"UAITAG", "USERACCESSITEMS"}, {"URTTAG", "URTEMPLATES"}, {"USERTAG", "USERLIST"}})
        EXPECT_EQ(largest(demo.net(), "NETTAGS", tag), largest(demo.net(), table, tag) + 1) << tag;
    const std::vector<std::string> templates = column(demo.net(), "URTITEMS", "URTTAG");
    EXPECT_EQ(std::set<std::string>(templates.begin(), templates.end()).size(), 10U)
        << "every template has items";
    const std::vector<std::string> users = column(demo.net(), "USERRIGHTS", "USERTAG");
    EXPECT_GE(std::set<std::string>(users.begin(), users.end()).size(), 39U);
    EXPECT_THAT(column(demo.net(), "USERRIGHTS", "URTTAG"), Contains(""))
        << "some rights are typed in by hand";
    EXPECT_THAT(column(demo.net(), "USERRIGHTS", "ALLOWED"), Contains("False"));
    EXPECT_THAT(column(demo.net(), "MODULES", "MODULEID"),
                Contains(column(demo.net(), "NETSETTINGS", "MODULEID").front()));
}

TEST(Demo, EveryReferenceInTheNetworkDatabaseLeadsSomewhere) {
    const DemoFolder demo;
    const auto leads = [&](const std::string& from, const std::string& field, const std::string& to,
                           const std::string& key) {
        const std::vector<std::string> keys = column(demo.net(), to, key);
        for (const std::string& value : column(demo.net(), from, field))
            EXPECT_TRUE(value.empty() || std::ranges::find(keys, value) != keys.end())
                << from << "." << field << " " << value;
        EXPECT_EQ(std::set<std::string>(keys.begin(), keys.end()).size(), keys.size()) << to << "." << key;
    };
    leads("USERACCESSITEMS", "MODULEID", "MODULES", "MODULEID");
    leads("URTITEMS", "URTTAG", "URTEMPLATES", "URTTAG");
    leads("URTITEMS", "UAITAG", "USERACCESSITEMS", "UAITAG");
    leads("USERRIGHTS", "USERTAG", "USERLIST", "USERTAG");
    leads("USERRIGHTS", "UAITAG", "USERACCESSITEMS", "UAITAG");
    leads("USERRIGHTS", "URTTAG", "URTEMPLATES", "URTTAG");
    leads("RECORDLOCKS", "RLUSERNAME", "USERLIST", "UserName");
    leads("RECORDLOCKS", "USERTAG", "USERLIST", "USERTAG");
}

TEST(Demo, TheNetworkDatabaseHasAllIndexesByName) {
    const DemoFolder demo;
    const Definitions live = definitionsOf(demo.net());
    const std::map<std::string, std::vector<std::string>> wanted{
        {"MODULES", {"MODULES"}},
        {"USERACCESSITEMS", {"USERACCESSITEMS", "UAICODE", "UAITAG", "UAIDESC"}},
        {"URTEMPLATES", {"URTCODE", "URTTAG", "URTNAME"}},
        {"URTITEMS", {"URTITEMS"}},
        {"USERLIST", {"USERNAME"}},
        {"USERRIGHTS", {"USERRIGHTS", "URTTAG"}},
        {"RECORDLOCKS", {"RECORDLOCKS"}}};
    for (const auto& [table, names] : wanted) {
        for (const std::string& name : names)
            EXPECT_GE(live.at(table).findIndex(name), 0) << table << " " << name;
    }
}

TEST(Demo, IsMadeWellWithinFiveSeconds) {
    const TempFolder folder;
    { const DemoFolder warm; }
    const auto start = std::chrono::steady_clock::now();
    demo::makeDemo(folder / "demo");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(Demo, IsTheSameEachTime) {
    const DemoFolder first;
    demo::makeDemo(first / "again");
    std::int64_t compared = 0;
    for (const auto& [file, database] : first.targets()) {
        const fs::path mine = platform::hostPath(file);
        const fs::path other = first / "again" / fs::relative(mine, first.path());
        for (const auto& [table, definition] : definitionsOf(file)) {
            std::vector<std::vector<runtime::Value>> rows[2];
            for (const int which : {0, 1})
                forEachRow(which == 0 ? mine.string() : other.string(), table,
                           [&](const data::Recordset& row) {
                               std::vector<runtime::Value> values;
                               for (int i = 0; i < row.Fields().Count(); ++i)
                                   values.push_back(row.Fields(i).Value());
                               rows[which].push_back(std::move(values));
                           });
            EXPECT_EQ(rows[0], rows[1]) << file << " " << table;
            compared += static_cast<std::int64_t>(rows[0].size());
        }
    }
    EXPECT_GT(compared, 15'000);
}

std::string refusal(const fs::path& folder) {
    try {
        demo::makeDemo(folder);
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), runtime::errPathAccess);
        return error.description();
    }
    return "none";
}

TEST(Demo, RefusesAFolderThatHoldsSomething) {
    const TempFolder folder;
    folder.write("full/letter.txt", "dear");
    const fs::path full = folder / "full";
    EXPECT_EQ(refusal(full), "The demo needs a folder of its own: '" + full.string() +
                                 "' exists and is not an empty folder.");
    EXPECT_EQ(folder.read("full/letter.txt"), "dear");
    EXPECT_EQ(std::distance(fs::directory_iterator(full), {}), 1);
}

TEST(Demo, RefusesAFileInTheFoldersPlace) {
    const TempFolder folder;
    useSqlite();
    folder.write("letter", "dear");
    EXPECT_THAT(refusal(folder / "letter"), HasSubstr("exists and is not an empty folder."));
    EXPECT_THAT(refusal(folder / "letter" / "below"), HasSubstr("can't be written to '"));
    EXPECT_EQ(folder.read("letter"), "dear");
}

} // namespace
} // namespace tol::test
