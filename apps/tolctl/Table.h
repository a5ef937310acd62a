// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tol::ctl {

/// A value of a table, as JSON has it. `text` stands for it where that is no value (an array, an object), and
/// where people read another text.
struct Cell {
    nlohmann::ordered_json value;
    std::optional<std::string> text = {};
};

/// Rows under named columns, for programs and for people.
struct Table {
    struct Column {
        std::string_view name;  ///< for programs
        std::string_view title; ///< for people; "" where they need it not
    };
    std::vector<Column> columns;
    std::vector<std::vector<Cell>> rows;
};

/// A column of a table that is made of rows of that type: what stands in it for a row.
template <typename Row>
struct ColumnOf {
    Table::Column column;
    std::function<Cell(const Row&)> cell;
};

template <typename Row>
Table tableOf(const std::vector<Row>& rows, const std::vector<ColumnOf<Row>>& columns) {
    Table table;
    for (const ColumnOf<Row>& column : columns)
        table.columns.push_back(column.column);
    for (const Row& row : rows) {
        std::vector<Cell>& cells = table.rows.emplace_back();
        cells.reserve(columns.size());
        for (const ColumnOf<Row>& column : columns)
            cells.push_back(column.cell(row));
    }
    return table;
}

enum class TableFormat { Columns, Json, Csv };

/// Prints the table on standard output. In columns a truth reads "Yes" or "No" and everything stands on the
/// row's line; as CSV it reads "Y" or "N", as it is typed.
void printTable(const Table& table, TableFormat format);

} // namespace tol::ctl
