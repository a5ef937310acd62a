// SPDX-License-Identifier: MIT
// A run that converts one field in 95 of 100 tables of a database of many tables, and what a conversion
// costs there against one in a tenth of the tables. Usage: bench_schema [tables]

#include "Ratio.h"
#include "UpdateFolder.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"

#include <ctime>

using namespace tol;
using namespace tol::bench;
namespace fs = std::filesystem;

namespace {

constexpr int fields = 10;
constexpr int rows = 20;

bool isConverted(int table) {
    return table % 20 != 0;
}

/// Each table has ten fields, two indexes and `rowCount` rows; `changed` tells which have another type of
/// their last field.
void makeTables(const fs::path& file, int tables, int rowCount, bool changed) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksBENCH");
    data::Database database = workspace.CreateDatabase(file.string());
    workspace.BeginTrans();
    for (int number = 0; number < tables; ++number) {
        const std::string name = fmt::format("TABLE{:04}", number);
        data::TableDefinition table{.name = name};
        for (int field = 0; field < fields; ++field) {
            const bool other = changed && field == fields - 1 && isConverted(number);
            table.fields.push_back(
                {.name = fmt::format("FIELD{}", field), .type = other ? data::dbDouble : data::dbLong});
        }
        for (const char* key : {"FIELD0", "FIELD1"})
            table.indexes.push_back({.name = key, .fields = {key}});
        database.CreateTable(table);
        data::Recordset recordset = database.OpenRecordset(name);
        for (int row = 0; row < rowCount; ++row) {
            recordset.AddNew();
            recordset.Fields(fields - 1).Value(row);
            recordset.Update();
        }
    }
    workspace.CommitTrans(1);
}

/// Seconds for each conversion of a run over that many tables.
double perConversion(int tables) {
    for (const char* file : {"reference/WIDE.MDB", "site/WIDE.mdb"})
        fs::remove(file);
    makeTables("reference/WIDE.MDB", tables, 0, true);
    makeTables("site/WIDE.mdb", tables, rows, false);
    refresh();
    const std::clock_t before = std::clock();
    const double taken = seconds([] { runUpdate(); });
    const double processor = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    const int conversions = tables - (tables + 19) / 20;
    fmt::print("{} tables: {} conversions in {:.1f} s, {:.1f} s of them at work\n", tables, conversions,
               taken, processor);
    std::fflush(stdout);
    return taken / conversions;
}

} // namespace

int main(int argc, char** argv) {
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    SilentHost host;
    runtime::HostScope scope(host);
    const int tables = argc > 1 ? std::atoi(argv[1]) : 2'000;
    BenchFolder folder;
    makeUpdateFolder();
    const double few = perConversion(tables / 10);
    const double many = perConversion(tables);
    fmt::print("a conversion: {:.1f} ms in {} tables, {:.1f} ms in {} tables, ratio {:.2f}\n", 1e3 * few,
               tables / 10, 1e3 * many, tables, many / few);
}
