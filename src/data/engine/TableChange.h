// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Definition.h"

#include <string>
#include <variant>

namespace tol::data {

/// What can be done to a table's definition. Names are found without regard to case.
struct CreateTable {
    TableDefinition table;
};
struct DropTable {};
struct RenameTable {
    std::string newName;
};
struct AddField {
    FieldDef field;
};
struct DropField {
    std::string field;
};
struct RenameField {
    std::string field;
    std::string newName;
};
struct SetOrdinal {
    std::string field;
    int ordinal = 0;
};
struct SetAllowZeroLength {
    std::string field;
    bool allow = false;
};
struct AddIndex {
    IndexDef index;
};
struct DropIndex {
    std::string index;
};

using TableChange = std::variant<CreateTable, DropTable, RenameTable, AddField, DropField, RenameField,
                                 SetOrdinal, SetAllowZeroLength, AddIndex, DropIndex>;

/// Makes the change in the definition; one without a name stands for no table. What the change leaves open
/// is filled in: a new field's size and ordinal, and for a new index the spelling of its fields. The error
/// tells what stands in the way: 3125 for a new name that can't be one (any but an empty one can when it is
/// taken `asFound` in another database), 3265 for an unknown name, 3191, 3190, 3259, 3001, 3280 of fields,
/// 3264, 3284, 3409, 3283 of indexes.
void apply(TableDefinition& table, const TableChange& change, bool asFound);

} // namespace tol::data
