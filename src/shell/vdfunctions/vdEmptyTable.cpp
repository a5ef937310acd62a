// SPDX-License-Identifier: MIT

#include "shell/vdfunctions/vdEmptyTable.h"

#include "data/DBEngine.h"
#include "runtime/RuntimeError.h"
#include "shell/vdfunctions/vdBoxes.h"
#include "shell/vdfunctions/vdLocation.h"
#include <fmt/format.h>

#include <string>

namespace tol::shell {
namespace {

/// Remembers at most so many fields, indexes or index columns of a table; beyond that it is a bounds error.
constexpr std::size_t mostEntries = 201;

void requireRoom(std::size_t entries) {
    if (entries > mostEntries)
        runtime::raise(runtime::errSubscript);
}

/// What the new table takes over from the old one.
data::TableDefinition readDefinition(data::Database& database, const std::string& table) {
    data::TableDefinition definition = database.TableDefs(table).definition();
    std::size_t columns = 0;
    for (const data::IndexDef& index : definition.indexes)
        columns += index.fields.size();
    requireRoom(definition.fields.size());
    requireRoom(definition.indexes.size());
    requireRoom(columns);
    return definition;
}

/// Names, sizes and types of the fields, names and columns of the indexes; nothing else.
data::TableDefinition bareDefinition(const data::TableDefinition& old) {
    data::TableDefinition bare{.name = old.name};
    for (const data::FieldDef& field : old.fields)
        bare.fields.push_back({.name = field.name,
                               .type = field.type,
                               .size = field.size,
                               .allowZeroLength = field.type == data::dbText});
    for (const data::IndexDef& index : old.indexes)
        bare.indexes.push_back({.name = index.name, .fields = index.fields});
    return bare;
}

} // namespace

bool vdEmptyTable(std::string_view folder, std::string_view database, data::Recordset& recordset) {
    std::string name;
    try {
        name = recordset.Name();
        // Rows that can't be stored now are others' and no reason for this box.
        { const data::Recordset closing = std::move(recordset); }
        data::Workspace wksTEMP = data::DBEngine::CreateWorkspace("wksTEMP");
        data::Database file = wksTEMP.OpenDatabase(databaseName(folder, database));
        const data::TableDefinition definition = readDefinition(file, name);
        // A program that is killed in between must not leave everybody without the table.
        wksTEMP.BeginTrans();
        file.TableDefs().Delete(name);
        file.CreateTable(bareDefinition(definition));
        wksTEMP.CommitTrans();
        file.Close();
        wksTEMP.Close();
        return true;
    } catch (const runtime::RuntimeError& error) {
        // Nobody would look for a full disk behind the other box's words.
        if (error.number() == runtime::errNoDiskSpace)
            vdProcessError("vdEmptyTable", std::to_string(error.number()), error.description());
        showBox(fmt::format("Cannot Obtain Exclusive use of the Table: {}\nCannot Empty Table.", name),
                runtime::MsgIcon::Critical, "Error");
        return false;
    }
}

} // namespace tol::shell
