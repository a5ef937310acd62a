// SPDX-License-Identifier: MIT
#include "ForeignFile.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tol::test {

namespace {

int collect(void* target, int count, char** values, char** /*names*/) {
    std::string row;
    for (int column = 0; column < count; ++column) {
        row += column == 0 ? "" : "|";
        row += values[column] == nullptr ? "NULL" : values[column];
    }
    static_cast<std::vector<std::string>*>(target)->push_back(std::move(row));
    return 0;
}

std::vector<std::string> runOn(const std::filesystem::path& file, const std::string& sql) {
    std::vector<std::string> rows;
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK) << file;
    sqlite3_busy_timeout(database, 5000);
    sqlite3_exec(database, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr); // only for speed
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), collect, &rows, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database) << "\n"
        << sql;
    sqlite3_close(database);
    return rows;
}

} // namespace

void ForeignFile::run(const std::string& sql) const {
    runOn(m_file, sql);
}

std::vector<std::string> ForeignFile::rows(const std::string& sql) const {
    return runOn(m_file, sql);
}

std::string ForeignFile::value(const std::string& sql) const {
    const std::vector<std::string> all = runOn(m_file, sql);
    return all.empty() ? "" : all.front();
}

} // namespace tol::test
