// SPDX-License-Identifier: MIT
#include "FileState.h"

#include "data/sqlite/connection/TextCollation.h"
#include "runtime/Text.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace tol::test {

namespace {

using Connection = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

Connection openFile(const std::filesystem::path& file) {
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(file.c_str(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    Connection connection(handle, &sqlite3_close);
    if (result != SQLITE_OK)
        throw std::runtime_error(file.string() + ": " + sqlite3_errmsg(handle));
    data::sqlite::registerTextCollation(handle);
    return connection;
}

Statement prepare(sqlite3* connection, const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(connection, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        throw std::runtime_error(sql + ": " + sqlite3_errmsg(connection));
    return {statement, &sqlite3_finalize};
}

std::string_view content(sqlite3_stmt* row, int column) {
    const void* const bytes = sqlite3_column_blob(row, column);
    return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

/// FNV-1a, one step for each byte.
void addTo(std::uint64_t& hash, std::string_view bytes) {
    for (const char c : bytes)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
}

/// The row's key and the type and bytes of one of its values.
void addValue(std::uint64_t& hash, sqlite3_stmt* row, int column) {
    const char type = static_cast<char>('0' + sqlite3_column_type(row, column));
    addTo(hash, content(row, 0));
    addTo(hash, {&type, 1});
    addTo(hash, content(row, column));
}

void addTable(FieldValues& values, sqlite3* connection, const std::string& table) {
    const Statement rows =
        prepare(connection, fmt::format("SELECT rowid, * FROM \"{}\" NOT INDEXED ORDER BY rowid", table));
    std::vector<std::uint64_t> hashes(static_cast<std::size_t>(sqlite3_column_count(rows.get())),
                                      0xcbf29ce484222325U);
    std::int64_t count = 0;
    for (; sqlite3_step(rows.get()) == SQLITE_ROW; ++count) {
        for (std::size_t column = 1; column < hashes.size(); ++column)
            addValue(hashes[column], rows.get(), static_cast<int>(column));
    }
    for (std::size_t column = 1; column < hashes.size(); ++column) {
        const std::string field = sqlite3_column_name(rows.get(), static_cast<int>(column));
        values[runtime::upperCase(table + "." + field)] =
            fmt::format("{} rows, {:016x}", count, hashes[column]);
    }
}

} // namespace

std::string damageIn(const std::filesystem::path& file) {
    const Connection connection = openFile(file);
    const Statement check = prepare(connection.get(), "PRAGMA integrity_check");
    std::string all;
    while (sqlite3_step(check.get()) == SQLITE_ROW) {
        if (const std::string_view line = content(check.get(), 0); line != "ok")
            all.append(line).append("\n");
    }
    if (sqlite3_errcode(connection.get()) != SQLITE_DONE)
        all += sqlite3_errmsg(connection.get());
    return all;
}

FieldValues valuesIn(const std::filesystem::path& file) {
    const Connection connection = openFile(file);
    const Statement tables =
        prepare(connection.get(), "SELECT name FROM sqlite_schema WHERE type = 'table' AND "
                                  "name NOT LIKE 'MSys%' AND name NOT LIKE 'sqlite%'");
    FieldValues values;
    while (sqlite3_step(tables.get()) == SQLITE_ROW)
        addTable(values, connection.get(), std::string(content(tables.get(), 0)));
    return values;
}

} // namespace tol::test
