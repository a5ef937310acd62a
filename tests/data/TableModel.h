// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Definition.h"
#include "runtime/Value.h"

#include <cstdint>
#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tol::test {

using Row = std::vector<runtime::Value>;

/// A table as plain as can be: all rows in memory by the number under which they were added, looked
/// through from the first to the last for every question.
class TableModel {
  public:
    explicit TableModel(data::TableDefinition definition) : m_definition(std::move(definition)) {}

    [[nodiscard]] data::TableDefinition& definition() { return m_definition; }
    [[nodiscard]] const data::TableDefinition& definition() const { return m_definition; }
    [[nodiscard]] const std::map<int, Row>& rows() const { return m_rows; }

    /// Whether the row's keys are another row's in a unique index.
    [[nodiscard]] bool isDuplicate(const Row& row, int except) const;
    int add(Row row);
    void replace(int number, Row row) { m_rows[number] = std::move(row); }
    void remove(int number) { m_rows.erase(number); }

    /// The row's key fields in that index; none in stored order ("").
    [[nodiscard]] Row keys(const std::string& index, const Row& row) const;
    [[nodiscard]] std::vector<std::size_t> keyFields(const std::string& index) const;
    /// Whether no two rows can have these keys in the index.
    [[nodiscard]] bool isOnePlace(const std::string& index, const Row& keys) const;
    /// Order of as many keys as the shorter list has: Null first, texts without regard to case.
    static int compare(std::span<const runtime::Value> left, std::span<const runtime::Value> right);

  private:
    data::TableDefinition m_definition;
    std::map<int, Row> m_rows;
    int m_next = 1;
};

/// What a recordset on such a table must do: its calls return the number of the error, 0 for none.
class RecordsetModel {
  public:
    explicit RecordsetModel(TableModel& table) : m_table(&table) { setIndex(""); }

    [[nodiscard]] bool atBOF() const { return isOff(Place::BeforeFirst); }
    [[nodiscard]] bool atEOF() const { return isOff(Place::BehindLast); }
    [[nodiscard]] bool noMatch() const { return m_noMatch; }
    [[nodiscard]] const std::string& index() const { return m_index; }
    /// The number of the current row, whether it is still there or not; 0 for none.
    [[nodiscard]] int current() const { return m_place == Place::OnRecord ? m_row : 0; }
    /// The error of reading the current row.
    [[nodiscard]] int readError() const;

    void setIndex(const std::string& name);
    int moveFirst();
    int moveLast();
    int moveNext() { return step(true); }
    int movePrevious() { return step(false); }
    int setBookmark(int row);
    void seek(std::string_view comparison, std::span<const runtime::Value> keys);
    /// Replaces the current row.
    int update(const Row& row);
    int remove();

  private:
    enum class Place { OnRecord, BehindDeleted, BeforeFirst, BehindLast, OffBothEnds, Nowhere };

    [[nodiscard]] bool isOff(Place end) const;
    /// All rows in order.
    [[nodiscard]] std::vector<int> inOrder() const;
    /// Whether the row stands behind the position, or before it.
    [[nodiscard]] bool isBeyond(int row, bool forward) const;
    int step(bool forward);
    void startWalk();
    void standOn(int row);

    TableModel* m_table;
    std::string m_index;
    Place m_place = Place::OffBothEnds;
    bool m_noMatch = false;
    int m_row = 0;
    Row m_keys; ///< where the row stood when it was reached
    bool m_forward = true;
    std::set<int> m_moved; ///< rows whose keys were changed in this walk
};

} // namespace tol::test
