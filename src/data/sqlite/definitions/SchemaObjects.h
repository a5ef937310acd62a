// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/connection/Connection.h"

#include <functional>
#include <string>
#include <vector>

namespace tol::data::sqlite {

/// Something that a file's schema has: a row of sqlite_schema.
struct SchemaObject {
    std::string type; ///< "table", "index", "view" or "trigger"
    std::string name;
    std::string table; ///< on which it lies
    std::string sql;   ///< as it was written, "" for what SQLite made itself
};

/// The indexes of the table that were made by hand, in the order in which they were made.
std::vector<SchemaObject> createdIndexes(Connection& connection, const std::string& table);

/// What names the column, the table itself excepted: indexes, triggers and views of the whole file, and
/// tables that refer to it. SQLite itself tells: it is what a change of the column's name would rewrite.
/// Views and triggers that do not work are passed over.
std::vector<SchemaObject> dependentsOf(Connection& connection, const std::string& table,
                                       const std::string& column);

/// Runs a step while the file's views and triggers are out of the schema, so that they neither hinder it
/// nor follow it, and puts them back letter for letter; but for the triggers among `dropped`. All of it or
/// nothing, as part of the transaction that is open.
void withoutViews(Connection& connection, const std::vector<SchemaObject>& dropped,
                  const std::function<void()>& step);

/// ALTER TABLE ... RENAME, also in files in which SQLite refuses it because some view or trigger there
/// does not work any more. What does work is rewritten to the new name, what does not stays as it is. They
/// belong to the transaction that is open.
void renameTable(Connection& connection, const std::string& table, const std::string& newName);
void renameColumn(Connection& connection, const std::string& table, const std::string& column,
                  const std::string& newName);

} // namespace tol::data::sqlite
