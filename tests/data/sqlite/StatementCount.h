// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>

#include <string_view>

namespace tol::test {

/// Counts the statements of a kind that are run on a connection while it lives.
class StatementCount {
  public:
    StatementCount(sqlite3* connection, std::string_view begin) : m_connection(connection), m_begin(begin) {
        const auto count = [](unsigned, void* self, void*, void* text) {
            auto& counter = *static_cast<StatementCount*>(self);
            if (std::string_view(static_cast<const char*>(text)).starts_with(counter.m_begin))
                ++counter.m_count;
            return 0;
        };
        sqlite3_trace_v2(m_connection, SQLITE_TRACE_STMT, count, this);
    }
    StatementCount(const StatementCount&) = delete;
    StatementCount& operator=(const StatementCount&) = delete;
    ~StatementCount() { sqlite3_trace_v2(m_connection, 0, nullptr, nullptr); }

    [[nodiscard]] int count() const { return m_count; }

  private:
    sqlite3* m_connection;
    std::string_view m_begin;
    int m_count = 0;
};

} // namespace tol::test
