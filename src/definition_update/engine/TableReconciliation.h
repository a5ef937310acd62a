// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/DefinitionRows.h"
#include "definition_update/engine/FieldConversion.h"
#include "definition_update/engine/RowSearch.h"
#include "definition_update/engine/UpdateState.h"
#include "shell/vdfunctions/vdfunctions.h"

#include <optional>
#include <string>

namespace tol::update {

/// Brings the tables and fields of the target up to NEWDEF, and removes what only OLDDEF has. Types and
/// sizes are compared with the live field, not with OLDDEF.
class TableReconciliation {
  public:
    explicit TableReconciliation(UpdateState& state) : m_s(state), m_conversion(state) {}

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
    void refuseTable(const FieldRows& wanted, const std::string& reason);
    void appendField(data::TableDef& table);
    void readWantedField(const FieldRows& wanted);
    void modifyField();
    void removeField();
    void removeTable(const FieldRows& live);

    UpdateState& m_s;
    bool m_repeated = false;         // the walk meets the table in work once more
    std::optional<RowSearch> m_live; // in OLDDEF, while UpdateTableDefs goes on
    FieldConversion m_conversion;
};

} // namespace tol::update
