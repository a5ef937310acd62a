// SPDX-License-Identifier: MIT
#include "definition_update/engine/UpdateDatabaseDefinition.h"

#include "data/DBEngine.h"
#include "definition_update/engine/ActivityLog.h"
#include "definition_update/engine/DefinitionRows.h"
#include "definition_update/engine/IndexReconciliation.h"
#include "definition_update/engine/Procedure.h"
#include "definition_update/engine/TableReconciliation.h"
#include "shell/vdfunctions/vdEmptyTable.h"

#include <utility>

namespace tol::update {

namespace {

bool emptyCapture(TargetDatabase& database, data::Recordset& rows, ActivityKind failure) {
    const std::string name = rows.Name();
    if (shell::vdEmptyTable(" ", "ZOVDEF.MDB", rows)) {
        rows = database.run.definitions.OpenRecordset(name);
        return true;
    }
    WriteActivityLog(database.run, {failure});
    database.result.DatabaseOk = false;
    return false;
}

void FillTableDef(TargetDatabase& database) {
    runStep(database, "FillTableDef", [&database] {
        FieldRows rows(database.OLDDEF);
        eachTable(database.target, [&rows](const data::TableDef& table, const std::string& name) {
            const data::TableDef::FieldList fields = table.Fields();
            for (int position = 0; position < fields.Count(); ++position)
                rows.add(std::nullopt, name, fields(position).definition());
            // A table without fields still has to be known.
            if (fields.Count() == 0)
                rows.addFieldless(name);
        });
    });
}

void FillIndexDef(TargetDatabase& database) {
    runStep(database, "FillIndexDef", [&database] {
        IndexRows rows(database.OLDINDEXES);
        captureIndexes(database.target, rows, std::nullopt);
    });
}

// Indexes come behind the tables: a new table gets its indexes there, and positions are set when every
// field stands.
// Rows change only in their form: what other programs want done on a change is none of its business.
void reconcile(TargetDatabase& database) {
    const data::TriggersOff off(database.target);
    TableReconciliation tables(database);
    IndexReconciliation indexes(database, tables);
    tables.UpdateTableDefs();
    if (database.run.ContinueRun) {
        indexes.UpdateIndexDefs();
        if (database.run.ContinueRun)
            indexes.UpdateOPOS();
    }
}

void tellNotes(TargetDatabase& database) {
    const Run& run = database.run;
    for (data::SchemaNote& note : database.target.takeNotes())
        run.view.showNote({run.siteName, run.DBNAME, std::move(note)});
}

} // namespace

DatabaseResult UpdateDatabaseDefinition(Run& run, const std::string& file) {
    DatabaseResult result;
    runProcedure(run, "UpdateDatabaseDefinition", [&] {
        TargetDatabase database(run, result);
        if (!emptyCapture(database, database.OLDDEF, ActivityKind::OLDDEFInUse) ||
            !emptyCapture(database, database.OLDINDEXES, ActivityKind::OLDINDEXESInUse))
            return;
        database.wksTARGET = data::DBEngine::CreateWorkspace("wksTARGET");
        database.target = database.wksTARGET.OpenDatabase(file);
        FillTableDef(database);
        FillIndexDef(database);
        reconcile(database);
        tellNotes(database);
    });
    return result;
}

} // namespace tol::update
