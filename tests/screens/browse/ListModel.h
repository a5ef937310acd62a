// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tol::test {

/// The rules of a list, told by places in a sorted vector of its records instead of by bookmarks in a
/// table: what the page must show after each key while others add and delete records.
class ListModel {
  public:
    struct Record {
        long key;
        std::string code, name;
        bool operator==(const Record&) const = default;
    };
    struct Row {
        std::string code = " ", name = " ";
        bool operator==(const Row&) const = default;
    };
    /// The key of a record, or none.
    using Mark = std::optional<long>;

    explicit ListModel(int rows) : page(static_cast<std::size_t>(rows)), m_lastRow(rows - 1) {}

    void load();
    void reload();
    void fill();
    /// A move; `tableIsEmpty` when there is no record at all, children of others included.
    void press(int key, bool tableIsEmpty);
    void click(int clicked, bool tableIsEmpty);
    /// Puts a record in row 0, highlighted.
    void showFrom(Mark mark);

    std::string endText = "End of List.", emptyText = "List is Empty.";
    std::optional<int> textColumn = 1; ///< where they stand: 0 or 1
    std::vector<Record> records;       ///< of this list, in its order
    std::vector<Row> page;
    int row = 0;
    Mark current, top, first, last;
    int added = 0, edited = 0; ///< by second clicks

  private:
    using Place = std::optional<int>; ///< in `records`; none for no mark, or when the record is gone

    [[nodiscard]] int count() const { return static_cast<int>(records.size()); }
    [[nodiscard]] Place placeOf(Mark mark) const;
    [[nodiscard]] Mark markAt(int place) const;
    [[nodiscard]] Row rowAt(int place) const;
    void paintFrom(int place);
    [[nodiscard]] Row rowOf(const std::string& text) const;
    void showOnly(const std::string& text);
    void showAfresh();

    // Each tells whether the marks that it needs are good.
    bool move(int key);
    bool down();
    bool up();
    bool upFromEnd();
    bool jump(Mark mark);
    bool pageBy(int distance);

    int m_lastRow;
};

} // namespace tol::test
