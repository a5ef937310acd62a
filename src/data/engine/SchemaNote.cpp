// SPDX-License-Identifier: MIT
#include "data/engine/SchemaNote.h"

#include <array>
#include <string_view>

namespace tol::data {
namespace {

struct Words {
    std::string_view word;
    std::string_view before; ///< the sentence before the table's name
    std::string_view behind; ///< and behind it; the name follows where there is one
};

// In the order of SchemaNote::Kind.
constexpr std::array<Words, 12> table = {{
    {"check", "CHECK lost in table ", ""},
    {"default", "DEFAULT lost in table ", ": "},
    {"not null", "NOT NULL lost in table ", ": "},
    {"primary key", "PRIMARY KEY lost in table ", ": "},
    {"unique", "UNIQUE lost in table ", ": "},
    {"foreign key", "Foreign key lost in table ", ": "},
    {"generated column", "Generated column lost in table ", ": "},
    {"index", "Partial index or index on expressions lost in table ", ": "},
    {"trigger", "Trigger lost that named a removed field of table ", ": "},
    {"view", "View that names a removed field of table ", ": "},
    {"reference", "Foreign key that names a removed field of table ", ", in table "},
    {"still in force", "Index deleted, but its constraint stays in force in table ", ": "},
}};

const Words& words(SchemaNote::Kind kind) {
    return table.at(static_cast<std::size_t>(kind));
}

} // namespace

std::string kindWord(SchemaNote::Kind kind) {
    return std::string(words(kind).word);
}

std::string noteText(const SchemaNote& note) {
    const Words& parts = words(note.kind);
    std::string text = std::string(parts.before) + note.table;
    if (!note.name.empty())
        text.append(parts.behind).append(note.name);
    return text;
}

} // namespace tol::data
