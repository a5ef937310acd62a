// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/rows/FieldStorage.h"
#include "data/sqlite/rows/KeyQueries.h"
#include "data/sqlite/rows/OpenTable.h"
#include "data/sqlite/rows/RowWriter.h"

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace tol::data::sqlite {

/// A table's rows by prepared statements. No statement stays open between calls.
class SqliteRows : public RowSource {
  public:
    SqliteRows(std::shared_ptr<Session> session, std::shared_ptr<OpenTable> table);

    [[nodiscard]] const TableDefinition& definition() const override { return m_table->definition; }
    [[nodiscard]] const std::filesystem::path& file() const override {
        return m_session->connection().file();
    }
    [[nodiscard]] TableState& state() override { return m_open->rows; }
    void enter(Look look) override { m_session->enter(look); }
    [[nodiscard]] std::uint64_t changes() const override { return m_session->others(); }

    [[nodiscard]] RowOrder order(int index) const override { return KeyQueries(*m_table, index).order(); }
    void choose(int index, std::span<const std::size_t> fields) override;
    void read(std::span<const KeyRange> ranges, std::span<const StoredValue> values, Direction direction,
              RowBatch& batch) override;
    bool readRow(std::int64_t key, RowBatch& batch) override;
    std::int64_t count(std::int64_t limit) override;

    [[nodiscard]] StoredValue stored(std::size_t field, const runtime::Value& value,
                                     std::string& buffer) const override {
        return toStored(value, m_table->columns[field].storage, buffer);
    }
    [[nodiscard]] runtime::Value value(std::size_t field, const StoredValue& stored) const override {
        return fromStored(stored, m_table->definition.fields[field].type, m_table->columns[field].storage);
    }
    /// Columns of other makers may store a value in another form than it was given in.
    [[nodiscard]] bool keepsAsGiven(std::size_t field) const override { return m_table->columns[field].own; }

    std::int64_t insert(std::span<const Assignment> values) override { return m_writer.insert(values); }
    std::optional<std::int64_t> update(std::int64_t key, std::span<const Assignment> values,
                                       bool seen) override {
        return m_writer.update(key, values, seen);
    }
    bool remove(std::int64_t key) override { return m_writer.remove(key); }

  private:
    using RangeKey = std::pair<Direction, KeyRange>;

    void readRange(const KeyRange& range, std::span<const StoredValue> values, Direction direction,
                   RowBatch& batch);
    void append(sqlite3_stmt* row, RowBatch& batch) const;
    Statement& statementFor(const KeyRange& range, Direction direction);

    std::shared_ptr<Session> m_session;
    std::shared_ptr<OpenTable> m_open;
    std::shared_ptr<const StoredTable> m_table;
    RowWriter m_writer;
    KeyQueries m_queries;
    std::string m_columns; ///< the row key, and those of the fields that are read
    std::size_t m_fields = 0;
    std::map<RangeKey, Statement> m_ranges;
    Statement m_byKey;
};

} // namespace tol::data::sqlite
