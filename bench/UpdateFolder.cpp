// SPDX-License-Identifier: MIT
#include "UpdateFolder.h"

#include "definition_update/engine/DefinitionRefresh.h"

#include <filesystem>
#include <fmt/core.h>

namespace tol::bench {

using namespace data;
namespace fs = std::filesystem;

runtime::MsgResult SilentHost::showMsgBox(const std::string& text, runtime::MsgStyle style,
                                          const std::string& title) {
    fmt::print(stderr, "{}: {}\n", title, text);
    return style.buttons == runtime::MsgButtons::YesNo ? runtime::MsgResult::Yes : runtime::MsgResult::Ok;
}

namespace {

struct Column {
    std::string name;
    FieldType type;
    int size = 0;
};

struct IndexColumns {
    std::string name;
    std::vector<std::string> keys;
};

void makeTable(Database& database, const std::string& name, const std::vector<Column>& columns,
               const std::vector<IndexColumns>& indexes = {}) {
    TableDefinition table{.name = name};
    for (const Column& column : columns)
        table.fields.push_back({.name = column.name,
                                .type = column.type,
                                .size = column.size,
                                .allowZeroLength = column.type == dbText});
    for (const IndexColumns& index : indexes)
        table.indexes.push_back({.name = index.name, .fields = index.keys});
    database.CreateTable(table);
}

void addRow(Database& database, const std::string& table,
            const std::vector<std::pair<std::string, runtime::Value>>& values) {
    Recordset rows = database.OpenRecordset(table);
    rows.AddNew();
    for (const auto& [field, value] : values)
        rows.Fields(field).Value(value);
    rows.Update();
}

Database create(Workspace& workspace, const char* name) {
    return workspace.CreateDatabase(name);
}

void makeJobSites(Workspace& workspace) {
    Database paths = create(workspace, "DBPATHS.MDB");
    makeTable(paths, "DBPATHS", {{"DBTAG", dbLong}, {"PATHNAME", dbText, 16}, {"PathText", dbText, 100}},
              {{"DBPATHS", {"PATHNAME"}}});
    addRow(paths, "DBPATHS",
           {{"DBTAG", 1}, {"PATHNAME", "SITE"}, {"PathText", (fs::current_path() / "site").string()}});
}

const std::vector<Column> modules = {{"MODULEID", dbText, 3}, {"MODULENAME", dbText, 50}};
const std::vector<Column> items = {{"UAITAG", dbLong},
                                   {"MODULEID", dbText, 3},
                                   {"UAICODE", dbText, 8},
                                   {"Desc", dbText, 50},
                                   {"FORMNAME", dbText, 16}};

void makeNetwork(Workspace& workspace, const char* name) {
    Database net = create(workspace, name);
    makeTable(net, "MODULES", modules, {{"MODULES", {"MODULEID"}}});
    makeTable(net, "USERACCESSITEMS", items, {{"USERACCESSITEMS", {"MODULEID", "UAICODE"}}});
}

std::vector<Column> indexColumns(bool withDatabase) {
    std::vector<Column> columns;
    if (withDatabase)
        columns.push_back({"DBNAME", dbText, 20});
    columns.insert(columns.end(), {{"TNAME", dbText, 64}, {"IName", dbText, 64}, {"KEYSTRING", dbText, 255}});
    for (int n = 1; n <= 10; ++n)
        columns.push_back({fmt::format("IKEY{:02}", n), dbText, 64});
    return columns;
}

std::vector<Column> fieldColumns(bool withDatabase) {
    std::vector<Column> columns;
    if (withDatabase)
        columns.push_back({"DBNAME", dbText, 20});
    columns.insert(columns.end(), {{"TNAME", dbText, 64},
                                   {"FNAME", dbText, 64},
                                   {"FSIZE", dbInteger},
                                   {"FTYPE", dbInteger},
                                   {"OPOS", dbInteger}});
    return columns;
}

void makeDefinition(Workspace& workspace) {
    Database def = create(workspace, "ZOVDEF.MDB");
    makeTable(def, "DATABASES",
              {{"DBNAME", dbText, 20},
               {"PATHCODE", dbText, 10},
               {"Modules", dbText, 30},
               {"Optional", dbBoolean},
               {"FILLLOC", dbText, 255},
               {"ALTDBNAME", dbText, 20},
               {"DBDESC", dbText, 50}},
              {{"DATABASES", {"DBNAME"}}});
    addRow(def, "DATABASES",
           {{"DBNAME", "WIDE"},
            {"PATHCODE", "DBPATHS"},
            {"Modules", "N"},
            {"Optional", false},
            {"FILLLOC", (fs::current_path() / "reference").string()},
            {"ALTDBNAME", " "}});
    makeTable(def, "NEWDEF", fieldColumns(true), {{"NEWDEF", {"DBNAME", "TNAME", "FNAME"}}});
    makeTable(def, "OLDDEF", fieldColumns(false), {{"OLDDEF", {"TNAME", "FNAME"}}});
    makeTable(def, "NEWINDEXES", indexColumns(true), {{"NEWINDEXES", {"DBNAME", "TNAME", "IName"}}});
    makeTable(def, "OLDINDEXES", indexColumns(false), {{"OLDINDEXES", {"TNAME", "IName", "KEYSTRING"}}});
    makeTable(def, "ACTIVITYLOG",
              {{"PATHNAME", dbText, 16},
               {"DBNAME", dbText, 20},
               {"TABLENAME", dbText, 64},
               {"INDEXNAME", dbText, 64},
               {"FIELDNAME", dbText, 64},
               {"Action", dbText, 255},
               {"FDATE", dbText, 10},
               {"PTIME", dbText, 12}});
    makeTable(def, "MODULES", modules, {{"MODULES", {"MODULEID"}}});
    makeTable(def, "USERACCESSITEMS", items, {{"USERACCESSITEMS", {"MODULEID", "UAICODE"}}});
}

} // namespace

void makeUpdateFolder() {
    fs::create_directories("site");
    fs::create_directories("reference");
    Workspace workspace = DBEngine::CreateWorkspace("wksBENCH");
    makeJobSites(workspace);
    makeNetwork(workspace, "ZOVNET.MDB");
    Database location = create(workspace, "NETPATH.MDB");
    makeTable(location, "NETPATH", {{"Path", dbText, 255}});
    makeDefinition(workspace);
}

void refresh() {
    SilentView view;
    update::DefinitionRefresh refresh(view, fs::current_path().string());
    if (refresh.RefreshDefinitions() != update::RefreshOutcome::Finished)
        fmt::print(stderr, "the refresh did not finish\n");
}

std::string runUpdate() {
    SilentView view;
    update::DefinitionUpdate run(view);
    data::Recordset& sites = run.DBPATHS();
    sites.MoveFirst();
    run.ProcessTaggedItems(sites.Bookmark());
    return view.lastAction;
}

} // namespace tol::bench
