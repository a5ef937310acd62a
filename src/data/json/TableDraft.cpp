// SPDX-License-Identifier: MIT
#include "data/json/TableDraft.h"

namespace tol::data::json {

TableDef draftOf(const Database& database, const TableDefinition& wanted, std::size_t indexes) {
    TableDef table = database.CreateTableDef(wanted.name);
    for (const FieldDef& definition : wanted.fields) {
        Field field = table.CreateField(definition.name, definition.type, definition.size);
        if (definition.ordinal >= 0)
            field.OrdinalPosition(definition.ordinal);
        if (definition.allowZeroLength)
            field.AllowZeroLength(true);
        table.Fields().Append(field);
    }
    for (std::size_t index = 0; index < indexes; ++index)
        table.Indexes().Append(indexOf(table, wanted.indexes[index]));
    return table;
}

Index indexOf(const TableDef& table, const IndexDef& wanted) {
    Index index = table.CreateIndex(wanted.name);
    for (const std::string& field : wanted.fields)
        index.Fields().Append(index.CreateField(field));
    index.Unique(wanted.unique);
    index.Primary(wanted.primary);
    return index;
}

} // namespace tol::data::json
