// SPDX-License-Identifier: MIT
#include "data/sqlite/AlterTable.h"

#include "data/sqlite/PragmaFlag.h"
#include "data/sqlite/Sql.h"

#include <algorithm>
#include <set>

namespace tol::data::sqlite {

namespace {

/// With a writable schema SQLite passes over what it can't rewrite.
constexpr const char* lenient = "writable_schema";
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

} // namespace

void renameTable(Connection& connection, const std::string& table, const std::string& newName) {
    const std::string sql = "ALTER TABLE " + quotedName(table) + " RENAME TO " + quotedName(newName);
    if (connection.tryExecute(sql))
        return; // else a view or a trigger was in the way
    const std::set<std::string> before = triggerTexts(connection, table);
    connection.execute("SAVEPOINT rename_table");
    {
        const PragmaFlag flag(connection, lenient);
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
    const PragmaFlag flag(connection, lenient);
    connection.execute(sql);
}

} // namespace tol::data::sqlite
