// SPDX-License-Identifier: MIT
#include "WideTable.h"

#include "data/DBEngine.h"

#include <cstdlib>
#include <fmt/core.h>
#include <stdexcept>
#include <string>

namespace tol::bench {

using namespace data;
namespace fs = std::filesystem;

BenchFolder::BenchFolder() : m_before(fs::current_path()) {
    std::string name = (fs::temp_directory_path() / "tol-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no temporary folder");
    m_path = name;
    fs::current_path(m_path);
}

BenchFolder::~BenchFolder() {
    std::error_code ignored;
    fs::current_path(m_before, ignored);
    fs::remove_all(m_path, ignored);
}

namespace {

struct Column {
    const char* name;
    FieldType type;
    int size;
};
constexpr Column columns[] = {
    {"TAG", dbLong, 0},       {"CODE", dbText, 16},    {"NAME", dbText, 50},   {"QTY", dbInteger, 0},
    {"PRICE", dbCurrency, 0}, {"RATE", dbDouble, 0},   {"STARTED", dbDate, 0}, {"ACTIVE", dbBoolean, 0},
    {"REMARKS", dbText, 40},  {"FACTOR", dbSingle, 0}, {"LEVEL", dbByte, 0},   {"PARENT", dbLong, 0},
};

void append(TableDef& table, const char* name) {
    Index index = table.CreateIndex(name);
    index.Fields().Append(index.CreateField(name));
    table.Indexes().Append(index);
}

} // namespace

void makeWideTable(const fs::path& file, int rows, bool indexes) {
    Workspace workspace = DBEngine::CreateWorkspace("wksBENCH");
    Database database = workspace.CreateDatabase(file.string());
    TableDefinition table{.name = "WIDE"};
    for (const Column& column : columns)
        table.fields.push_back({.name = column.name, .type = column.type, .size = column.size});
    database.CreateTable(table);

    Recordset wide = database.OpenRecordset("WIDE");
    std::vector<Field> fields;
    for (int i = 0; i < wide.Fields().Count(); ++i)
        fields.push_back(wide.Fields(i));
    std::int64_t tag = 0;
    for (int row = 0; row < rows; ++row) {
        tag = (tag + 7919) % rows; // visits every number once, as 7919 is prime and no divisor of rows
        const auto n = static_cast<std::int32_t>(tag + 1);
        wide.AddNew();
        fields[0].Value(n);
        fields[1].Value(fmt::format("C{:07}", n));
        fields[2].Value(fmt::format("Item number {} of the list", n));
        fields[3].Value(static_cast<std::int16_t>(n % 30000));
        fields[4].Value(runtime::Currency{n * 12345LL});
        fields[5].Value(n / 7.0);
        fields[6].Value(runtime::Date{36526.0 + n % 9000});
        fields[7].Value(n % 2 == 0);
        fields[8].Value("as delivered");
        fields[9].Value(static_cast<float>(n) / 3);
        fields[10].Value(static_cast<std::uint8_t>(n % 200));
        fields[11].Value(n / 2);
        wide.Update();
    }
    wide.Close();
    if (indexes) {
        TableDef live = database.TableDefs("WIDE");
        append(live, "TAG");
        append(live, "CODE");
    }
}

} // namespace tol::bench
