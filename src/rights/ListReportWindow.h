// SPDX-License-Identifier: MIT
#pragma once

#include "data/Workspace.h"
#include "rights/report/ListReport.h"
#include "search_print/ReportWindow.h"

#include <optional>
#include <string>

namespace tol::rights {

/// Previews and prints a list of the network database. The report is drawn in its Load, before the window is
/// seen; it holds the list open as long as it is loaded.
class ListReportWindow : public search_print::ReportWindow {
  public:
    /// `netPath` is the folder of the network database as the main window knows it.
    ListReportWindow(PrintedList list, std::string netPath, PrintedRows rows);

  protected:
    void onLoad() override;
    void onUnload() override;
    bool onRun() override;
    [[nodiscard]] std::string viewOrientation() const override { return "L"; }

  private:
    PrintedList m_list;
    std::string sNetPath;
    PrintedRows m_rows;
    data::Workspace m_workspace;
    data::Database m_database;
    std::optional<ListReport> m_report;
};

/// What the print button of a list does: opens the report in front of the middle of the main window, and
/// returns when it has been closed. `rows` are those of a list whose rows belong to a record.
void printList(const QWidget& listWindow, PrintedList list, const std::string& netPath,
               PrintedRows rows = {});

} // namespace tol::rights
