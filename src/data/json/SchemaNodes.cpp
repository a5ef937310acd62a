// SPDX-License-Identifier: MIT
#include "data/json/SchemaNodes.h"

#include "data/json/JsonValue.h"
#include "data/json/TableLoader.h"
#include "runtime/RuntimeError.h"

#include <fmt/format.h>

#include <array>
#include <utility>

namespace tol::data::json {
namespace {

constexpr std::array<std::string_view, 5> fieldKeys = {"name", "type", "size", "ordinal", "allowZeroLength"};
enum FieldKey : std::size_t { fieldName, fieldType, fieldSize, fieldOrdinal, fieldAllowZeroLength };
constexpr std::size_t requiredFieldKeys = 2;

constexpr std::array<std::string_view, 4> indexKeys = {"name", "fields", "unique", "primary"};
enum IndexKey : std::size_t { indexName, indexFields, indexUnique, indexPrimary };
constexpr std::size_t requiredIndexKeys = 2;

/// A scalar of the schema obeys the same rules as a value of a field of that type, but is never null.
template <typename T>
T schemaValue(FieldType type, JsonScalar scalar) {
    const runtime::Value value = toFieldValue(type, std::move(scalar));
    if (value.isNull())
        runtime::raise(runtime::errInvalidNull);
    return value.get<T>();
}

std::string nameValue(JsonScalar scalar) {
    return schemaValue<std::string>(dbMemo, std::move(scalar));
}

int intValue(JsonScalar scalar) {
    return schemaValue<std::int32_t>(dbLong, std::move(scalar));
}

bool flagValue(JsonScalar scalar) {
    return schemaValue<bool>(dbBoolean, std::move(scalar));
}

FieldType typeValue(JsonScalar scalar) {
    const int type = intValue(std::move(scalar));
    if (!isFieldType(type))
        throw runtime::RuntimeError(runtime::errInvalidFieldType,
                                    fmt::format("There is no field type {}.", type));
    return static_cast<FieldType>(type);
}

} // namespace

FieldNode::FieldNode(TableLoader& loader)
    : JsonObjectNode("A field", fieldKeys, requiredFieldKeys), m_loader(loader) {}

void FieldNode::begin() {
    reset();
    m_field = {};
}

void FieldNode::scalar(JsonScalar&& scalar) {
    switch (currentKey()) {
    case fieldName:
        m_field.name = nameValue(std::move(scalar));
        break;
    case fieldType:
        m_field.type = typeValue(std::move(scalar));
        break;
    case fieldSize:
        m_field.size = intValue(std::move(scalar));
        break;
    case fieldOrdinal:
        m_field.ordinal = intValue(std::move(scalar));
        break;
    case fieldAllowZeroLength:
        m_field.allowZeroLength = flagValue(std::move(scalar));
        break;
    }
}

void FieldNode::end() {
    requireKeys();
    if (m_field.type == dbText && (m_field.size < 1 || m_field.size > maxTextSize))
        throw runtime::RuntimeError(
            runtime::errInvalidArgument,
            fmt::format("Field \"{}\": a text has a size of 1 to {} characters.", m_field.name, maxTextSize));
    m_field.size = reportedSize(m_field.type, m_field.size);
    m_loader.addField(std::move(m_field));
}

void NamesNode::scalar(JsonScalar&& scalar) {
    m_names.push_back(nameValue(std::move(scalar)));
}

IndexNode::IndexNode(TableLoader& loader)
    : JsonObjectNode("An index", indexKeys, requiredIndexKeys), m_loader(loader) {}

void IndexNode::begin() {
    reset();
    m_index = {};
}

void IndexNode::scalar(JsonScalar&& scalar) {
    switch (currentKey()) {
    case indexName:
        m_index.name = nameValue(std::move(scalar));
        break;
    case indexFields:
        JsonNode::scalar(std::move(scalar));
        break;
    case indexUnique:
        m_index.unique = flagValue(std::move(scalar));
        break;
    case indexPrimary:
        m_index.primary = flagValue(std::move(scalar));
        break;
    }
}

JsonNode& IndexNode::beginArray() {
    if (currentKey() != indexFields)
        return JsonNode::beginArray();
    return m_names;
}

void IndexNode::end() {
    requireKeys();
    m_loader.addIndex(std::move(m_index));
}

} // namespace tol::data::json
