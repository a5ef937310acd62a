// SPDX-License-Identifier: MIT
#include "EngineTest.h"

#include "data/sqlite/connection/TextCollation.h"

#include <sqlite3.h>
#include <stdexcept>

namespace tol::test {

using namespace data;
using runtime::Value;

runtime::RuntimeError errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const runtime::RuntimeError& error) {
        return error;
    }
    return {0, ""};
}

PlainSqlite::PlainSqlite(const std::filesystem::path& file) {
    sqlite3_open(file.c_str(), &m_database);
    sqlite::registerTextCollation(m_database);
}

PlainSqlite::~PlainSqlite() {
    sqlite3_close(m_database);
}

void PlainSqlite::execute(const std::string& sql) {
    if (sqlite3_exec(m_database, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(m_database));
}

void PlainSqlite::useBinaryTextOrder() {
    const auto compare = [](void*, int leftSize, const void* left, int rightSize, const void* right) {
        const std::string_view one(static_cast<const char*>(left), static_cast<std::size_t>(leftSize));
        const std::string_view two(static_cast<const char*>(right), static_cast<std::size_t>(rightSize));
        return one.compare(two);
    };
    sqlite3_create_collation(m_database, sqlite::textCollation, SQLITE_UTF8, nullptr, compare);
}

std::string PlainSqlite::text(const std::string& sql) {
    std::string result;
    const auto keep = [](void* text, int, char** values, char**) {
        if (values[0] != nullptr)
            *static_cast<std::string*>(text) = values[0];
        return 1; // one row is enough
    };
    const int code = sqlite3_exec(m_database, sql.c_str(), keep, &result, nullptr);
    if (code != SQLITE_OK && code != SQLITE_ABORT)
        throw std::runtime_error(sqlite3_errmsg(m_database));
    return result;
}

TableDefinition definitionOf(const std::string& name, std::vector<FieldDef> fields,
                             std::vector<IndexDef> indexes) {
    return {name, std::move(fields), std::move(indexes)};
}

void createTable(Store& store, const TableDefinition& table) {
    store.alter(table.name, CreateTable{table});
}

std::vector<std::string> tableNames(Store& store) {
    std::vector<std::string> names;
    for (const auto& table : store.catalogue()->tables())
        names.push_back(table->name);
    return names;
}

void makeTable(Store& store, const std::string& name) {
    createTable(store, {.name = name,
                        .fields = {{.name = "Id", .type = dbLong, .size = 4},
                                   {.name = "Name", .type = dbText, .size = 20},
                                   {.name = "Note", .type = dbMemo}},
                        .indexes = {{.name = "ById", .fields = {"Id"}, .unique = true},
                                    {.name = "ByName", .fields = {"Name"}}}});
}

void addRows(Store& store, const std::string& table, int from, int to) {
    const auto cursor = openCursor(store, table);
    for (int id = from; id <= to; ++id) {
        const Assignment row[] = {{0, id}, {1, "n" + std::to_string(id)}};
        cursor->insert(row);
    }
    store.flush();
}

std::vector<Value> column(Store& store, const std::string& table, std::size_t field,
                          const std::string& index) {
    const auto cursor = openCursor(store, table);
    cursor->setIndex(index);
    std::vector<Value> values;
    for (bool row = cursor->first(); row; row = cursor->next())
        values.push_back(cursor->value(field));
    return values;
}

EngineTest::EngineTest() : store(engine.create(file())) {
    session().connection().execute("PRAGMA synchronous = OFF"); // no power fails in these tests
}

void EngineTest::reopen(bool readOnly) {
    store->flush();
    store.reset();
    store = engine.open(file(), readOnly);
}

} // namespace tol::test
