// SPDX-License-Identifier: MIT
// A fill of a user's rights from a template, as the window does it, against one INSERT ... SELECT of the same
// rows after the same DELETE. Usage: bench_fill [items]

#include "Ratio.h"
#include "WideTable.h"
#include "data/OpenTable.h"
#include "data/sqlite/SqliteEngine.h"
#include "forms/events/Application.h"
#include "forms/events/WindowHost.h"
#include "rights/model/FillFromTemplate.h"

#include <cstdlib>
#include <sqlite3.h>

using namespace tol;
using namespace tol::bench;

namespace {

constexpr std::int32_t user = 7, urTemplate = 5;
constexpr const char* refillSql = R"(
BEGIN;
DELETE FROM USERRIGHTS WHERE USERTAG = 7 AND URTTAG = 5;
INSERT INTO USERRIGHTS (USERTAG, UAITAG, ALLOWED, URTTAG)
  SELECT 7, UAITAG, ALLOWED, URTTAG FROM URTITEMS WHERE URTTAG = 5 ORDER BY UAITAG;
COMMIT;)";
constexpr int otherUsers = 200, rightsOfOne = 100;

data::FieldDef number(const char* name) {
    return {.name = name, .type = data::dbLong};
}

void addRow(data::Recordset& table, std::initializer_list<runtime::Value> values) {
    table.AddNew();
    int field = 0;
    for (const runtime::Value& value : values)
        table.Fields(field++).Value(value);
    table.Update();
}

/// A template of so many items, and the rights of other users.
void makeRights(const std::string& file, int items) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksBENCH");
    data::Database database = workspace.CreateDatabase(file);
    const data::FieldDef allowed{.name = "ALLOWED", .type = data::dbBoolean};
    database.CreateTable({.name = "URTITEMS",
                          .fields = {number("URTTAG"), number("UAITAG"), allowed},
                          .indexes = {{.name = "URTITEMS", .fields = {"URTTAG", "UAITAG"}}}});
    database.CreateTable({.name = "USERRIGHTS",
                          .fields = {number("USERTAG"), number("UAITAG"), allowed, number("URTTAG")},
                          .indexes = {{.name = "USERRIGHTS", .fields = {"USERTAG", "UAITAG"}},
                                      {.name = "URTTAG", .fields = {"USERTAG", "URTTAG"}}}});
    data::Recordset urtItems = database.OpenRecordset("URTITEMS");
    for (int item = 0; item < items; ++item)
        addRow(urtItems, {urTemplate, item, item % 3 == 0});
    data::Recordset rights = database.OpenRecordset("USERRIGHTS");
    for (int other = 1'000; other < 1'000 + otherUsers; ++other)
        for (int item = 0; item < rightsOfOne; ++item)
            addRow(rights, {other, item, true, urTemplate});
}

} // namespace

int main(int argc, char** argv) {
    const int items = argc > 1 ? std::atoi(argv[1]) : 5'000;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    forms::Application application("bench");
    forms::WindowHost host;
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    BenchFolder folder;
    const std::string ours = folder / "OURS.MDB", theirs = folder / "THEIRS.MDB";
    makeRights(ours, items);
    makeRights(theirs, items);

    data::OpenTable rights("wksBENCH", ours, "USERRIGHTS");
    data::Recordset urtItems = rights.database.OpenRecordset("URTITEMS");
    const auto fill = [&] {
        rights::FillFromTemplate(rights.rows, urtItems, {.userTag = user, .urtTag = urTemplate},
                                 [] { return true; });
        runtime::flush();
    };
    sqlite3* plain = nullptr;
    sqlite3_open(theirs.c_str(), &plain);
    const auto refill = [&] {
        if (sqlite3_exec(plain, refillSql, nullptr, nullptr, nullptr) != SQLITE_OK)
            std::exit(1);
    };
    fmt::print("A fill of {} items, over as many rows of an earlier one\n", items);
    ratio("FillFromTemplate", 15, fill, refill);
    sqlite3_close(plain);
}
