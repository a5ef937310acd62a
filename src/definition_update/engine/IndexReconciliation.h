// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/DefinitionRows.h"
#include "definition_update/engine/RowSearch.h"
#include "definition_update/engine/TableReconciliation.h"
#include "definition_update/engine/TargetDatabase.h"

#include <string>

namespace tol::update {

/// Brings the indexes of the target up to NEWINDEXES and its field positions up to NEWDEF. An index is known
/// by table, name and joined key names; no other property is compared or made.
class IndexReconciliation {
  public:
    IndexReconciliation(TargetDatabase& database, TableReconciliation& tables)
        : m_db(database), m_run(database.run), m_tables(tables) {}

    /// Removes old tables and fields, makes and changes the wanted indexes, removes the old ones.
    void UpdateIndexDefs();
    /// Writes the position of every wanted field.
    void UpdateOPOS();

  private:
    void makeWantedIndexes();
    void makeIndex(const IndexRows& wanted, bool hasOtherKeys);
    void addKeyFields(data::Index& index, const IndexRows& wanted);
    void removeOldIndexes();
    void removeIndex();
    void log(ActivityKind kind, const std::string& field = " ");
    void setPositions();
    void setPositionsOfTable(data::TableDef& table, const FieldRows& wanted);

    TargetDatabase& m_db;
    Run& m_run;
    TableReconciliation& m_tables;
    std::string m_indexName; // of the index in work
};

} // namespace tol::update
