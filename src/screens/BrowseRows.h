// SPDX-License-Identifier: MIT
#pragma once

#include "screens/BrowseDescription.h"
#include "screens/BrowsePage.h"

#include <cstdint>

namespace tol::screens {

/// The rows of a list on its page: what they say and which colour they have. It knows nothing of marks;
/// a row is filled from the record on which the recordset stands. Page and description are the list's.
class BrowseRows {
  public:
    BrowseRows(BrowsePage& page, const BrowseDescription& description)
        : m_page(page), m_description(description) {}

    void BrowseClearRow(int row);
    void BrowseShowEnd(int row) { showText(row, m_description.endText); }
    void BrowseShowEmpty(int row) { showText(row, m_description.emptyText); }
    void BrowseFillRow(int row, data::Recordset& recordset);
    void BrowseRowOn(int row) { m_page.setRowColor(row, mRowHiColor); }
    void BrowseRowOff(int row) { m_page.setRowColor(row, mRowColor); }
    /// Each row takes the captions of the one below it, or above it; the last, or first, row keeps its own.
    void BrowseScrollUp();
    void BrowseScrollDown();

    /// Clears all rows, in the normal colour.
    void clear();
    /// Whether the row's key caption is blank, as it is where there is no record.
    [[nodiscard]] bool isBlank(int row) const;

  private:
    void showText(int row, const std::string& text);
    void copyRow(int from, int to);
    [[nodiscard]] int columns() const { return static_cast<int>(m_description.columns.size()); }

    BrowsePage& m_page;
    const BrowseDescription& m_description;
    std::uint32_t mRowHiColor = rgb(256, 256, 0), mRowColor = rgb(256, 256, 256);
};

} // namespace tol::screens
