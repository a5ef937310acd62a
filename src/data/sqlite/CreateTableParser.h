// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/CreateTableSql.h"

#include <initializer_list>

namespace tol::data::sqlite {

/// One walk over the tokens of a CREATE TABLE statement that fills a CreateTableSql. It knows where
/// columns and constraints begin and end and nothing of what expressions mean; a token that it does
/// not expect becomes a constraint of kind Other.
class CreateTableParser {
  public:
    explicit CreateTableParser(CreateTableSql& statement) : m_statement(statement) {}

    /// False when the text is no such statement.
    bool run();

  private:
    bool parseHead();
    bool parseName();
    void parseElements();
    void parseColumn();
    void parseType();
    void parseTableOptions();
    /// A constraint of the column, or with null one of the table.
    ConstraintPart parseConstraint(const std::string* column);
    void parseConstraintBody(ConstraintPart& part);
    void parsePrimaryKey(ConstraintPart& part);
    void parseUnique(ConstraintPart& part);
    void parseForeignKey(ConstraintPart& part);
    void parseNotNullOrDeferrable(ConstraintPart& part);
    void parseDefault();
    void parseGenerated();
    void parseReferenceActions();
    void parseDeferrable();
    void parseConflict();
    std::vector<std::string> parseNames();

    [[nodiscard]] std::string_view text(std::size_t token) const;
    [[nodiscard]] bool isWord(std::size_t token, std::string_view word) const;
    [[nodiscard]] bool isSymbol(std::size_t token, char symbol) const;
    [[nodiscard]] bool startsTableConstraint() const;
    [[nodiscard]] bool startsColumnConstraint() const;
    /// At a comma between elements, at the bracket behind them, or at the end.
    [[nodiscard]] bool atElementEnd() const;
    bool accept(std::string_view word);
    bool acceptAll(std::initializer_list<std::string_view> words);
    bool acceptSymbol(char symbol);
    std::string takeName();
    void skip();
    /// Moves behind the bracket that belongs to the one here; does nothing where there is none.
    void skipGroup();

    CreateTableSql& m_statement;
    std::size_t m_at = 0;
};

} // namespace tol::data::sqlite
