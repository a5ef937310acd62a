// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "runtime/RuntimeError.h"

#include <cstdint>
#include <functional>
#include <istream>
#include <ostream>
#include <string>
#include <string_view>

namespace tol::data::json {

/// A database as one JSON text:
///
///   {"tables": [{"name": "JOBS",
///     "fields": [{"name": "TAG", "type": 4, "size": 4, "ordinal": 0, "allowZeroLength": false}],
///     "indexes": [{"name": "JOBS", "fields": ["TAG"], "unique": true, "primary": true}],
///     "rows": [[1], [2]]}]}
///
/// Types are FieldType numbers; see appendValue() for the spelling of values. Both ways stream: they hold
/// one row at a time. A text written from a database that was made from a written text is the same
/// text, byte for byte.

/// How far reading or writing has come.
struct RowProgress {
    const std::string& table;
    std::int64_t row;   ///< from 1
    std::int64_t count; ///< rows of the table, 0 when nobody knows
};

/// Called once per row. It may throw to break off.
using RowWatcher = std::function<void(const RowProgress&)>;

/// Told of something that is written, but that no database made from the text could take: a table's
/// definition, the first such value of a field, or the first key of another maker's unique index that is one
/// with another key here. The description tells the place.
using LoadComplaint = std::function<void(const runtime::RuntimeError&)>;

/// What to write, and whom to tell.
struct WriteOptions {
    bool schemaOnly = false;     ///< tables without "rows"
    RowWatcher watcher = {};     ///< of each row
    LoadComplaint complain = {}; ///< without it the complaint is raised
};

/// Tables by name, rows in stored order, one row a line. Errors name the file.
void writeDatabase(Database& database, std::ostream& out, const WriteOptions& options = {});
/// The same as a string, for small databases.
std::string databaseText(Database& database, const WriteOptions& options = {});

/// Adds the tables of the text to an open database. In a table "name" and "fields" must stand before "rows";
/// "indexes" and "rows" may be left out. Errors tell the line, and where there is one the table, the row and
/// the field; what came before the error stays. 3343 for what is no JSON.
void readDatabase(std::istream& in, Database& database, const RowWatcher& watcher = {});

/// Makes a new database file. It appears under its name when it is complete: after an error there is no
/// file. 3204 when the file exists.
void makeDatabase(const std::string& file, std::istream& in, const RowWatcher& watcher = {});
void makeDatabase(const std::string& file, std::string_view text);

} // namespace tol::data::json
