// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Text.h"

#include <string_view>

namespace tol::data {

/// Most characters of a new table's, field's or index's name.
inline constexpr std::size_t maxNameLength = 64;

/// Whether two names mean the same table, field or index: case does not matter for any letter.
inline bool sameName(std::string_view left, std::string_view right) {
    return runtime::sameText(left, right);
}

/// Columns of a table that are no fields: the row key, and what is left of a deleted field, called by this
/// and a number.
inline constexpr const char* rowKeyColumn = "MSysKey";
inline constexpr const char* hiddenColumnPrefix = "MSysDeleted";

/// Raises 3125 for a name that nothing new may have: an empty or too long one, one that begins with a
/// blank, or that holds a control character or one of . ! ` [ ]. What a database has already is
/// opened, read and deleted whatever it is called. A name taken as it was found elsewhere is refused when it
/// is empty only.
void requireNewName(std::string_view name, bool asFound = false);
/// The same for a field, whose name may not be that of a column that is none, wherever it was found.
void requireNewFieldName(std::string_view name, bool asFound = false);

} // namespace tol::data
