// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/DefinitionRows.h"
#include "definition_update/engine/RowSearch.h"
#include "definition_update/engine/TargetDatabase.h"
#include "shell/vdfunctions/vdRecords.h"

#include <optional>
#include <string>

namespace tol::update {

/// Brings the tables and fields of the target up to NEWDEF, and removes what only OLDDEF has. Types and
/// sizes are compared with the live field, not with OLDDEF.
class TableReconciliation {
  public:
    explicit TableReconciliation(TargetDatabase& database) : m_db(database), m_run(database.run) {}

    void UpdateTableDefs();
    /// Both expect NEWDEF on a row of the table in work and leave it behind the table's last row, which
    /// is what moves the walk of UpdateTableDefs on. After an error NEWDEF stays within the table, so that
    /// the walk meets the same table again until the cause goes or someone stops the run.
    void AddNewTable();
    void ModifyTable();

    /// Removes the tables and fields of OLDDEF that NEWDEF does not want, with their data. Run-time
    /// errors pass to the caller.
    void removeOldDefinitions();

  private:
    [[nodiscard]] bool isLive(const std::string& table) const;
    [[nodiscard]] shell::KeyPairs keysOfTable(const FieldRows& wanted) const;
    bool goToFirstRow(const shell::KeyPairs& keys);
    /// Appends the fields that NEWDEF has for the table in work; false when it has none.
    bool addWantedFields(data::TableDef& table, const FieldRows& wanted);
    void refuseTable(const FieldRows& wanted, ActivityKind reason);
    void log(ActivityKind kind);
    static void appendField(data::TableDef& table, const WantedField& wanted);
    /// The field of the row, which is the one in work from now on.
    WantedField wantedField(const FieldRows& rows);
    void modifyField(data::TableDef& table, const WantedField& wanted);
    void removeField();
    void removeTable(const FieldRows& live);

    TargetDatabase& m_db;
    Run& m_run;
    bool m_repeated = false;         // the walk meets the table in work once more
    std::optional<RowSearch> m_live; // in OLDDEF, while UpdateTableDefs goes on
};

} // namespace tol::update
