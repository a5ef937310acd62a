// SPDX-License-Identifier: MIT
#pragma once

#include "data/Definition.h"
#include "data/json/JsonNode.h"

#include <string>
#include <vector>

namespace tol::data::json {

class TableLoader;

/// {"name", "type", "size", "ordinal", "allowZeroLength"}: one field. Name and type must be there, and
/// the size of a text; other types have a size of their own, whatever the text says.
class FieldNode : public JsonObjectNode {
  public:
    explicit FieldNode(TableLoader& loader);
    void begin();
    void scalar(JsonScalar&& scalar) override;
    void end() override;

  private:
    TableLoader& m_loader;
    FieldDef m_field;
};

/// An array of names.
class NamesNode : public JsonNode {
  public:
    explicit NamesNode(std::vector<std::string>& names) : m_names(names) {}
    void scalar(JsonScalar&& scalar) override;

  private:
    std::vector<std::string>& m_names;
};

/// {"name", "fields", "unique", "primary"}: one index. Name and fields must be there.
class IndexNode : public JsonObjectNode {
  public:
    explicit IndexNode(TableLoader& loader);
    void begin();
    void scalar(JsonScalar&& scalar) override;
    JsonNode& beginArray() override;
    void end() override;

  private:
    TableLoader& m_loader;
    IndexDef m_index;
    NamesNode m_names{m_index.fields};
};

} // namespace tol::data::json
