// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"

#include <nlohmann/json.hpp>
#include <string>

namespace tol::test {

/// Ordered, so that tables and fields stay as a case file lists them.
using Json = nlohmann::ordered_json;

/// A database as case files write it:
///   {"TABLE": {"fields": [["NAME", type, size, allowZeroLength], ...],
///              "indexes": {"INDEX": ["NAME", ...]}, "rows": [[value, ...], ...]}}
/// Fields stand in position order. The size may be left out where the type has one of its own, the
/// zero-length rule is told for text alone and is true when left out. Values: Null, true, 12, 1.5,
/// "12.3400" for currency, "2003-01-31 16:05:00" for a date, "text", and bytes as a text.
void makeDatabase(const std::string& file, const Json& tables);
/// The same of an open database: adds the tables to it.
void addTables(data::Database& database, const Json& tables);
void addRows(data::Database& database, const std::string& table, const Json& rows);

/// What the file holds, in the same form: every part told, rows in stored order.
Json readDatabase(const std::string& file);
/// The form with every part told that may be left out.
Json completed(const Json& tables);

runtime::Value toValue(const Json& json, data::FieldType type);
Json toJson(const runtime::Value& value);

} // namespace tol::test
