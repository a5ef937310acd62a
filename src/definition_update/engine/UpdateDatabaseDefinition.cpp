// SPDX-License-Identifier: MIT
#include "definition_update/engine/UpdateDatabaseDefinition.h"

#include "definition_update/engine/ActivityLog.h"
#include "definition_update/engine/DefinitionRows.h"
#include "definition_update/engine/IndexReconciliation.h"
#include "definition_update/engine/Procedure.h"
#include "definition_update/engine/TableReconciliation.h"
#include "shell/vdfunctions/vdfunctions.h"

#include <utility>

namespace tol::update {

namespace {

/// Closes what one database needed when its procedure ends, whichever way. What a close can't store is owed,
/// and so a failure of that procedure.
class OpenForOneDatabase {
  public:
    explicit OpenForOneDatabase(UpdateState& state) : m_s(state) {}
    OpenForOneDatabase(const OpenForOneDatabase&) = delete;
    OpenForOneDatabase& operator=(const OpenForOneDatabase&) = delete;
    ~OpenForOneDatabase() {
        m_s.tableDef.reset();
        for (data::Recordset* rows : {&m_s.NEWDEF, &m_s.NEWINDEXES, &m_s.OLDDEF, &m_s.OLDINDEXES})
            *rows = {};
        m_s.target = {};
        m_s.wksTARGET = {};
    }

  private:
    UpdateState& m_s;
};

void emptyCapture(UpdateState& s, data::Recordset& rows, const std::string& name) {
    if (shell::vdEmptyTable(" ", "ZOVDEF.MDB", rows)) {
        rows = s.definitions.OpenRecordset(name);
    } else {
        WriteActivityLog(s, " ", " ", " ", "Cannot Empty " + name + " Table.");
        s.DatabaseOk = false;
        s.ProcessDatabase = false;
    }
}

// Indexes come behind the tables: a new table gets its indexes there, and positions are set when every
// field stands.
// Rows change only in their form: what other programs want done on a change is none of its business.
void reconcile(UpdateState& s) {
    const data::TriggersOff off(s.target);
    TableReconciliation tables(s);
    IndexReconciliation indexes(s, tables);
    tables.UpdateTableDefs();
    if (s.ContinueRun) {
        indexes.UpdateIndexDefs();
        if (s.ContinueRun)
            indexes.UpdateOPOS();
    }
}

void tellNotes(UpdateState& s) {
    for (data::SchemaNote& note : s.target.takeNotes())
        s.view.showNote({s.siteName, s.DBNAME, std::move(note)});
}

} // namespace

void UpdateDatabaseDefinition(UpdateState& s) {
    runProcedure(s, "UpdateDatabaseDefinition", [&s] {
        const OpenForOneDatabase closing(s);
        s.NEWDEF = s.definitions.OpenRecordset("NEWDEF");
        s.NEWINDEXES = s.definitions.OpenRecordset("NEWINDEXES");
        s.OLDDEF = s.definitions.OpenRecordset("OLDDEF");
        s.OLDINDEXES = s.definitions.OpenRecordset("OLDINDEXES");
        emptyCapture(s, s.OLDDEF, "OLDDEF");
        if (s.ProcessDatabase)
            emptyCapture(s, s.OLDINDEXES, "OLDINDEXES");
        if (!s.ProcessDatabase)
            return;
        s.wksTARGET = data::DBEngine::CreateWorkspace("wksTARGET");
        s.target = s.wksTARGET.OpenDatabase(s.targetFile);
        FillTableDef(s);
        FillIndexDef(s);
        reconcile(s);
        tellNotes(s);
    });
}

void FillTableDef(UpdateState& s) {
    runStep(s, "FillTableDef", [&s] {
        FieldRows rows(s.OLDDEF);
        eachTable(s.target, [&rows](const data::TableDef& table, const std::string& name) {
            const data::TableDef::FieldList fields = table.Fields();
            for (int position = 0; position < fields.Count(); ++position)
                rows.add(std::nullopt, name, fields(position).definition());
            // A table without fields still has to be known.
            if (fields.Count() == 0)
                rows.addFieldless(name);
        });
    });
}

void FillIndexDef(UpdateState& s) {
    runStep(s, "FillIndexDef", [&s] {
        IndexRows rows(s.OLDINDEXES);
        captureIndexes(s.target, rows, std::nullopt);
    });
}

} // namespace tol::update
