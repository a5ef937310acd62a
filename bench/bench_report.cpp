// SPDX-License-Identifier: MIT
// Reports of 10,000 rows, from the table to the PDF file, against Qt painting the same texts and boxes
// straight into a PDF writer.
#include "PlainPages.h"
#include "Ratio.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "definition_update/report/ActivityReport.h"
#include "rights/report/ListReport.h"
#include "search_print/document/PdfFile.h"

#include <QGuiApplication>

#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <functional>

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

void makeUsers(data::Database& database) {
    database.CreateTable({"USERLIST",
                          {{.name = "USERTAG", .type = data::dbLong},
                           {.name = "UserName", .type = data::dbText, .size = 20},
                           {.name = "REMARKS", .type = data::dbText, .size = 40},
                           {.name = "ADMIN", .type = data::dbBoolean}},
                          {{.name = "USERNAME", .fields = {"UserName"}}}});
    data::Recordset users = database.OpenRecordset("USERLIST");
    for (int row = 0; row < rowCount; ++row) {
        users.AddNew();
        users.Fields("USERTAG").Value(row + 1);
        users.Fields("UserName").Value(fmt::format("user{:05}", row * 7 % rowCount));
        users.Fields("REMARKS").Value(fmt::format("Yard office {}, second shift", row % 90));
        users.Fields("ADMIN").Value(row % 20 == 0);
        users.Update();
    }
}

/// Draws a whole report as a document of the printer.
using Draw = std::function<void(search_print::VSPrinter& printer)>;

void measure(const std::string& name, const Draw& draw, const std::filesystem::path& folder) {
    search_print::VSPrinter sample;
    draw(sample);
    const std::vector<bench::PlainPage> pages = bench::plainPages(sample.document());
    const QString theirs = QString::fromStdString((folder / "theirs.pdf").string());
    fmt::print("{}: {} rows, {} pages\n", name, rowCount, sample.PageCount());
    bench::ratio(
        "report to PDF / painting alone", pairs,
        [&] {
            search_print::VSPrinter printer;
            draw(printer);
            writePdf(printer.document(), printer.document().pages, folder / "ours.pdf",
                     printer.documentTitle());
        },
        [&] { bench::paintPlainly(pages, theirs); });
    search_print::VSPrinter printer;
    fmt::print("  of it reading and drawing: {:.1f} ms\n", 1e3 * bench::seconds([&] { draw(printer); }));
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
        data::Database definitions = workspace.CreateDatabase((folder / "ZOVDEF.MDB").string());
        makeLog(definitions);
        data::Database network = workspace.CreateDatabase((folder / "ZOVNET.MDB").string());
        makeUsers(network);
        NoWindow view;
        measure(
            "activity log",
            [&](search_print::VSPrinter& printer) {
                data::Recordset log = definitions.OpenRecordset("ACTIVITYLOG");
                update::printActivityLog(view, printer, log, printer.Orientation());
            },
            folder);
        measure(
            "user list",
            [&](search_print::VSPrinter& printer) {
                rights::ListReport(rights::PrintedList::Users, network)
                    .print(view, printer, printer.Orientation());
            },
            folder);
    }
    std::filesystem::remove_all(folder);
}
