// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Physical.h"
#include "data/sqlite/StoredValue.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tol::data::sqlite {

/// The values of a row's key columns: one integer in tables with row ids, the primary key in tables
/// without.
using RowKey = std::vector<KeptValue>;

/// The key as a bookmark: the integer's digits, or for other keys each part as a letter for its class,
/// its length and its text.
std::string bookmarkOf(std::span<const StoredValue> key);
/// Raises 3159 for a text that no bookmark of this table can be.
RowKey keyOfBookmark(const PhysicalTable& table, std::string_view bookmark);

/// A key column as SQLite's own order of the rows compares it.
std::string rowKeyExpression(const PhysicalTable& table, std::size_t part);
/// "a = ? AND b = ?" for the key columns.
std::string rowKeyCondition(const PhysicalTable& table);
/// The key columns, quoted, with commas between them.
std::string rowKeyColumns(const PhysicalTable& table);
/// Binds the key's parts from that parameter on.
void bindRowKey(Statement& statement, int parameter, std::span<const StoredValue> key);
/// The key's values, for as long as the key stays as it is.
std::vector<StoredValue> valuesOf(const RowKey& key);

} // namespace tol::data::sqlite
