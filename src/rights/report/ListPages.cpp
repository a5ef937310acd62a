// SPDX-License-Identifier: MIT
#include "rights/report/ListPages.h"

#include "search_print/document/vdPrintCells.h"
#include "search_print/document/vdPrintFooter.h"
#include "search_print/document/vdPrintRun.h"

namespace tol::rights {
namespace {

constexpr const char* moduleText = "Tolvane Module";
constexpr double rowHeight = 250;
constexpr double pageBottom = 11000; // where no row begins any more
constexpr double ownerX = 1800;

// Where the title stands, and the titles of the columns below it.
constexpr double titleY = 800, titlesBelowTitle = 700;
constexpr double titleYWithOwner = 600, titlesYWithOwner = 2000;
constexpr std::array<double, 2> ownerY = {1200, 1500};

} // namespace

ListPages::ListPages(search_print::ReportView& view, search_print::VSPrinter& printer,
                     const PrintedListDescription& list, std::array<std::string, 2> ownerTexts)
    : m_view(view), m_printer(printer), m_list(list), m_ownerTexts(std::move(ownerTexts)) {}

void ListPages::addRow(std::span<const std::string> texts) {
    if (m_newPageDue)
        beginPage();
    double x = m_printer.MarginLeft() + m_list.leftOffset;
    for (std::size_t place = 0; place < texts.size(); ++place) {
        const PrintedColumn& column = m_list.columns[place];
        x = search_print::vdPrintCell(m_printer, x, m_rowY, rowHeight, column.width, texts[place],
                                      {.center = column.center});
    }
    m_rowY += rowHeight;
    m_newPageDue = m_rowY >= pageBottom;
}

void ListPages::beginPage() {
    if (m_pageStarted)
        m_printer.NewPage();
    search_print::vdPrintFooter(m_printer, moduleText, m_list.title, true, true, true);
    m_printer.TextAlign(search_print::alignCenter);
    m_printer.FontName("Times New Roman");
    m_printer.FontSize(16);
    m_printer.FontBold(true);
    m_printer.CurrentX(m_printer.MarginLeft());
    m_printer.CurrentY(m_list.owner != nullptr ? titleYWithOwner : titleY);
    m_printer.Text(m_list.title);
    if (m_list.owner != nullptr)
        printOwner();
    m_rowY = m_list.owner != nullptr ? titlesYWithOwner : titleY + titlesBelowTitle;
    printTitles();
    showPageProgress(m_view, m_printer);
    m_newPageDue = false;
    m_pageStarted = true;
}

void ListPages::printOwner() {
    m_printer.TextAlign(search_print::alignLeft);
    m_printer.FontSize(12);
    for (std::size_t line = 0; line < ownerY.size(); ++line) {
        m_printer.CurrentX(ownerX);
        m_printer.CurrentY(ownerY[line]);
        m_printer.Text(m_list.owner->headings[line] + m_ownerTexts[line]);
    }
}

void ListPages::printTitles() {
    m_printer.TextAlign(search_print::alignLeft);
    m_printer.FontName("Arial");
    m_printer.FontSize(8);
    m_printer.FontBold(false);
    double x = m_printer.MarginLeft() + m_list.leftOffset;
    for (const PrintedColumn& column : m_list.columns)
        x = search_print::vdPrintTitleCell(m_printer, x, m_rowY, rowHeight, column.width, column.title);
    m_rowY += rowHeight;
}

} // namespace tol::rights
