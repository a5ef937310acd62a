// SPDX-License-Identifier: MIT
// What must hold for any old and any wanted definition.
#include "RandomDefinitions.h"
#include "UpdateWorld.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace tol::test {
namespace {

constexpr int sites = 51;
constexpr int pairsInADatabase = 10;

std::string siteFile(int site) {
    return "drives/c/S" + std::to_string(site) + "/JOBS.MDB";
}

/// Many sites with the same wanted definition, each with an older one of its own.
class ManySites {
  public:
    explicit ManySites(std::uint32_t seed) : m_random(seed) {
        for (int pair = 0; pair < pairsInADatabase; ++pair)
            m_wanted.push_back(m_random.wanted("T" + std::to_string(pair)));
        UpdateWorld::addRowsOf("DATABASES", Json::array({Json::array({"JOBS", "DBPATHS", "N", false})}));
        UpdateWorld::addDefinitions({{"JOBS", allWanted()}});
        Json paths = Json::array();
        for (int site = 0; site < sites; ++site) {
            paths.push_back(Json::array({"S" + std::to_string(100 + site), "C:\\S" + std::to_string(site)}));
            m_older.push_back(olderOfSite());
            world.addFile(siteFile(site), m_older.back());
        }
        UpdateWorld::addSites(paths);
    }

    void run() {
        UpdateRun update;
        update(world);
        EXPECT_TRUE(update.ended);
    }

    [[nodiscard]] Json allWanted() const {
        Json all = Json::object();
        for (const Json& tables : m_wanted)
            all.update(tables);
        return all;
    }
    [[nodiscard]] const Json& older(int site) const { return m_older.at(static_cast<std::size_t>(site)); }
    [[nodiscard]] Json live(int site) const {
        return readDatabase((world.folder.path() / siteFile(site)).string());
    }

    UpdateWorld world;

  private:
    Json olderOfSite() {
        Json all = Json::object();
        for (int pair = 0; pair < pairsInADatabase; ++pair)
            all.update(
                m_random.older("T" + std::to_string(pair), m_wanted.at(static_cast<std::size_t>(pair))));
        return all;
    }

    RandomDefinitions m_random;
    std::vector<Json> m_wanted, m_older;
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

void expectColumnKept(const Json& before, const Json& after, const Json& name) {
    const int from = columnOf(before.at("fields"), name);
    const int to = columnOf(after.at("fields"), name);
    for (std::size_t row = 0; row < before.at("rows").size(); ++row)
        EXPECT_EQ(before.at("rows")[row].at(static_cast<std::size_t>(from)),
                  after.at("rows")[row].at(static_cast<std::size_t>(to)))
            << name;
}

void expectRowsKept(const Json& before, const Json& after) {
    ASSERT_EQ(before.at("rows").size(), after.at("rows").size());
    for (const Json& field : before.at("fields")) {
        const int column = columnOf(after.at("fields"), field.at(0));
        if (column < 0)
            continue;
        const Json& now = after.at("fields")[static_cast<std::size_t>(column)];
        if (now.at(1) == field.at(1) && now.at(2) == field.at(2))
            expectColumnKept(before, after, field.at(0));
    }
}

class AnyDefinitions : public testing::TestWithParam<std::uint32_t> {};

// 51 sites with 10 pairs each: the four batches are 2,040 pairs.
TEST_P(AnyDefinitions, areReachedInTwoRunsAndThenLeftAlone) {
    ManySites batch(GetParam());
    batch.run();
    batch.run();
    for (const Box& box : batch.world.host.boxes)
        EXPECT_TRUE(box.title != "Error During Processing" ||
                    box.text.find("3265 UpdateIndexDefs") != std::string::npos)
            << box.text;
    for (int site = 0; site < sites; ++site) {
        SCOPED_TRACE("seed " + std::to_string(GetParam()) + ", site " + std::to_string(site));
        const Json live = batch.live(site);
        ASSERT_EQ(schemaOf(live), schemaOf(batch.allWanted()));
        for (const auto& [name, before] : batch.older(site).items())
            if (live.contains(name))
                expectRowsKept(before, live.at(name));
    }
    batch.run();
    const Json log = UpdateWorld::activityLog();
    EXPECT_EQ(log.size(), 2U * sites);
    for (const Json& row : log)
        EXPECT_EQ(row.at(5), "Database Ok. No Changes Made.") << row;
}

INSTANTIATE_TEST_SUITE_P(Batches, AnyDefinitions, testing::Values(20030131U, 7U, 1964U, 51U));

} // namespace
} // namespace tol::test
