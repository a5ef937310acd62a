// SPDX-License-Identifier: MIT
#pragma once

#include "data/Engine.h"
#include "data/sqlite/Catalogue.h"
#include "data/sqlite/SchemaSteps.h"
#include "data/sqlite/Session.h"
#include "data/sqlite/TableLocks.h"

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
    std::vector<std::string> tableNames() override;
    std::shared_ptr<const TableDefinition> definition(std::string_view table) override;

    void createTable(const TableDefinition& table) override;
    void dropTable(std::string_view table) override;
    void renameTable(std::string_view table, const std::string& newName) override;
    void addField(std::string_view table, const FieldDef& field) override;
    void dropField(std::string_view table, std::string_view field) override;
    void renameField(std::string_view table, std::string_view field, const std::string& newName) override;
    void createIndex(std::string_view table, const IndexDef& index) override;
    void dropIndex(std::string_view table, std::string_view index) override;
    void setOrdinal(std::string_view table, std::string_view field, int ordinal,
                    const TableUse* own) override;
    void setAllowZeroLength(std::string_view table, std::string_view field, bool allow,
                            const TableUse* own) override;

    SchemaNotes takeNotes() override;
    void letTriggersFire(bool fire) override;

    std::unique_ptr<TableUse> useTable(std::string_view table) override;
    std::unique_ptr<Cursor> openCursor(std::string_view table) override;

    void begin() override;
    void commit() override;
    void rollback() override;
    void settle() override;
    void requireWritable() override;

    [[nodiscard]] Session& session() { return *m_session; }

  private:
    struct ByName {
        bool operator()(const std::string& left, const std::string& right) const;
    };
    using Tables = std::map<std::string, std::shared_ptr<TableState>, ByName>;

    void checkCollator();
    void sortTextIndexes();
    void enter();
    [[nodiscard]] std::string definitionsMark();
    void readTables();
    void readTable(const std::string& sqlName);
    void put(PhysicalTable table);

    [[nodiscard]] std::shared_ptr<TableState> find(std::string_view table) const;
    [[nodiscard]] std::shared_ptr<TableState> state(std::string_view table) const; ///< 3078 for none
    [[nodiscard]] std::string nameOf(std::string_view table);
    static std::size_t fieldPosition(const PhysicalTable& table, std::string_view field);

    void run(const std::vector<std::string>& tables, const std::function<void()>& step, int ownUses = 0);
    void changeEntry(std::string_view table, std::string_view field, const TableUse* own,
                     const std::function<bool(const FieldDef&)>& holds,
                     const std::function<void(const PhysicalTable&, std::size_t)>& step);
    void write(const std::vector<std::string>& tables, const std::function<void()>& step);

    std::shared_ptr<Session> m_session;
    TableLocks m_locks;
    Catalogue m_catalogue;
    SchemaSteps m_steps;
    Tables m_tables;
    std::uint64_t m_othersSeen = 0;
    std::string m_mark; ///< tells two states of the file's definitions apart
    bool m_outdatedCollation = false;
    int m_triggersOff = 0; ///< how many want them off
};

} // namespace tol::data::sqlite
