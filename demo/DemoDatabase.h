// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "demo/Values.h"

#include <filesystem>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace tol::demo {

/// A new database of the demo while it is made: its tables and rows are one transaction, which
/// finish() commits. Destroyed before that, it leaves an empty database.
class DemoDatabase {
  public:
    DemoDatabase(const std::filesystem::path& file, const Suite::Tables& tables);

    /// Fills every table with the rows that the recipe describes.
    void fill(const Values& values);
    /// Adds one row; fields that are not named stay Null.
    using Row = std::initializer_list<std::pair<std::string_view, runtime::Value>>;
    void add(std::string_view table, Row row);
    void finish();

  private:
    data::Recordset& recordset(std::string_view table);

    const Suite::Tables& m_tables;
    data::Workspace m_workspace;
    data::Database m_database;
    std::map<std::string, data::Recordset, std::less<>> m_recordsets;
};

} // namespace tol::demo
