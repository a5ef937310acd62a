// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

struct sqlite3_stmt;

namespace tol::data::sqlite {

class Connection;

/// A prepared statement, owned. Parameters count from 1, columns from 0, as in SQLite. Failures raise
/// RuntimeError and leave the statement reset. It must not outlive its connection.
class Statement {
  public:
    Statement() = default;
    Statement(Connection& connection, std::string_view sql);
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&& other) noexcept;
    ~Statement();

    [[nodiscard]] bool isPrepared() const { return m_statement != nullptr; }

    void bindNull(int parameter);
    void bind(int parameter, std::int64_t value);
    void bind(int parameter, int value) { bind(parameter, static_cast<std::int64_t>(value)); }
    void bind(int parameter, bool value) { bind(parameter, static_cast<std::int64_t>(value)); }
    void bind(int parameter, double value);
    /// Text and bytes are copied, with NUL bytes inside kept.
    void bind(int parameter, std::string_view text);
    void bind(int parameter, const std::string& text) { bind(parameter, std::string_view(text)); }
    void bind(int parameter, const char* text) { bind(parameter, std::string_view(text)); }
    void bind(int parameter, std::span<const std::byte> bytes);
    template <typename... Values>
    void bindAll(const Values&... values) {
        int parameter = 0;
        (bind(++parameter, values), ...);
    }

    /// Whether there is a (next) row. After false the statement is reset.
    bool step();
    /// Steps to the end and resets.
    void run();
    void reset() noexcept;

    [[nodiscard]] int columnCount() const;
    [[nodiscard]] std::string columnName(int column) const;
    [[nodiscard]] int type(int column) const; ///< SQLITE_INTEGER, SQLITE_FLOAT, SQLITE_TEXT, ...
    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] double real(int column) const;
    /// Valid until the next step or reset; "" for Null.
    [[nodiscard]] std::string_view text(int column) const;
    [[nodiscard]] std::span<const std::byte> bytes(int column) const;

    /// For loops in which a call per cell counts.
    [[nodiscard]] sqlite3_stmt* handle() const { return m_statement; }

  private:
    void check(int resultCode);

    Connection* m_connection = nullptr;
    sqlite3_stmt* m_statement = nullptr;
};

/// A name as SQL wants it: in double quotes, with quotes inside doubled.
std::string quotedName(std::string_view name);
/// A text as an SQL literal. Texts with a NUL byte can't be literals and must be bound.
std::string quotedText(std::string_view text);

/// Equality of names as SQLite has it: without regard to case for the 26 Latin letters alone.
bool sameSqlName(std::string_view left, std::string_view right);
/// Whether the name is one of them, compared so.
bool containsName(std::span<const std::string> names, std::string_view name);
/// The items with commas between them.
std::string listed(std::span<const std::string> items);

} // namespace tol::data::sqlite
