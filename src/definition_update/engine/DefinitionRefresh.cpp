// SPDX-License-Identifier: MIT
#include "definition_update/engine/DefinitionRefresh.h"

#include "data/DBEngine.h"
#include "data/engine/Names.h"
#include "definition_update/engine/DefinitionRows.h"
#include "definition_update/engine/ErrorReport.h"
#include "definition_update/engine/FillingMark.h"
#include "definition_update/engine/UpdateTexts.h"
#include "platform/Paths.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdEmptyTable.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdRecords.h"
#include "shell/vdfunctions/vdTexts.h"

#include <fmt/format.h>

#include <initializer_list>
#include <optional>
#include <utility>

namespace tol::update {

using runtime::host;
using runtime::MsgIcon;
using shell::vdIsBlank;
using shell::vdNullCheckText;
using shell::vdRecordOK;

namespace {

/// Adds a row to `copy` for each row of `list`, in the order of the index that bears the table's name.
void copyList(data::Recordset& list, data::Recordset& copy, std::initializer_list<const char*> fields) {
    list.Index(list.Name());
    while (vdRecordOK(list)) {
        copy.AddNew();
        for (const char* field : fields)
            copy.Fields(field).Value(shell::vdNullCheck(list.Fields(field)));
        copy.Update();
        list.MoveNext();
    }
}

/// The reference copy of the database in that row.
std::string referenceFile(const data::Recordset& DATABASES) {
    const std::string ALTDBNAME = foldedText(DATABASES.Fields("ALTDBNAME"));
    const std::string copy =
        platform::below(vdNullCheckText(DATABASES.Fields("FILLLOC")),
                        vdIsBlank(ALTDBNAME) ? foldedText(DATABASES.Fields("DBNAME")) : ALTDBNAME);
    return std::string(runtime::trim(copy)) + ".MDB";
}

struct NameOfTable {
    std::string table, name;
};

/// A name of the reference copy, which another program may have made, that no database can be given. None in
/// one that can't be read: what is wrong with it is told when it is its turn.
std::optional<NameOfTable> nameTooLong(const std::string& file) {
    std::optional<NameOfTable> found;
    try {
        data::Workspace wksTARGET = data::DBEngine::CreateWorkspace("wksTARGET");
        eachTable(wksTARGET.OpenDatabase(file),
                  [&](const data::TableDef& table, const std::string& tableName) {
                      const auto check = [&](const std::string& name) {
                          if (runtime::length(name) > data::maxNameLength)
                              found = {tableName, name};
                      };
                      const data::TableDefinition definition = table.definition();
                      check(tableName);
                      for (const data::FieldDef& field : definition.fields)
                          check(field.name);
                      for (const data::IndexDef& index : definition.indexes)
                          check(index.name);
                  });
    } catch (const runtime::RuntimeError&) {
        return std::nullopt;
    }
    return found;
}

/// Raises 3125 for a name that can't be wanted, while nothing is emptied yet. Leaves DATABASES in the order
/// of its index.
void requireNamesFit(data::Recordset& DATABASES) {
    DATABASES.Index("DATABASES");
    for (DATABASES.MoveFirst(); vdRecordOK(DATABASES); DATABASES.MoveNext()) {
        const std::string file = referenceFile(DATABASES);
        const auto tooLong = vdIsBlank(shell::vdDir(file)) ? std::nullopt : nameTooLong(file);
        if (tooLong)
            throw runtime::RuntimeError(
                runtime::errInvalidName,
                fmt::format("{}\nIn the table '{}' of '{}'. A name may have {} characters, this one has {}.",
                            runtime::describe(runtime::errInvalidName, {tooLong->name}), tooLong->table, file,
                            data::maxNameLength, runtime::length(tooLong->name)));
    }
}

} // namespace

DefinitionRefresh::DefinitionRefresh(RefreshView& view, std::string netLocation)
    : m_view(view), m_netLocation(std::move(netLocation)) {}

void DefinitionRefresh::Cancel() {
    m_running = false;
}

// The network lists are refreshed whatever became of the definitions.
RefreshOutcome DefinitionRefresh::RefreshDefinitions() {
    m_running = true;
    m_failed = false;
    m_outcome = RefreshOutcome::NotBegun;
    const bool reachedEnd = reportErrors(refreshForm, "RefreshDefinitions", [&] {
        data::Workspace wksDBU = data::DBEngine::CreateWorkspace("wksDBU");
        data::Database definitions = wksDBU.OpenDatabase("ZOVDEF.MDB");
        fillDefinitions(definitions);
        refreshNetworkLists(definitions);
        definitions.Close();
        wksDBU.Close();
    });
    if (reachedEnd && m_running && m_outcome == RefreshOutcome::WithoutLists)
        m_outcome = RefreshOutcome::Finished;
    return m_outcome;
}

/// Empties the recordset's table and opens it again.
bool DefinitionRefresh::empty(data::Database& definitions, data::Recordset& rows, const std::string& folder) {
    const std::string name = rows.Name();
    if (!shell::vdEmptyTable(folder, "ZOVDEF.MDB", rows))
        return false;
    rows = definitions.OpenRecordset(name);
    return true;
}

// Nothing is said to be finished before it is stored. The mark outlives whatever keeps this from its end: an
// error, the operator's Cancel, or the end of the program.
void DefinitionRefresh::fillDefinitions(data::Database& definitions) {
    data::Recordset DATABASES = definitions.OpenRecordset("DATABASES");
    data::Recordset NEWDEF = definitions.OpenRecordset("NEWDEF");
    data::Recordset NEWINDEXES = definitions.OpenRecordset("NEWINDEXES");
    requireNamesFit(DATABASES);
    FillingMark mark(definitions);
    const bool wasMarked = mark.isSet();
    mark.set();
    if (!empty(definitions, NEWDEF, " ")) {
        if (!wasMarked)
            mark.clear();
        return;
    }
    m_outcome = RefreshOutcome::Incomplete;
    if (!empty(definitions, NEWINDEXES, " "))
        return;
    fillDatabases(DATABASES, NEWDEF, NEWINDEXES);
    if (m_running && !m_failed) {
        mark.clear();
        m_outcome = RefreshOutcome::WithoutLists;
    } else if (!m_running) {
        m_outcome = RefreshOutcome::Canceled;
    }
    blankProgress();
    showClosing(m_view, m_outcome);
}

void DefinitionRefresh::fillDatabases(data::Recordset& DATABASES, data::Recordset& NEWDEF,
                                      data::Recordset& NEWINDEXES) {
    m_view.enableCancel();
    DATABASES.MoveFirst();
    do {
        if (!vdRecordOK(DATABASES))
            break;
        fillDatabase(DATABASES, NEWDEF, NEWINDEXES);
        DATABASES.MoveNext();
        host().doEvents();
    } while (m_running);
    for (data::Recordset* rows : {&DATABASES, &NEWDEF, &NEWINDEXES})
        rows->Close();
}

// A database whose reference copy is missing gets no rows, so that a later update deletes all its tables.
void DefinitionRefresh::fillDatabase(const data::Recordset& DATABASES, data::Recordset& NEWDEF,
                                     data::Recordset& NEWINDEXES) {
    const std::string DBNAME = foldedText(DATABASES.Fields("DBNAME"));
    const std::string file = referenceFile(DATABASES);
    m_view.showLabel(RefreshLabel::DBNAME, DBNAME);
    m_view.showLabel(RefreshLabel::DBDESC, vdNullCheckText(DATABASES.Fields("DBDESC")));
    blankProgress();
    if (vdIsBlank(shell::vdDir(file))) {
        host().msgBox("Cannot Locate Target Database: " + file, {MsgIcon::Information},
                      "Cannot Locate Target");
        return;
    }
    data::Workspace wksTARGET = data::DBEngine::CreateWorkspace("wksTARGET");
    data::Database target = wksTARGET.OpenDatabase(file);
    FillNewTableDef(target, NEWDEF, DBNAME);
    FillNewIndexDef(target, NEWINDEXES, DBNAME);
    target.Close();
    wksTARGET.Close();
}

void DefinitionRefresh::FillNewTableDef(const data::Database& target, data::Recordset& NEWDEF,
                                        const std::string& DBNAME) {
    const bool filled = reportErrors(refreshForm, "FillNewTableDef", [&] {
        FieldRows rows(NEWDEF);
        eachTable(target, [&](const data::TableDef& table, const std::string& name) {
            const std::string TNAME = runtime::upperCase(name);
            m_view.showLabel(RefreshLabel::TNAME, TNAME);
            const data::TableDef::FieldList fields = table.Fields();
            for (int position = 0; position < fields.Count(); ++position) {
                data::FieldDef field = fields(position).definition();
                field.name = runtime::upperCase(field.name);
                m_view.showLabel(RefreshLabel::FNAME, field.name);
                rows.add(DBNAME, TNAME, field);
            }
        });
    });
    m_failed = m_failed || !filled;
}

void DefinitionRefresh::FillNewIndexDef(const data::Database& target, data::Recordset& NEWINDEXES,
                                        const std::string& DBNAME) {
    const auto shows = [this](RefreshLabel label) {
        return [this, label](const std::string& text) { m_view.showLabel(label, text); };
    };
    const bool filled = reportErrors(refreshForm, "FillNewIndexDef", [&] {
        IndexRows rows(NEWINDEXES);
        captureIndexes(target, rows, DBNAME,
                       {shows(RefreshLabel::TNAME), shows(RefreshLabel::INAME), shows(RefreshLabel::FNAME)});
    });
    m_failed = m_failed || !filled;
}

// The copies are emptied in the file of the network location and filled in the file of the current folder:
// the same file where the location is blank.
void DefinitionRefresh::refreshNetworkLists(data::Database& definitions) {
    data::Workspace wksNET = data::DBEngine::CreateWorkspace("wksNET");
    data::Database network = wksNET.OpenDatabase(shell::vdNetPath(m_netLocation, false));
    data::Recordset MODULES = network.OpenRecordset("MODULES");
    data::Recordset USERACCESSITEMS = network.OpenRecordset("USERACCESSITEMS");
    data::Recordset modulesCopy = definitions.OpenRecordset("MODULES");
    data::Recordset itemsCopy = definitions.OpenRecordset("USERACCESSITEMS");
    m_running = true;
    m_running = emptyCopy(definitions, modulesCopy, "Modules") &&
                emptyCopy(definitions, itemsCopy, "User Access Items");
    if (m_running) {
        copyList(MODULES, modulesCopy, {"MODULEID", "MODULENAME"});
        copyList(USERACCESSITEMS, itemsCopy, {"UAITAG", "MODULEID", "UAICODE", "Desc", "FORMNAME"});
    }
    network.Close();
    wksNET.Close();
}

bool DefinitionRefresh::emptyCopy(data::Database& definitions, data::Recordset& copy,
                                  const std::string& listName) {
    if (empty(definitions, copy, m_netLocation))
        return true;
    host().msgBox("Cannot Refresh Network " + listName + " List", {MsgIcon::Critical}, "Cannot Refresh");
    return false;
}

void DefinitionRefresh::blankProgress() {
    for (const RefreshLabel label : {RefreshLabel::TNAME, RefreshLabel::FNAME, RefreshLabel::INAME})
        m_view.showLabel(label, " ");
}

void showClosing(RefreshView& view, RefreshOutcome outcome) {
    if (outcome == RefreshOutcome::NotBegun)
        return;
    const ClosingText closing = closingText(outcome);
    view.showLabel(RefreshLabel::DBNAME, closing.result);
    view.showLabel(RefreshLabel::DBDESC, closing.sentence);
}

} // namespace tol::update
