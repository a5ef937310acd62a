// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/StoredValue.h"

#include <compare>

namespace tol::data::sqlite {

/// SQLite's order of values: Null, numbers by amount, texts, bytes. Two texts that differ are unordered
/// here, since only their collation knows.
std::partial_ordering compareStored(const StoredValue& left, const StoredValue& right);

} // namespace tol::data::sqlite
