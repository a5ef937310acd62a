// SPDX-License-Identifier: MIT
// One pass over a database with nothing to do (60 tables, 716 fields, 120 indexes), against sqldiff
// --schema on two such files as a whole process. Usage: bench_pass

#include "Ratio.h"
#include "UpdateFolder.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"

#include <cstdlib>

using namespace tol;
using namespace tol::bench;

namespace {

/// 60 tables: 56 with 12 fields and 4 with 11, two indexes each.
void makeManyTables(const char* file) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksBENCH");
    data::Database database = workspace.CreateDatabase(file);
    for (int t = 0; t < 60; ++t) {
        data::TableDefinition table{.name = fmt::format("TABLE{:02}", t)};
        for (int f = 0; f < (t < 56 ? 12 : 11); ++f) {
            const bool isText = f % 3 == 0;
            table.fields.push_back({.name = fmt::format("FIELD{:02}", f),
                                    .type = isText ? data::dbText : data::dbLong,
                                    .size = isText ? 20 : 0,
                                    .allowZeroLength = isText});
        }
        for (const int key : {0, 1})
            table.indexes.push_back(
                {.name = fmt::format("INDEX{}", key), .fields = {fmt::format("FIELD{:02}", key), "FIELD05"}});
        database.CreateTable(table);
    }
}

} // namespace

int main() {
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    SilentHost host;
    runtime::HostScope scope(host);
    BenchFolder folder;
    makeUpdateFolder();
    makeManyTables("site/WIDE.mdb");
    makeManyTables("reference/WIDE.MDB");
    refresh();
    if (runUpdate() != "Database Ok. No Changes Made.") {
        fmt::print(stderr, "the two definitions differ\n");
        return 1;
    }
    fmt::print("A run makes two passes; sqldiff is run twice for each run.\n");
    const char* sqldiff = "sqldiff --schema site/WIDE.mdb reference/WIDE.MDB >/dev/null";
    ratio(
        "one run of two passes, nothing to do", 15, [] { runUpdate(); },
        [&] {
            for (int pass = 0; pass < 2; ++pass)
                if (std::system(sqldiff) != 0)
                    std::exit(1);
        });
}
