// SPDX-License-Identifier: MIT
#pragma once

#include "data/Engine.h"
#include "data/sqlite/Compaction.h"

namespace tol::data::sqlite {

/// The engine of databases that are SQLite files.
class SqliteEngine : public Engine {
  public:
    [[nodiscard]] bool recognises(std::string_view firstBytes) const override;
    std::shared_ptr<Store> open(const std::filesystem::path& file, bool readOnly) override;
    std::shared_ptr<Store> create(const std::filesystem::path& file) override;
    void compact(const std::filesystem::path& file) override { compactFile(file); }
};

/// Adds the engine to those of the program.
void addSqliteEngine();

} // namespace tol::data::sqlite
