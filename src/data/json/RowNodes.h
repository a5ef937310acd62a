// SPDX-License-Identifier: MIT
#pragma once

#include "data/json/JsonNode.h"

#include <string>

namespace tol::data::json {

class TableLoader;

/// {"base64": "..."}: a text that is no UTF-8.
class RawTextNode : public JsonObjectNode {
  public:
    explicit RawTextNode(TableLoader& loader);
    void begin();
    void scalar(JsonScalar&& scalar) override;
    void end() override;

  private:
    TableLoader& m_loader;
    std::string m_text;
};

/// One row: an array of values in the order of the table's fields.
class RowNode : public JsonNode {
  public:
    explicit RowNode(TableLoader& loader) : m_loader(loader), m_rawText(loader) {}
    void scalar(JsonScalar&& scalar) override;
    JsonNode& beginObject() override;
    void end() override;

  private:
    TableLoader& m_loader;
    RawTextNode m_rawText;
};

/// The array of rows.
class RowsNode : public JsonNode {
  public:
    explicit RowsNode(TableLoader& loader) : m_loader(loader), m_row(loader) {}
    JsonNode& beginArray() override;

  private:
    TableLoader& m_loader;
    RowNode m_row;
};

} // namespace tol::data::json
