// SPDX-License-Identifier: MIT
#include "definition_update/engine/TableReconciliation.h"

#include "definition_update/engine/ActivityLog.h"
#include "definition_update/engine/FieldConversion.h"
#include "definition_update/engine/Procedure.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

namespace tol::update {

using data::dbText;
using runtime::host;
using shell::vdFindFirst;
using shell::vdIsBlank;
using shell::vdNullCheckText;
using shell::vdRecordOK;

// It has no step of its own to the next row: the two procedures for a table do that.
void TableReconciliation::UpdateTableDefs() {
    runStep(m_db, "UpdateTableDefs", [this] {
        m_db.OLDDEF.Close();
        m_db.OLDDEF = m_run.definitions.OpenRecordset("OLDDEF");
        const FieldRows live(m_db.OLDDEF);
        m_live.emplace(m_db.OLDDEF, "OLDDEF", std::vector{live.TNAME, live.FNAME});
        const FieldRows wanted(m_db.NEWDEF);
        const shell::KeyPairs ofDatabase{{m_run.DBNAME, wanted.DBNAME()}};
        if (!goToFirstRow(ofDatabase))
            return;
        m_db.TNAME.clear();
        do {
            if (!vdRecordOK(m_db.NEWDEF, ofDatabase))
                break;
            std::string table = vdNullCheckText(wanted.TNAME);
            m_repeated = table == m_db.TNAME;
            m_db.TNAME = std::move(table);
            m_run.view.showLabel(RunLabel::NP2, m_db.TNAME);
            if (m_live->find({m_db.TNAME}))
                ModifyTable();
            else
                AddNewTable();
            host().doEvents();
        } while (m_run.ContinueRun);
    });
}

// DatabaseOk is set afresh by every table added, so that the last one alone decides whether the database
// counts as incomplete.
void TableReconciliation::AddNewTable() {
    runProcedure(m_db, "AddNewTable", [this] {
        const FieldRows wanted(m_db.NEWDEF);
        m_db.result.DatabaseOk = true;
        if (isLive(m_db.TNAME)) {
            refuseTable(wanted, ActivityKind::TableExists);
            return;
        }
        m_db.requireUpdatable();
        data::TableDef table = m_db.target.CreateTableDef(runtime::upperCase(m_db.TNAME));
        WriteActivityLog(m_run, {.kind = ActivityKind::TableAdded, .table = m_db.TNAME});
        m_db.result.ChangesMade = true;
        if (addWantedFields(table, wanted))
            m_db.target.TableDefs().Append(table);
        else
            refuseTable(wanted, ActivityKind::TableNotDefined);
    });
}

bool TableReconciliation::isLive(const std::string& table) const {
    bool found = false;
    eachTable(m_db.target, [&](const data::TableDef& /*live*/, const std::string& name) {
        found = found || runtime::sameText(name, runtime::trim(table));
    });
    return found;
}

// A field is logged before it is made, so that one that fails stands in the log.
bool TableReconciliation::addWantedFields(data::TableDef& table, const FieldRows& wanted) {
    const shell::KeyPairs ofTable = keysOfTable(wanted);
    if (!goToFirstRow(ofTable))
        return false;
    while (vdRecordOK(m_db.NEWDEF, ofTable)) {
        const WantedField field = wantedField(wanted);
        log(ActivityKind::FieldOfNewTable);
        appendField(table, field);
        m_db.result.ChangesMade = true;
        m_db.NEWDEF.MoveNext();
    }
    return true;
}

void TableReconciliation::log(ActivityKind kind) {
    WriteActivityLog(m_run, {.kind = kind, .table = m_db.TNAME, .field = m_db.FNAME});
}

/// Goes to the first row of NEWDEF with these keys; false when there is none.
bool TableReconciliation::goToFirstRow(const shell::KeyPairs& keys) {
    const std::string mark = vdFindFirst(m_db.NEWDEF, "NEWDEF", keys);
    if (vdIsBlank(mark))
        return false;
    m_db.NEWDEF.Bookmark(mark);
    return true;
}

void TableReconciliation::refuseTable(const FieldRows& wanted, ActivityKind reason) {
    m_db.result.DatabaseOk = false;
    const shell::KeyPairs ofTable = keysOfTable(wanted);
    while (vdRecordOK(m_db.NEWDEF, ofTable)) {
        host().doEvents();
        m_db.NEWDEF.MoveNext();
    }
    WriteActivityLog(m_run, {.kind = reason, .table = m_db.TNAME});
}

// The walk stands on the table's first row unless an error brought it back.
void TableReconciliation::ModifyTable() {
    runProcedure(m_db, "ModifyTable", [this] {
        const FieldRows wanted(m_db.NEWDEF);
        data::TableDef table = m_db.target.TableDefs(m_db.TNAME);
        const shell::KeyPairs ofTable = keysOfTable(wanted);
        if (m_repeated && !goToFirstRow(ofTable))
            return;
        do {
            if (!vdRecordOK(m_db.NEWDEF, ofTable))
                break;
            modifyField(table, wantedField(wanted));
            m_db.NEWDEF.MoveNext();
        } while (m_run.ContinueRun);
    });
}

shell::KeyPairs TableReconciliation::keysOfTable(const FieldRows& wanted) const {
    return {{m_run.DBNAME, wanted.DBNAME()}, {m_db.TNAME, wanted.TNAME}};
}

WantedField TableReconciliation::wantedField(const FieldRows& rows) {
    m_db.FNAME = trimmedText(rows.FNAME);
    return {.FNAME = m_db.FNAME,
            .FSIZE = runtime::toInteger(shell::vdNullCheck(rows.FSIZE)),
            .FTYPE = runtime::toInteger(shell::vdNullCheck(rows.FTYPE))};
}

void TableReconciliation::modifyField(data::TableDef& table, const WantedField& wanted) {
    if (!m_live->find({m_db.TNAME, wanted.FNAME})) {
        m_db.requireUpdatable();
        log(ActivityKind::FieldAdded);
        appendField(table, wanted);
        m_db.result.ChangesMade = true;
        return;
    }
    data::Field live = table.Fields()(wanted.FNAME);
    if (live.Type() != wanted.FTYPE)
        FieldConversion(m_db, table, wanted).ConvertFieldType(live.Type());
    else if (live.Size() != wanted.FSIZE)
        FieldConversion(m_db, table, wanted).ChangeFieldSize(live.Size());
    else if (wanted.FTYPE == dbText && !live.AllowZeroLength())
        live.AllowZeroLength(true);
}

void TableReconciliation::appendField(data::TableDef& table, const WantedField& wanted) {
    table.Fields().Append(table.CreateField(wanted.FNAME, wanted.FTYPE, wanted.FSIZE));
    if (wanted.FTYPE == dbText)
        table.Fields()(wanted.FNAME).AllowZeroLength(true);
}

void TableReconciliation::removeOldDefinitions() {
    const FieldRows live(m_db.OLDDEF);
    const FieldRows wanted(m_db.NEWDEF);
    RowSearch search(m_db.NEWDEF, "NEWDEF", {wanted.DBNAME(), wanted.TNAME, wanted.FNAME});
    if (m_db.OLDDEF.RecordCount() > 0) {
        m_db.OLDDEF.Index("OLDDEF");
        m_db.OLDDEF.MoveFirst();
    }
    while (vdRecordOK(m_db.OLDDEF)) {
        m_db.TNAME = trimmedText(live.TNAME);
        m_db.FNAME = trimmedText(live.FNAME);
        if (!search.find({m_run.DBNAME, m_db.TNAME})) {
            removeTable(live);
            continue;
        }
        if (!search.find({m_run.DBNAME, m_db.TNAME, m_db.FNAME}))
            removeField();
        m_db.OLDDEF.MoveNext();
    }
}

// Any index may hold the field, so all indexes of the table go first. OLDINDEXES still lists them: they
// come back in the pass that captures the table afresh.
void TableReconciliation::removeField() {
    data::TableDef table = m_db.target.TableDefs(m_db.TNAME);
    deleteAllIndexes(table);
    changeAndLog(m_db, [&] { table.Fields().Delete(m_db.FNAME); },
                 {.kind = ActivityKind::FieldRemoved, .table = m_db.TNAME, .field = m_db.FNAME});
    m_db.result.ChangesMade = true;
}

void TableReconciliation::removeTable(const FieldRows& live) {
    changeAndLog(m_db, [this] { m_db.target.TableDefs().Delete(m_db.TNAME); },
                 {.kind = ActivityKind::TableRemoved, .table = m_db.TNAME});
    m_db.result.ChangesMade = true;
    while (vdRecordOK(m_db.OLDDEF, {{m_db.TNAME, live.TNAME}})) {
        host().doEvents();
        if (!m_run.ContinueRun)
            break;
        m_db.OLDDEF.MoveNext();
    }
}

} // namespace tol::update
