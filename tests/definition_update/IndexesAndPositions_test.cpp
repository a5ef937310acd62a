// SPDX-License-Identifier: MIT
// What the update leaves of an index's properties, and the numbers of field positions.
#include "UpdateWorld.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace tol::test {
namespace {

constexpr const char* jobs = "C:\\JOBS\\NORTH\\JOBS.MDB";

class OneDatabase : public testing::Test {
  protected:
    void make(const Json& tables) const { world.addFile("drives/c/JOBS/NORTH/JOBS.MDB", tables); }

    void runFor(const Json& wanted) {
        UpdateWorld::addRowsOf("DATABASES", Json::array({Json::array({"JOBS", "DBPATHS", "N", false})}));
        UpdateWorld::addSites(Json::array({Json::array({"NORTH", "C:\\JOBS\\NORTH"})}));
        UpdateWorld::addDefinitions({{"JOBS", wanted}});
        UpdateRun run;
        run(world);
        EXPECT_TRUE(world.host.boxes.empty());
    }

    UpdateWorld world;
};

class FormerlyUnique : public OneDatabase {
  protected:
    FormerlyUnique() {
        make(Json::parse(
            R"({"T": {"fields": [["CODE", 10, 5], ["ID", 4], ["AMOUNT", 4]], "rows": [["A", 1, 7]]}})"));
        withTable([](data::TableDef& table) {
            append(table, "BYCODE", {"CODE"}, [](data::Index& index) { index.Unique(true); });
            append(table, "MAIN", {"ID"}, [](data::Index& index) { index.Primary(true); });
        });
    }

    template <typename Act>
    static void withTable(Act act) {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database database = workspace.OpenDatabase(jobs);
        data::TableDef table = database.TableDefs("T");
        act(table);
    }

    template <typename Set>
    static void append(data::TableDef& table, const std::string& name, const std::vector<std::string>& keys,
                       Set set) {
        data::Index index = table.CreateIndex(name);
        for (const std::string& key : keys)
            index.Fields().Append(index.CreateField(key));
        set(index);
        table.Indexes().Append(index);
    }

    /// "unique", "primary" or "plain" by the indexes' names.
    static std::map<std::string, std::string> kinds() {
        std::map<std::string, std::string> found;
        withTable([&](data::TableDef& table) {
            for (int position = 0; position < table.Indexes().Count(); ++position) {
                const data::Index index = table.Indexes()(position);
                found[index.Name()] = index.Primary() ? "primary" : index.Unique() ? "unique" : "plain";
            }
        });
        return found;
    }

    using Kinds = std::map<std::string, std::string>;
    const Json indexes = Json::parse(R"({"BYCODE": ["CODE"], "MAIN": ["ID"]})");
};

TEST_F(FormerlyUnique, StaysWhileNothingTouchesIt) {
    runFor({{"T",
             {{"fields", Json::parse(R"([["CODE", 10, 5], ["ID", 4], ["AMOUNT", 4]])")},
              {"indexes", indexes}}}});
    EXPECT_EQ(kinds(), (Kinds{{"BYCODE", "unique"}, {"MAIN", "primary"}}));
}

TEST_F(FormerlyUnique, ComesBackPlainFromAConversion) {
    runFor({{"T",
             {{"fields", Json::parse(R"([["CODE", 10, 5], ["ID", 4], ["AMOUNT", 7]])")},
              {"indexes", indexes}}}});
    EXPECT_EQ(kinds(), (Kinds{{"BYCODE", "plain"}, {"MAIN", "plain"}}));
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase(jobs);
    addRows(database, "T", Json::parse(R"([["A", 1, 8.5], ["a", null, 9]])"));
}

TEST_F(FormerlyUnique, ComesBackPlainFromARemovedField) {
    runFor({{"T", {{"fields", Json::parse(R"([["CODE", 10, 5], ["ID", 4]])")}, {"indexes", indexes}}}});
    EXPECT_EQ(kinds(), (Kinds{{"BYCODE", "plain"}, {"MAIN", "plain"}}));
}

TEST_F(FormerlyUnique, ComesBackPlainWithOtherKeys) {
    Json changed = indexes;
    changed["BYCODE"] = {"CODE", "ID"};
    runFor({{"T",
             {{"fields", Json::parse(R"([["CODE", 10, 5], ["ID", 4], ["AMOUNT", 4]])")},
              {"indexes", changed}}}});
    EXPECT_EQ(kinds(), (Kinds{{"BYCODE", "plain"}, {"MAIN", "primary"}}));
}

class Positions : public OneDatabase {
  protected:
    static Json field(const std::string& name, int position) {
        return Json::array({name, 4, nullptr, nullptr, position});
    }

    /// Position numbers by field, in the order in which the table has the fields.
    static std::vector<std::pair<std::string, int>> numbers() {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database database = workspace.OpenDatabase(jobs);
        const data::TableDef table = database.TableDefs("T");
        std::vector<std::pair<std::string, int>> found;
        for (int place = 0; place < table.Fields().Count(); ++place)
            found.emplace_back(table.Fields()(place).Name(), table.Fields()(place).OrdinalPosition());
        return found;
    }

    using Numbers = std::vector<std::pair<std::string, int>>;
};

TEST_F(Positions, AreTheWantedNumbersAndNotTheOrderAlone) {
    make(Json::parse(R"({"T": {"fields": [["A", 4], ["B", 4], ["C", 4], ["D", 4]]}})"));
    runFor(
        {{"T", {{"fields", {field("A", 40), field("B", 2), field("C", 2), field("D", 7), field("E", 0)}}}}});
    EXPECT_EQ(numbers(), (Numbers{{"E", 0}, {"B", 2}, {"C", 2}, {"D", 7}, {"A", 40}}));
    for (const Json& row : UpdateWorld::activityLog())
        EXPECT_TRUE(row.at(4) == "E" || row.at(5) == "Database Ok. No Changes Made.") << row;
}

TEST_F(Positions, OfANewTableAreTheWantedNumbers) {
    make(Json::object());
    runFor({{"T", {{"fields", {field("A", 12), field("B", 3)}}}}});
    EXPECT_EQ(numbers(), (Numbers{{"B", 3}, {"A", 12}}));
}

TEST_F(Positions, OfAConvertedFieldIsTheWantedNumber) {
    make(Json::parse(R"({"T": {"fields": [["A", 4], ["B", 7], ["C", 4]], "rows": [[1, 2.5, 3]]}})"));
    runFor({{"T", {{"fields", {field("A", 1), field("B", 5), field("C", 9)}}}}});
    EXPECT_EQ(numbers(), (Numbers{{"A", 1}, {"B", 5}, {"C", 9}}));
}

} // namespace
} // namespace tol::test
