// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/CreateTableSql.h"
#include "data/sqlite/FileSchema.h"

#include <string>
#include <string_view>
#include <vector>

namespace tol::data::sqlite {

/// What is to be taken out of a table, and from that what else has to go: everything that could not be
/// understood any more without a removed column.
class Removals {
  public:
    void addColumn(std::string column) { m_columns.push_back(std::move(column)); }
    void addUnique(std::vector<std::string> columns) { m_uniques.push_back(std::move(columns)); }
    void addPrimaryKey() { m_primaryKey = true; }

    [[nodiscard]] bool anyColumn() const { return !m_columns.empty(); }
    [[nodiscard]] bool takesColumn(std::string_view column) const;

    /// Marks in the table's text what goes. Raises 3280 when a generated column uses a removed one: its
    /// values would have nowhere to come from.
    void applyTo(CreateTableSql& statement, const SchemaTable& table) const;
    /// Whether an index uses a removed column: `sql` is its CREATE INDEX text.
    [[nodiscard]] bool concernIndex(const SchemaIndex& index, const std::string& sql) const;
    /// Whether any text, such as a trigger's, names a removed column.
    [[nodiscard]] bool areNamedIn(const std::string& sql) const;

  private:
    [[nodiscard]] bool takesPart(const CreateTableSql& statement, const ConstraintPart& part,
                                 const SchemaTable& table) const;
    [[nodiscard]] bool takesAnyOf(const std::vector<std::string>& columns) const;
    [[nodiscard]] bool takesKey(const ConstraintPart& part, const SchemaTable& table) const;
    [[nodiscard]] bool areUsedBy(const CreateTableSql& statement, const ConstraintPart& part) const;
    [[nodiscard]] bool takesAllColumns(const SchemaTable& table) const;

    std::vector<std::string> m_columns;
    std::vector<std::vector<std::string>> m_uniques;
    bool m_primaryKey = false;
};

} // namespace tol::data::sqlite
