// SPDX-License-Identifier: MIT
// Converting one field of a large table through a run of the update, against the same four schema steps
// and two updates as set-based SQL; and the peak memory of that run. Usage: bench_convert [rows]

#include "Ratio.h"
#include "UpdateFolder.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"

#include <cstdlib>
#include <sqlite3.h>
#include <string_view>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tol;
using namespace tol::bench;
namespace fs = std::filesystem;

namespace {

/// The reference copy wants PARENT as Double; the site has it as Long.
void makeReference(const fs::path& file) {
    makeWideTable(file, 0, false);
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksBENCH");
    data::Database database = workspace.OpenDatabase(file.string());
    data::TableDef table = database.TableDefs("WIDE");
    table.Fields().Delete("PARENT");
    table.Fields().Append(table.CreateField("PARENT", data::dbDouble));
}

void convertBySql(const char* file) {
    sqlite3* database = nullptr;
    sqlite3_open(file, &database);
    char* error = nullptr;
    for (const char* sql :
         {"PRAGMA synchronous = FULL", "ALTER TABLE WIDE ADD COLUMN TEMPFIELD DOUBLE",
          "UPDATE WIDE SET TEMPFIELD = CAST(PARENT AS REAL)", "ALTER TABLE WIDE DROP COLUMN PARENT",
          "ALTER TABLE WIDE ADD COLUMN PARENT DOUBLE", "UPDATE WIDE SET PARENT = TEMPFIELD",
          "ALTER TABLE WIDE DROP COLUMN TEMPFIELD"})
        if (sqlite3_exec(database, sql, nullptr, nullptr, &error) != SQLITE_OK) {
            fmt::print(stderr, "{}: {}\n", sql, error);
            std::exit(1);
        }
    sqlite3_close(database);
}

void freshSite(const fs::path& original) {
    fs::copy_file(original, "site/WIDE.mdb", fs::copy_options::overwrite_existing);
}

/// Runs the update once in a process of its own and returns its largest resident size in MiB.
double peakMemory(const char* program) {
    const pid_t child = fork();
    if (child == 0) {
        execl(program, program, "--once", nullptr);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (status != 0)
        std::exit(1);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

double timed(const fs::path& original, const std::function<void()>& work) {
    freshSite(original);
    return seconds(work);
}

} // namespace

int main(int argc, char** argv) {
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    SilentHost host;
    runtime::HostScope scope(host);
    if (argc > 1 && std::string_view(argv[1]) == "--once")
        return runUpdate() == "Database Ok. No Changes Made." ? 0 : 1;

    const int rows = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
    const std::string program = fs::canonical(argv[0]).string();
    BenchFolder folder;
    makeUpdateFolder();
    makeReference("reference/WIDE.MDB");
    refresh();
    const fs::path large = folder / "large.db", small = folder / "small.db";
    makeWideTable(large, rows, false);
    makeWideTable(small, rows / 10, false);

    // The file has to be fresh for each side, and copying it is nobody's work: the times are taken inside.
    std::vector<double> ours, theirs, ratios;
    for (int pair = 0; pair < 4; ++pair) {
        const double mine = timed(large, [] { runUpdate(); });
        const double other = timed(large, [] { convertBySql("site/WIDE.mdb"); });
        if (pair > 0) {
            ours.push_back(mine);
            theirs.push_back(other);
            ratios.push_back(mine / other);
        }
    }
    fmt::print("{} rows of 12 fields, Long to Double: run {:.2f} s, SQL {:.2f} s, ratio {:.2f}\n", rows,
               median(ours), median(theirs), median(ratios));

    freshSite(small);
    const double few = peakMemory(program.c_str());
    freshSite(large);
    const double many = peakMemory(program.c_str());
    fmt::print("peak memory of the run: {:.1f} MiB at {} rows, {:.1f} MiB at {} rows\n", few, rows / 10, many,
               rows);
}
