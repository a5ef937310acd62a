// SPDX-License-Identifier: MIT
#include "demo/Suite.h"

#include "demo/Lines.h"

#include <algorithm>
#include <stdexcept>

namespace tol::demo {

const FieldRecipe* TableRecipe::findField(std::string_view fieldName) const {
    const auto found = std::ranges::find_if(
        fields, [&](const FieldRecipe& field) { return field.definition.name == fieldName; });
    return found == fields.end() ? nullptr : &*found;
}

data::TableDefinition TableRecipe::definition() const {
    data::TableDefinition result;
    result.name = name;
    for (const FieldRecipe& field : fields)
        result.fields.push_back(field.definition);
    result.indexes = indexes;
    return result;
}

const Suite::Tables& Suite::database(std::string_view name) const {
    const auto found = m_databases.find(name);
    if (found == m_databases.end())
        throw std::logic_error("no database " + std::string(name) + " in the demo");
    return found->second;
}

const TableRecipe* Suite::findTable(std::string_view databaseName, std::string_view tableName) const {
    const auto tables = m_databases.find(databaseName);
    if (tables == m_databases.end())
        return nullptr;
    const auto found = tables->second.find(tableName);
    return found == tables->second.end() ? nullptr : &found->second;
}

const TableRecipe& Suite::table(std::string_view qualified) const {
    const std::vector<std::string> path = parts(qualified, '.');
    const TableRecipe* found = path.size() < 2 ? nullptr : findTable(path[0], path[1]);
    if (found == nullptr)
        throw std::logic_error("no table " + std::string(qualified) + " in the demo");
    return *found;
}

} // namespace tol::demo
