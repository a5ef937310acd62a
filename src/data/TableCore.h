// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/TableChange.h"

#include <memory>
#include <string>
#include <string_view>

namespace tol::data {

class DatabaseCore;

/// State behind TableDef: either a definition under construction, or a table of a database. All handles
/// on one table of a database share it, so that what one changes the others see at once.
class TableCore : public std::enable_shared_from_this<TableCore> {
  public:
    /// A definition under construction.
    explicit TableCore(std::string name, bool asFound = false);
    TableCore(std::shared_ptr<DatabaseCore> database, std::string name);
    TableCore(const TableCore&) = delete;
    TableCore& operator=(const TableCore&) = delete;

    [[nodiscard]] bool isAppended() const { return m_database != nullptr; }
    [[nodiscard]] const std::string& name() const { return m_name; }
    /// As it is now; the reference holds until the next call. 3420 when the table is gone.
    [[nodiscard]] const TableDefinition& definition() const;
    /// The field of that name, looked for at `position` first; 3265 when there is none.
    [[nodiscard]] const FieldDef& field(std::string_view name, std::size_t position) const;

    /// Makes the table in the database; from then on this stands for it.
    void appendTo(const std::shared_ptr<DatabaseCore>& database);
    /// Changes the draft, or the table in the database.
    void alter(const TableChange& change);

  private:
    std::shared_ptr<DatabaseCore> m_database; ///< null for a draft
    std::string m_name;
    bool m_asFound = false; ///< of a draft; see DatabaseCore::acceptAsFound()
    TableDefinition m_draft;
    mutable std::shared_ptr<const Catalogue> m_seen; ///< in which m_snapshot was looked up
    mutable std::shared_ptr<const TableDefinition> m_snapshot;
};

} // namespace tol::data
