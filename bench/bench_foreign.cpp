// SPDX-License-Identifier: MIT
// Converting one field of a table that another program made, against the same table of our own with the
// same rows; without and with a long text in each row. Usage: bench_foreign [rows]

#include "Ratio.h"
#include "UpdateFolder.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"

#include <sqlite3.h>

using namespace tol;
using namespace tol::bench;
namespace fs = std::filesystem;

namespace {

void run(const fs::path& file, const std::string& sql) {
    sqlite3* database = nullptr;
    sqlite3_open(file.c_str(), &database);
    char* error = nullptr;
    if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
        fmt::print(stderr, "{}\n", error);
        std::exit(1);
    }
    sqlite3_close(database);
}

/// Adds the long text, and wants or has PARENT as that type behind it.
void addFields(const fs::path& file, data::FieldType parent) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksBENCH");
    data::Database database = workspace.OpenDatabase(file.string());
    data::TableDef table = database.TableDefs("WIDE");
    table.Fields().Append(table.CreateField("NOTE", data::dbMemo));
    if (parent != data::dbLong) {
        table.Fields().Delete("PARENT");
        table.Fields().Append(table.CreateField("PARENT", parent));
    }
}

void makeOwn(const fs::path& file, int rows, int noteLength) {
    makeWideTable(file, rows, false);
    addFields(file, data::dbLong);
    // Vacuumed, so that its pages are as full as the other file's.
    run(file, fmt::format("UPDATE WIDE SET NOTE = substr(hex(zeroblob({0})), 1, {0}); VACUUM", noteLength));
}

/// The same rows in a table with types as other programs declare them.
void makeForeign(const fs::path& file, const fs::path& own) {
    run(file,
        fmt::format("CREATE TABLE WIDE (TAG INTEGER, CODE VARCHAR(16), NAME VARCHAR(50), QTY SMALLINT, "
                    "PRICE DECIMAL(10,4), RATE DOUBLE, STARTED DATETIME, ACTIVE BOOLEAN, "
                    "REMARKS VARCHAR(40), FACTOR SINGLE, LEVEL TINYINT, PARENT INTEGER, NOTE TEXT);"
                    "ATTACH '{}' AS own;"
                    "INSERT INTO WIDE SELECT TAG, CODE, NAME, QTY, PRICE / 10000.0, RATE, STARTED, ACTIVE, "
                    "REMARKS, FACTOR, LEVEL, PARENT, NOTE FROM own.WIDE",
                    own.native()));
}

/// Seconds of a run over a fresh copy of the file.
double converted(const fs::path& original) {
    fs::copy_file(original, "site/WIDE.mdb", fs::copy_options::overwrite_existing);
    return seconds([] { runUpdate(); });
}

/// The file has to be fresh for each side, and copying it is nobody's work: the times are taken inside.
void compare(std::string_view name, int rows, int noteLength) {
    makeOwn("own.db", rows, noteLength);
    makeForeign("foreign.db", "own.db");
    std::vector<double> foreign, own, ratios;
    for (int pair = 0; pair < 4; ++pair) {
        const double theirs = converted("foreign.db");
        const double ours = converted("own.db");
        if (pair > 0) {
            foreign.push_back(theirs);
            own.push_back(ours);
            ratios.push_back(theirs / ours);
        }
    }
    fmt::print("{}, {} rows: foreign {:.2f} s, own {:.2f} s, ratio {:.2f} ({:.2f} to {:.2f})\n", name, rows,
               median(foreign), median(own), median(ratios), *std::min_element(ratios.begin(), ratios.end()),
               *std::max_element(ratios.begin(), ratios.end()));
    std::fflush(stdout);
    fs::remove("own.db");
    fs::remove("foreign.db");
}

} // namespace

int main(int argc, char** argv) {
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    SilentHost host;
    runtime::HostScope scope(host);
    const int rows = argc > 1 ? std::atoi(argv[1]) : 200'000;
    BenchFolder folder;
    makeUpdateFolder();
    makeWideTable("reference/WIDE.MDB", 0, false);
    addFields("reference/WIDE.MDB", data::dbDouble);
    refresh();
    compare("short rows", rows, 0);
    compare("rows with a text of 2,000 characters", rows / 10, 2000);
}
