// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/StoredValue.h"
#include "data/sqlite/connection/Statement.h"
#include "data/sqlite/definitions/StoredTable.h"
#include "runtime/Value.h"

#include <string>

namespace tol::data::sqlite {

/// How a field's value lies in a column. `buffer` gives room for texts that have to be made.
StoredValue toStored(const runtime::Value& value, Storage storage, std::string& buffer);

/// The field's value that lies there, in the field's own type or Null. Columns of other makers may hold
/// anything; what has no meaning in the field's type raises 3421.
runtime::Value fromStored(const StoredValue& stored, FieldType type, Storage storage);

/// Binds without a copy: the value must stay in place until the statement has run.
void bindStored(Statement& statement, int parameter, const StoredValue& value);

} // namespace tol::data::sqlite
