// SPDX-License-Identifier: MIT
#pragma once

#include "data/Database.h"
#include "data/Recordset.h"
#include "rights/report/PrintedList.h"
#include "search_print/document/ReportView.h"
#include "search_print/document/VSPrinter.h"
#include "shell/vdfunctions/vdRecords.h"

#include <optional>
#include <string>
#include <vector>

namespace tol::rights {

/// Which rows are printed of a list whose rows belong to a record.
struct PrintedRows {
    std::string firstRow = " ";       ///< its bookmark; blank: there is no row
    std::string code = {}, name = {}; ///< of the record to which they belong
};

/// The rows of the record with that code or user name; nothing where there is no such record. Only for a list
/// whose rows belong to a record. Run-time errors pass through.
std::optional<PrintedRows> rowsOf(PrintedList list, data::Database& database, const std::string& code);

/// A list of the network database as a report. It holds its tables open as long as it lives.
class ListReport {
  public:
    /// Run-time errors pass through.
    ListReport(PrintedList list, data::Database& database);

    /// Draws the list as a document of the printer, without a page where it has no row. The orientation is
    /// put back to `savedOrientation` at the end. Tells the view its progress and asks it once per row
    /// whether to go on. True: the document may be previewed; so it may, empty, after a box that tells that
    /// the printer can't be used. Run-time errors pass through.
    bool print(search_print::ReportView& view, search_print::VSPrinter& printer, int savedOrientation,
               const PrintedRows& rows = {});

  private:
    struct Cell {
        const PrintedColumn& column;
        data::Field field;
    };

    void printRows(search_print::ReportView& view, search_print::VSPrinter& printer, const PrintedRows& rows);
    bool goToFirstRow(const PrintedRows& rows);
    bool findItem();
    [[nodiscard]] std::string textOf(const Cell& cell, bool itemFound) const;

    const PrintedListDescription& m_list;
    data::Recordset m_rows;
    data::Recordset m_items; // open where the rows name items
    std::vector<Cell> m_cells;
    shell::KeyPairs m_key; // what all printed rows share; none: the whole table is printed
};

} // namespace tol::rights
