// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace tol::rights {

/// The lists of the network database that can be printed.
enum class PrintedList { Modules, AccessItems, Templates, TemplateItems, Users, UserRights };

struct PrintedColumn {
    const char* title;
    double width; ///< twips
    const char* field;
    bool center;
    bool isYesNo = false; ///< shows "Yes" or "No"
    /// Not 0: the field is one of the User Access Item that the row names. So many question marks stand for
    /// an item that is gone.
    std::int16_t itemLength = 0;

    [[nodiscard]] bool isOfItem() const { return itemLength > 0; }
};

/// The record to which all rows of a list belong.
struct ListOwner {
    const char* table;
    const char* index; ///< by the code
    const char* code;  ///< field that people know it by
    const char* name;
    const char* key;                     ///< field of this table and of the list's
    std::array<const char*, 2> headings; ///< before code and name on each page
};

/// All that sets one printed list apart from another.
struct PrintedListDescription {
    const char* window;
    const char* caption; ///< of the window
    const char* title;   ///< of the report
    const char* table;
    const char* index;
    double leftOffset; ///< twips from the left margin to the first column
    std::span<const PrintedColumn> columns;
    const ListOwner* owner = nullptr; ///< null: the whole table is printed
};

const PrintedListDescription& describe(PrintedList list);

} // namespace tol::rights
