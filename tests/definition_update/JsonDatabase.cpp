// SPDX-License-Identifier: MIT
#include "JsonDatabase.h"

#include "runtime/Conversions.h"

#include <cstring>
#include <utility>

namespace tol::test {

using data::FieldType;
using runtime::Value;

namespace {

int sizeOf(const Json& field) {
    const auto type = static_cast<FieldType>(field.at(1).get<int>());
    return field.size() > 2 ? field.at(2).get<int>() : data::reportedSize(type, 0);
}

bool zeroLengthOf(const Json& field) {
    return field.size() > 3 ? field.at(3).get<bool>()
                            : field.at(1) == data::dbText || field.at(1) == data::dbMemo;
}

data::TableDefinition definitionOf(const std::string& name, const Json& table) {
    data::TableDefinition definition{.name = name};
    for (const Json& field : table.value("fields", Json::array()))
        definition.fields.push_back({.name = field.at(0).get<std::string>(),
                                     .type = static_cast<FieldType>(field.at(1).get<int>()),
                                     .size = sizeOf(field),
                                     .allowZeroLength = zeroLengthOf(field)});
    const Json indexes = table.value("indexes", Json::object());
    for (const auto& [indexName, keys] : indexes.items())
        definition.indexes.push_back({.name = indexName, .fields = keys.get<std::vector<std::string>>()});
    return definition;
}

Json readFields(const data::TableDef& table) {
    Json fields = Json::array();
    for (int position = 0; position < table.Fields().Count(); ++position) {
        const data::Field field = table.Fields()(position);
        Json entry = Json::array({field.Name(), static_cast<int>(field.Type()), field.Size()});
        if (field.Type() == data::dbText)
            entry.push_back(field.AllowZeroLength());
        fields.push_back(std::move(entry));
    }
    return fields;
}

Json readIndexes(const data::TableDef& table) {
    Json indexes = Json::object();
    for (int position = 0; position < table.Indexes().Count(); ++position) {
        data::Index index = table.Indexes()(position);
        Json keys = Json::array();
        for (int key = 0; key < index.Fields().Count(); ++key)
            keys.push_back(index.Fields()(key));
        indexes[index.Name()] = std::move(keys);
    }
    return indexes;
}

Json readRows(data::Database& database, const std::string& table) {
    Json rows = Json::array();
    data::Recordset recordset = database.OpenRecordset(table);
    std::vector<data::Field> fields;
    for (int position = 0; position < recordset.Fields().Count(); ++position)
        fields.push_back(recordset.Fields(position));
    for (; !recordset.AtEOF(); recordset.MoveNext()) {
        Json row = Json::array();
        for (const data::Field& field : fields)
            row.push_back(toJson(field.Value()));
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace

Value toValue(const Json& json, FieldType type) {
    if (json.is_null())
        return runtime::Null{};
    if (json.is_boolean())
        return json.get<bool>();
    if (json.is_number_integer())
        return json.get<std::int32_t>();
    if (json.is_number())
        return json.get<double>();
    const auto text = json.get<std::string>();
    if (type == data::dbCurrency)
        return runtime::currencyFromText(text);
    if (type == data::dbDate)
        return runtime::dateFromIso(text);
    return text;
}

Json toJson(const Value& value) {
    struct Visitor {
        Json operator()(runtime::Empty) const { return "(empty)"; }
        Json operator()(runtime::Null) const { return nullptr; }
        Json operator()(bool truth) const { return truth; }
        Json operator()(runtime::Currency amount) const { return runtime::fourDecimals(amount); }
        Json operator()(runtime::Date date) const { return runtime::isoText(date); }
        Json operator()(const std::string& text) const { return text; }
        Json operator()(const runtime::Bytes& bytes) const {
            std::string text(bytes.size(), '\0');
            std::memcpy(text.data(), bytes.data(), bytes.size());
            return text;
        }
        Json operator()(float number) const { return static_cast<double>(number); }
        Json operator()(double number) const { return number; }
        Json operator()(std::uint8_t number) const { return static_cast<int>(number); }
        Json operator()(std::int16_t number) const { return static_cast<int>(number); }
        Json operator()(std::int32_t number) const { return number; }
    };
    return value.visit(Visitor{});
}

void addRows(data::Database& database, const std::string& table, const Json& rows) {
    data::Recordset recordset = database.OpenRecordset(table);
    for (const Json& row : rows) {
        recordset.AddNew();
        for (std::size_t column = 0; column < row.size(); ++column) {
            data::Field field = recordset.Fields(static_cast<int>(column));
            if (!row[column].is_null())
                field.Value(toValue(row[column], field.Type()));
        }
        recordset.Update();
    }
}

void addTables(data::Database& database, const Json& tables) {
    for (const auto& [name, table] : tables.items()) {
        database.CreateTable(definitionOf(name, table));
        addRows(database, name, table.value("rows", Json::array()));
    }
}

void makeDatabase(const std::string& file, const Json& tables) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.CreateDatabase(file);
    addTables(database, tables);
}

Json readDatabase(const std::string& file) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase(file);
    Json tables = Json::object();
    for (int position = 0; position < database.TableDefs().Count(); ++position) {
        const data::TableDef table = database.TableDefs()(position);
        tables[table.Name()] = {{"fields", readFields(table)},
                                {"indexes", readIndexes(table)},
                                {"rows", readRows(database, table.Name())}};
    }
    return tables;
}

Json completed(const Json& tables) {
    Json all = Json::object();
    for (const auto& [name, table] : tables.items()) {
        const Json listed = table.value("fields", Json::array());
        Json fields = Json::array();
        for (const Json& field : listed) {
            Json entry = Json::array({field.at(0), field.at(1), sizeOf(field)});
            if (field.at(1) == data::dbText)
                entry.push_back(zeroLengthOf(field));
            fields.push_back(std::move(entry));
        }
        all[name] = {{"fields", fields},
                     {"indexes", table.value("indexes", Json::object())},
                     {"rows", table.value("rows", Json::array())}};
    }
    return all;
}

} // namespace tol::test
