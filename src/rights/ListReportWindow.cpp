// SPDX-License-Identifier: MIT
#include "rights/ListReportWindow.h"

#include "data/DBEngine.h"
#include "runtime/RuntimeError.h"
#include "search_print/InputPause.h"
#include "shell/vdfunctions/vdLocation.h"

namespace tol::rights {

ListReportWindow::ListReportWindow(PrintedList list, std::string netPath, PrintedRows rows)
    : ReportWindow(describe(list).window),
      m_list(list),
      sNetPath(std::move(netPath)),
      m_rows(std::move(rows)) {
    setWindowTitle(describe(list).caption);
}

void ListReportWindow::onLoad() {
    const search_print::InputPause
        pause; // the report is drawn before the window is there to keep the others off
    try {
        m_workspace = data::DBEngine::CreateWorkspace("wksNET");
        m_database = m_workspace.OpenDatabase(shell::vdNetPath(sNetPath, false));
        m_report.emplace(m_list, m_database);
        runReport();
    } catch (const runtime::RuntimeError& error) {
        showLoadError(error);
    }
}

bool ListReportWindow::onRun() {
    return m_report->print(*this, printer(), savedOrientation(), m_rows);
}

void ListReportWindow::onUnload() {
    ReportWindow::onUnload();
    m_report.reset();
    m_database = {};
    m_workspace = {};
}

void printList(const QWidget& listWindow, PrintedList list, const std::string& netPath, PrintedRows rows) {
    ListReportWindow(list, netPath, std::move(rows)).showModal(listWindow.window());
}

} // namespace tol::rights
