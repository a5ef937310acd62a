// SPDX-License-Identifier: MIT
// What must hold for any old and any wanted definition.
#include "ConversionModel.h"
#include "RandomDefinitions.h"
#include "UpdateWorld.h"
#include "shell/vdfunctions/vdLocation.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace tol::test {
namespace {

constexpr int batches = 4;
constexpr int databasesOfSite = 50;
constexpr int pairsInADatabase = 10;

std::string databaseName(int database) {
    return "J" + std::to_string(100 + database);
}

Json withoutTableNames(const Json& tables) {
    Json definitions = Json::array();
    for (const auto& [name, table] : tables.items())
        definitions.push_back(table);
    return definitions;
}

/// The wanted definitions of all batches by database, pair by pair, no two pairs alike.
std::vector<Json> allWanted() {
    RandomDefinitions random(20030131);
    std::set<Json> seen;
    std::vector<Json> all(batches * databasesOfSite, Json::object());
    for (Json& database : all) {
        for (int pair = 0; pair < pairsInADatabase;) {
            const Json tables = random.wanted("T" + std::to_string(pair));
            if (seen.insert(withoutTableNames(tables)).second) {
                database.update(tables);
                ++pair;
            }
        }
    }
    EXPECT_EQ(seen.size(), batches * databasesOfSite * pairsInADatabase);
    return all;
}

Json olderOf(const Json& wanted, RandomDefinitions& random) {
    Json older = Json::object();
    for (int pair = 0; pair < pairsInADatabase; ++pair) {
        const std::string prefix = "T" + std::to_string(pair);
        Json tables = Json::object();
        for (const auto& [name, table] : wanted.items())
            if (name.starts_with(prefix))
                tables[name] = table;
        older.update(random.older(prefix, tables));
    }
    return older;
}

/// A site with many databases, each with a wanted definition of its own and in an older state.
class ManyDatabases {
  public:
    explicit ManyDatabases(int batch) {
        const std::vector<Json> all = allWanted();
        RandomDefinitions random(static_cast<std::uint32_t>(batch));
        Json databases = Json::array();
        for (int database = 0; database < databasesOfSite; ++database) {
            const std::string name = databaseName(database);
            const Json& wanted = all.at(static_cast<std::size_t>(batch * databasesOfSite + database));
            databases.push_back(Json::array({name, "DBPATHS", "N", false}));
            m_wanted[name] = wanted;
            m_older[name] = olderOf(wanted, random);
            world.addFile("drives/c/S/" + name + ".MDB", m_older[name]);
        }
        UpdateWorld::addRowsOf("DATABASES", databases);
        UpdateWorld::addDefinitions(m_wanted);
        UpdateWorld::addSites(Json::array({Json::array({"NORTH", "C:\\S"})}));
    }

    void run() {
        UpdateRun update;
        update(world);
        EXPECT_TRUE(update.ended);
    }

    [[nodiscard]] const Json& wanted(const std::string& database) const { return m_wanted.at(database); }
    [[nodiscard]] const Json& older(const std::string& database) const { return m_older.at(database); }
    [[nodiscard]] static Json live(const std::string& database) {
        return readDatabase("C:\\S\\" + database + ".MDB");
    }

    UpdateWorld world;

  private:
    Json m_wanted = Json::object(), m_older = Json::object();
};

/// Text fields accept empty texts wherever the update has seen to them; the order of tables and indexes is
/// nobody's concern, that of fields is.
nlohmann::json schemaOf(const Json& tables) {
    Json all = completed(tables);
    for (auto& [name, table] : all.items())
        table.erase("rows");
    return nlohmann::json::parse(all.dump());
}

int columnOf(const Json& fields, const Json& name) {
    int column = 0;
    for (const Json& field : fields) {
        if (field.at(0) == name)
            return column;
        ++column;
    }
    return -1;
}

/// The values of a field that was there before, row by row.
void expectValues(const Json& before, const Json& after, const Json& oldField) {
    const int column = columnOf(after.at("fields"), oldField.at(0));
    if (column < 0)
        return;
    const auto to = static_cast<std::size_t>(column);
    const auto from = static_cast<std::size_t>(columnOf(before.at("fields"), oldField.at(0)));
    const Json& field = after.at("fields").at(to);
    for (std::size_t row = 0; row < before.at("rows").size(); ++row) {
        const Json& value = before.at("rows").at(row).at(from);
        EXPECT_EQ(after.at("rows").at(row).at(to), valueAfterUpdate(value, oldField, field))
            << value << " of " << oldField << " as " << field;
    }
}

void expectRows(const Json& before, const Json& after) {
    ASSERT_EQ(before.at("rows").size(), after.at("rows").size());
    for (const Json& field : before.at("fields"))
        expectValues(before, after, field);
}

class AnyDefinitions : public testing::TestWithParam<int> {};

// 2,000 pairs of an older and a wanted definition, every wanted one another.
TEST_P(AnyDefinitions, areReachedInTwoRunsAndThenLeftAlone) {
    ManyDatabases batch(GetParam());
    batch.run();
    batch.run();
    for (const Box& box : batch.world.host.boxes)
        EXPECT_TRUE(box.title != "Error During Processing" ||
                    box.text.find("3265 UpdateIndexDefs") != std::string::npos)
            << box.text;
    for (int database = 0; database < databasesOfSite; ++database) {
        const std::string name = databaseName(database);
        SCOPED_TRACE("batch " + std::to_string(GetParam()) + ", " + name);
        const Json live = ManyDatabases::live(name);
        ASSERT_EQ(schemaOf(live), schemaOf(batch.wanted(name)));
        for (const auto& [table, before] : batch.older(name).items())
            if (live.contains(table))
                expectRows(before, live.at(table));
    }
    batch.run();
    const Json log = UpdateWorld::activityLog();
    EXPECT_EQ(log.size(), 2U * databasesOfSite);
    for (const Json& row : log)
        EXPECT_EQ(row.at(5), "Database Ok. No Changes Made.") << row;
}

INSTANTIATE_TEST_SUITE_P(Batches, AnyDefinitions, testing::Range(0, batches));

} // namespace
} // namespace tol::test
