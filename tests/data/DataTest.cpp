// SPDX-License-Identifier: MIT
#include "DataTest.h"

#include "runtime/Conversions.h"

namespace tol::test {

using data::Recordset;

data::FieldDef field(std::string name, data::FieldType type, int size) {
    data::FieldDef definition;
    definition.name = std::move(name);
    definition.type = type;
    definition.size = data::reportedSize(type, size);
    return definition;
}

data::IndexDef plainIndex(std::string name, std::vector<std::string> fields) {
    return {std::move(name), std::move(fields), false, false};
}

data::IndexDef uniqueIndex(std::string name, std::vector<std::string> fields) {
    return {std::move(name), std::move(fields), true, false};
}

data::IndexDef primaryKey(std::string name, std::vector<std::string> fields) {
    return {std::move(name), std::move(fields), true, true};
}

namespace {

void assignAndUpdate(Recordset& rows, Cells cells) {
    for (const auto& [name, value] : cells)
        rows.Fields(name).Value(value);
    rows.Update();
}

} // namespace

void add(Recordset& rows, Cells cells) {
    rows.AddNew();
    assignAndUpdate(rows, cells);
}

void change(Recordset& rows, Cells cells) {
    rows.Edit();
    assignAndUpdate(rows, cells);
}

std::string textOf(const runtime::Value& value) {
    return value.isNull() ? "Null" : runtime::toText(value);
}

std::string at(const Recordset& rows, std::string_view fieldName) {
    return textOf(rows.Fields(fieldName).Value());
}

std::vector<std::string> walk(Recordset& rows, std::string_view fieldName) {
    std::vector<std::string> texts;
    if (rows.RecordCount() == 0)
        return texts;
    for (rows.MoveFirst(); !rows.AtEOF(); rows.MoveNext())
        texts.push_back(at(rows, fieldName));
    return texts;
}

std::vector<std::string> walkBack(Recordset& rows, std::string_view fieldName) {
    std::vector<std::string> texts;
    if (rows.RecordCount() == 0)
        return texts;
    for (rows.MoveLast(); !rows.AtBOF(); rows.MovePrevious())
        texts.push_back(at(rows, fieldName));
    return texts;
}

DataTest::DataTest()
    : engine(GetParam().make()),
      workspace(data::DBEngine::CreateWorkspace("wksTEST")),
      database(workspace.CreateDatabase("TEST.MDB")) {}

void DataTest::make(const std::string& name, const std::vector<data::FieldDef>& fields,
                    const std::vector<data::IndexDef>& indexes) {
    database.CreateTable({name, fields, indexes});
}

void DataTest::reopen() {
    database.Close();
    database = workspace.OpenDatabase("TEST.MDB");
}

void DataTest::compact() {
    database.Close();
    data::DBEngine::CompactDatabase("TEST.MDB");
    database = workspace.OpenDatabase("TEST.MDB");
}

} // namespace tol::test
