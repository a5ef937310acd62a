// SPDX-License-Identifier: MIT
#include "demo/DemoDatabase.h"

namespace tol::demo {

namespace {

data::TableDefinition definitionOf(const TableRecipe& recipe) {
    data::TableDefinition table{.name = recipe.name, .indexes = recipe.indexes};
    for (const FieldRecipe& field : recipe.fields)
        table.fields.push_back(field.definition);
    return table;
}

} // namespace

DemoDatabase::DemoDatabase(const std::filesystem::path& file, const Suite::Tables& tables)
    : m_tables(tables),
      m_workspace(data::DBEngine::CreateWorkspace("wksDEMO")),
      m_database(m_workspace.CreateDatabase(file.string())) {
    m_workspace.BeginTrans();
    for (const auto& [name, recipe] : tables)
        m_database.CreateTable(definitionOf(recipe));
}

void DemoDatabase::fill(const Values& values) {
    for (const auto& [name, recipe] : m_tables) {
        const int rows = values.rows(recipe);
        for (int row = 1; row <= rows; ++row) {
            data::Recordset& target = recordset(name);
            target.AddNew();
            int position = 0;
            for (const FieldRecipe& field : recipe.fields)
                target.Fields(position++).Value(values.value(recipe, field, row));
            target.Update();
        }
    }
}

void DemoDatabase::add(std::string_view table, Row row) {
    data::Recordset& target = recordset(table);
    target.AddNew();
    for (const auto& [field, value] : row)
        target.Fields(field).Value(value);
    target.Update();
}

void DemoDatabase::finish() {
    m_recordsets.clear();
    m_workspace.CommitTrans();
    m_database.Close();
    m_workspace.Close();
}

data::Recordset& DemoDatabase::recordset(std::string_view table) {
    auto found = m_recordsets.find(table);
    if (found == m_recordsets.end())
        found = m_recordsets.emplace(table, m_database.OpenRecordset(std::string(table))).first;
    return found->second;
}

} // namespace tol::demo
