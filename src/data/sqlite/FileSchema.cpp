// SPDX-License-Identifier: MIT
#include "data/sqlite/FileSchema.h"

#include "data/sqlite/SqlTokens.h"

#include <algorithm>

namespace tol::data::sqlite {

const SchemaColumn* SchemaTable::findColumn(std::string_view column) const {
    const auto found = std::ranges::find_if(
        columns, [column](const SchemaColumn& other) { return sameSqlName(other.name, column); });
    return found == columns.end() ? nullptr : &*found;
}

/// "INTEGER PRIMARY KEY DESC" is an ordinary column with an index of its own, whatever it looks like.
const SchemaColumn* SchemaTable::rowIdAlias() const {
    const auto isPrimary = [](const SchemaIndex& index) { return index.origin == IndexOrigin::PrimaryKey; };
    if (withoutRowId || std::ranges::any_of(indexes, isPrimary))
        return nullptr;
    const auto found = std::ranges::find(columns, 1, &SchemaColumn::keyPosition);
    return found != columns.end() && sameSqlName(found->type, "INTEGER") ? &*found : nullptr;
}

} // namespace tol::data::sqlite
