// SPDX-License-Identifier: MIT
#include "screens/BrowseRows.h"

namespace tol::screens {

void BrowseRows::BrowseClearRow(int row) {
    for (int column = 0; column < columns(); ++column)
        m_page.setCaption(row, column, " ");
}

void BrowseRows::showText(int row, const std::string& text) {
    BrowseClearRow(row);
    m_page.setCaption(row, m_description.descriptionColumn, text);
}

void BrowseRows::BrowseFillRow(int row, data::Recordset& recordset) {
    for (int position = 0; position < columns(); ++position) {
        const BrowseColumn& column = m_description.columns[static_cast<std::size_t>(position)];
        m_page.setCaption(row, position,
                          column.text ? column.text(recordset)
                                      : shell::vdNullCheckText(recordset.Fields(column.field)));
    }
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
        m_page.setCaption(to, column, m_page.caption(from, column));
}

void BrowseRows::clear() {
    for (int row = 0; row < m_description.rows; ++row) {
        BrowseClearRow(row);
        BrowseRowOff(row);
    }
}

bool BrowseRows::isBlank(int row) const {
    return shell::vdIsBlank(m_page.caption(row, 0));
}

} // namespace tol::screens
