// SPDX-License-Identifier: MIT
#pragma once

#include "screens/browse/BrowseDescription.h"
#include "screens/browse/BrowsePage.h"

#include <string>
#include <vector>

namespace tol::screens {

/// The rows of a list: what they say, kept here and shown on the page. It knows nothing of bookmarks; a row
/// is filled from the record on which the recordset stands. Page and description are the list's.
class BrowseRows {
  public:
    BrowseRows(BrowsePage& page, const BrowseDescription& description);

    void BrowseClearRow(int row);
    void BrowseShowEnd(int row) { showText(row, m_description.endText); }
    void BrowseShowWithoutParent(int row) { showText(row, m_description.subset.textWithoutParent); }
    void BrowseShowEmpty(int row) { showText(row, m_description.emptyText); }
    void BrowseFillRow(int row, data::Recordset& recordset);
    void BrowseRowOn(int row);
    void BrowseRowOff(int row) { m_page.setHighlight(row, false); }
    /// Each row takes the captions of the one below it, or above it; the last, or first, row keeps its own.
    void BrowseScrollUp();
    void BrowseScrollDown();

    void setCaption(int row, int column, std::string caption);
    /// Clears all rows, none of them highlighted.
    void clear();
    /// Whether the row's key caption is blank, as it is where there is no record.
    [[nodiscard]] bool isBlank(int row) const;
    /// What the row says in the columns that are shown, joined by commas.
    [[nodiscard]] std::string text(int row) const;

  private:
    void showText(int row, const std::string& text);
    void copyRow(int from, int to);
    [[nodiscard]] const std::string& caption(int row, int column) const;
    [[nodiscard]] int columns() const { return static_cast<int>(m_description.columns.size()); }

    BrowsePage& m_page;
    const BrowseDescription& m_description;
    std::vector<std::vector<std::string>> m_captions; ///< by row and column
};

} // namespace tol::screens
