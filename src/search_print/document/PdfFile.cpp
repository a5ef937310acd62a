// SPDX-License-Identifier: MIT
#include "search_print/document/PdfFile.h"

#include "runtime/RuntimeError.h"
#include "search_print/document/PageList.h"

#include <QBuffer>
#include <QFile>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace tol::search_print {
namespace {

constexpr int twipsPerInch = 1440;
constexpr double twipsPerPoint = 20;

[[noreturn]] void raiseNotWritten(const std::filesystem::path& file, const QFileDevice& target) {
    throw runtime::RuntimeError(runtime::errPathAccess, "The file '" + file.string() + "' can't be written.",
                                target.errorString().toStdString());
}

QPageSize sizeOf(const Page& page) {
    return QPageSize(QSizeF(page.width, page.height) / twipsPerPoint, QPageSize::Point, {},
                     QPageSize::ExactMatch);
}

/// Whether all were painted.
bool paintPages(QPdfWriter& writer, const PageList& list, std::span<const Page> pages,
                const PageProgress& progress) {
    QPainter painter;
    int number = 0;
    for (const Page& page : pages) {
        if (progress && !progress(++number, static_cast<int>(pages.size())))
            return false;
        writer.setPageSize(sizeOf(page));
        if (&page == &pages.front())
            painter.begin(&writer);
        else
            writer.newPage();
        paintPage(painter, list, page);
    }
    return true;
}

/// The file's bytes, none when it was stopped.
QByteArray pdfOf(const PageList& list, std::span<const Page> pages, const std::string& title,
                 const PageProgress& progress) {
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    QPdfWriter writer(&bytes);
    writer.setResolution(twipsPerInch);
    writer.setTitle(QString::fromStdString(title));
    writer.setCreator("Tolvane Module");
    writer.setPageMargins({});
    return paintPages(writer, list, pages, progress) ? bytes.data() : QByteArray();
}

/// In one piece, since a writer of PDF files does not look whether its device took what it was given.
bool writeAll(QFileDevice& target, const QByteArray& bytes) {
    return target.open(QIODevice::WriteOnly) && target.write(bytes) == bytes.size() && target.flush();
}

/// Whether it is a file, or nothing yet. A device or a pipe is there to be written to, as is a name such as
/// that of the standard output, which may lead to a file that has no name of its own.
bool isReplaceable(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::exists(std::filesystem::symlink_status(file, error)))
        return true;
    const std::filesystem::path target = std::filesystem::canonical(file, error);
    return !error && std::filesystem::is_regular_file(target, error);
}

} // namespace

void writePdf(const PageList& list, std::span<const Page> pages, const std::filesystem::path& file,
              const std::string& title, const PageProgress& progress) {
    const QByteArray bytes = pdfOf(list, pages, title, progress);
    if (bytes.isEmpty())
        return;
    const QString name = QString::fromStdString(file.string());
    if (isReplaceable(file)) {
        QSaveFile target(name);
        if (!writeAll(target, bytes) || !target.commit())
            raiseNotWritten(file, target);
    } else {
        QFile target(name);
        if (!writeAll(target, bytes))
            raiseNotWritten(file, target);
    }
}

} // namespace tol::search_print
