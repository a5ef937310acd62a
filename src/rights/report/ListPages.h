// SPDX-License-Identifier: MIT
#pragma once

#include "rights/report/PrintedList.h"
#include "search_print/document/ReportView.h"
#include "search_print/document/VSPrinter.h"

#include <array>
#include <span>
#include <string>

namespace tol::rights {

/// The pages of a printed list: rows of cells below each other, on each page a heading, the columns' titles
/// and a footer. A page begins with its first row.
class ListPages {
  public:
    /// `ownerTexts` are code and name of the record to which the rows belong, if they belong to one.
    ListPages(search_print::ReportView& view, search_print::VSPrinter& printer,
              const PrintedListDescription& list, std::array<std::string, 2> ownerTexts);

    /// One text for each column.
    void addRow(std::span<const std::string> texts);

  private:
    void beginPage();
    void printOwner();
    void printTitles();

    search_print::ReportView& m_view;
    search_print::VSPrinter& m_printer;
    const PrintedListDescription& m_list;
    std::array<std::string, 2> m_ownerTexts;
    double m_rowY = 0;
    bool m_newPageDue = true;
    bool m_pageStarted = false;
};

} // namespace tol::rights
