// SPDX-License-Identifier: MIT
#include "tolctl/Table.h"

#include "runtime/Text.h"
#include "tolctl/Columns.h"
#include "tolctl/Csv.h"
#include "tolctl/Output.h"

#include <algorithm>
#include <iostream>

namespace tol::ctl {
namespace {

/// The ordinary text of a value; `yes` and `no` for truths.
std::string textOf(const nlohmann::ordered_json& value, const char* yes, const char* no) {
    if (value.is_boolean())
        return value.get<bool>() ? yes : no;
    if (value.is_string())
        return value.get<std::string>();
    return value.is_null() ? std::string() : value.dump();
}

/// As it stands in columns: a line end within a text would break its row.
std::string shown(const Cell& cell) {
    std::string text = cell.text ? *cell.text : textOf(cell.value, "Yes", "No");
    std::ranges::replace_if(
        text, [](char letter) { return static_cast<unsigned char>(letter) < ' '; }, ' ');
    return text;
}

std::string csvText(const Cell& cell) {
    return cell.text && cell.value.is_structured() ? *cell.text : textOf(cell.value, "Y", "N");
}

using Line = std::vector<std::string>;

/// The table as people read it, its heading first.
std::vector<Line> shownLines(const Table& table) {
    std::vector<Line> lines(table.rows.size() + 1);
    for (std::size_t column = 0; column < table.columns.size(); ++column) {
        if (table.columns[column].title.empty())
            continue;
        lines[0].emplace_back(table.columns[column].title);
        for (std::size_t row = 0; row < table.rows.size(); ++row)
            lines[row + 1].push_back(shown(table.rows[row][column]));
    }
    return lines;
}

void printColumns(const Table& table) {
    const std::vector<Line> lines = shownLines(table);
    std::vector<std::size_t> widths(lines[0].size());
    for (const Line& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], runtime::length(runtime::trim(line[i])));
    for (const Line& line : lines)
        std::cout << alignedLine(std::vector<std::string_view>(line.begin(), line.end()), widths) << '\n';
}

void printJson(const Table& table) {
    JsonArray array;
    std::vector<JsonArray::Member> members;
    for (const std::vector<Cell>& row : table.rows) {
        members.clear();
        for (std::size_t i = 0; i < row.size(); ++i)
            members.emplace_back(table.columns[i].name, row[i].value);
        array.add(members);
    }
    array.end();
    std::cout << '\n';
}

void printCsv(const Table& table) {
    Line line;
    for (const Table::Column& column : table.columns)
        line.emplace_back(column.name);
    std::string text;
    appendCsv(text, line);
    for (const std::vector<Cell>& row : table.rows) {
        std::ranges::transform(row, line.begin(), csvText);
        appendCsv(text, line);
    }
    std::cout << text;
}

} // namespace

void printTable(const Table& table, TableFormat format) {
    switch (format) {
    case TableFormat::Columns:
        return printColumns(table);
    case TableFormat::Json:
        return printJson(table);
    case TableFormat::Csv:
        return printCsv(table);
    }
}

} // namespace tol::ctl
