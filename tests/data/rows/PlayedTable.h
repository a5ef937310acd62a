// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/RowSource.h"

#include <map>
#include <string>
#include <vector>

namespace tol::test {

/// A table in memory with the Long fields "A" and "B" and an index "ByA", and what was asked of it. Its rows
/// can be changed from outside, as by another process, which `otherChanges` tells.
class PlayedTable : public data::RowSource {
  public:
    PlayedTable();

    std::map<std::int64_t, std::vector<int>> rows; ///< by key, the values of A and B
    std::uint64_t otherChanges = 0;
    data::TableState shared;
    std::vector<std::string> calls; ///< of read, readRow and count

    [[nodiscard]] const data::TableDefinition& definition() const override { return m_definition; }
    [[nodiscard]] const std::filesystem::path& file() const override { return m_file; }
    [[nodiscard]] data::TableState& state() override { return shared; }
    void enter(Look) override {}
    [[nodiscard]] std::uint64_t changes() const override { return otherChanges; }
    [[nodiscard]] data::RowOrder order(int index) const override;
    void choose(int index, std::span<const std::size_t> fields) override;
    void read(std::span<const data::KeyRange> ranges, std::span<const data::StoredValue> values,
              data::Direction direction, data::RowBatch& batch) override;
    bool readRow(std::int64_t key, data::RowBatch& batch) override;
    std::int64_t count(std::int64_t limit) override;
    [[nodiscard]] data::StoredValue stored(std::size_t field, const runtime::Value& value,
                                           std::string& buffer) const override;
    [[nodiscard]] runtime::Value value(std::size_t field, const data::StoredValue& stored) const override;
    [[nodiscard]] bool keepsAsGiven(std::size_t) const override { return true; }
    std::int64_t insert(std::span<const data::Assignment> values) override;
    std::optional<std::int64_t> update(std::int64_t key, std::span<const data::Assignment> values,
                                       bool seen) override;
    bool remove(std::int64_t key) override { return rows.erase(key) > 0; }

  private:
    using Place = std::vector<std::int64_t>;
    [[nodiscard]] Place place(std::int64_t key) const;
    void append(std::int64_t key, data::RowBatch& batch) const;

    data::TableDefinition m_definition;
    std::filesystem::path m_file{"PLAYED.MDB"};
    int m_index = -1;
    std::vector<std::size_t> m_fields;
};

} // namespace tol::test
