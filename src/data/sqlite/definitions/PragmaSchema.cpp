// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/PragmaSchema.h"

#include "data/sqlite/connection/Connection.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <array>

namespace tol::data::sqlite {

namespace {

/// A query over the ordinary tables of the file, called `l`, or over the one whose name is bound.
std::string overTables(std::string_view columns, std::string_view joins, bool one) {
    std::string sql = "SELECT ";
    sql.append(columns).append(" FROM pragma_table_list").append(one ? "(?1)" : "").append(" l");
    return sql.append(joins).append(" WHERE l.schema = 'main' AND l.type = 'table'"
                                    " AND l.name NOT LIKE 'sqlite\\_%' ESCAPE '\\'");
}

void bindIfOne(Statement& query, const std::string& one) {
    if (!one.empty())
        query.bind(1, one);
}

/// Where SQLite tells a key's column, this stands for an expression.
constexpr std::int64_t expressionKey = -2;

IndexOrigin origin(std::string_view letters) {
    if (letters == "c")
        return IndexOrigin::Created;
    return letters == "pk" ? IndexOrigin::PrimaryKey : IndexOrigin::UniqueConstraint;
}

void readTables(Connection& connection, const std::string& one, PragmaSchema& tables) {
    auto query = connection.cached(
        overTables("l.name, l.wr, l.strict, x.name, x.type, x.\"notnull\", x.dflt_value, x.pk, x.hidden",
                   ", pragma_table_xinfo(l.name, 'main') x", !one.empty()));
    bindIfOne(*query, one);
    while (query->step()) {
        SchemaTable& table = tables[std::string(query->text(0))];
        table.name = query->text(0);
        table.withoutRowId = query->integer(1) != 0;
        table.strict = query->integer(2) != 0;
        const bool hasDefault = !query->isNull(6);
        table.columns.push_back(
            {.name = std::string(query->text(3)),
             .type = std::string(query->text(4)),
             .notNull = query->integer(5) != 0,
             .defaultValue = hasDefault ? std::optional(std::string(query->text(6))) : std::nullopt,
             .keyPosition = static_cast<int>(query->integer(7)),
             .generated = query->integer(8) != 0});
    }
}

/// SQLite tells the newest index of a table first.
void readIndexes(Connection& connection, const std::string& one, PragmaSchema& tables) {
    auto query = connection.cached(
        overTables("l.name, i.name, i.\"unique\", i.origin, i.partial, x.cid, x.name, x.\"desc\", x.coll",
                   ", pragma_index_list(l.name, 'main') i, pragma_index_xinfo(i.name, 'main') x",
                   !one.empty()) +
        " AND x.key");
    bindIfOne(*query, one);
    while (query->step()) {
        const auto table = tables.find(std::string(query->text(0)));
        if (table == tables.end())
            continue;
        std::vector<SchemaIndex>& indexes = table->second.indexes;
        if (indexes.empty() || indexes.back().name != query->text(1))
            indexes.push_back({.name = std::string(query->text(1)),
                               .origin = origin(query->text(3)),
                               .unique = query->integer(2) != 0,
                               .partial = query->integer(4) != 0,
                               .keys = {}});
        indexes.back().keys.push_back({.column = std::string(query->text(6)),
                                       .collation = std::string(query->text(8)),
                                       .descending = query->integer(7) != 0,
                                       .expression = query->integer(5) == expressionKey});
    }
    for (auto& [name, table] : tables)
        std::ranges::reverse(table.indexes);
}

/// The last key that was declared comes first.
std::vector<SchemaForeignKey> readForeignKeys(Connection& connection, const std::string& table) {
    auto query = connection.cached("SELECT seq, \"table\", \"from\", \"to\", on_update, on_delete "
                                   "FROM pragma_foreign_key_list(?1, 'main') ORDER BY id DESC, seq");
    query->bind(1, table);
    std::vector<SchemaForeignKey> keys;
    while (query->step()) {
        if (query->integer(0) == 0)
            keys.push_back({.parent = std::string(query->text(1)),
                            .columns = {},
                            .parentColumns = {},
                            .onUpdate = std::string(query->text(4)),
                            .onDelete = std::string(query->text(5))});
        keys.back().columns.emplace_back(query->text(2));
        if (!query->isNull(3))
            keys.back().parentColumns.emplace_back(query->text(3));
    }
    return keys;
}

} // namespace

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

std::optional<std::string> SchemaTable::rowIdName() const {
    static constexpr std::array<const char*, 3> names = {"rowid", "_rowid_", "oid"};
    if (withoutRowId)
        return std::nullopt;
    if (const SchemaColumn* alias = rowIdAlias())
        return alias->name;
    const auto* free =
        std::ranges::find_if(names, [this](const char* candidate) { return !findColumn(candidate); });
    return free == names.end() ? std::nullopt : std::optional<std::string>(*free);
}

std::vector<std::string> SchemaTable::primaryKey() const {
    std::vector<const SchemaColumn*> keys;
    for (const SchemaColumn& column : columns)
        if (column.keyPosition > 0)
            keys.push_back(&column);
    std::ranges::sort(keys, {}, &SchemaColumn::keyPosition);
    std::vector<std::string> names;
    names.reserve(keys.size());
    for (const SchemaColumn* key : keys)
        names.push_back(key->name);
    return names;
}

std::vector<std::string> SchemaTable::constraintNames() const {
    std::vector<std::string> names;
    if (rowIdAlias() != nullptr)
        names.emplace_back();
    for (const SchemaIndex& index : indexes)
        if (index.origin != IndexOrigin::Created)
            names.push_back(index.name);
    return names;
}

PragmaSchema readSchema(Connection& connection, const std::string& table) {
    PragmaSchema tables;
    readTables(connection, table, tables);
    readIndexes(connection, table, tables);
    return tables;
}

SchemaTable requireSchema(Connection& connection, const std::string& table) {
    PragmaSchema schema = readSchema(connection, table);
    if (schema.empty())
        runtime::raise(runtime::errTableNotFound, {table});
    SchemaTable found = std::move(schema.begin()->second);
    found.foreignKeys = readForeignKeys(connection, found.name);
    return found;
}

} // namespace tol::data::sqlite
