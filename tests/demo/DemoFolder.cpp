// SPDX-License-Identifier: MIT
#include "demo_support/DemoFolder.h"

#include "data/sqlite/SqliteEngine.h"
#include "demo/Demo.h"
#include "platform/Paths.h"
#include "runtime/Conversions.h"
#include "runtime/Text.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace tol::test {

namespace {

bool missing(const std::string& file) {
    return platform::dir(file).empty();
}

} // namespace

void useSqlite() {
    static const bool added = [] {
        data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
        return true;
    }();
    (void)added;
}

DemoFolder::DemoFolder() {
    useSqlite();
    std::filesystem::remove_all(path() / "drives");
    demo::makeDemo(path());
}

std::vector<Site> DemoFolder::sites() const {
    std::vector<Site> all;
    forEachRow("DBPATHS.MDB", "DBPATHS", [&](const data::Recordset& row) {
        all.push_back({text(row, "PATHNAME"), text(row, "PathText")});
    });
    return all;
}

std::vector<SuiteDatabase> DemoFolder::databases() const {
    std::vector<SuiteDatabase> all;
    forEachRow("ZOVDEF.MDB", "DATABASES", [&](const data::Recordset& row) {
        all.push_back({text(row, "DBNAME"), text(row, "PATHCODE")});
    });
    return all;
}

std::string DemoFolder::fileOf(const SuiteDatabase& database, const Site& site) const {
    std::string file = database.name + ".mdb";
    if (database.pathCode == "DBPATHS")
        return platform::join(site.location, file);
    if (database.pathCode == "DEFAULT")
        return file;
    std::string folder = R"(C:\ZOVUSER)";
    if (database.pathCode == "NETPATH" || database.pathCode == "WNDPATH")
        forEachRow(database.pathCode + (database.pathCode == "NETPATH" ? ".MDB" : ".mdb"), database.pathCode,
                   [&](const data::Recordset& row) { folder = text(row, "Path"); });
    return platform::join(folder, file);
}

std::vector<std::pair<std::string, std::string>> DemoFolder::targets() const {
    std::vector<std::pair<std::string, std::string>> all;
    for (const Site& site : sites()) {
        for (const SuiteDatabase& database : databases()) {
            const std::pair<std::string, std::string> target{fileOf(database, site), database.name};
            if (!missing(target.first) && std::ranges::find(all, target) == all.end())
                all.push_back(target);
        }
    }
    return all;
}

Definitions DemoFolder::wanted(const std::string& database) const {
    Definitions all;
    forEachRow("ZOVDEF.MDB", "NEWDEF", [&](const data::Recordset& row) {
        if (text(row, "DBNAME") != database)
            return;
        data::FieldDef field;
        field.name = text(row, "FNAME");
        field.type = static_cast<data::FieldType>(runtime::toLong(row.Fields("FTYPE").Value()));
        field.size = runtime::toLong(row.Fields("FSIZE").Value());
        field.ordinal = runtime::toLong(row.Fields("OPOS").Value());
        all[text(row, "TNAME")].fields.push_back(field);
    });
    forEachRow("ZOVDEF.MDB", "NEWINDEXES", [&](const data::Recordset& row) {
        if (text(row, "DBNAME") != database)
            return;
        data::IndexDef index;
        index.name = text(row, "IName");
        for (int n = 1; n <= 10; ++n) {
            if (std::string key = text(row, fmt::format("IKEY{:02}", n)); !key.empty())
                index.fields.push_back(std::move(key));
        }
        EXPECT_EQ(text(row, "KEYSTRING"), fmt::format("{}", fmt::join(index.fields, "")));
        all[text(row, "TNAME")].indexes.push_back(index);
    });
    return all;
}

void forEachRow(const std::string& file, const std::string& table,
                const std::function<void(data::Recordset&)>& row) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase(file);
    data::Recordset rows = database.OpenRecordset(table);
    for (; !rows.AtEOF(); rows.MoveNext())
        row(rows);
}

std::string text(const data::Recordset& row, std::string_view field) {
    const runtime::Value value = row.Fields(field).Value();
    return value.isNull() ? std::string() : std::string(runtime::trim(runtime::toText(value)));
}

std::int64_t rowCount(const std::string& file, const std::string& table) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase(file);
    return database.OpenRecordset(table).RecordCount();
}

Definitions definitionsOf(const std::string& file) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    const data::Database database = workspace.OpenDatabase(file);
    Definitions all;
    for (int i = 0; i < database.TableDefs().Count(); ++i) {
        const data::TableDef table = database.TableDefs()(i);
        all[runtime::upperCase(table.Name())] = table.definition();
    }
    return all;
}

std::vector<std::string> describe(const Definitions& tables) {
    std::vector<std::string> lines;
    for (const auto& [name, table] : tables) {
        for (const data::FieldDef& field : table.fields)
            lines.push_back(fmt::format("{} {:3} {} type {} size {}", name, field.ordinal,
                                        runtime::upperCase(field.name), static_cast<int>(field.type),
                                        field.size));
        for (const data::IndexDef& index : table.indexes)
            lines.push_back(fmt::format("{} index {} = {}", name, index.name,
                                        runtime::upperCase(fmt::format("{}", fmt::join(index.fields, " ")))));
    }
    std::ranges::sort(lines);
    return lines;
}

std::vector<std::string> differences(const Definitions& first, const Definitions& second) {
    const std::vector<std::string> left = describe(first), right = describe(second);
    std::vector<std::string> removed, added, all;
    std::ranges::set_difference(left, right, std::back_inserter(removed));
    std::ranges::set_difference(right, left, std::back_inserter(added));
    for (const std::string& line : removed)
        all.push_back("- " + line);
    for (const std::string& line : added)
        all.push_back("+ " + line);
    return all;
}

} // namespace tol::test
