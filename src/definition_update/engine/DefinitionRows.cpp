// SPDX-License-Identifier: MIT
#include "definition_update/engine/DefinitionRows.h"

#include "runtime/Text.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <cstdint>

namespace tol::update {

FieldRows::FieldRows(data::Recordset& recordset)
    : rows(recordset),
      TNAME(rows.Fields("TNAME")),
      FNAME(rows.Fields("FNAME")),
      FSIZE(rows.Fields("FSIZE")),
      FTYPE(rows.Fields("FTYPE")),
      OPOS(rows.Fields("OPOS")) {}

void FieldRows::add(const std::optional<std::string>& database, const std::string& table,
                    const data::FieldDef& field) {
    store(database, table, field.name, {field.size, field.type, field.ordinal});
}

void FieldRows::addFieldless(const std::string& table) {
    store(std::nullopt, table, " ", {0, 0, 0});
}

void FieldRows::store(const std::optional<std::string>& database, const std::string& table,
                      const std::string& field, const std::array<std::int32_t, 3>& sizeTypePosition) {
    rows.AddNew();
    if (database)
        DBNAME().Value(*database);
    TNAME.Value(table);
    FNAME.Value(field);
    FSIZE.Value(sizeTypePosition[0]);
    FTYPE.Value(sizeTypePosition[1]);
    OPOS.Value(sizeTypePosition[2]);
    rows.Update();
}

IndexRows::IndexRows(data::Recordset& recordset)
    : rows(recordset),
      TNAME(rows.Fields("TNAME")),
      IName(rows.Fields("IName")),
      KEYSTRING(rows.Fields("KEYSTRING")) {
    for (std::size_t key = 1; key <= namedKeys; ++key)
        IKEY.push_back(rows.Fields("IKEY" + shell::vdZeroPad(std::to_string(key), 2)));
}

void IndexRows::add(const std::optional<std::string>& database, const std::string& table,
                    const std::string& index, const std::vector<std::string>& keys) {
    constexpr int emptySlot = 20;
    std::string joined;
    for (const std::string& key : keys)
        joined += key;
    rows.AddNew();
    if (database)
        DBNAME().Value(*database);
    TNAME.Value(table);
    IName.Value(index);
    KEYSTRING.Value(joined);
    for (std::size_t slot = 0; slot < namedKeys; ++slot)
        IKEY[slot].Value(slot < keys.size() ? keys[slot] : runtime::space(emptySlot));
    rows.Update();
}

std::string trimmedText(const data::Field& field) {
    return std::string(runtime::trim(shell::vdNullCheckText(field)));
}

std::string foldedText(const data::Field& field) {
    return runtime::upperCase(trimmedText(field));
}

bool isSystemTable(std::string_view trimmedName) {
    return runtime::upperCase(runtime::left(trimmedName, 4)) == "MSYS";
}

void eachTable(const data::Database& database,
               const std::function<void(data::TableDef& table, const std::string& name)>& visit) {
    const data::TableDefs tables = database.TableDefs();
    for (int position = 0; position < tables.Count(); ++position) {
        data::TableDef table = tables(position);
        const std::string name(runtime::trim(table.Name()));
        if (!isSystemTable(name))
            visit(table, name);
    }
}

namespace {

void show(const std::function<void(const std::string&)>& progress, const std::string& text) {
    if (progress)
        progress(text);
}

} // namespace

void captureIndexes(const data::Database& database, IndexRows& rows, const std::optional<std::string>& name,
                    const IndexProgress& progress) {
    eachTable(database, [&](data::TableDef& table, const std::string& tableName) {
        show(progress.table, tableName);
        const data::TableDef::IndexList indexes = table.Indexes();
        for (int position = 0; position < indexes.Count(); ++position) {
            data::Index index = indexes(position);
            const std::string indexName(runtime::trim(index.Name()));
            show(progress.index, indexName);
            std::vector<std::string> keys;
            for (int key = 0; key < index.Fields().Count(); ++key) {
                keys.push_back(index.Fields()(key));
                show(progress.field, keys.back());
            }
            rows.add(name, tableName, indexName, keys);
        }
    });
}

} // namespace tol::update
