// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace tol::test {

/// A table as any program might declare it: columns and constraints of all kinds in any spelling, with
/// comments in between, rows, indexes, and another table that refers to it. The same seed gives the same.
class RandomTable {
  public:
    explicit RandomTable(unsigned seed);

    /// The table "t" with rows and indexes.
    [[nodiscard]] const std::string& sql() const { return m_sql; }
    [[nodiscard]] const std::vector<std::string>& columns() const { return m_columns; }
    /// The columns that partial indexes test, by the index's name.
    [[nodiscard]] const std::map<std::string, std::string>& conditions() const { return m_conditions; }
    /// One of the columns.
    [[nodiscard]] const std::string& anyColumn() { return m_columns[below(m_columns.size())]; }

  private:
    std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random);
    }
    bool chance(int percent) { return below(100) < static_cast<std::size_t>(percent); }
    std::string oneOf(const std::vector<std::string>& texts) { return texts[below(texts.size())]; }
    std::string written(const std::string& name);
    std::string gap();
    std::string someColumns(std::size_t most);
    std::string columnSql(std::size_t position);
    std::string constraintSql();
    std::string rowSql(int row);
    void addIndexes();

    std::mt19937 m_random;
    std::string m_sql;
    std::vector<std::string> m_columns;
    std::map<std::string, std::string> m_conditions;
};

} // namespace tol::test
