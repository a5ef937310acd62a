// SPDX-License-Identifier: MIT
#pragma once

#include "data/Engine.h"

namespace tol::data::sqlite {

/// The engine of databases that are SQLite files.
class SqliteEngine : public Engine {
  public:
    [[nodiscard]] bool recognises(std::string_view firstBytes) const override;
    std::shared_ptr<Store> open(const std::filesystem::path& file, bool readOnly) override;
    std::shared_ptr<Store> create(const std::filesystem::path& file) override;
};

/// Adds the engine to those of the program.
void addSqliteEngine();

} // namespace tol::data::sqlite
