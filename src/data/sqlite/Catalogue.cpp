// SPDX-License-Identifier: MIT
#include "data/sqlite/Catalogue.h"

#include "data/sqlite/PhysicalTableBuilder.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tol::data::sqlite {

namespace {

constexpr std::array<const char*, 3> catalogueTableNames = {"MSysFields", "MSysIndexes", "MSysInfo"};

/// A query over the ordinary tables of the file, called `l`, or over the one whose name is bound.
std::string overTables(std::string_view columns, std::string_view joins, bool one) {
    std::string sql = "SELECT ";
    sql.append(columns).append(" FROM pragma_table_list").append(one ? "(?1)" : "").append(" l");
    return sql.append(joins).append(" WHERE l.schema = 'main' AND l.type = 'table'"
                                    " AND l.name NOT LIKE 'sqlite\\_%' ESCAPE '\\'");
}

/// A query over a catalogue table, of all rows or those of the table whose name is bound.
std::string overRows(std::string_view query, bool one) {
    return std::string(query) + (one ? " WHERE TableName = ?1" : "");
}

void bindIfOne(Statement& query, const std::string& table) {
    if (!table.empty())
        query.bind(1, table);
}

IndexOrigin origin(std::string_view letters) {
    if (letters == "c")
        return IndexOrigin::Created;
    return letters == "pk" ? IndexOrigin::PrimaryKey : IndexOrigin::UniqueConstraint;
}

} // namespace

std::vector<PhysicalTable> Catalogue::tables() {
    read({});
    std::vector<PhysicalTable> tables;
    for (const auto& [name, table] : m_tables)
        if (auto built = build(table))
            tables.push_back(std::move(*built));
    return tables;
}

std::optional<PhysicalTable> Catalogue::table(const std::string& sqlName) {
    read(sqlName);
    return m_tables.empty() ? std::nullopt : build(m_tables.begin()->second);
}

void Catalogue::read(const std::string& sqlName) {
    m_tables.clear();
    m_rows.clear();
    readTables(sqlName);
    for (const char* name : catalogueTableNames)
        m_tables.erase(name);
    if (m_tables.empty())
        return;
    readIndexes(sqlName);
    readConstraintTexts();
    readCollations();
    readCatalogueRows(sqlName);
}

void Catalogue::readTables(const std::string& sqlName) {
    auto query = m_connection.cached(overTables(
        "l.name, l.wr, l.strict, x.name, x.type, x.\"notnull\", x.dflt_value IS NOT NULL, x.pk, x.hidden",
        ", pragma_table_xinfo(l.name, 'main') x", !sqlName.empty()));
    bindIfOne(*query, sqlName);
    while (query->step()) {
        SchemaTable& table = m_tables[std::string(query->text(0))];
        table.name = query->text(0);
        table.withoutRowId = query->integer(1) != 0;
        table.strict = query->integer(2) != 0;
        table.columns.push_back({.name = std::string(query->text(3)),
                                 .type = std::string(query->text(4)),
                                 .notNull = query->integer(5) != 0,
                                 .hasDefault = query->integer(6) != 0,
                                 .keyPosition = static_cast<int>(query->integer(7)),
                                 .generated = query->integer(8) != 0});
    }
}

/// SQLite tells the newest index of a table first.
void Catalogue::readIndexes(const std::string& sqlName) {
    auto query = m_connection.cached(
        overTables("l.name, i.name, i.\"unique\", i.origin, i.partial, x.cid, x.name, x.\"desc\", x.coll",
                   ", pragma_index_list(l.name, 'main') i, pragma_index_xinfo(i.name, 'main') x",
                   !sqlName.empty()) +
        " AND x.key");
    bindIfOne(*query, sqlName);
    while (query->step()) {
        const auto table = m_tables.find(std::string(query->text(0)));
        if (table == m_tables.end())
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
                                       .descending = query->integer(7) != 0});
    }
    for (auto& [name, table] : m_tables)
        std::ranges::reverse(table.indexes);
}

/// Only the texts tell what a UNIQUE constraint is called.
void Catalogue::readConstraintTexts() {
    for (auto& [name, table] : m_tables) {
        if (std::ranges::find(table.indexes, IndexOrigin::UniqueConstraint, &SchemaIndex::origin) ==
            table.indexes.end())
            continue;
        auto query = m_connection.cached("SELECT sql FROM sqlite_schema WHERE type = 'table' AND name = ?");
        query->bind(1, name);
        if (query->step())
            table.sql = query->text(0);
    }
}

void Catalogue::readCollations() {
    if (!m_collations.empty())
        return;
    auto query = m_connection.cached("SELECT name FROM pragma_collation_list");
    while (query->step())
        m_collations.emplace_back(query->text(0));
}

void Catalogue::readCatalogueRows(const std::string& sqlName) {
    if (!CatalogueTables(m_connection).exist())
        return;
    readFieldRows(sqlName);
    readIndexRows(sqlName);
}

void Catalogue::readFieldRows(const std::string& sqlName) {
    auto query = m_connection.cached(overRows("SELECT TableName, ColumnName, FieldName, Ordinal, Type, Size, "
                                              "AllowZeroLength, Required FROM MSysFields",
                                              !sqlName.empty()));
    bindIfOne(*query, sqlName);
    while (query->step()) {
        FieldRow row{.table = std::string(query->text(0)),
                     .column = std::string(query->text(1)),
                     .field = std::string(query->text(2)),
                     .ordinal = static_cast<int>(query->integer(3)),
                     .type = static_cast<int>(query->integer(4)),
                     .size = static_cast<int>(query->integer(5)),
                     .allowZeroLength = query->integer(6) != 0,
                     .required = query->integer(7) != 0};
        m_rows[row.table].fields.push_back(std::move(row));
    }
}

void Catalogue::readIndexRows(const std::string& sqlName) {
    auto query = m_connection.cached(overRows(
        "SELECT TableName, IndexName, SqlName, IsPrimary, IsUnique FROM MSysIndexes", !sqlName.empty()));
    bindIfOne(*query, sqlName);
    while (query->step()) {
        IndexRow row{.table = std::string(query->text(0)),
                     .index = std::string(query->text(1)),
                     .sqlName = std::string(query->text(2)),
                     .primary = query->integer(3) != 0,
                     .unique = query->integer(4) != 0};
        m_rows[row.table].indexes.push_back(std::move(row));
    }
}

std::optional<PhysicalTable> Catalogue::build(const SchemaTable& table) const {
    const auto found = m_rows.find(table.name);
    static const CatalogueRows none;
    const CatalogueRows& rows = found == m_rows.end() ? none : found->second;
    return PhysicalTableBuilder(table, rows.fields, rows.indexes, m_collations).build();
}

} // namespace tol::data::sqlite
