// SPDX-License-Identifier: MIT
#include "definition_update/engine/TableReconciliation.h"

#include "definition_update/engine/ActivityLog.h"
#include "definition_update/engine/Procedure.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "runtime/Text.h"

namespace tol::update {

using data::dbText;
using runtime::host;
using shell::vdFindFirst;
using shell::vdIsBlank;
using shell::vdNullCheckText;
using shell::vdRecordOK;

// It has no step of its own to the next row: the two procedures for a table do that.
void TableReconciliation::UpdateTableDefs() {
    runStep(m_s, "UpdateTableDefs", [this] {
        m_s.OLDDEF.Close();
        m_s.OLDDEF = m_s.definitions.OpenRecordset("OLDDEF");
        const FieldRows live(m_s.OLDDEF);
        m_live.emplace(m_s.OLDDEF, "OLDDEF", std::vector{live.TNAME, live.FNAME});
        const FieldRows wanted(m_s.NEWDEF);
        const shell::KeyPairs ofDatabase{{m_s.DBNAME, wanted.DBNAME()}};
        if (!goToFirstRow(ofDatabase))
            return;
        m_s.TNAME.clear();
        do {
            if (!vdRecordOK(m_s.NEWDEF, ofDatabase))
                break;
            std::string table = vdNullCheckText(wanted.TNAME);
            m_repeated = table == m_s.TNAME;
            m_s.TNAME = std::move(table);
            m_s.view.showLabel(RunLabel::NP2, m_s.TNAME);
            if (m_live->find({m_s.TNAME}))
                ModifyTable();
            else
                AddNewTable();
            host().doEvents();
        } while (m_s.ContinueRun);
    });
}

// DatabaseOk is set afresh by every table added, so that the last one alone decides whether the database
// counts as incomplete.
void TableReconciliation::AddNewTable() {
    runProcedure(m_s, "AddNewTable", [this] {
        const FieldRows wanted(m_s.NEWDEF);
        m_s.DatabaseOk = true;
        if (isLive(m_s.TNAME)) {
            refuseTable(wanted, "TABLE EXITS");
            return;
        }
        requireUpdatableTarget(m_s);
        data::TableDef table = m_s.target.CreateTableDef(runtime::upperCase(m_s.TNAME));
        WriteActivityLog(m_s, m_s.TNAME, " ", " ", "Added New Table.");
        m_s.ChangesMade = true;
        if (addWantedFields(table, wanted))
            m_s.target.TableDefs().Append(table);
        else
            refuseTable(wanted, "CANNOT FIND TABLE IN NEWDEF");
    });
}

bool TableReconciliation::isLive(const std::string& table) const {
    bool found = false;
    eachTable(m_s.target, [&](const data::TableDef& /*live*/, const std::string& name) {
        found = found || runtime::sameText(name, runtime::trim(table));
    });
    return found;
}

// A field is logged before it is made, so that one that fails stands in the log.
bool TableReconciliation::addWantedFields(data::TableDef& table, const FieldRows& wanted) {
    const shell::KeyPairs ofTable = keysOfTable(wanted);
    if (!goToFirstRow(ofTable))
        return false;
    while (vdRecordOK(m_s.NEWDEF, ofTable)) {
        readWantedField(wanted);
        WriteActivityLog(m_s, m_s.TNAME, " ", m_s.FNAME, "Added Field.");
        appendField(table);
        m_s.ChangesMade = true;
        m_s.NEWDEF.MoveNext();
    }
    return true;
}

/// Goes to the first row of NEWDEF with these keys; false when there is none.
bool TableReconciliation::goToFirstRow(const shell::KeyPairs& keys) {
    const std::string mark = vdFindFirst(m_s.NEWDEF, "NEWDEF", keys);
    if (vdIsBlank(mark))
        return false;
    m_s.NEWDEF.Bookmark(mark);
    return true;
}

void TableReconciliation::refuseTable(const FieldRows& wanted, const std::string& reason) {
    m_s.DatabaseOk = false;
    const shell::KeyPairs ofTable = keysOfTable(wanted);
    while (vdRecordOK(m_s.NEWDEF, ofTable)) {
        host().doEvents();
        m_s.NEWDEF.MoveNext();
    }
    WriteActivityLog(m_s, m_s.TNAME, " ", " ", "ERROR CREATING TABLE." + reason);
}

// The walk stands on the table's first row unless an error brought it back.
void TableReconciliation::ModifyTable() {
    runProcedure(m_s, "ModifyTable", [this] {
        const FieldRows wanted(m_s.NEWDEF);
        m_s.tableDef = m_s.target.TableDefs(m_s.TNAME);
        const shell::KeyPairs ofTable = keysOfTable(wanted);
        if (m_repeated && !goToFirstRow(ofTable))
            return;
        do {
            if (!vdRecordOK(m_s.NEWDEF, ofTable))
                break;
            readWantedField(wanted);
            modifyField();
            m_s.NEWDEF.MoveNext();
        } while (m_s.ContinueRun);
    });
}

shell::KeyPairs TableReconciliation::keysOfTable(const FieldRows& wanted) const {
    return {{m_s.DBNAME, wanted.DBNAME()}, {m_s.TNAME, wanted.TNAME}};
}

void TableReconciliation::readWantedField(const FieldRows& wanted) {
    m_s.FNAME = trimmedText(wanted.FNAME);
    m_s.FSIZE = runtime::toInteger(shell::vdNullCheck(wanted.FSIZE));
    m_s.FTYPE = runtime::toInteger(shell::vdNullCheck(wanted.FTYPE));
}

void TableReconciliation::modifyField() {
    if (!m_live->find({m_s.TNAME, m_s.FNAME})) {
        requireUpdatableTarget(m_s);
        WriteActivityLog(m_s, m_s.TNAME, " ", m_s.FNAME, "Added New Field");
        appendField(*m_s.tableDef);
        runtime::settle(); // should it fail, this field is where the procedure is called again
        m_s.ChangesMade = true;
        return;
    }
    data::Field field = m_s.tableDef->Fields()(m_s.FNAME);
    m_s.liveType = field.Type();
    m_s.liveSize = field.Size();
    if (m_s.liveType != m_s.FTYPE)
        m_conversion.ConvertFieldType();
    else if (m_s.liveSize != m_s.FSIZE)
        m_conversion.ChangeFieldSize();
    else if (m_s.FTYPE == dbText && !field.AllowZeroLength())
        field.AllowZeroLength(true);
}

void TableReconciliation::appendField(data::TableDef& table) {
    table.Fields().Append(table.CreateField(m_s.FNAME, m_s.FTYPE, m_s.FSIZE));
    if (m_s.FTYPE == dbText)
        table.Fields()(m_s.FNAME).AllowZeroLength(true);
}

void TableReconciliation::removeOldDefinitions() {
    const FieldRows live(m_s.OLDDEF);
    const FieldRows wanted(m_s.NEWDEF);
    RowSearch search(m_s.NEWDEF, "NEWDEF", {wanted.DBNAME(), wanted.TNAME, wanted.FNAME});
    if (m_s.OLDDEF.RecordCount() > 0) {
        m_s.OLDDEF.Index("OLDDEF");
        m_s.OLDDEF.MoveFirst();
    }
    while (vdRecordOK(m_s.OLDDEF)) {
        m_s.TNAME = trimmedText(live.TNAME);
        m_s.FNAME = trimmedText(live.FNAME);
        if (!search.find({m_s.DBNAME, m_s.TNAME})) {
            removeTable(live);
            continue;
        }
        if (!search.find({m_s.DBNAME, m_s.TNAME, m_s.FNAME}))
            removeField();
        m_s.OLDDEF.MoveNext();
    }
}

// Any index may hold the field, so all indexes of the table go first. OLDINDEXES still lists them: they
// come back in the pass that captures the table afresh.
void TableReconciliation::removeField() {
    m_s.tableDef = m_s.target.TableDefs(m_s.TNAME);
    deleteAllIndexes(*m_s.tableDef);
    changeAndLog(
        m_s, [this] { m_s.tableDef->Fields().Delete(m_s.FNAME); }, m_s.TNAME, m_s.FNAME,
        "Removed Old Field.");
    m_s.ChangesMade = true;
}

void TableReconciliation::removeTable(const FieldRows& live) {
    changeAndLog(
        m_s, [this] { m_s.target.TableDefs().Delete(m_s.TNAME); }, m_s.TNAME, " ",
        "Table: " + m_s.TNAME + " Removed.");
    m_s.ChangesMade = true;
    while (vdRecordOK(m_s.OLDDEF, {{m_s.TNAME, live.TNAME}})) {
        host().doEvents();
        if (!m_s.ContinueRun)
            break;
        m_s.OLDDEF.MoveNext();
    }
}

} // namespace tol::update
