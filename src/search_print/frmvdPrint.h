// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "search_print/PrintColumn.h"
#include "search_print/ReportWindow.h"
#include "search_print/vdPrint.h"
#include "shell/vdfunctions/vdRecords.h"

namespace tol::search_print {

/// The report window that lists rows of any table. The report is drawn in its Load, before the window is
/// seen.
class frmvdPrint : public ReportWindow {
  public:
    explicit frmvdPrint(PrintRequest request);

  protected:
    void onLoad() override;
    void onUnload() override;
    bool onRun() override;
    [[nodiscard]] std::string viewOrientation() const override { return m_orientation; }

  private:
    void openTable();
    void bindFields();
    /// Whether the recordset was put on the first row to be printed.
    bool goToFirstRow();
    void printRow();
    void printHeading();
    void printHeadingLine(std::string_view text);

    PrintRequest m_request;
    PrintColumns m_columns;
    shell::KeyPairs m_keys;
    data::OpenTable m_table;

    std::string m_orientation;
    double m_widths = 0; // of all columns together
    double m_offset = 0; // from the left margin to the first column
    double m_pageBottom = 0;
    double m_rowY = 0;
    bool m_newPageDue = true;
    bool m_pageStarted = false;
};

} // namespace tol::search_print
