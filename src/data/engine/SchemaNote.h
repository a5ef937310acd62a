// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tol::data {

/// Something that another program had declared in its file and that a change of a definition could not
/// keep, or could not take away.
struct SchemaNote {
    enum class Kind {
        Check,        ///< a CHECK of the table is gone
        Default,      ///< a field has lost its DEFAULT
        NotNull,      ///< a field may be Null now
        PrimaryKey,   ///< the primary key is gone
        Unique,       ///< a UNIQUE constraint is gone
        ForeignKey,   ///< a foreign key of the table is gone
        Generated,    ///< a generated column is gone
        Index,        ///< a partial index or one on expressions is gone
        Trigger,      ///< a trigger that names a removed field is gone
        View,         ///< a view names a removed field
        Reference,    ///< a foreign key of another table names a removed field
        StillInForce, ///< the constraint behind an index that was deleted from the definition
    };

    Kind kind = Kind::Check;
    std::string table;
    std::string name; ///< field, fields, index, trigger, view or table that it is about; "" for Check

    bool operator==(const SchemaNote&) const = default;
};

using SchemaNotes = std::vector<SchemaNote>;

/// One word for the kind, as it stands in reports for programs.
std::string kindWord(SchemaNote::Kind kind);
/// A sentence for people.
std::string noteText(const SchemaNote& note);

} // namespace tol::data
