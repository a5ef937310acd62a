// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"

#include <string>

namespace tol::data {
class Database;
class Recordset;
} // namespace tol::data

namespace tol::update {

/// Fills NEWDEF, NEWINDEXES, MODULES and USERACCESSITEMS of ZOVDEF.MDB from the reference databases
/// and the network database. Everything that it opens is closed when RefreshDefinitions returns. A definition
/// that holds a part only is marked as such (FillingMark).
class DefinitionRefresh {
  public:
    DefinitionRefresh(RefreshView& view, std::string netLocation);
    /// Traps its own errors (vdProcessError).
    [[nodiscard]] RefreshOutcome RefreshDefinitions();
    /// Clears the running flag; it takes effect behind the database in work.
    void Cancel();

  private:
    static bool empty(data::Database& definitions, data::Recordset& rows, const std::string& folder);
    void fillDefinitions(data::Database& definitions);
    void fillDatabases(data::Recordset& DATABASES, data::Recordset& NEWDEF, data::Recordset& NEWINDEXES);
    void fillDatabase(const data::Recordset& DATABASES, data::Recordset& NEWDEF, data::Recordset& NEWINDEXES);
    void FillNewTableDef(const data::Database& target, data::Recordset& NEWDEF, const std::string& DBNAME);
    void FillNewIndexDef(const data::Database& target, data::Recordset& NEWINDEXES,
                         const std::string& DBNAME);
    void refreshNetworkLists(data::Database& definitions);
    bool emptyCopy(data::Database& definitions, data::Recordset& copy, const std::string& listName);
    void blankProgress();

    RefreshView& m_view;
    std::string m_netLocation;
    bool m_running = false;
    bool m_failed = false; // one of the routines reported an error
    RefreshOutcome m_outcome = RefreshOutcome::NotBegun;
};

/// Shows how far a refresh came, unless it did not begin.
void showClosing(RefreshView& view, RefreshOutcome outcome);

} // namespace tol::update
