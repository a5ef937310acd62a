// SPDX-License-Identifier: MIT
#pragma once

#include "data/Constants.h"
#include "data/Recordset.h"
#include "data/TableDef.h"
#include "data/engine/SchemaNote.h"

#include <memory>
#include <string>
#include <string_view>

namespace tol::data {

class SharedStore;

/// An open database file. Closing it closes its recordsets; the file itself stays open in the process
/// as long as another handle uses it. A default-made one stands for none (91), a closed one raises 3420.
class Database {
  public:
    Database() = default;
    Database(Database&&) noexcept = default;
    Database& operator=(Database&& other) noexcept;
    ~Database();
    explicit Database(std::shared_ptr<DatabaseCore> core);

    [[nodiscard]] bool isOpen() const;
    /// The file, as a host path.
    [[nodiscard]] std::string Name() const;
    /// Type must be dbOpenTable (else 3001). 3078 for an unknown table, 3211 when another holds it. The
    /// options and the kind of lock change nothing: rows of others are always seen, and a transaction
    /// takes the write lock at its begin.
    Recordset OpenRecordset(const std::string& table, int type = dbOpenTable, int options = 0,
                            int lockEdit = 0);
    [[nodiscard]] data::TableDefs TableDefs() const;
    [[nodiscard]] data::TableDef TableDefs(std::string_view name) const { return TableDefs()(name); }
    [[nodiscard]] TableDef CreateTableDef(const std::string& name) const;
    /// Makes a table of that definition, with the errors of TableDefs::Append, FieldList::Append and
    /// IndexList::Append.
    void CreateTable(const TableDefinition& table) const;
    /// Raises what would keep any change from the file: 3027 where it or its folder may only be read, 3218
    /// where another holds it. Leaves it as it is.
    void RequireUpdatable() const;
    /// What changes of definitions since the last call could not keep of what other programs had declared.
    SchemaNotes takeNotes();
    /// From now on takes names and values as another database had them: names that nothing new may have,
    /// infinite numbers, identifiers of any form.
    void AcceptAsFound();
    void Close();

  private:
    friend class TriggersOff;
    friend class WriteBatch;
    [[nodiscard]] DatabaseCore& core() const;
    std::shared_ptr<DatabaseCore> m_core;
};

/// While it lives, rows are changed in the database's file without setting off the triggers that other
/// programs put there.
class TriggersOff {
  public:
    explicit TriggersOff(const Database& database);
    TriggersOff(const TriggersOff&) = delete;
    TriggersOff& operator=(const TriggersOff&) = delete;
    ~TriggersOff();

  private:
    std::shared_ptr<SharedStore> m_store;
};

/// Work on many databases whose changes may wait longer to be stored: for half a second, or for a whole one
/// where the disk is slow. While it lives, neither a close nor a commit stores anything by itself, for any
/// database; what can't be stored in the end is deferred, and its file named. The changes of one database,
/// the log, are stored before those of any other. flush() and every box store all, and so does the end.
class WriteBatch {
  public:
    explicit WriteBatch(const Database& log);
    WriteBatch(const WriteBatch&) = delete;
    WriteBatch& operator=(const WriteBatch&) = delete;
    ~WriteBatch();

    static bool isUnderWay();

  private:
    std::shared_ptr<SharedStore> m_log;
};

} // namespace tol::data
