// SPDX-License-Identifier: MIT
#include "PlainPage.h"

#include "runtime/Text.h"

namespace tol::test {
namespace {

std::size_t place(int number) {
    return static_cast<std::size_t>(number);
}

} // namespace

PlainPage::PlainPage(int rows, int columns)
    : m_rows(place(rows), Row{std::vector<std::string>(place(columns))}) {}

void PlainPage::setCaption(int row, int column, const std::string& caption) {
    m_rows.at(place(row)).captions.at(place(column)) = caption;
}

std::string PlainPage::caption(int row, int column) const {
    return m_rows.at(place(row)).captions.at(place(column));
}

void PlainPage::setHighlight(int row, bool on) {
    m_rows.at(place(row)).highlighted = on;
}

std::vector<std::string> PlainPage::drawing() const {
    std::vector<std::string> rows;
    for (const Row& row : m_rows) {
        std::string text = row.highlighted ? ">" : "";
        for (const std::string& caption : row.captions) {
            if (const auto word = runtime::trim(caption); !word.empty())
                text.append(text.empty() || text == ">" ? "" : " ").append(word);
        }
        rows.push_back(std::move(text));
    }
    while (!rows.empty() && rows.back().empty())
        rows.pop_back();
    return rows;
}

std::vector<int> PlainPage::highlighted() const {
    std::vector<int> rows;
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        if (m_rows[row].highlighted)
            rows.push_back(static_cast<int>(row));
    }
    return rows;
}

} // namespace tol::test
