// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tol::test {

/// A SQLite file as another program would make it: plain SQL on a connection that knows nothing of ours.
/// Closed after each call, so that nothing of it is in the way of what is tested.
class ForeignFile {
  public:
    explicit ForeignFile(std::filesystem::path file) : m_file(std::move(file)) {}

    [[nodiscard]] const std::filesystem::path& path() const { return m_file; }
    /// Runs one or more statements; a failure fails the test.
    void run(const std::string& sql) const;
    /// All rows of a query, the columns of each joined with "|", Null as "NULL".
    [[nodiscard]] std::vector<std::string> rows(const std::string& sql) const;
    /// The first of them, "" when there is none.
    [[nodiscard]] std::string value(const std::string& sql) const;

  private:
    std::filesystem::path m_file;
};

} // namespace tol::test
