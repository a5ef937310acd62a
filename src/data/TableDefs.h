// SPDX-License-Identifier: MIT
#pragma once

#include "data/TableDef.h"

#include <memory>
#include <string_view>

namespace tol::data {

class DatabaseCore; // state behind Database, private to the floor

/// The tables of a database, by name (case does not matter) or by position in name order.
class TableDefs {
  public:
    explicit TableDefs(std::shared_ptr<DatabaseCore> core) : m_core(std::move(core)) {}
    [[nodiscard]] int Count() const;
    TableDef operator()(std::string_view name) const; ///< 3265 when there is none
    TableDef operator()(int position) const;
    /// Makes the table with its fields and indexes; 3010 for a name in use, 3125 for a name that can't
    /// be one. The TableDef stands for the new table afterwards.
    void Append(TableDef& table);
    /// Drops the table with its rows and indexes; 3265, 3211.
    void Delete(std::string_view name);

  private:
    std::shared_ptr<DatabaseCore> m_core;
};

} // namespace tol::data
