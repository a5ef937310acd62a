// SPDX-License-Identifier: MIT
#include "CaseFolder.h"

#include <gtest/gtest.h>

#include <linux/capability.h>
#include <sys/prctl.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using namespace nlohmann::literals;

Json definitionTables() {
    std::ifstream file(TOL_CASE_DATA "/definition-database.json");
    return Json::parse(file);
}

} // namespace

Outcome CaseFolder::run(const std::vector<std::string>& words, const std::string& input) const {
    folder.write(".input", input);
    const std::string inputFile = folder / ".input";
    Program program(TOL_CTL_PROGRAM, words, folder.path(),
                    [&inputFile] { dup2(open(inputFile.c_str(), O_RDONLY | O_CLOEXEC), STDIN_FILENO); });
    const int status = program.wait();
    fs::remove(inputFile);
    return {status, program.out(), program.err()};
}

void CaseFolder::load(const std::string& file, const Json& database) const {
    const Outcome outcome = run({"load", file, "-"}, database.dump());
    ASSERT_EQ(outcome.status, 0) << outcome.err;
}

Json CaseFolder::dump(const std::string& file) const {
    const Outcome outcome = run({"dump", file});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return outcome.status == 0 ? outcome.json() : Json();
}

Json CaseFolder::rows(const std::string& file, const std::string& table) const {
    const Json database = dump(file);
    for (const Json& entry : database["tables"])
        if (entry["name"] == table)
            return entry["rows"];
    ADD_FAILURE() << "no table " << table;
    return {};
}

void CaseFolder::addSite(const std::string& name, const std::string& pathText) {
    m_sites.push_back(Json::array({m_sites.size() + 1, name, pathText}));
    std::string below = pathText.substr(std::string("C:\\").size());
    std::ranges::replace(below, '\\', '/');
    fs::create_directories(folder.driveC() / below);
}

void CaseFolder::addDatabase(const std::string& name) {
    addDatabaseRow(Json::array({name, "DBPATHS", "N", false, "", "", name}));
}

void CaseFolder::want(const std::string& database, const std::string& table, const std::string& field,
                      int type, int size) {
    m_wanted.push_back(Json::array({database, table, field, size, type, 0}));
}

void CaseFolder::finish() const {
    Json definitions = definitionTables();
    for (Json& table : definitions["tables"]) {
        if (table["name"] == "DATABASES")
            table["rows"] = m_databases;
        if (table["name"] == "NEWDEF")
            table["rows"] = m_wanted;
    }
    load("ZOVDEF.MDB", definitions);

    Json paths =
        tableOf("DBPATHS", R"([["DBTAG", 4, 4], ["PATHNAME", 10, 16], ["PathText", 10, 100]])"_json, m_sites);
    paths["indexes"] = R"([{"name": "DBPATHS", "fields": ["PATHNAME"]}])"_json;
    load("DBPATHS.MDB", databaseOf({paths}));
}

Json tableOf(const std::string& name, const Json& fields, const Json& rows) {
    Json table = {{"name", name}, {"fields", Json::array()}};
    for (const Json& field : fields)
        table["fields"].push_back({{"name", field[0]},
                                   {"type", field[1]},
                                   {"size", field[2]},
                                   {"allowZeroLength", field[1] == 10}});
    table["rows"] = rows;
    return table;
}

Json databaseOf(std::initializer_list<Json> tables) {
    Json database = {{"tables", Json::array()}};
    for (const Json& table : tables)
        database["tables"].push_back(table);
    return database;
}

void withoutRightsOfRoot() {
    prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
    prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH, 0, 0, 0);
}

} // namespace tol::test
