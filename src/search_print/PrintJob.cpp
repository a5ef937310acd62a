// SPDX-License-Identifier: MIT
#include "search_print/PrintJob.h"

#include "runtime/RuntimeError.h"
#include "search_print/document/PagePainter.h"
#include "search_print/document/PdfFile.h"
#include "search_print/document/VSPrinter.h"
#include "shell/vdfunctions/MessageBox.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include <algorithm>
#include <span>

namespace tol::search_print {
namespace {

constexpr double twipsPerPoint = 20;
constexpr double twipsPerInch = 1440;

void setSheet(QPrinter& printer, const Page& page) {
    printer.setPageOrientation(page.width > page.height ? QPageLayout::Landscape : QPageLayout::Portrait);
}

void paintSheet(QPainter& painter, const QPrinter& printer, const PageList& list, const Page& page) {
    const QRectF paper = printer.pageLayout().fullRectPoints();
    const double fit = std::min(
        {1.0, paper.width() * twipsPerPoint / page.width, paper.height() * twipsPerPoint / page.height});
    const double dotsPerTwip = printer.resolution() / twipsPerInch;
    painter.save();
    painter.scale(fit * dotsPerTwip, fit * dotsPerTwip);
    paintPage(painter, list, page);
    painter.restore();
}

/// The pages that were asked for; all of them where none are named.
std::span<const Page> chosenPages(const QPrinter& printer, const PageList& list) {
    const std::span<const Page> all(list.pages);
    if (printer.printRange() != QPrinter::PageRange || printer.fromPage() < 1)
        return all;
    const auto first = static_cast<std::size_t>(printer.fromPage()) - 1;
    const auto last =
        std::min(static_cast<std::size_t>(std::max(printer.toPage(), printer.fromPage())), all.size());
    return first < last ? all.subspan(first, last - first) : std::span<const Page>();
}

void showPrinterProblem() {
    shell::showBox("Printer Problem Detected", runtime::MsgIcon::Critical, "Printer Error");
}

} // namespace

bool printOn(QPrinter& printer, const VSPrinter& document) {
    const PageList& list = document.document();
    const std::span<const Page> pages = chosenPages(printer, list);
    if (pages.empty())
        return true;
    printer.setFullPage(true);
    printer.setColorMode(document.colourMode() == colourModeMonochrome ? QPrinter::GrayScale
                                                                       : QPrinter::Color);
    setSheet(printer, pages.front());
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    for (const Page& page : pages) {
        if (&page != &pages.front()) {
            setSheet(printer, page);
            if (!printer.newPage())
                return false;
        }
        paintSheet(painter, printer, list, page);
    }
    return painter.end();
}

void printWithDialog(QWidget& owner, const VSPrinter& document) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QString::fromStdString(document.documentTitle()));
    printer.setCreator("Tolvane Module");
    setSheet(printer, document.document().pages.front());
    QPrintDialog dialog(&printer, &owner);
    dialog.setObjectName("printDialog");
    dialog.setOptions(QPrintDialog::PrintToFile | QPrintDialog::PrintPageRange);
    dialog.setMinMax(1, document.PageCount());
    if (dialog.exec() == QDialog::Accepted && !printOn(printer, document))
        showPrinterProblem();
}

} // namespace tol::search_print
