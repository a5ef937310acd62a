// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Engine.h"
#include "data/sqlite/definitions/Compaction.h"

namespace tol::data::sqlite {

/// The engine of databases that are SQLite files.
class SqliteEngine : public Engine {
  public:
    [[nodiscard]] bool recognises(std::string_view firstBytes) const override;
    std::shared_ptr<Store> open(const std::filesystem::path& file, bool readOnly) override;
    std::shared_ptr<Store> create(const std::filesystem::path& file) override;
    void compact(const std::filesystem::path& file) override { compactFile(file); }
};

} // namespace tol::data::sqlite
