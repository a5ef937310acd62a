// SPDX-License-Identifier: MIT
#include "data/json/JsonNode.h"

#include "data/json/JsonValue.h"
#include "runtime/RuntimeError.h"

#include <fmt/format.h>

#include <algorithm>

namespace tol::data::json {
namespace {

[[noreturn]] void raiseUnexpected(std::string_view what) {
    throw runtime::RuntimeError(
        runtime::errTypeMismatch,
        fmt::format("{}: {} does not belong here.", describe(runtime::errTypeMismatch), what));
}

[[noreturn]] void raiseAbout(std::string_view what, std::string_view complaint, std::string_view key) {
    throw runtime::RuntimeError(runtime::errInvalidArgument,
                                fmt::format("{} {} \"{}\".", what, complaint, key));
}

} // namespace

JsonNode& JsonNode::beginObject() {
    raiseUnexpected("an object");
}

JsonNode& JsonNode::beginArray() {
    raiseUnexpected("an array");
}

void JsonNode::key(std::string_view name) {
    raiseUnexpected(fmt::format("\"{}\"", name));
}

void JsonNode::scalar(JsonScalar&& scalar) {
    raiseUnexpected(kindOf(scalar));
}

void JsonObjectNode::key(std::string_view name) {
    const auto found = std::ranges::find(m_keys, name);
    if (found == m_keys.end())
        raiseAbout(m_what, "has no", name);
    m_current = static_cast<std::size_t>(found - m_keys.begin());
    if (seen(m_current))
        raiseAbout(m_what, "has twice", name);
    m_seen |= 1U << m_current;
}

void JsonObjectNode::requireKeys() const {
    for (std::size_t key = 0; key < m_required; ++key)
        if (!seen(key))
            raiseAbout(m_what, "lacks", m_keys[key]);
}

} // namespace tol::data::json
