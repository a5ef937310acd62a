// SPDX-License-Identifier: MIT
// Seek and MoveNext on a large table against the bare prepared statements. Usage: bench_cursor [rows]

#include "Bare.h"
#include "Ratio.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"

#include <random>

using namespace tol;
using namespace tol::bench;

namespace {

struct Reader {
    explicit Reader(data::Recordset& wide)
        : tag(wide.Fields("TAG")), name(wide.Fields("NAME")), rate(wide.Fields("RATE")) {}
    double read() {
        return tag.Value().get<std::int32_t>() + rate.Value().get<double>() +
               name.Value().get<std::string>()[0];
    }
    data::Field tag, name, rate;
};

double sink = 0;

void walk(data::Recordset& wide) {
    Reader reader(wide);
    for (wide.MoveFirst(); !wide.AtEOF(); wide.MoveNext())
        sink += reader.read();
}

/// A number, a text and a fraction of the row.
double read(Bare& statement) {
    return static_cast<double>(statement.number(1)) + statement.real(6) + *statement.text(3);
}

void walk(Bare& statement) {
    while (statement.step())
        sink += read(statement);
    statement.reset();
}

} // namespace

int main(int argc, char** argv) {
    const int rows = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    BenchFolder folder;
    const auto file = folder / "WIDE.MDB";
    makeWideTable(file, rows, true);

    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksBENCH");
    data::Database database = workspace.OpenDatabase(file.string());
    data::Recordset wide = database.OpenRecordset("WIDE");

    fmt::print("{} rows of 12 fields; three fields of each row are read\n", rows);
    Bare stored(file, "SELECT * FROM WIDE ORDER BY MSysKey");
    ratio(
        "MoveNext, stored order", 5, [&] { walk(wide); }, [&] { walk(stored); });

    wide.Index("TAG");
    Bare ordered(file, "SELECT * FROM WIDE ORDER BY TAG, MSysKey");
    ratio(
        "MoveNext, by an index", 3, [&] { walk(wide); }, [&] { walk(ordered); });

    std::vector<int> tags(200'000);
    std::mt19937 random(1);
    for (int& tag : tags)
        tag = std::uniform_int_distribution<int>(1, rows)(random);
    Reader reader(wide);
    Bare sought(file, "SELECT * FROM WIDE WHERE TAG = ? ORDER BY MSysKey LIMIT 1");
    ratio(
        "Seek \"=\", 200,000 keys at random", 5,
        [&] {
            for (const int tag : tags) {
                wide.Seek("=", {tag});
                sink += reader.read();
            }
        },
        [&] {
            for (const int tag : tags) {
                sought.bind(tag);
                sought.step();
                sink += read(sought);
                sought.reset();
            }
        });
    return sink == 0 ? 1 : 0;
}
