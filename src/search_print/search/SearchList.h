// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "screens/browse/BrowseList.h"
#include "search_print/search/SearchColumns.h"
#include "search_print/search/SearchDescription.h"

#include <string>
#include <vector>

namespace tol::search_print {

/// What is seen of a search's columns, on a page of twelve rows.
screens::BrowseDescription searchPage(const SearchColumns& columns);

/// A list in which one looks for a record by typing the beginning of a column's text, or a number. Each key
/// seeks at once in that column's index; what is not found leaves the page as it is. It knows nothing of
/// widgets.
class SearchList {
  public:
    /// Opens the table; BrowseList::BrowseLoad makes the first fill. Errors as in Workspace::OpenDatabase and
    /// Database::OpenRecordset; 9 for a DefaultColumn beyond the sixth, 3265 for a field that is not there.
    SearchList(screens::BrowsePage& page, SearchDescription description, SearchColumns columns);

    /// A key that types, Backspace, or one that moves the highlight; any other does nothing. True when what
    /// has been typed is another text now.
    bool keyDown(int key, int shift);
    /// Orders the list by another column's index, from its first record on and with nothing typed. False
    /// where that is the order already and, after a box, where the column has no index.
    bool changeColumn(int column);

    /// Whether the column has an index.
    [[nodiscard]] bool isSearchable(int column) const;
    /// Whether a number is to be typed for the column.
    [[nodiscard]] bool isNumber(int column) const { return m_columns.at(column).ColType == "N"; }
    [[nodiscard]] screens::BrowseList& list() { return m_list; }
    /// What has been typed.
    [[nodiscard]] const std::string& text() const { return m_text; }

  private:
    using Values = std::vector<runtime::Value>;

    [[nodiscard]] shell::KeyPairs bindKeys() const;
    [[nodiscard]] int defaultColumn() const;
    [[nodiscard]] screens::BrowseDescription describeList();
    [[nodiscard]] const SearchColumn& column() const { return m_columns.at(m_column); }
    void findFieldsInFront();

    bool type(int key, int shift);
    void search();
    bool seek();
    [[nodiscard]] runtime::Value searchValue() const;
    [[nodiscard]] Values keyValues() const;
    bool seekBeginning();
    bool seekInGroup(Values group);
    [[nodiscard]] Values groupOfRecord() const;
    [[nodiscard]] std::string sought() const;

    SearchDescription m_description;
    SearchColumns m_columns;
    data::OpenTable m_table;
    shell::KeyPairs m_keys;
    int m_column;                     ///< whose index is in force
    std::vector<std::string> m_front; ///< fields of that index between the keys and the column's own
    std::string m_type;               ///< ColType that tells what is sought
    std::string m_text;
    screens::BrowseList m_list;
};

} // namespace tol::search_print
