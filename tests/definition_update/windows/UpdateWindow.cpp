// SPDX-License-Identifier: MIT
#include "UpdateWindow.h"

#include "data/DBEngine.h"
#include "forms/windows/LoadedForms.h"

#include <fmt/format.h>

#include <QLabel>
#include <QMdiSubWindow>
#include <QTest>

namespace tol::test {

UpdateWindow::UpdateWindow() {
    main.setSize(11985, 9090);
    main.load();
    main.show();
}

void UpdateWindow::addSites(int count) {
    Json sites = Json::array();
    for (int site = 1; site <= count; ++site)
        sites.push_back(
            Json::array({fmt::format("SITE{:02}", site), fmt::format("C:\\Jobs\\Site{:02} ", site)}));
    UpdateWorld::addSites(sites);
}

void UpdateWindow::deleteFirstSite() {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase("DBPATHS.MDB");
    data::Recordset rows = database.OpenRecordset("DBPATHS");
    rows.Index("DBPATHS");
    rows.Delete();
}

void UpdateWindow::addOutdatedSite(int rows, bool convertible) {
    UpdateWorld::addRowsOf("DATABASES", Json::parse(R"([["JOBS", "DBPATHS", "N", false]])"));
    UpdateWorld::addDefinitions(Json::parse(
        R"({"JOBS": {"ORDERS": {"fields": [["NUMBER", 3], ["NOTE", 10, 20]], "indexes": {"ORDERS": ["NUMBER"]}}}})"));
    Json values = Json::array();
    for (int row = 1; row <= rows; ++row)
        values.push_back(Json::array({row == 2 && !convertible ? "40000" : std::to_string(row)}));
    world.addFile(
        "drives/c/NORTH/JOBS.mdb",
        {{"ORDERS", {{"fields", Json::array({Json::array({"NUMBER", 10, 10})})}, {"rows", values}}}});
    UpdateWorld::addSites(Json::parse(R"([["NORTH", "C:\\NORTH"]])"));
}

void UpdateWindow::open() {
    main.showChild(std::make_unique<update::frmDBUDDU>());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&main));
}

void UpdateWindow::atYield(int yield, std::function<void()> step) {
    world.host.yields = 0;
    world.host.onYield = [this, yield, step = std::move(step)] {
        if (world.host.yields == yield)
            step();
    };
}

bool UpdateWindow::isOpen() {
    return forms::LoadedForms::find("frmDBUDDU") != nullptr;
}

update::frmDBUDDU& UpdateWindow::window() const {
    if (!isOpen())
        throw std::logic_error("the window is not open");
    return dynamic_cast<update::frmDBUDDU&>(*forms::LoadedForms::find("frmDBUDDU"));
}

std::vector<int> UpdateWindow::marked() const {
    std::vector<int> rows;
    const std::vector<std::string> marks = column("lblTAG");
    for (int row = 0; row < 8; ++row)
        if (marks[row] != " ")
            rows.push_back(row);
    return rows;
}

int UpdateWindow::highlighted(const QString& label) const {
    const std::vector<int> rows = person().highlighted(label);
    EXPECT_LE(rows.size(), 1U);
    return rows.empty() ? -1 : rows.front();
}

std::string UpdateWindow::state() const {
    std::string result = text("cmdCancel") + (enabled("cmdCancel") ? "" : " off");
    const auto add = [&](const char* what, std::initializer_list<const char*> controls) {
        int on = 0;
        for (const char* control : controls)
            on += enabled(control) ? 1 : 0;
        result += fmt::format(", {} {}", what,
                              on == 0                                   ? "off"
                              : on == static_cast<int>(controls.size()) ? "on"
                                                                        : "partly on");
    };
    add("choices", {"cmdTAGEM", "cmdTAGALL", "cmdClearTags", "hsbMAIN", "cmdVDBHOME", "cmdVDBEND",
                    "cmdVDBPGUP", "cmdVDBPGDN", "cmdVDBUPARROW", "cmdVDBDNARROW", "cmdVDBACTION"});
    add("refresh", {"cmdRefresh"});
    add("print", {"cmdPrint"});
    add("exit", {"cmdExit"});
    return result + (visible("fraNOWPROCESSING") ? ", now processing" : "");
}

} // namespace tol::test
