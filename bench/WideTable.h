// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace tol::bench {

/// A folder for the files of a benchmark, removed afterwards; it is the current folder while it lives.
class BenchFolder {
  public:
    BenchFolder();
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;
    ~BenchFolder();
    [[nodiscard]] std::filesystem::path operator/(const char* name) const { return m_path / name; }

  private:
    std::filesystem::path m_before, m_path;
};

/// Makes a database with the one table WIDE: twelve fields (TAG, CODE, NAME, QTY, PRICE, RATE, ...),
/// `rows` rows, TAG a shuffled 1 to rows, CODE its text with leading zeros. `indexes` adds the indexes TAG
/// and CODE.
void makeWideTable(const std::filesystem::path& file, int rows, bool indexes);

} // namespace tol::bench
