// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "data/json/RowProgress.h"
#include "data/json/WriteOptions.h"

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

/// Errors name the file.
void writeDatabase(Database& database, std::ostream& out, const WriteOptions& options = {});
/// The same as a string, for small databases.
std::string databaseText(Database& database, const WriteOptions& options = {});

/// Adds the tables of the text to an open database. Errors tell the line, and where there is one the
/// table, the row and the field; what came before the error stays.
void readDatabase(std::istream& in, Database& database, const RowWatcher& watcher = {});

/// Makes a new database file. It appears under its name when it is complete: after an error there is no
/// file. 3204 when the file exists.
void makeDatabase(const std::string& file, std::istream& in, const RowWatcher& watcher = {});
void makeDatabase(const std::string& file, std::string_view text);

} // namespace tol::data::json
