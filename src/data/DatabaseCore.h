// SPDX-License-Identifier: MIT
#pragma once

#include "data/StoreRegistry.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tol::data {

class RecordsetCore;
class TableCore;
class WorkspaceCore;

/// State behind Database: a share in the file's store, and what was opened through this handle. It is
/// closed by its handle or with its workspace; everything that still refers to it then raises 3420.
class DatabaseCore : public std::enable_shared_from_this<DatabaseCore> {
  public:
    DatabaseCore(std::shared_ptr<SharedStore> store, const WorkspaceCore& workspace, bool readOnly);
    DatabaseCore(const DatabaseCore&) = delete;
    DatabaseCore& operator=(const DatabaseCore&) = delete;
    ~DatabaseCore();

    [[nodiscard]] bool isOpen() const { return m_store != nullptr; }
    [[nodiscard]] bool isReadOnly() const { return m_readOnly; }
    void requireOpen() const { static_cast<void>(sharedStore()); }
    /// The share in the file; 3420 once closed.
    [[nodiscard]] const std::shared_ptr<SharedStore>& sharedStore() const;
    [[nodiscard]] SharedStore& shared() const { return *sharedStore(); }
    [[nodiscard]] Store& store() const { return shared().store(); }

    /// 3420 once closed, 3027 when opened for reading, 3218 in another workspace's transaction.
    void requireWritable() const;
    /// What is written through this handle comes from another database, and is taken as it was there: names
    /// that nothing new may have, and values of the fields' own types that no assignment would give.
    void acceptAsFound() { m_asFound = true; }
    [[nodiscard]] bool acceptsAsFound() const { return m_asFound; }

    /// Changes a table's definition, once it is sure that nothing in the definition itself stands in the way;
    /// 3010 for the name of another table. `own` as in Store::alter().
    void alter(const std::string& table, const TableChange& change, const TableUse* own = nullptr);

    std::shared_ptr<RecordsetCore> openRecordset(const std::string& table);
    /// The table's one core in this database, null when there is no such table.
    std::shared_ptr<TableCore> table(std::string_view name);
    void addTable(const std::shared_ptr<TableCore>& table) { m_tables.push_back(table); }
    /// Closes what was opened through it. The first error is raised at the end.
    /// Does nothing when closed.
    void close();

  private:
    std::shared_ptr<SharedStore> m_store;
    const WorkspaceCore* m_workspace;
    bool m_readOnly;
    bool m_asFound = false;
    std::vector<std::weak_ptr<RecordsetCore>> m_recordsets;
    std::vector<std::weak_ptr<TableCore>> m_tables;
};

} // namespace tol::data
