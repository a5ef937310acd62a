// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/SchemaObjects.h"

#include "data/sqlite/connection/Connection.h"

#include <algorithm>
#include <cstdint>
#include <set>

namespace tol::data::sqlite {
namespace {

/// While it is on SQLite passes over what it can't rewrite, and takes changes of sqlite_schema.
constexpr const char* writableSchema = "writable_schema";

constexpr const char* viewsAndTriggers = "type IN ('view', 'trigger')";

/// The rows of sqlite_schema in their order.
std::vector<SchemaObject> objects(Connection& connection, const std::string& condition,
                                  const std::string& table = {}) {
    auto query = connection.cached("SELECT type, name, tbl_name, sql FROM sqlite_schema WHERE " + condition +
                                   " ORDER BY rowid");
    if (!table.empty())
        query->bind(1, table);
    std::vector<SchemaObject> found;
    while (query->step())
        found.push_back({std::string(query->text(0)), std::string(query->text(1)),
                         std::string(query->text(2)), std::string(query->text(3))});
    return found;
}

bool anyMayName(Connection& connection, const std::string& table) {
    auto query = connection.cached(std::string("SELECT 1 FROM sqlite_schema WHERE ") + viewsAndTriggers +
                                   " OR (type = 'index' AND sql <> '' AND tbl_name = ?1 COLLATE NOCASE)"
                                   " OR (type = 'table' AND sql LIKE '%REFERENCES%')");
    query->bind(1, table);
    return query->step();
}

/// Runs a step that is undone again, or only where it fails.
enum class Outcome { Kept, Undone };
void inSavepoint(Connection& connection, Outcome outcome, const std::function<void()>& step) {
    const auto undo = [&connection] {
        if (connection.inTransaction()) // else SQLite has given up all of it
            connection.execute("ROLLBACK TO schema; RELEASE schema");
    };
    connection.execute("SAVEPOINT schema");
    try {
        step();
    } catch (...) {
        undo();
        throw;
    }
    if (outcome == Outcome::Undone)
        undo();
    else
        connection.execute("RELEASE schema");
}

void readSchemaAgain(Connection& connection) {
    connection.execute("PRAGMA writable_schema = RESET");
}

/// A change of sqlite_schema by hand, and SQLite's own knowledge of it made anew.
void rewrite(Connection& connection, const std::function<void()>& change) {
    {
        const PragmaFlag writable(connection, writableSchema);
        change();
    }
    readSchemaAgain(connection);
}

/// The old way of renaming rewrites the table and its own indexes and triggers only.
constexpr const char* oldWay = "legacy_alter_table";

std::set<std::string> triggerTexts(Connection& connection, const std::string& table) {
    auto query = connection.cached(
        "SELECT sql FROM sqlite_schema WHERE type = 'trigger' AND tbl_name = ? COLLATE NOCASE");
    query->bind(1, table);
    std::set<std::string> texts;
    while (query->step())
        texts.emplace(query->text(0));
    return texts;
}

bool anyInCommon(const std::set<std::string>& left, const std::set<std::string>& right) {
    return std::ranges::any_of(left, [&right](const std::string& text) { return right.contains(text); });
}

bool isAmong(const std::vector<SchemaObject>& objects, const SchemaObject& sought) {
    return std::ranges::any_of(objects, [&sought](const SchemaObject& object) {
        return object.type == sought.type && object.name == sought.name;
    });
}

} // namespace

std::vector<SchemaObject> createdIndexes(Connection& connection, const std::string& table) {
    return objects(connection, "type = 'index' AND sql <> '' AND tbl_name = ? COLLATE NOCASE", table);
}

std::vector<SchemaObject> dependentsOf(Connection& connection, const std::string& table,
                                       const std::string& column) {
    std::vector<SchemaObject> dependents;
    if (!anyMayName(connection, table))
        return dependents;
    inSavepoint(connection, Outcome::Undone, [&] {
        std::vector<SchemaObject> before = objects(connection, "sql <> ''");
        {
            const PragmaFlag lenient(connection, writableSchema);
            connection.execute("ALTER TABLE " + quotedName(table) + " RENAME COLUMN " + quotedName(column) +
                               " TO \"MSysRenamed\"");
        }
        const std::vector<SchemaObject> after = objects(connection, "sql <> ''");
        for (std::size_t at = 0; at < before.size(); ++at)
            if (before[at].sql != after[at].sql &&
                !(before[at].type == "table" && sameSqlName(before[at].name, table)))
                dependents.push_back(std::move(before[at]));
    });
    return dependents;
}

void withoutViews(Connection& connection, const std::vector<SchemaObject>& dropped,
                  const std::function<void()>& step) {
    const std::vector<SchemaObject> aside = objects(connection, viewsAndTriggers);
    if (aside.empty()) {
        step();
        return;
    }
    try {
        inSavepoint(connection, Outcome::Kept, [&] {
            rewrite(connection, [&] {
                connection.run(std::string("DELETE FROM sqlite_schema WHERE ") + viewsAndTriggers);
            });
            step();
            rewrite(connection, [&] {
                for (const SchemaObject& object : aside)
                    if (object.type == "view" || !isAmong(dropped, object))
                        connection.run("INSERT INTO sqlite_schema (type, name, tbl_name, rootpage, sql) "
                                       "VALUES (?, ?, ?, 0, ?)",
                                       object.type, object.name, object.table, object.sql);
            });
        });
    } catch (...) {
        readSchemaAgain(connection);
        throw;
    }
}

void renameTable(Connection& connection, const std::string& table, const std::string& newName) {
    const std::string sql = "ALTER TABLE " + quotedName(table) + " RENAME TO " + quotedName(newName);
    if (connection.tryExecute(sql))
        return; // else a view or a trigger was in the way
    const std::set<std::string> before = triggerTexts(connection, table);
    connection.execute("SAVEPOINT rename_table");
    {
        const PragmaFlag flag(connection, writableSchema);
        connection.execute(sql);
    }
    // A trigger that still names the old table would make the whole file unreadable.
    if (anyInCommon(before, triggerTexts(connection, newName))) {
        connection.execute("ROLLBACK TO rename_table");
        const PragmaFlag flag(connection, oldWay);
        connection.execute(sql);
    }
    connection.execute("RELEASE rename_table");
}

void renameColumn(Connection& connection, const std::string& table, const std::string& column,
                  const std::string& newName) {
    const std::string sql = "ALTER TABLE " + quotedName(table) + " RENAME COLUMN " + quotedName(column) +
                            " TO " + quotedName(newName);
    if (connection.tryExecute(sql))
        return;
    const PragmaFlag flag(connection, writableSchema);
    connection.execute(sql);
}

} // namespace tol::data::sqlite
