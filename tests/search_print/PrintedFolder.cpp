// SPDX-License-Identifier: MIT
#include "PrintedFolder.h"

#include "support/ReportReader.h"

#include <fmt/format.h>

#include <QWidget>

namespace tol::test {
namespace {

bool whileShown(const std::function<void(QWidget&)>& show,
                const std::function<void(search_print::ReportWindow&)>& act) {
    QWidget owner;
    owner.resize(800, 600);
    owner.show();
    const ReportReader reader(act);
    show(owner);
    return reader.reports == 1;
}

} // namespace

PrintedFolder::PrintedFolder() {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.CreateDatabase("LIST.MDB");
    database.CreateTable(
        {"LIST",
         {{.name = "NAME", .type = data::dbText, .size = 20},
          {.name = "PLACE", .type = data::dbText, .size = 100},
          {.name = "AMOUNT", .type = data::dbDouble},
          {.name = "DONE", .type = data::dbBoolean}},
         {{.name = "NAME", .fields = {"NAME"}}, {.name = "NAMEPLACE", .fields = {"NAME", "PLACE"}}}});
}

void PrintedFolder::add(const std::vector<ListRow>& added) const {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase("LIST.MDB");
    data::Recordset rows = database.OpenRecordset("LIST");
    for (const ListRow& row : added) {
        rows.AddNew();
        rows.Fields("NAME").Value(row.name);
        rows.Fields("PLACE").Value(row.place);
        rows.Fields("AMOUNT").Value(row.amount);
        rows.Fields("DONE").Value(row.done);
        rows.Update();
    }
}

void PrintedFolder::addRows(int count) const {
    std::vector<ListRow> rows;
    for (int row = 1; row <= count; ++row)
        rows.push_back({fmt::format("ROW {:03}", row), fmt::format("C:\\SITES\\{:03}", row)});
    add(rows);
}

search_print::PrintRequest namesAndPlaces() {
    return {.PrintPath = "",
            .PrintDBName = "LIST.MDB",
            .PrintTable = "LIST",
            .PrintIndex = "NAME",
            .PrintWindowTitle = "Print the List of Names",
            .ReportName = "List of Names",
            .ModuleText = "Tolvane Module",
            .FieldList = "NAME|PLACE",
            .FormatList = "C|C",
            .SizeList = "16|30",
            .TitleList = "Name|Place",
            .WidthList = "2000|6000",
            .AlignList = "-^|-"};
}

bool withReport(const search_print::PrintRequest& request,
                const std::function<void(search_print::ReportWindow&)>& act) {
    return whileShown([&](QWidget& owner) { search_print::vdPrint(owner, request); }, act);
}

bool withWindow(search_print::ReportWindow& window, const std::function<void()>& act) {
    const auto show = [&](QWidget& owner) {
        window.showModal(&owner);
        window.setParent(nullptr); // it is not the owner's to delete
    };
    return whileShown(show, [&](search_print::ReportWindow&) { act(); });
}

} // namespace tol::test
