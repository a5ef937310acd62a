// SPDX-License-Identifier: MIT
// A report of 10,000 rows, from the table to the PDF file, against Qt painting the same texts and boxes
// straight into a PDF writer.
#include "Ratio.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "definition_update/report/ActivityReport.h"
#include "search_print/document/PdfFile.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>

#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>

namespace {

using namespace tol;

constexpr int rowCount = 10'000;
constexpr int pairs = 9;

/// The report runs without a window, and nobody stops it.
class NoWindow : public search_print::ReportView {
  public:
    void showState(search_print::ReportState) override {}
    void setProcess(const std::string&) override {}
    bool keepPrinting() override { return true; }
};

void makeLog(data::Database& database) {
    data::TableDefinition table{.name = "ACTIVITYLOG"};
    for (const char* field :
         {"PATHNAME", "DBNAME", "TABLENAME", "INDEXNAME", "FIELDNAME", "Action", "FDATE", "PTIME"})
        table.fields.push_back({.name = field, .type = data::dbText, .size = 100});
    database.CreateTable(table);
    data::Recordset log = database.OpenRecordset("ACTIVITYLOG");
    for (int row = 0; row < rowCount; ++row) {
        log.AddNew();
        log.Fields("PATHNAME").Value("BAYFRONT TOWER");
        log.Fields("DBNAME").Value("TIMECARD");
        log.Fields("TABLENAME").Value(fmt::format("TABLE{:04}", row / 10));
        log.Fields("INDEXNAME").Value(row % 3 == 0 ? "BYNAME" : " ");
        log.Fields("FIELDNAME").Value(fmt::format("FIELD{:02}", row % 50));
        log.Fields("Action").Value(row % 7 == 0 ? "Changed Field Size. Some Data may be lost."
                                                : "Added Field.");
        log.Fields("FDATE").Value("11/21/2026");
        log.Fields("PTIME").Value("1:11:00 PM");
        log.Update();
    }
}

void draw(data::Recordset& log, search_print::VSPrinter& printer) {
    NoWindow view;
    update::printActivityLog(view, printer, log, printer.Orientation());
}

/// What the report consists of, as plain lists for the painter.
struct PlainBox {
    QRectF rectangle;
    QPen pen;
    QBrush brush;
};
struct PlainText {
    QPointF baseline;
    QString text;
    const QFont* font;
};
struct PlainPage {
    std::vector<PlainBox> boxes;
    std::vector<PlainText> texts;
};

std::vector<PlainPage> plainPages(const search_print::PageList& list) {
    std::vector<PlainPage> pages;
    for (const search_print::Page& page : list.pages) {
        PlainPage plain;
        for (const search_print::Primitive& primitive : page.primitives) {
            if (const auto* box = std::get_if<search_print::Box>(&primitive))
                plain.boxes.push_back(
                    {QRectF(QPointF(box->left, box->top), QPointF(box->right, box->bottom)),
                     QPen(Qt::black, box->penWidth),
                     box->fill == search_print::noFill ? QBrush(Qt::NoBrush) : QBrush(QColor(box->fill))});
            if (const auto* text = std::get_if<search_print::Text>(&primitive)) {
                const auto& font = list.font(text->font);
                plain.texts.push_back({QPointF(text->x, text->y + font.ascent()), text->text, &font.font()});
            }
        }
        pages.push_back(std::move(plain));
    }
    return pages;
}

void paintPlainly(const std::vector<PlainPage>& pages, const QString& file) {
    QPdfWriter writer(file);
    writer.setResolution(1440);
    writer.setPageMargins({});
    QPainter painter(&writer);
    for (const PlainPage& page : pages) {
        if (&page != &pages.front())
            writer.newPage();
        for (const PlainBox& box : page.boxes) {
            painter.setPen(box.pen);
            painter.setBrush(box.brush);
            painter.drawRect(box.rectangle);
        }
        const QFont* font = nullptr;
        for (const PlainText& text : page.texts) {
            if (font != text.font)
                painter.setFont(*text.font);
            font = text.font;
            painter.drawText(text.baseline, text.text);
        }
    }
}

} // namespace

int main(int count, char** words) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QGuiApplication application(count, words);
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    const auto folder = std::filesystem::temp_directory_path() / "tol_bench_report";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksBENCH");
        data::Database database = workspace.CreateDatabase((folder / "ZOVDEF.MDB").string());
        makeLog(database);
        data::Recordset log = database.OpenRecordset("ACTIVITYLOG");
        search_print::VSPrinter sample;
        draw(log, sample);
        const std::vector<PlainPage> pages = plainPages(sample.document());
        const std::filesystem::path ours = folder / "ours.pdf";
        const QString theirs = QString::fromStdString((folder / "theirs.pdf").string());
        fmt::print("{} rows, {} pages\n", rowCount, sample.PageCount());
        bench::ratio(
            "report to PDF / painting alone", pairs,
            [&] {
                search_print::VSPrinter printer;
                draw(log, printer);
                writePdf(printer.document(), printer.document().pages, ours, printer.documentTitle());
            },
            [&] { paintPlainly(pages, theirs); });
        search_print::VSPrinter printer;
        fmt::print("  of it reading and drawing: {:.1f} ms\n",
                   1e3 * bench::seconds([&] { draw(log, printer); }));
    }
    std::filesystem::remove_all(folder);
}
