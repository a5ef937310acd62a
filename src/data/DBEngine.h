// SPDX-License-Identifier: MIT
#pragma once

#include "data/Engine.h"
#include "data/Recordset.h"
#include "data/TableDef.h"

#include <memory>
#include <string>

namespace tol::data {

inline constexpr int dbUseJet = 2;
inline constexpr int dbOpenTable = 1;
inline constexpr int dbSeeChanges = 512;
inline constexpr int dbPessimistic = 2;
inline constexpr int dbForceOSFlush = 1;

class WorkspaceCore; // state behind Workspace, private to the floor

/// An open database file. Closing it closes its recordsets; the file itself stays open in the process
/// as long as another handle uses it. A default-made one stands for none (91).
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
    /// Type must be dbOpenTable (else 3001). 3078 for an unknown table, 3211 when another holds it.
    Recordset OpenRecordset(const std::string& table, int type = dbOpenTable, int options = 0,
                            int lockEdit = 0);
    [[nodiscard]] data::TableDefs TableDefs() const;
    [[nodiscard]] data::TableDef TableDefs(std::string_view name) const { return TableDefs()(name); }
    [[nodiscard]] TableDef CreateTableDef(const std::string& name) const;
    /// Removes the bytes of deleted fields and rows.
    void Compact();
    void Close();

  private:
    std::shared_ptr<DatabaseCore> m_core;
};

/// A session in which databases are opened. A transaction that is still open at its end is rolled back.
class Workspace {
  public:
    Workspace() = default;
    Workspace(Workspace&&) noexcept = default;
    Workspace& operator=(Workspace&& other) noexcept;
    ~Workspace();
    explicit Workspace(std::shared_ptr<WorkspaceCore> core);

    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] std::string Name() const;
    /// Opens a file for shared reading and writing. `name` is a path of any kind that the suite's data
    /// has, or a bare file name in the current folder. 3024 not found (the text names the file), 3044 no
    /// valid path, 3051 no permission, 3049 damaged, 3343 not a database or of a later format.
    Database OpenDatabase(const std::string& name, bool exclusive = false, bool readOnly = false);
    /// Makes a new, empty database; 3204 when the file exists.
    Database CreateDatabase(const std::string& name);
    /// One transaction over the databases of this workspace; it takes their write locks at once.
    void BeginTrans();
    void CommitTrans(int options = 0);
    void Close();

  private:
    std::shared_ptr<WorkspaceCore> m_core;
};

/// Entry to everything. Programs add the storage engines that they carry when they start; the first
/// one that recognises a file opens it, and the first one of all makes new files.
class DBEngine {
  public:
    static Workspace CreateWorkspace(const std::string& name, const std::string& user = "admin",
                                     const std::string& password = "", int type = dbUseJet);
    static void addEngine(std::unique_ptr<Engine> engine);
    /// Commits whatever writes wait in any open file. Also registered as a settler of the host.
    static void settle();
};

} // namespace tol::data
