// SPDX-License-Identifier: MIT
#include "definition_update/engine/IndexReconciliation.h"

#include "definition_update/engine/ActivityLog.h"
#include "definition_update/engine/ErrorReport.h"
#include "definition_update/engine/Procedure.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdBoxes.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdRecords.h"
#include "shell/vdfunctions/vdTexts.h"

#include <optional>

namespace tol::update {

using runtime::host;
using shell::vdFindFirst;
using shell::vdIsBlank;
using shell::vdNullCheckText;
using shell::vdRecordOK;

namespace {

/// Deletes the index of exactly that name, letter case included; false when the table has none.
bool deleteIndex(data::TableDef& table, const std::string& name) {
    const data::TableDef::IndexList indexes = table.Indexes();
    for (int position = 0; position < indexes.Count(); ++position) {
        if (indexes(position).Name() == name) {
            table.Indexes().Delete(name);
            return true;
        }
    }
    return false;
}

/// The table of exactly that name, letter case included.
std::optional<data::TableDef> findTable(const data::Database& database, const std::string& name) {
    const data::TableDefs tables = database.TableDefs();
    for (int position = 0; position < tables.Count(); ++position) {
        data::TableDef table = tables(position);
        if (table.Name() == name)
            return table;
    }
    return std::nullopt;
}

} // namespace

// OLDINDEXES stays what the capture found. An index that this pass deleted with a converted or removed
// field is thus neither made again here nor logged as removed; the next capture sees what is missing.
void IndexReconciliation::UpdateIndexDefs() {
    runProcedure(m_db, "UpdateIndexDefs", [this] {
        m_tables.removeOldDefinitions();
        makeWantedIndexes();
        removeOldIndexes();
    });
}

void IndexReconciliation::makeWantedIndexes() {
    const IndexRows wanted(m_db.NEWINDEXES);
    const IndexRows live(m_db.OLDINDEXES);
    RowSearch search(m_db.OLDINDEXES, "OLDINDEXES", {live.TNAME, live.IName, live.KEYSTRING});
    const shell::KeyPairs ofDatabase{{m_run.DBNAME, wanted.DBNAME()}};
    const std::string mark = vdFindFirst(m_db.NEWINDEXES, "NEWINDEXES", ofDatabase);
    if (vdIsBlank(mark))
        return;
    m_db.NEWINDEXES.Index("NEWINDEXES");
    m_db.NEWINDEXES.Bookmark(mark);
    while (vdRecordOK(m_db.NEWINDEXES, ofDatabase)) {
        m_db.TNAME = trimmedText(wanted.TNAME);
        m_indexName = trimmedText(wanted.IName);
        if (!search.find({m_db.TNAME, m_indexName, vdNullCheckText(wanted.KEYSTRING)}))
            makeIndex(wanted, search.find({m_db.TNAME, m_indexName}));
        m_db.NEWINDEXES.MoveNext();
    }
}

void IndexReconciliation::makeIndex(const IndexRows& wanted, bool hasOtherKeys) {
    data::TableDef table = m_db.target.TableDefs(m_db.TNAME);
    m_db.requireUpdatable();
    if (hasOtherKeys)
        deleteIndex(table, m_indexName);
    log(hasOtherKeys ? ActivityKind::IndexKeysChanged : ActivityKind::IndexCreated);
    data::Index index = table.CreateIndex(m_indexName);
    addKeyFields(index, wanted);
    table.Indexes().Append(index);
}

// Key columns may have gaps; what stands behind a gap still counts.
void IndexReconciliation::addKeyFields(data::Index& index, const IndexRows& wanted) {
    for (const data::Field& column : wanted.IKEY) {
        const std::string key = trimmedText(column);
        if (vdIsBlank(key))
            continue;
        log(ActivityKind::IndexKeyAdded, key);
        index.Fields().Append(index.CreateField(key));
        m_db.result.ChangesMade = true;
    }
}

void IndexReconciliation::removeOldIndexes() {
    if (m_db.OLDINDEXES.RecordCount() == 0)
        return;
    const IndexRows wanted(m_db.NEWINDEXES);
    const IndexRows live(m_db.OLDINDEXES);
    RowSearch search(m_db.NEWINDEXES, "NEWINDEXES", {wanted.DBNAME(), wanted.TNAME, wanted.IName});
    m_db.OLDINDEXES.Index("OLDINDEXES");
    m_db.OLDINDEXES.MoveFirst();
    while (vdRecordOK(m_db.OLDINDEXES)) {
        m_db.TNAME = trimmedText(live.TNAME);
        m_indexName = trimmedText(live.IName);
        if (!search.find({m_run.DBNAME, m_db.TNAME, m_indexName}))
            removeIndex();
        m_db.OLDINDEXES.MoveNext();
    }
}

// A table that was removed took its indexes along, and a conversion may have deleted this one.
void IndexReconciliation::removeIndex() {
    std::optional<data::TableDef> table = findTable(m_db.target, m_db.TNAME);
    if (!table || !deleteIndex(*table, m_indexName))
        return;
    log(ActivityKind::IndexRemoved);
    m_db.result.ChangesMade = true;
}

void IndexReconciliation::log(ActivityKind kind, const std::string& field) {
    WriteActivityLog(m_run, {.kind = kind, .table = m_db.TNAME, .index = m_indexName, .field = field});
}

void IndexReconciliation::UpdateOPOS() {
    m_db.TNAME = " ";
    const auto report = [this](const runtime::RuntimeError& error) {
        shell::vdProcessError(updateForm, std::to_string(error.number()),
                              error.description() + " UpdateOPOS Table: " + m_db.TNAME);
        noteError(m_db, "UpdateOPOS", error.number());
    };
    trapErrors(report, [this] { setPositions(); });
}

void IndexReconciliation::setPositions() {
    const FieldRows wanted(m_db.NEWDEF);
    const shell::KeyPairs ofDatabase{{m_run.DBNAME, wanted.DBNAME()}};
    const std::string mark = vdFindFirst(m_db.NEWDEF, "NEWDEF", ofDatabase);
    if (vdIsBlank(mark))
        return;
    m_db.NEWDEF.Index("NEWDEF");
    m_db.NEWDEF.Bookmark(mark);
    do {
        if (!vdRecordOK(m_db.NEWDEF, ofDatabase))
            break;
        m_db.TNAME = trimmedText(wanted.TNAME);
        m_run.view.showLabel(RunLabel::NP2, m_db.TNAME);
        data::TableDef table = m_db.target.TableDefs(m_db.TNAME);
        setPositionsOfTable(table, wanted);
    } while (m_run.ContinueRun);
}

void IndexReconciliation::setPositionsOfTable(data::TableDef& table, const FieldRows& wanted) {
    const data::TableDef::FieldList fields = table.Fields();
    const shell::KeyPairs ofTable{{m_run.DBNAME, wanted.DBNAME()},
                                  {shell::vdNullCheck(wanted.TNAME), wanted.TNAME}};
    while (vdRecordOK(m_db.NEWDEF, ofTable)) {
        data::Field field = fields(trimmedText(wanted.FNAME));
        field.OrdinalPosition(runtime::toInteger(shell::vdNullCheck(wanted.OPOS)));
        host().doEvents();
        if (!m_run.ContinueRun)
            break;
        m_db.NEWDEF.MoveNext();
    }
}

} // namespace tol::update
