// SPDX-License-Identifier: MIT
// The conversion of every field type to every other one, with values that convert and values that do not,
// by whole runs of the update over real tables.
#include "definition_update/engine/ConversionMatrix.h"

#include "UpdateWorld.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tol::test {
namespace {

constexpr std::array fieldTypes{1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12, 15};
const std::string folderOfSite = "drives/c/JOBS/NORTH/";

/// One old type, one wanted type, and what becomes of each value.
struct Cell {
    Json old, wanted; ///< fields
    Json values, results;

    [[nodiscard]] std::string name() const {
        return "F" + old.at(1).dump() + "TO" + wanted.at(1).dump() +
               (wanted.size() > 2 ? "SIZE" + wanted.at(2).dump() : "");
    }
};

Json wantedField(const std::string& type) {
    const auto slash = type.find('/');
    Json field = Json::array({"VALUE", std::stoi(type)});
    if (slash != std::string::npos)
        field.push_back(std::stoi(type.substr(slash + 1)));
    return field;
}

std::vector<Cell> readCells() {
    std::ifstream file(TOL_MATRIX_FILE);
    const Json matrix = Json::parse(file);
    std::vector<Cell> cells;
    for (const Json& row : matrix.at("rows")) {
        Json old = Json::array({"VALUE"});
        old.insert(old.end(), row.at("old").begin(), row.at("old").end());
        for (const auto& [type, results] : row.at("wanted").items()) {
            const Json all =
                results == "unable" ? Json(row.at("values").size(), {{"unable", true}}) : results;
            EXPECT_EQ(all.size(), row.at("values").size()) << old << type;
            cells.push_back({old, wantedField(type), row.at("values"), all});
        }
    }
    return cells;
}

bool isError(const Json& result) {
    return result.is_object() && result.contains("error");
}

bool isUnable(const Json& result) {
    return result.is_object() && result.contains("unable");
}

/// What a value that was not stored ends as.
Json blankOf(const Json& field) {
    switch (field.at(1).get<int>()) {
    case data::dbBoolean:
        return false;
    case data::dbCurrency:
        return "0.0000";
    case data::dbDate:
        return "1900-01-01 00:00:00";
    case data::dbText:
        return std::string(field.at(2).get<std::size_t>(), ' ');
    case data::dbLongBinary:
    case data::dbMemo:
    case data::dbGUID:
        return " ";
    default:
        return 0;
    }
}

Json expectedValue(const Cell& cell, const Json& result) {
    if (isUnable(result))
        return blankOf(cell.wanted);
    if (cell.wanted.at(1) == data::dbSingle)
        return static_cast<double>(result.get<float>());
    return result;
}

void makeSite(UpdateWorld& world, const Json& tables, const Json& wanted) {
    UpdateWorld::addRowsOf("DATABASES", Json::array({Json::array({"JOBS", "DBPATHS", "N", false})}));
    UpdateWorld::addSites(Json::array({Json::array({"NORTH", "C:\\JOBS\\NORTH"})}));
    UpdateWorld::addDefinitions({{"JOBS", wanted}});
    world.addFile(folderOfSite + "JOBS.MDB", tables);
}

TEST(ConversionMatrix, hasACellForEveryPairOfTypes) {
    std::set<std::pair<int, int>> covered;
    for (const Cell& cell : readCells())
        covered.insert({cell.old.at(1).get<int>(), cell.wanted.at(1).get<int>()});
    for (const int old : fieldTypes)
        for (const int wanted : fieldTypes)
            EXPECT_TRUE(old == wanted || covered.count({old, wanted}) == 1) << old << " to " << wanted;
}

TEST(ConversionMatrix, convertsOrAsks) {
    const std::vector<Cell> cells = readCells();
    Json tables = Json::object();
    Json wanted = Json::object();
    std::size_t unable = 0;
    for (const Cell& cell : cells) {
        Json rows = Json::array();
        for (std::size_t i = 0; i < cell.values.size(); ++i) {
            if (!isError(cell.results[i]))
                rows.push_back(Json::array({cell.values[i]}));
            unable += isUnable(cell.results[i]) ? 1 : 0;
        }
        tables[cell.name()] = {{"fields", Json::array({cell.old})}, {"rows", rows}};
        wanted[cell.name()] = {{"fields", Json::array({cell.wanted})}};
    }
    UpdateWorld world;
    makeSite(world, tables, wanted);
    UpdateRun run;
    run(world);

    EXPECT_EQ(world.host.boxes.size(), 2 * unable);
    const Json after = readDatabase((world.folder.path() / folderOfSite / "JOBS.MDB").string());
    for (const Cell& cell : cells) {
        Json rows = Json::array();
        for (const Json& result : cell.results)
            if (!isError(result))
                rows.push_back(Json::array({expectedValue(cell, result)}));
        EXPECT_EQ(after.at(cell.name()).at("fields").at(0).at(1), cell.wanted.at(1));
        EXPECT_EQ(after.at(cell.name()).at("rows"), rows) << cell.name();
    }
}

// A value that fails ends its field, so each has a table of its own; the second pass fails on the second
// field that the first one left.
TEST(ConversionMatrix, endsTheFieldAtAnError) {
    Json tables = Json::object();
    Json wanted = Json::object();
    std::vector<std::string> expected;
    for (const Cell& cell : readCells()) {
        for (std::size_t i = 0; i < cell.values.size(); ++i) {
            if (!isError(cell.results[i]))
                continue;
            const std::string name = "T" + std::to_string(1000 + expected.size());
            tables[name] = {{"fields", Json::array({cell.old})},
                            {"rows", Json::array({Json::array({cell.values[i]})})}};
            wanted[name] = {{"fields", Json::array({cell.wanted})}};
            expected.push_back("Error: " + cell.results[i].at("error").dump() + " ConvertFieldType\n");
        }
    }
    UpdateWorld world;
    makeSite(world, tables, wanted);
    UpdateRun run;
    run(world);

    ASSERT_EQ(world.host.boxes.size(), 2 * expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NE(world.host.boxes[i].text.find(expected[i]), std::string::npos)
            << tables.at("T" + std::to_string(1000 + i)) << wanted.at("T" + std::to_string(1000 + i))
            << world.host.boxes[i].text;
        EXPECT_NE(world.host.boxes[expected.size() + i].text.find("Error: 3191 "), std::string::npos);
    }
    Json before = completed(tables);
    EXPECT_EQ(readDatabase((world.folder.path() / folderOfSite / "JOBS.MDB").string()), before);
}

TEST(ConversionMatrix, copiesEqualTypesAndKnowsNoOthers) {
    runtime::Value converted;
    EXPECT_TRUE(update::conversionFor(data::dbText, data::dbText)("abc", 3, converted));
    EXPECT_EQ(converted, runtime::Value("abc"));
    for (const int unknown : {0, 9, 13, 14, 99}) {
        EXPECT_FALSE(update::conversionFor(unknown, data::dbText)("abc", 3, converted));
        EXPECT_FALSE(update::conversionFor(data::dbText, unknown)("abc", 3, converted));
    }
}

} // namespace
} // namespace tol::test
