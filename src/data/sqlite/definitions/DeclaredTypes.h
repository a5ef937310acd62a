// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Definition.h"
#include "data/sqlite/definitions/StoredTable.h"

#include <string>
#include <string_view>

namespace tol::data::sqlite {

/// What a column's declared type says about the field in front of it.
struct ColumnType {
    FieldType type = dbMemo;
    int size = 0; ///< as FieldDef::size
    Storage storage = Storage::Native;
    bool operator==(const ColumnType&) const = default;
};

/// How this program's own columns keep the values of a field type.
Storage ownStorage(FieldType type);

/// The type under which a column of this program is declared: the word tells the field type, the
/// number behind a TEXT its characters, and SQLite's affinity for it lets every value lie as it is
/// written. STRICT tables know five words only; there the catalogue alone tells the rest.
std::string declaredType(FieldType type, int size, bool strict = false);

/// The nearest field type for a declared type of any maker. Never fails: a text column of unknown or
/// boundless length, a column without a type and one whose type means nothing are memos, since any
/// value has a text form. Reading what declaredType() gave for a table that is not STRICT gives back
/// type, size and storage.
ColumnType readDeclaredType(std::string_view declared);

} // namespace tol::data::sqlite
