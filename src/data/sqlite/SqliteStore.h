// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Engine.h"
#include "data/sqlite/connection/Session.h"
#include "data/sqlite/definitions/CatalogueReader.h"
#include "data/sqlite/definitions/SchemaSteps.h"
#include "data/sqlite/rows/OpenTable.h"
#include "data/sqlite/rows/TableLocks.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace tol::data::sqlite {

/// An open SQLite file: its catalogue, kept in memory and read again when somebody changed it, the locks
/// on its tables, and the steps that change definitions.
class SqliteStore : public Store, public std::enable_shared_from_this<SqliteStore> {
  public:
    SqliteStore(const std::filesystem::path& file, Connection::Mode mode);
    ~SqliteStore() override;

    [[nodiscard]] const std::filesystem::path& path() const override;
    void refresh() override;
    std::shared_ptr<const Catalogue> catalogue() override;
    void alter(std::string_view table, const TableChange& change, const TableUse* own) override;
    SchemaNotes takeNotes() override;
    void letTriggersFire(bool fire) override;

    std::unique_ptr<TableUse> useTable(std::string_view table) override;
    std::unique_ptr<RowSource> openRows(std::string_view table) override;

    void begin() override;
    void commit() override;
    void rollback() override;
    void flush() override;
    void leadBatch(bool lead) override;
    void requireWritable() override;

    [[nodiscard]] Session& session() { return *m_session; }

  private:
    struct ByName {
        bool operator()(const std::string& left, const std::string& right) const;
    };
    using Tables = std::map<std::string, std::shared_ptr<OpenTable>, ByName>;

    void endUse(const std::string& table);
    void checkCollator();
    void sortTextIndexes();
    void enter();
    [[nodiscard]] std::string definitionsMark();
    void readTables();
    void takeSnapshot();
    void readTable(const std::string& sqlName);
    void put(StoredTable table);

    [[nodiscard]] std::shared_ptr<OpenTable> find(std::string_view table) const;
    [[nodiscard]] std::shared_ptr<OpenTable> state(std::string_view table) const; ///< 3078 for none
    [[nodiscard]] std::string nameOf(std::string_view table);
    [[nodiscard]] TableDefinition changed(const std::string& table, const TableChange& change) const;
    void hold(const std::vector<std::string>& tables, int ownUses);
    void make(const std::string& table, const TableChange& change, const std::vector<std::string>& touched);

    std::shared_ptr<Session> m_session;
    TableLocks m_locks;
    CatalogueReader m_reader;
    SchemaSteps m_steps;
    Tables m_tables;
    std::uint64_t m_othersSeen = 0;
    std::shared_ptr<const Catalogue> m_catalogue; ///< of m_tables; null when they have to be read again
    std::string m_mark;                           ///< tells two states of the file's definitions apart
    bool m_outdatedCollation = false;
    int m_triggersOff = 0; ///< how many want them off
};

} // namespace tol::data::sqlite
