// SPDX-License-Identifier: MIT
#include "shell/vdfunctions/DatabaseName.h"
#include "shell/vdfunctions/MessageBox.h"
#include "shell/vdfunctions/vdfunctions.h"

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
void makeTable(data::Database& database, const data::TableDefinition& definition) {
    data::TableDef table = database.CreateTableDef(definition.name);
    for (const data::FieldDef& old : definition.fields) {
        data::Field field = table.CreateField(old.name, old.type, old.size);
        if (old.type == data::dbText)
            field.AllowZeroLength(true);
        table.Fields().Append(field);
    }
    database.TableDefs().Append(table);
    for (const data::IndexDef& old : definition.indexes) {
        data::Index index = table.CreateIndex(old.name);
        for (const std::string& field : old.fields)
            index.Fields().Append(index.CreateField(field));
        table.Indexes().Append(index);
    }
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
        makeTable(file, definition);
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
