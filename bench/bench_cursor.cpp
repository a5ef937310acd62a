// SPDX-License-Identifier: MIT
// Seek and MoveNext on a large table against the bare prepared statements. Usage: bench_cursor [rows]

#include "Ratio.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"

#include <cstdlib>
#include <random>
#include <sqlite3.h>

using namespace tol;
using namespace tol::bench;

namespace {

/// A statement on a connection of its own, as a programmer would write it by hand.
class Bare {
  public:
    Bare(const std::filesystem::path& file, const char* sql) {
        sqlite3_open(file.c_str(), &m_database);
        if (sqlite3_prepare_v2(m_database, sql, -1, &m_statement, nullptr) != SQLITE_OK) {
            fmt::print(stderr, "{}\n", sqlite3_errmsg(m_database));
            std::exit(1);
        }
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;
    ~Bare() {
        sqlite3_finalize(m_statement);
        sqlite3_close(m_database);
    }
    bool step() { return sqlite3_step(m_statement) == SQLITE_ROW; }
    void reset() { sqlite3_reset(m_statement); }
    void bind(int value) { sqlite3_bind_int(m_statement, 1, value); }
    /// Reads a number, a text and a fraction of the row.
    double read() {
        return sqlite3_column_int(m_statement, 1) + sqlite3_column_double(m_statement, 6) +
               *sqlite3_column_text(m_statement, 3);
    }

  private:
    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_statement = nullptr;
};

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

void walk(Bare& statement) {
    while (statement.step())
        sink += statement.read();
    statement.reset();
}

} // namespace

int main(int argc, char** argv) {
    const int rows = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
    data::sqlite::addSqliteEngine();
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
                sink += sought.read();
                sought.reset();
            }
        });
    return sink == 0 ? 1 : 0;
}
