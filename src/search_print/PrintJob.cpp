// SPDX-License-Identifier: MIT
#include "search_print/PrintJob.h"

#include "forms/look/Twips.h"
#include "runtime/RuntimeError.h"
#include "search_print/document/PageList.h"
#include "search_print/document/VSPrinter.h"
#include "shell/vdfunctions/vdBoxes.h"

#include <QDir>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>

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

QString suggestedFile(const VSPrinter& document) {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    const QString title = QString::fromStdString(document.documentTitle()).replace(u'/', u'-');
    return (folder.exists() ? folder : QDir::home()).filePath(title + ".pdf");
}

void showProblem(const std::string& text) {
    shell::showBox(text, runtime::MsgIcon::Critical, "Printer Error");
}

void printOrTell(QPrinter& printer, const VSPrinter& document, const PageProgress& progress) {
    const std::span<const Page> pages = chosenPages(printer, document.document());
    if (pages.empty())
        return;
    try {
        if (printer.outputFormat() == QPrinter::PdfFormat)
            writePdf(document.document(), pages, printer.outputFileName().toStdString(),
                     document.documentTitle(), progress);
        else if (!printOn(printer, document, pages, progress))
            showProblem("Printer Problem Detected");
    } catch (const runtime::RuntimeError& error) {
        showProblem(error.description());
    }
}

} // namespace

bool printOn(QPrinter& printer, const VSPrinter& document, std::span<const Page> pages,
             const PageProgress& progress) {
    printer.setFullPage(true);
    printer.setColorMode(document.colourMode() == colourModeMonochrome ? QPrinter::GrayScale
                                                                       : QPrinter::Color);
    setSheet(printer, pages.front());
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    int number = 0;
    for (const Page& page : pages) {
        if (progress && !progress(++number, static_cast<int>(pages.size())))
            return printer.abort();
        if (&page != &pages.front()) {
            setSheet(printer, page);
            if (!printer.newPage())
                return false;
        }
        paintSheet(painter, printer, document.document(), page);
    }
    return painter.end();
}

void printWithDialog(QWidget& owner, const VSPrinter& document, const PageProgress& progress) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QString::fromStdString(document.documentTitle()));
    printer.setCreator("Tolvane Module");
    setSheet(printer, document.document().pages.front());
    if (QPrinterInfo::availablePrinters().isEmpty())
        printer.setOutputFileName(suggestedFile(document)); // makes it a PDF file
    QPrintDialog dialog(&printer, &owner);
    dialog.setObjectName("printDialog");
    dialog.setMinimumWidth(forms::toPixels(7200)); // so that the file's name can be read
    dialog.setOptions(QPrintDialog::PrintToFile | QPrintDialog::PrintPageRange);
    dialog.setMinMax(1, document.PageCount());
    if (dialog.exec() == QDialog::Accepted)
        printOrTell(printer, document, progress);
}

} // namespace tol::search_print
