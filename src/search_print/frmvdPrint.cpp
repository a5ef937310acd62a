// SPDX-License-Identifier: MIT
#include "search_print/frmvdPrint.h"

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "search_print/InputPause.h"
#include "search_print/document/vdPrintCells.h"
#include "search_print/document/vdPrintFooter.h"
#include "search_print/document/vdPrintRun.h"
#include "shell/vdfunctions/vdBoxes.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdRecords.h"
#include "shell/vdfunctions/vdTexts.h"

#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <numeric>

namespace tol::search_print {
namespace {

constexpr double rowHeight = 250;
constexpr std::size_t mostKeys = 3;

} // namespace

frmvdPrint::frmvdPrint(PrintRequest request) : ReportWindow("frmvdPrint"), m_request(std::move(request)) {
    setWindowTitle(QString::fromStdString(m_request.PrintWindowTitle));
}

void frmvdPrint::onLoad() {
    lblProcess().hide();
    cmdBegin().hide();
    const InputPause pause; // the report is drawn before the window is there to keep the others off
    try {
        openTable();
        m_columns = printColumns(m_request);
        bindFields();
        runReport();
    } catch (const runtime::RuntimeError& error) {
        showLoadError(error);
    }
}

void frmvdPrint::onUnload() {
    ReportWindow::onUnload();
    m_columns = {};
    m_keys.clear();
    m_table = {};
}

void frmvdPrint::openTable() {
    m_table = data::OpenTable("wksPRINT", shell::databaseName(m_request.PrintPath, m_request.PrintDBName),
                              m_request.PrintTable);
}

void frmvdPrint::bindFields() {
    for (PrintColumn& column : m_columns)
        if (shell::vdNotBlank(column.PrintField))
            column.PrintFieldRef = m_table.rows.Fields(column.PrintField);
    // The last named key tells how many there are.
    auto last = std::find_if(m_request.PrintKeys.rbegin(), m_request.PrintKeys.rend(),
                             [](const PrintKey& key) { return shell::vdNotBlank(key.PrintKeyField); });
    m_request.PrintKeys.erase(last.base(), m_request.PrintKeys.end());
    for (const PrintKey& key : m_request.PrintKeys)
        m_keys.push_back({key.PrintKeyValue, m_table.rows.Fields(key.PrintKeyField)});
}

bool frmvdPrint::goToFirstRow() {
    if (m_table.rows.AtEOF())
        return false;
    if (m_keys.size() > mostKeys) {
        shell::showBox("Invalid Key Count in vdPrint", runtime::MsgIcon::Critical, "Error: vdSearch");
        return false;
    }
    if (m_keys.empty())
        m_table.rows.MoveFirst();
    else if (const std::string mark = shell::vdFindFirst(m_table.rows, m_request.PrintIndex, m_keys);
             mark.empty())
        return false;
    return true;
}

bool frmvdPrint::onRun() {
    m_widths = std::accumulate(m_columns.begin(), m_columns.end(), 0.0,
                               [](double sum, const PrintColumn& column) { return sum + column.PrintWidth; });
    m_orientation = printer().PageWidth() < m_widths ? "L" : "P";
    const bool started = vdPrintStart(*this, printer(), m_orientation);
    m_newPageDue = true;
    m_pageStarted = false;
    m_pageBottom = printer().PageHeight() - 1200;
    printer().documentTitle(m_request.ReportName);
    m_offset = (printer().PageWidth() - 1000 - m_widths) / 2;
    if (shell::vdNotBlank(m_request.PrintIndex))
        m_table.rows.Index(m_request.PrintIndex);
    bool more = goToFirstRow();
    while (more && shell::vdRecordOK(m_table.rows, m_keys)) {
        printRow();
        more = keepPrinting();
        if (more)
            m_table.rows.MoveNext();
    }
    return vdPrintFinish(*this, printer(), savedOrientation(), started);
}

void frmvdPrint::printRow() {
    if (m_newPageDue)
        printHeading();
    double x = printer().MarginLeft() + m_offset;
    for (const PrintColumn& column : m_columns)
        if (column.PrintWidth > 0)
            x = vdPrintCell(printer(), x, m_rowY, rowHeight, column.PrintWidth, column.PrintText(),
                            {.center = column.PrintCenter, .decimal = column.PrintDecimal});
    m_rowY += rowHeight;
    if (m_rowY >= m_pageBottom)
        m_newPageDue = true;
}

void frmvdPrint::printHeading() {
    VSPrinter& page = printer();
    if (m_pageStarted)
        page.NewPage();
    vdPrintFooter(page, m_request.ModuleText, m_request.ReportName, true, true, true);
    page.TextAlign(alignCenter);
    page.FontName("Times New Roman");
    page.FontSize(18);
    page.CurrentY(600);
    page.CurrentX(page.MarginLeft());
    if (shell::vdNotBlank(m_request.HeadingAbove))
        printHeadingLine(m_request.HeadingAbove);
    printHeadingLine(m_request.ReportName);
    if (shell::vdNotBlank(m_request.HeadingBelow)) {
        page.FontSize(14);
        printHeadingLine(m_request.HeadingBelow);
    }
    page.TextAlign(alignLeft);
    page.FontName("Arial");
    page.FontSize(8);
    page.FontBold(false);
    showPageProgress(*this, page);
    m_rowY = page.CurrentY();
    double x = page.MarginLeft() + m_offset;
    for (const PrintColumn& column : m_columns) {
        if (shell::vdNotBlank(column.PrintTitle))
            vdPrintTitleCell(page, x, m_rowY, rowHeight, column.PrintWidth, column.PrintTitle);
        x += column.PrintWidth;
    }
    m_rowY += rowHeight;
    m_newPageDue = false;
    m_pageStarted = true;
}

void frmvdPrint::printHeadingLine(std::string_view text) {
    printer().Text(runtime::trim(text));
    printer().CurrentX(printer().MarginLeft());
    printer().CurrentY(printer().CurrentY() + 600);
}

} // namespace tol::search_print
