// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/definitions/PragmaSchema.h"
#include "data/sqlite/definitions/StoredTable.h"
#include "data/sqlite/definitions/SystemTables.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tol::data::sqlite {

/// Makes of a table, as SQLite tells it, and of its catalogue rows the table that the interface sees.
/// Columns and indexes without a row are read as those of another maker. Hidden are generated
/// columns, deleted fields, deleted indexes whose constraint is in force, and indexes that are partial, have
/// an expression or a hidden column as a key, or collate in a way that only their maker's program knows.
class TableReader {
  public:
    TableReader(const SchemaTable& schema, std::span<const FieldRow> fields,
                std::span<const IndexRow> indexes, const std::vector<std::string>& collations)
        : m_schema(schema), m_fieldRows(fields), m_indexRows(indexes), m_collations(collations) {}

    /// Nothing for a table whose rows have no key: its columns bear all the names of the row id.
    std::optional<StoredTable> build();

  private:
    bool addRowKey();
    void addFields();
    void addField(const SchemaColumn& column, int position);
    void sortFields();
    void addIndexes();
    void addRowIdIndex(const SchemaColumn& alias);
    void addIndex(const SchemaIndex& index);
    [[nodiscard]] bool isExposed(const SchemaIndex& index) const;
    /// Whether a constraint's index was deleted from the definition; "" stands for that of the row id.
    [[nodiscard]] bool isDeleted(const std::string& sqlName) const;
    [[nodiscard]] bool isKnown(const std::string& collation) const;
    [[nodiscard]] std::string indexName(const SchemaIndex& index) const;
    [[nodiscard]] std::string freeName(const std::string& wanted) const;
    [[nodiscard]] const FieldRow* fieldRow(const std::string& column) const;
    [[nodiscard]] const IndexRow* indexRow(const std::string& sqlName) const;
    /// The field in front of the column, null for a hidden one.
    [[nodiscard]] const std::string* fieldOf(const std::string& column) const;

    const SchemaTable& m_schema;
    std::span<const FieldRow> m_fieldRows;
    std::span<const IndexRow> m_indexRows;
    const std::vector<std::string>& m_collations;
    StoredTable m_table;
};

} // namespace tol::data::sqlite
