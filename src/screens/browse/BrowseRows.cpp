// SPDX-License-Identifier: MIT
#include "screens/browse/BrowseRows.h"

#include "runtime/Text.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <utility>

namespace tol::screens {

BrowseRows::BrowseRows(BrowsePage& page, const BrowseDescription& description)
    : m_page(page),
      m_description(description),
      m_captions(static_cast<std::size_t>(description.rows),
                 std::vector<std::string>(description.columns.size(), " ")) {}

void BrowseRows::setCaption(int row, int column, std::string caption) {
    std::string& kept = m_captions.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
    kept = std::move(caption);
    m_page.setCaption(row, column, kept);
}

const std::string& BrowseRows::caption(int row, int column) const {
    return m_captions.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
}

void BrowseRows::BrowseClearRow(int row) {
    for (int column = 0; column < columns(); ++column)
        setCaption(row, column, " ");
}

// Each caption is set once: one that stays what it was is not painted again.
void BrowseRows::showText(int row, const std::string& text) {
    for (int column = 0; column < columns(); ++column)
        setCaption(row, column, column == m_description.descriptionColumn ? text : " ");
}

void BrowseRows::BrowseFillRow(int row, data::Recordset& recordset) {
    for (int position = 0; position < columns(); ++position) {
        const BrowseColumn& column = m_description.columns[static_cast<std::size_t>(position)];
        setCaption(row, position,
                   column.text ? column.text(recordset)
                               : shell::vdNullCheckText(recordset.Fields(column.field)));
    }
}

void BrowseRows::BrowseRowOn(int row) {
    m_page.setHighlight(row, true);
    m_page.announce(text(row));
}

void BrowseRows::BrowseScrollUp() {
    for (int row = 1; row < m_description.rows; ++row)
        copyRow(row, row - 1);
}

void BrowseRows::BrowseScrollDown() {
    for (int row = m_description.rows - 1; row >= 1; --row)
        copyRow(row - 1, row);
}

void BrowseRows::copyRow(int from, int to) {
    for (int column = 0; column < columns(); ++column)
        setCaption(to, column, caption(from, column));
}

void BrowseRows::clear() {
    for (int row = 0; row < m_description.rows; ++row) {
        BrowseClearRow(row);
        BrowseRowOff(row);
    }
}

bool BrowseRows::isBlank(int row) const {
    return shell::vdIsBlank(caption(row, 0));
}

std::string BrowseRows::text(int row) const {
    std::string joined;
    for (int column = 0; column < columns(); ++column) {
        const auto word = runtime::trim(caption(row, column));
        if (m_description.columns[static_cast<std::size_t>(column)].width > 0 && !word.empty())
            joined.append(joined.empty() ? "" : ", ").append(word);
    }
    return joined;
}

} // namespace tol::screens
