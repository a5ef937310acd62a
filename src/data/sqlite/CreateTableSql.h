// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/SqlTokens.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tol::data::sqlite {

enum class ConstraintKind {
    PrimaryKey,
    Unique,
    NotNull,
    Check,
    Default,
    Collate,
    ForeignKey,
    Generated,
    Other
};

/// A constraint of a column or of the table: tokens [begin, end), its CONSTRAINT name included.
struct ConstraintPart {
    ConstraintKind kind = ConstraintKind::Other;
    std::string name;                 ///< "" when it has none
    std::vector<std::string> columns; ///< of a key, unique or (child side) foreign-key constraint
    std::string parentTable;          ///< of a foreign key
    std::size_t begin = 0;
    std::size_t end = 0;
    bool inColumn = false;
};

/// A column's definition: tokens [begin, end).
struct ColumnPart {
    std::string name;
    std::size_t begin = 0;
    std::size_t end = 0;
    std::vector<ConstraintPart> constraints;
};

/// A CREATE TABLE statement as SQLite keeps it, taken apart into places of its text, and given back
/// with parts of it left out. Everything else, comments and what is not understood among it, stays letter
/// for letter as it was written.
class CreateTableSql {
  public:
    /// Nothing for a text that is no CREATE TABLE statement with a list of columns.
    static std::optional<CreateTableSql> parse(std::string sql);

    [[nodiscard]] const std::vector<ColumnPart>& columns() const { return m_columns; }
    /// Constraints of the table, behind the columns.
    [[nodiscard]] const std::vector<ConstraintPart>& constraints() const { return m_constraints; }
    /// Constraints of the columns and of the table, in the order of the text.
    [[nodiscard]] std::vector<ConstraintPart> allConstraints() const;
    [[nodiscard]] bool withoutRowId() const { return m_withoutRowId.has_value(); }

    /// Whether the part's text names the column.
    [[nodiscard]] bool uses(const ConstraintPart& part, std::string_view column) const;

    // Marks parts to be left out of text().
    void removeColumn(std::string_view name);
    void removeConstraint(const ConstraintPart& part);
    /// Makes a WITHOUT ROWID table an ordinary one.
    void removeWithoutRowId();
    /// A column definition to stand in front of all others.
    void prependColumn(std::string definition) { m_prepended = std::move(definition); }

    /// The statement with the table called so.
    [[nodiscard]] std::string text(std::string_view tableName) const;

  private:
    friend class CreateTableParser;
    struct TokenRange {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    CreateTableSql() = default;
    [[nodiscard]] std::string_view tokenText(std::size_t token) const;
    [[nodiscard]] bool isSymbol(std::size_t token, char symbol) const;
    void removeElement(std::size_t begin, std::size_t end);
    [[nodiscard]] std::vector<bool> keptTokens() const;
    [[nodiscard]] bool isListEmpty(const std::vector<bool>& kept) const;

    std::string m_sql;
    std::vector<SqlToken> m_tokens;
    TokenRange m_name;       ///< the table's name, with its schema where that is told
    std::size_t m_close = 0; ///< the bracket behind columns and constraints
    std::vector<ColumnPart> m_columns;
    std::vector<ConstraintPart> m_constraints;
    std::optional<TokenRange> m_withoutRowId; ///< with the comma that joins it to other table options
    std::vector<TokenRange> m_removed;
    std::string m_prepended;
};

} // namespace tol::data::sqlite
