// SPDX-License-Identifier: MIT
#include "data/sqlite/definitions/CatalogueReader.h"

#include "data/sqlite/connection/Statement.h"
#include "data/sqlite/definitions/TableReader.h"
#include "runtime/RuntimeError.h"

#include <array>
#include <string_view>

namespace tol::data::sqlite {

namespace {

constexpr std::array<const char*, 3> catalogueTableNames = {"MSysFields", "MSysIndexes", "MSysInfo"};

/// A query over a catalogue table, of all rows or those of the table whose name is bound.
std::string overRows(std::string_view query, bool one) {
    return std::string(query) + (one ? " WHERE TableName = ?1" : "");
}

void bindIfOne(Statement& query, const std::string& table) {
    if (!table.empty())
        query.bind(1, table);
}

/// Characters of the longest whole number of 64 bits, with its sign.
constexpr int textSize = 20;

/// The NumberRange of a value: whole numbers count in a Double up to 2^53.
std::string rangeOf(const std::string& column) {
    return "CASE typeof(" + column + ") WHEN 'real' THEN 1 WHEN 'integer' THEN (" + column +
           " NOT BETWEEN -2147483648 AND 2147483647) + (" + column +
           " NOT BETWEEN -9007199254740992 AND 9007199254740992) ELSE 0 END";
}

} // namespace

std::vector<StoredTable> CatalogueReader::tables() {
    read({});
    std::vector<StoredTable> tables;
    for (const auto& [name, table] : m_tables)
        if (auto built = build(table))
            tables.push_back(std::move(*built));
    return tables;
}

std::optional<StoredTable> CatalogueReader::table(const std::string& sqlName) {
    read(sqlName);
    return m_tables.empty() ? std::nullopt : build(m_tables.begin()->second);
}

void CatalogueReader::read(const std::string& sqlName) {
    m_tables.clear();
    m_rows.clear();
    m_tables = readSchema(m_connection, sqlName);
    for (const char* name : catalogueTableNames)
        m_tables.erase(name);
    if (m_tables.empty())
        return;
    readCollations();
    readCatalogueRows(sqlName);
}

void CatalogueReader::readCollations() {
    if (!m_collations.empty())
        return;
    auto query = m_connection.cached("SELECT name FROM pragma_collation_list");
    while (query->step())
        m_collations.emplace_back(query->text(0));
}

void CatalogueReader::readCatalogueRows(const std::string& sqlName) {
    if (!SystemTables(m_connection).exist())
        return;
    readFieldRows(sqlName);
    readIndexRows(sqlName);
}

void CatalogueReader::readFieldRows(const std::string& sqlName) {
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

void CatalogueReader::readIndexRows(const std::string& sqlName) {
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

std::optional<StoredTable> CatalogueReader::build(const SchemaTable& table) {
    const auto found = m_rows.find(table.name);
    static const CatalogueRows none;
    const CatalogueRows& rows = found == m_rows.end() ? none : found->second;
    auto built = TableReader(table, rows.fields, rows.indexes, m_collations).build();
    if (built)
        fitNumbers(*built);
    return built;
}

void CatalogueReader::fitNumbers(StoredTable& table) {
    std::vector<std::string> unknown;
    for (const Column& column : table.columns)
        if (column.holdsNumbers && !m_ranges.contains({table.sqlName, column.name}))
            unknown.push_back(column.name);
    if (!unknown.empty())
        measureNumbers(table, unknown);
    for (std::size_t at = 0; at < table.columns.size(); ++at) {
        const auto range = m_ranges.find({table.sqlName, table.columns[at].name});
        if (!table.columns[at].holdsNumbers || range == m_ranges.end())
            continue;
        FieldDef& field = table.definition.fields[at];
        if (range->second == NumberRange::Text)
            field.type = dbText;
        else if (range->second == NumberRange::Double)
            field.type = dbDouble;
        if (range->second != NumberRange::Long)
            table.columns[at].storage = Storage::WholeNumber;
        field.size = reportedSize(field.type, textSize);
    }
}

/// A damaged table is exposed as it is declared; who reads it hears of the damage.
void CatalogueReader::measureNumbers(const StoredTable& table, const std::vector<std::string>& columns) {
    std::string sql;
    for (const std::string& column : columns)
        sql += (sql.empty() ? "SELECT max(" : ", max(") + rangeOf(quotedName(column)) + ")";
    try {
        auto query = m_connection.cached(sql + " FROM " + quotedName(table.sqlName));
        if (query->step())
            for (std::size_t at = 0; at < columns.size(); ++at)
                m_ranges[{table.sqlName, columns[at]}] =
                    static_cast<NumberRange>(query->integer(static_cast<int>(at)));
    } catch (const runtime::RuntimeError& error) {
        if (error.number() != runtime::errCannotOpen)
            throw;
    }
}

} // namespace tol::data::sqlite
