// SPDX-License-Identifier: MIT
#include "search_print/document/PdfFile.h"

#include "runtime/RuntimeError.h"
#include "search_print/document/PagePainter.h"

#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace tol::search_print {
namespace {

constexpr int twipsPerInch = 1440;
constexpr double twipsPerPoint = 20;

[[noreturn]] void raiseNotWritten(const std::filesystem::path& file, const QString& reason) {
    throw runtime::RuntimeError(runtime::errPathAccess, "The file '" + file.string() + "' can't be written.",
                                reason.toStdString());
}

QPageSize sizeOf(const Page& page) {
    return QPageSize(QSizeF(page.width, page.height) / twipsPerPoint, QPageSize::Point, {},
                     QPageSize::ExactMatch);
}

void paintPages(QPdfWriter& writer, const PageList& list) {
    QPainter painter;
    for (const Page& page : list.pages) {
        writer.setPageSize(sizeOf(page));
        if (&page == &list.pages.front())
            painter.begin(&writer);
        else
            writer.newPage();
        paintPage(painter, list, page);
    }
}

} // namespace

void writePdf(const PageList& list, const std::filesystem::path& file, const std::string& title) {
    QSaveFile target(QString::fromStdString(file.string()));
    if (!target.open(QIODevice::WriteOnly))
        raiseNotWritten(file, target.errorString());
    {
        QPdfWriter writer(&target);
        writer.setResolution(twipsPerInch);
        writer.setTitle(QString::fromStdString(title));
        writer.setCreator("Tolvane Module");
        writer.setPageMargins({});
        paintPages(writer, list);
    }
    if (!target.commit())
        raiseNotWritten(file, target.errorString());
}

} // namespace tol::search_print
