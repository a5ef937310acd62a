// SPDX-License-Identifier: MIT
#include "data/json/RowNodes.h"

#include "data/json/JsonValue.h"
#include "data/json/TableLoader.h"
#include "runtime/RuntimeError.h"

#include <array>
#include <utility>

namespace tol::data::json {
namespace {

constexpr std::array<std::string_view, 1> rawTextKeys = {rawTextKey};

} // namespace

RawTextNode::RawTextNode(TableLoader& loader)
    : JsonObjectNode("A text that is no UTF-8", rawTextKeys, rawTextKeys.size()), m_loader(loader) {}

void RawTextNode::begin() {
    reset();
    m_text.clear();
}

void RawTextNode::scalar(JsonScalar&& scalar) {
    const runtime::Value value = toFieldValue(dbLongBinary, std::move(scalar));
    if (value.isNull())
        runtime::raise(runtime::errInvalidNull);
    const auto& bytes = value.get<runtime::Bytes>();
    m_text.assign(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

void RawTextNode::end() {
    requireKeys();
    m_loader.addRawText(std::move(m_text));
}

void RowNode::scalar(JsonScalar&& scalar) {
    m_loader.addValue(std::move(scalar));
}

JsonNode& RowNode::beginObject() {
    m_rawText.begin();
    return m_rawText;
}

void RowNode::end() {
    m_loader.endRow();
}

JsonNode& RowsNode::beginArray() {
    m_loader.beginRow();
    return m_row;
}

} // namespace tol::data::json
