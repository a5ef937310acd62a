// SPDX-License-Identifier: MIT
#include "definition_update/engine/IndexReconciliation.h"

#include "definition_update/engine/ActivityLog.h"
#include "definition_update/engine/ErrorReport.h"
#include "definition_update/engine/Procedure.h"
#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "runtime/Text.h"

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
    runProcedure(m_s, "UpdateIndexDefs", [this] {
        m_tables.removeOldDefinitions();
        makeWantedIndexes();
        removeOldIndexes();
    });
}

void IndexReconciliation::makeWantedIndexes() {
    const IndexRows wanted(m_s.NEWINDEXES);
    const IndexRows live(m_s.OLDINDEXES);
    RowSearch search(m_s.OLDINDEXES, "OLDINDEXES", {live.TNAME, live.IName, live.KEYSTRING});
    const shell::KeyPairs ofDatabase{{m_s.DBNAME, wanted.DBNAME()}};
    const std::string mark = vdFindFirst(m_s.NEWINDEXES, "NEWINDEXES", ofDatabase);
    if (vdIsBlank(mark))
        return;
    m_s.NEWINDEXES.Index("NEWINDEXES");
    m_s.NEWINDEXES.Bookmark(mark);
    while (vdRecordOK(m_s.NEWINDEXES, ofDatabase)) {
        m_s.TNAME = trimmedText(wanted.TNAME);
        m_indexName = trimmedText(wanted.IName);
        if (!search.find({m_s.TNAME, m_indexName, vdNullCheckText(wanted.KEYSTRING)}))
            makeIndex(wanted, search.find({m_s.TNAME, m_indexName}));
        m_s.NEWINDEXES.MoveNext();
    }
}

void IndexReconciliation::makeIndex(const IndexRows& wanted, bool hasOtherKeys) {
    m_s.tableDef = m_s.target.TableDefs(m_s.TNAME);
    data::TableDef& table = *m_s.tableDef;
    requireUpdatableTarget(m_s);
    if (hasOtherKeys)
        deleteIndex(table, m_indexName);
    const std::string action = hasOtherKeys ? "Changed Index Keys." : "Created New Index.";
    WriteActivityLog(m_s, m_s.TNAME, m_indexName, " ", action);
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
        WriteActivityLog(m_s, m_s.TNAME, m_indexName, key, "Added Field to Index Key.");
        index.Fields().Append(index.CreateField(key));
        m_s.ChangesMade = true;
    }
}

void IndexReconciliation::removeOldIndexes() {
    if (m_s.OLDINDEXES.RecordCount() == 0)
        return;
    const IndexRows wanted(m_s.NEWINDEXES);
    const IndexRows live(m_s.OLDINDEXES);
    RowSearch search(m_s.NEWINDEXES, "NEWINDEXES", {wanted.DBNAME(), wanted.TNAME, wanted.IName});
    m_s.OLDINDEXES.Index("OLDINDEXES");
    m_s.OLDINDEXES.MoveFirst();
    while (vdRecordOK(m_s.OLDINDEXES)) {
        m_s.TNAME = trimmedText(live.TNAME);
        m_indexName = trimmedText(live.IName);
        if (!search.find({m_s.DBNAME, m_s.TNAME, m_indexName}))
            removeIndex();
        m_s.OLDINDEXES.MoveNext();
    }
}

// A table that was removed took its indexes along, and a conversion may have deleted this one.
void IndexReconciliation::removeIndex() {
    std::optional<data::TableDef> table = findTable(m_s.target, m_s.TNAME);
    if (!table || !deleteIndex(*table, m_indexName))
        return;
    WriteActivityLog(m_s, m_s.TNAME, m_indexName, " ", "Index Removed.");
    m_s.ChangesMade = true;
}

void IndexReconciliation::UpdateOPOS() {
    m_s.TNAME = " ";
    const auto report = [this](const runtime::RuntimeError& error) {
        shell::vdProcessError(updateForm, std::to_string(error.number()),
                              error.description() + " UpdateOPOS Table: " + m_s.TNAME);
        noteError(m_s, "UpdateOPOS", error.number());
    };
    trapErrors(report, [this] { setPositions(); });
}

void IndexReconciliation::setPositions() {
    const FieldRows wanted(m_s.NEWDEF);
    const shell::KeyPairs ofDatabase{{m_s.DBNAME, wanted.DBNAME()}};
    const std::string mark = vdFindFirst(m_s.NEWDEF, "NEWDEF", ofDatabase);
    if (vdIsBlank(mark))
        return;
    m_s.NEWDEF.Index("NEWDEF");
    m_s.NEWDEF.Bookmark(mark);
    do {
        if (!vdRecordOK(m_s.NEWDEF, ofDatabase))
            break;
        m_s.TNAME = trimmedText(wanted.TNAME);
        m_s.view.showLabel(RunLabel::NP2, m_s.TNAME);
        m_s.tableDef = m_s.target.TableDefs(m_s.TNAME);
        setPositionsOfTable(wanted);
    } while (m_s.ContinueRun);
}

void IndexReconciliation::setPositionsOfTable(const FieldRows& wanted) {
    const data::TableDef::FieldList fields = m_s.tableDef->Fields();
    const shell::KeyPairs ofTable{{m_s.DBNAME, wanted.DBNAME()},
                                  {shell::vdNullCheck(wanted.TNAME), wanted.TNAME}};
    while (vdRecordOK(m_s.NEWDEF, ofTable)) {
        data::Field field = fields(trimmedText(wanted.FNAME));
        field.OrdinalPosition(runtime::toInteger(shell::vdNullCheck(wanted.OPOS)));
        host().doEvents();
        if (!m_s.ContinueRun)
            break;
        m_s.NEWDEF.MoveNext();
    }
}

} // namespace tol::update
