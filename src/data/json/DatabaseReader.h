// SPDX-License-Identifier: MIT
#pragma once

#include "data/json/JsonNode.h"
#include "data/json/RowNodes.h"
#include "data/json/SchemaNodes.h"
#include "data/json/TableLoader.h"

namespace tol::data::json {

/// {"name", "fields", "indexes", "rows"}: one table. Rows go into the table as they are read, so name
/// and fields must stand before them; indexes may stand behind.
class TableNode : public JsonObjectNode {
  public:
    explicit TableNode(TableLoader& loader);
    void begin();
    void scalar(JsonScalar&& scalar) override;
    JsonNode& beginArray() override;
    void end() override;

  private:
    TableLoader& m_loader;
    JsonObjectsNode<FieldNode> m_fields;
    JsonObjectsNode<IndexNode> m_indexes;
    RowsNode m_rows;
};

/// {"tables"}: the database.
class DatabaseNode : public JsonObjectNode {
  public:
    explicit DatabaseNode(TableLoader& loader);
    JsonNode& beginArray() override;
    void end() override { requireKeys(); }

  private:
    JsonObjectsNode<TableNode> m_tables;
};

/// The whole text: root of the nodes, and owner of all of them.
class DatabaseReader : public JsonNode {
  public:
    /// The database must outlive the reader.
    DatabaseReader(Database& database, RowWatcher watcher)
        : m_loader(database, std::move(watcher)), m_database(m_loader) {}
    JsonNode& beginObject() override { return m_database; }

  private:
    TableLoader m_loader;
    DatabaseNode m_database;
};

} // namespace tol::data::json
