// SPDX-License-Identifier: MIT
#include "data/json/DatabaseReader.h"

#include "runtime/RuntimeError.h"

#include <array>
#include <utility>

namespace tol::data::json {
namespace {

constexpr std::array<std::string_view, 4> tableKeys = {"name", "fields", "indexes", "rows"};
enum TableKey : std::size_t { tableName, tableFields, tableIndexes, tableRows };
constexpr std::size_t requiredTableKeys = 2;

constexpr std::array<std::string_view, 1> databaseKeys = {"tables"};

} // namespace

TableNode::TableNode(TableLoader& loader)
    : JsonObjectNode("A table", tableKeys, requiredTableKeys),
      m_loader(loader),
      m_fields(loader),
      m_indexes(loader),
      m_rows(loader) {}

void TableNode::begin() {
    reset();
    m_loader.beginTable();
}

void TableNode::scalar(JsonScalar&& scalar) {
    if (currentKey() != tableName || !std::holds_alternative<std::string>(scalar))
        JsonNode::scalar(std::move(scalar));
    else
        m_loader.name(std::get<std::string>(std::move(scalar)));
}

JsonNode& TableNode::beginArray() {
    switch (currentKey()) {
    case tableFields:
        return m_fields;
    case tableIndexes:
        return m_indexes;
    case tableRows:
        if (!seen(tableName) || !seen(tableFields))
            throw runtime::RuntimeError(runtime::errInvalidArgument,
                                        "\"rows\" must stand behind \"name\" and \"fields\" of its table.");
        m_loader.beginRows();
        return m_rows;
    default:
        return JsonNode::beginArray();
    }
}

void TableNode::end() {
    requireKeys();
    m_loader.endTable();
}

DatabaseNode::DatabaseNode(TableLoader& loader)
    : JsonObjectNode("A database", databaseKeys, databaseKeys.size()), m_tables(loader) {}

JsonNode& DatabaseNode::beginArray() {
    return m_tables;
}

} // namespace tol::data::json
