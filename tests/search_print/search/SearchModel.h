// SPDX-License-Identifier: MIT
#pragma once

#include "browse/ListModel.h"

#include <optional>
#include <string>
#include <vector>

namespace tol::test {

/// The rules of a search over items in groups, told over a plain list of them: what the page must show after
/// each key. Its columns are 0 code, 1 name and 2 price.
class SearchModel {
  public:
    struct Item {
        long key;
        std::string group, code, name; ///< in capitals and digits; a blank name is Null
        int price;
    };
    struct Kind {
        std::string group;        ///< whose items are listed; "" for all
        bool nameBehindGroup;     ///< the order by name is one by group and name
        int sizes[3] = {3, 4, 3}; ///< what may be typed
    };

    SearchModel(Kind kind, int defaultColumn);

    std::vector<Item> items;
    ListModel list{12};
    std::string text;

    void open();
    /// A character, or '\b'.
    void type(char character);
    void press(int key) { list.press(key, isEmpty()); }
    void click(int row) { list.click(row, isEmpty()); }
    void clickTitle(int column);
    /// To be called when the items have been changed.
    void sort();

  private:
    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] ListModel::Mark find() const;
    [[nodiscard]] bool isFound(const Item& item) const;
    void search();

    Kind m_kind;
    int m_column;          ///< whose order it is
    bool m_number = false; ///< numbers are looked for
    std::vector<Item> m_sorted;
};

} // namespace tol::test
