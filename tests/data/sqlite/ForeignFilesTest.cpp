// SPDX-License-Identifier: MIT
#include "ForeignFilesTest.h"

#include "data/sqlite/SqliteEngine.h"
#include "runtime/Conversions.h"

namespace tol::test {

using namespace data;
using runtime::Value;

ForeignFilesTest::ForeignFilesTest() {
    StoreRegistry::Engines engines;
    engines.push_back(std::make_unique<sqlite::SqliteEngine>());
    m_before = StoreRegistry::instance().exchangeEngines(std::move(engines));
}

ForeignFilesTest::~ForeignFilesTest() {
    if (database.isOpen())
        database.Close();
    StoreRegistry::instance().exchangeEngines(std::move(m_before));
}

void ForeignFilesTest::make(const std::string& sql) {
    file.run(sql);
    open();
}

void ForeignFilesTest::open() {
    workspace = DBEngine::CreateWorkspace("wksTARGET");
    database = workspace.OpenDatabase(file.path().native());
}

void ForeignFilesTest::reopen() {
    database.Close();
    open();
}

std::string valueText(const Value& value) {
    return value.isNull() ? "Null" : runtime::toText(value);
}

std::vector<std::string> walk(Recordset& rows) {
    std::vector<std::string> texts;
    for (; !rows.AtEOF(); rows.MoveNext()) {
        std::string text;
        for (int field = 0; field < rows.Fields().Count(); ++field)
            text += (field == 0 ? "" : "|") + valueText(rows.Fields(field).Value());
        texts.push_back(text);
    }
    return texts;
}

std::vector<std::string> walkBy(Recordset& rows, const std::string& index) {
    rows.Index(index);
    return walk(rows);
}

std::vector<std::string> walkBack(Recordset& rows, int field) {
    std::vector<std::string> texts;
    for (rows.MoveLast(); !rows.AtBOF(); rows.MovePrevious())
        texts.push_back(valueText(rows.Fields(field).Value()));
    return texts;
}

void set(Recordset& rows, const std::string& field, const Value& value) {
    rows.Edit();
    rows.Fields(field).Value(value);
    rows.Update();
}

void add(Recordset& rows, std::initializer_list<std::pair<const char*, Value>> values) {
    rows.AddNew();
    for (const auto& [field, value] : values)
        rows.Fields(field).Value(value);
    rows.Update();
}

std::vector<std::string> fieldsOf(const TableDef& table) {
    std::vector<std::string> texts;
    for (const FieldDef& field : table.definition().fields)
        texts.push_back(field.name + ":" + std::to_string(field.type) + "/" + std::to_string(field.size));
    return texts;
}

std::vector<std::string> indexesOf(const TableDef& table) {
    std::vector<std::string> names;
    for (const IndexDef& index : table.definition().indexes)
        names.push_back(index.name);
    return names;
}

} // namespace tol::test
