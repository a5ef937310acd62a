// SPDX-License-Identifier: MIT
#include "UpdateWorld.h"

#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "definition_update/engine/DefinitionUpdate.h"
#include "platform/System.h"
#include "runtime/Conversions.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <unistd.h>

namespace tol::test {

namespace {

// Lists are told as lists: a braced pair that begins with a text would become an object.
Json field(const std::string& name, data::FieldType type, int size = 0) {
    return Json::array({name, type, data::reportedSize(type, size)});
}

Json textField(const std::string& name, int size) {
    return field(name, data::dbText, size);
}

Json indexed(const Json& fields, const std::string& index, const std::vector<std::string>& keys) {
    return {{"fields", fields}, {"indexes", {{index, keys}}}};
}

Json definitionFields() {
    Json fields = Json::array({textField("TNAME", 64), textField("FNAME", 64)});
    for (const char* number : {"FSIZE", "FTYPE", "OPOS"})
        fields.push_back(field(number, data::dbInteger));
    return fields;
}

Json indexFields() {
    Json fields = Json::array({textField("TNAME", 64), textField("IName", 64), textField("KEYSTRING", 255)});
    for (int key = 1; key <= 10; ++key)
        fields.push_back(textField((key < 10 ? "IKEY0" : "IKEY") + std::to_string(key), 64));
    return fields;
}

Json behindDatabaseName(Json fields) {
    fields.insert(fields.begin(), textField("DBNAME", 16));
    return fields;
}

Json definitionTables() {
    const Json log =
        Json::array({textField("PATHNAME", 16), textField("DBNAME", 16), textField("TABLENAME", 64),
                     textField("INDEXNAME", 64), textField("FIELDNAME", 64), textField("Action", 120),
                     textField("FDATE", 10), textField("PTIME", 11)});
    const Json databases =
        Json::array({textField("DBNAME", 16), textField("PATHCODE", 10), textField("Modules", 20),
                     field("Optional", data::dbBoolean), textField("FILLLOC", 255),
                     textField("ALTDBNAME", 16), textField("DBDESC", 40)});
    const Json modules = Json::array({textField("MODULEID", 3), textField("MODULENAME", 30)});
    const Json items =
        Json::array({field("UAITAG", data::dbLong), textField("MODULEID", 3), textField("UAICODE", 10),
                     textField("Desc", 40), textField("FORMNAME", 20)});
    return {
        {"DATABASES", indexed(databases, "DATABASES", {"DBNAME"})},
        {"NEWDEF", indexed(behindDatabaseName(definitionFields()), "NEWDEF", {"DBNAME", "TNAME", "FNAME"})},
        {"NEWINDEXES",
         indexed(behindDatabaseName(indexFields()), "NEWINDEXES", {"DBNAME", "TNAME", "IName"})},
        {"OLDDEF", indexed(definitionFields(), "OLDDEF", {"TNAME", "FNAME"})},
        {"OLDINDEXES", indexed(indexFields(), "OLDINDEXES", {"TNAME", "IName", "KEYSTRING"})},
        {"ACTIVITYLOG", {{"fields", log}}},
        {"MODULES", indexed(modules, "MODULES", {"MODULEID"})},
        {"USERACCESSITEMS", indexed(items, "USERACCESSITEMS", {"MODULEID", "UAICODE"})},
    };
}

Json pathTables() {
    const Json paths =
        Json::array({field("DBTAG", data::dbLong), textField("PATHNAME", 16), textField("PathText", 255)});
    return {{"DBPATHS", indexed(paths, "DBPATHS", {"PATHNAME"})},
            {"DBTAGS", {{"fields", Json::array({field("DBTAG", data::dbLong)})}}}};
}

Json fieldRows(const std::string& database, const std::string& table, const Json& fields) {
    Json rows = Json::array();
    int position = 0;
    for (const Json& each : fields) {
        const auto type = each.at(1).get<int>();
        const int size = each.size() > 2 && !each.at(2).is_null()
                             ? each.at(2).get<int>()
                             : data::reportedSize(static_cast<data::FieldType>(type), 0);
        const int place = each.size() > 4 ? each.at(4).get<int>() : position;
        rows.push_back(Json::array({database, table, each.at(0), size, type, place}));
        ++position;
    }
    return rows;
}

Json indexRow(const std::string& database, const std::string& table, const std::string& index,
              const Json& keys) {
    const std::string emptySlot(20, ' ');
    std::string joined;
    Json slots(10, emptySlot);
    std::size_t slot = 0;
    for (const Json& key : keys) {
        joined += key.get<std::string>();
        if (slot < slots.size())
            slots[slot] = key;
        ++slot;
    }
    Json row = Json::array({database, table, index, joined});
    row.insert(row.end(), slots.begin(), slots.end());
    return row;
}

data::Database open(const std::string& file, data::Workspace& workspace) {
    workspace = data::DBEngine::CreateWorkspace("wksTEST");
    return workspace.OpenDatabase(file);
}

void addTo(const std::string& file, const std::string& table, const Json& rows) {
    data::Workspace workspace;
    data::Database database = open(file, workspace);
    addRows(database, table, rows);
}

void useSqlite() {
    static const bool added = [] {
        data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
        return true;
    }();
    static_cast<void>(added);
}

} // namespace

UpdateWorld::UpdateWorld() : drives("TOL_DRIVES", (folder.path() / "drives").c_str()) {
    useSqlite();
    platform::setClock([] { return runtime::dateFromIso("2003-01-31 16:05:00"); });
    makeDatabase("ZOVDEF.MDB", definitionTables());
    makeDatabase("DBPATHS.MDB", pathTables());
}

UpdateWorld::~UpdateWorld() {
    platform::setClock({});
}

void UpdateWorld::addRowsOf(const std::string& table, const Json& rows) {
    addTo("ZOVDEF.MDB", table, rows);
}

void UpdateWorld::addSites(const Json& rows) {
    Json tagged = Json::array();
    for (const Json& row : rows)
        tagged.push_back(Json::array({tagged.size() + 1, row.at(0), row.at(1)}));
    addTo("DBPATHS.MDB", "DBPATHS", tagged);
}

void UpdateWorld::addDefinitions(const Json& databases) {
    data::Workspace workspace;
    data::Database definitions = open("ZOVDEF.MDB", workspace);
    for (const auto& [database, tables] : databases.items()) {
        for (const auto& [table, definition] : tables.items()) {
            addRows(definitions, "NEWDEF",
                    fieldRows(database, table, definition.value("fields", Json::array())));
            const Json indexes = definition.value("indexes", Json::object());
            for (const auto& [index, keys] : indexes.items())
                addRows(definitions, "NEWINDEXES", Json::array({indexRow(database, table, index, keys)}));
        }
    }
}

void UpdateWorld::addFile(const std::string& name, const Json& content) const {
    const std::filesystem::path file = folder.path() / name;
    std::filesystem::create_directories(file.parent_path());
    if (content.is_string())
        folder.write(name, content.get<std::string>());
    else
        makeDatabase(file.string(), content);
}

Json UpdateWorld::activityLog() {
    Json log = readDatabase("ZOVDEF.MDB")["ACTIVITYLOG"]["rows"];
    for (Json& row : log)
        row.erase(row.begin() + 6, row.end());
    return log;
}

void UpdateRun::operator()(UpdateWorld& world) {
    update::DefinitionUpdate updating(view, module);
    data::Recordset& sites = updating.DBPATHS();
    sites.Index("DBPATHS");
    std::string currentMark = " ";
    std::size_t free = 0;
    for (int place = 0; !sites.AtEOF(); ++place, sites.MoveNext()) {
        if (place == currentSite)
            currentMark = sites.Bookmark();
        if (free < updating.tagList().size() &&
            (tagAll || std::find(tagged.begin(), tagged.end(), place) != tagged.end()))
            updating.tagList().at(free++) = {sites.Fields("DBTAG").Value().get<std::int32_t>(),
                                             sites.Fields("PATHNAME").Value().get<std::string>(),
                                             sites.Fields("PathText").Value().get<std::string>()};
    }
    world.host.yields = 0;
    world.host.onYield = [&] {
        const bool boxReached =
            cancelAfterBox > 0 && static_cast<int>(world.host.boxes.size()) >= cancelAfterBox;
        if (world.host.yields == cancelAtYield || boxReached)
            updating.Stop(stopRequest);
        if (world.host.yields == killAtYield) {
            data::DBEngine::flush();
            kill(getpid(), SIGKILL);
        }
    };
    view.onActivity = [&](const update::Activity& activity) {
        if (activity.kind == cancelAt)
            updating.Stop(stopRequest);
    };
    updating.ProcessTaggedItems(currentMark);
    world.host.onYield = {};
    view.onActivity = {};
    yields = world.host.yields;
    finished = updating.outcome() == update::RunOutcome::Finished;
    ended = finished || updating.outcome() == update::RunOutcome::Stopped;
    anyIncomplete = updating.anyIncomplete();
}

} // namespace tol::test
