// SPDX-License-Identifier: MIT
#include "support/StartFolder.h"

#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"

namespace tol::test {
namespace {

void makeDatabase(const std::string& file) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    workspace.CreateDatabase(file);
}

void addEngineOnce() {
    static const bool added = [] {
        data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
        return true;
    }();
    static_cast<void>(added);
}

} // namespace

StartFolder::StartFolder() {
    addEngineOnce();
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.CreateDatabase("NETPATH.MDB");
    database.CreateTable({"NETPATH", {{.name = "Path", .type = data::dbText, .size = 200}}});
    makeDatabase("DBPATHS.MDB");
    std::filesystem::create_directories(driveC() / "ZOVUSER");
    makeDatabase(R"(C:\ZOVUSER\ZOVUSER.MDB)");
}

void StartFolder::addPath(const runtime::Value& path) const {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase("NETPATH.MDB");
    data::Recordset rows = database.OpenRecordset("NETPATH");
    rows.AddNew();
    rows.Fields("Path").Value(path);
    rows.Update();
}

std::vector<runtime::Value> StartFolder::paths() const {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase("NETPATH.MDB");
    data::Recordset rows = database.OpenRecordset("NETPATH");
    std::vector<runtime::Value> result;
    for (; !rows.AtEOF(); rows.MoveNext())
        result.push_back(rows.Fields("Path").Value());
    return result;
}

void StartFolder::remove(const std::string& name) const {
    std::filesystem::remove(path() / name);
}

} // namespace tol::test
