// SPDX-License-Identifier: MIT
#include "definition_update/report/ActivityReport.h"

#include "search_print/document/vdPrintCells.h"
#include "search_print/document/vdPrintFooter.h"
#include "search_print/document/vdPrintRun.h"
#include "shell/vdfunctions/vdNullCheck.h"

#include <array>
#include <string>

namespace tol::update {
namespace {

using search_print::vdPrintCell;

constexpr const char* moduleText = "Database Utilities";
constexpr const char* reportTitle = "Database Definition Update Utility - Activity Log";
constexpr double rowHeight = 250;
constexpr double pageBottom = 14500;

struct Column {
    const char* title;
    const char* field;
    double width; // twips
};
constexpr std::array<Column, 6> columns = {{
    {"Job Site", "PATHNAME", 1200},
    {"Database", "DBNAME", 1400},
    {"Table", "TABLENAME", 1400},
    {"Index", "INDEXNAME", 1400},
    {"Field", "FIELDNAME", 1600},
    {"Action", "Action", 4100},
}};

/// The report while it is drawn.
class ActivityReport {
  public:
    ActivityReport(search_print::ReportView& view, search_print::VSPrinter& printer, data::Recordset& log)
        : m_view(view), m_printer(printer), m_log(log) {}

    /// False when it was stopped before its last row.
    bool print() {
        if (m_log.RecordCount() == 0) {
            printHead("", "");
            printEmpty();
            return true;
        }
        m_log.MoveFirst();
        bool printing = true;
        while (printing && !m_log.AtEOF()) {
            printRow();
            printing = m_view.keepPrinting();
            if (printing)
                m_log.MoveNext();
        }
        return printing;
    }

  private:
    void printRow() {
        if (m_headDue)
            printHead(text("FDATE"), text("PTIME"));
        double x = m_printer.MarginLeft();
        for (const Column& column : columns)
            x = vdPrintCell(m_printer, x, m_y, rowHeight, column.width, text(column.field));
        m_y += rowHeight;
        m_headDue = m_y >= pageBottom;
    }

    void printEmpty() {
        const double x =
            vdPrintCell(m_printer, m_printer.MarginLeft(), m_y, rowHeight, columns[0].width, "  ");
        double width = 0;
        for (const Column& column : columns)
            width += column.width;
        vdPrintCell(m_printer, x, m_y, rowHeight, width - columns[0].width, "Activity Log is Empty.");
    }

    void printHead(const std::string& date, const std::string& time) {
        if (m_pageStarted)
            m_printer.NewPage();
        search_print::vdPrintFooter(m_printer, moduleText, reportTitle, true, true, true);
        m_printer.TextAlign(search_print::alignCenter);
        m_printer.FontName("Arial");
        m_printer.FontSize(18);
        m_printer.FontBold(true);
        printAt(700, reportTitle);
        m_printer.FontBold(false);
        m_printer.FontSize(12);
        printAt(1300, "Date: " + date);
        printAt(1600, "Time: " + time);
        m_printer.TextAlign(search_print::alignLeft);
        m_printer.FontSize(8);
        printTitles();
        showPageProgress(m_view, m_printer);
        m_headDue = false;
        m_pageStarted = true;
    }

    void printAt(double y, const std::string& text) {
        m_printer.CurrentY(y);
        m_printer.Text(text);
    }

    void printTitles() {
        m_y = titlesTop;
        double x = m_printer.MarginLeft();
        for (const Column& column : columns)
            x = vdPrintTitleCell(m_printer, x, m_y, rowHeight, column.width, column.title);
        m_y += rowHeight;
    }

    [[nodiscard]] std::string text(const char* field) const {
        return shell::vdNullCheckText(m_log.Fields(field));
    }

    static constexpr double titlesTop = 2100;

    search_print::ReportView& m_view;
    search_print::VSPrinter& m_printer;
    data::Recordset& m_log;
    double m_y = 0;
    bool m_headDue = true;
    bool m_pageStarted = false;
};

} // namespace

bool printActivityLog(search_print::ReportView& view, search_print::VSPrinter& printer,
                      data::Recordset& ACTIVITYLOG, int savedOrientation) {
    if (!vdPrintStart(view, printer, "P"))
        return false;
    printer.documentTitle(reportTitle);
    view.setProcess("Now Printing...");
    const bool complete = ActivityReport(view, printer, ACTIVITYLOG).print();
    return vdPrintFinish(view, printer, savedOrientation, complete);
}

} // namespace tol::update
