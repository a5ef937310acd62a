// SPDX-License-Identifier: MIT
// A tick of the window of Record Locks, page painted, against opening the file and one walk over the index
// with a prepared statement; and CopyUAIList against the same deletes and inserts row by row in one
// transaction. Usage: bench_locks [locks [items]]

#include "Ratio.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "data/sqlite/connection/Connection.h"
#include "forms/events/Application.h"
#include "forms/events/WindowHost.h"
#include "locks/frmTOLRLKS01.h"
#include "rights/model/CopyUAIList.h"

#include <fmt/format.h>

#include <QTimer>

#include <cstdlib>
#include <filesystem>

using namespace tol;
using namespace tol::bench;

namespace {

constexpr const char* network = "ZOVNET.MDB";
constexpr const char* delivery = "ZOVDEF.MDB";
constexpr int modules = 20;

using data::dbLong, data::dbText;
using data::sqlite::Connection;
using data::sqlite::Statement;

data::FieldDef text(const char* name, int size) {
    return {.name = name, .type = dbText, .size = size, .allowZeroLength = true};
}
data::FieldDef number(const char* name) {
    return {.name = name, .type = dbLong};
}

/// The lists of a database, and their indexes in the network database.
void makeLists(data::Database& database) {
    database.CreateTable({"MODULES",
                          {text("MODULEID", 3), text("MODULENAME", 50)},
                          {{.name = "MODULES", .fields = {"MODULEID"}}}});
    database.CreateTable(
        {"USERACCESSITEMS",
         {number("UAITAG"), text("MODULEID", 3), text("UAICODE", 8), text("Desc", 50), text("FORMNAME", 16)},
         {{.name = "USERACCESSITEMS", .fields = {"MODULEID", "UAICODE"}},
          {.name = "UAICODE", .fields = {"UAICODE"}},
          {.name = "UAITAG", .fields = {"UAITAG"}},
          {.name = "UAIDESC", .fields = {"MODULEID", "Desc"}}}});
}

void add(data::Recordset& rows, const std::vector<runtime::Value>& values) {
    rows.AddNew();
    for (std::size_t i = 0; i < values.size(); ++i)
        rows.Fields(static_cast<int>(i)).Value(values[i]);
    rows.Update();
}

void fillLists(data::Database& database, int items) {
    data::Recordset rows = database.OpenRecordset("MODULES");
    for (int module = 0; module < modules; ++module)
        add(rows, {fmt::format("M{:02}", module), fmt::format("Module {}", module)});
    rows = database.OpenRecordset("USERACCESSITEMS");
    for (int item = 0; item < items; ++item)
        add(rows, {item + 1, fmt::format("M{:02}", item % modules), fmt::format("C{:06}", item),
                   fmt::format("What item {} guards", item), "FRMGUARDED"});
}

void makeLocks(data::Database& database, int locks) {
    database.CreateTable({"RECORDLOCKS",
                          {number("TAGNO"), text("TABLENAME", 20), text("RLUSERNAME", 20),
                           text("RLTIMESTAMP", 30), number("USERTAG"), number("Session")},
                          {{.name = "RECORDLOCKS", .fields = {"TABLENAME", "TAGNO"}}}});
    data::Recordset rows = database.OpenRecordset("RECORDLOCKS");
    for (int lock = 0; lock < locks; ++lock)
        add(rows, {lock, fmt::format("TABLE{}", lock % 30), "somebody", "1/31/2003 4:05:00 PM", 3, 1});
}

void makeDatabases(int locks, int items) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksBENCH");
    data::Database net = workspace.CreateDatabase(network);
    makeLists(net);
    fillLists(net, items);
    makeLocks(net, locks);
    data::Database delivered = workspace.CreateDatabase(delivery);
    makeLists(delivered);
    fillLists(delivered, items);
}

double sink = 0;

void openAndWalk() {
    Connection connection(network, Connection::Mode::ReadWrite);
    Statement index(connection, "SELECT TABLENAME, TAGNO, MSysKey FROM RECORDLOCKS "
                                "ORDER BY TABLENAME COLLATE TOLTEXT, TAGNO, MSysKey");
    while (index.step())
        sink += static_cast<double>(index.integer(1) + index.integer(2));
}

void deleteRows(Connection& connection, const std::string& table) {
    std::vector<std::int64_t> keys;
    Statement all(connection, "SELECT MSysKey FROM " + table);
    while (all.step())
        keys.push_back(all.integer(0));
    Statement remove(connection, "DELETE FROM " + table + " WHERE MSysKey = ?");
    for (const std::int64_t key : keys) {
        remove.bind(1, key);
        remove.run();
    }
}

void copyModules(Connection& from, Connection& into) {
    Statement read(from, "SELECT MODULEID, MODULENAME FROM MODULES ORDER BY MODULEID COLLATE TOLTEXT");
    Statement write(into, "INSERT INTO MODULES (MODULEID, MODULENAME) VALUES (?, ?)");
    while (read.step()) {
        write.bindAll(read.text(0), read.text(1));
        write.run();
    }
}

void copyItems(Connection& from, Connection& into) {
    Statement read(from, "SELECT UAITAG, MODULEID, UAICODE, \"Desc\", FORMNAME FROM USERACCESSITEMS "
                         "ORDER BY MODULEID COLLATE TOLTEXT, UAICODE COLLATE TOLTEXT");
    Statement write(into, "INSERT INTO USERACCESSITEMS (UAITAG, MODULEID, UAICODE, \"Desc\", FORMNAME) "
                          "VALUES (?, ?, ?, ?, ?)");
    while (read.step()) {
        write.bindAll(read.integer(0), read.text(1), read.text(2), read.text(3), read.text(4));
        write.run();
    }
}

void copyByHand() {
    Connection from(delivery, Connection::Mode::ReadWrite);
    Connection into(network, Connection::Mode::ReadWrite);
    into.execute("BEGIN IMMEDIATE");
    deleteRows(into, "MODULES");
    deleteRows(into, "USERACCESSITEMS");
    copyModules(from, into);
    copyItems(from, into);
    into.execute("COMMIT");
}

void benchTick(int locks) {
    forms::Application application("bench");
    forms::WindowHost host;
    locks::frmTOLRLKS01 window("");
    window.showModeless();
    auto* timer = window.findChild<QTimer*>("tmrRLKS");
    timer->setInterval(std::chrono::hours(24));
    const auto tick = [&] {
        QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
        window.repaint();
        QCoreApplication::processEvents();
    };
    fmt::print("{} Record Locks\n", locks);
    ratio("A tick, page painted", 25, tick, openAndWalk);
    window.unload();
}

} // namespace

int main(int argc, char** argv) {
    const int locks = argc > 1 ? std::atoi(argv[1]) : 50'000;
    const int items = argc > 2 ? std::atoi(argv[2]) : 5'000;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    const BenchFolder folder;
    makeDatabases(locks, items);
    benchTick(locks);
    fmt::print("{} modules and {} items\n", modules, items);
    ratio(
        "CopyUAIList", 9, [] { rights::CopyUAIList(network); }, copyByHand);
    return sink == 0 ? 1 : 0;
}
