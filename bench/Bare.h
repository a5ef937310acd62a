// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fmt/core.h>
#include <sqlite3.h>
#include <string>

namespace tol::bench {

/// A statement on a connection of its own, as a programmer would write it by hand.
class Bare {
  public:
    Bare(const std::filesystem::path& file, const char* sql, void (*prepare)(sqlite3*) = nullptr) {
        sqlite3_open(file.c_str(), &m_database);
        if (prepare != nullptr)
            prepare(m_database);
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
    void bind(const std::string& value) {
        sqlite3_bind_text(m_statement, 1, value.data(), static_cast<int>(value.size()), SQLITE_TRANSIENT);
    }
    [[nodiscard]] std::int64_t number(int column) { return sqlite3_column_int64(m_statement, column); }
    [[nodiscard]] double real(int column) { return sqlite3_column_double(m_statement, column); }
    [[nodiscard]] const char* text(int column) {
        return reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    }

  private:
    sqlite3* m_database = nullptr;
    sqlite3_stmt* m_statement = nullptr;
};

} // namespace tol::bench
