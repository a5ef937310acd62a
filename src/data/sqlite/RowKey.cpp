// SPDX-License-Identifier: MIT
#include "data/sqlite/RowKey.h"

#include "data/sqlite/Sql.h"
#include "runtime/RuntimeError.h"

#include <fmt/format.h>

#include <bit>
#include <charconv>
#include <optional>

namespace tol::data::sqlite {
namespace {

using Kind = StoredValue::Kind;

template <typename Number>
std::optional<Number> wholeNumber(std::string_view text) {
    Number number{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return number;
}

std::string partText(const StoredValue& part) {
    switch (part.kind) {
    case Kind::Integer:
        return std::to_string(part.integer);
    case Kind::Real:
        return std::to_string(std::bit_cast<std::int64_t>(part.real));
    default:
        return std::string(part.text);
    }
}

constexpr std::string_view kindLetters = "nirtb"; // in the order of StoredValue::Kind

std::optional<StoredValue> partOf(Kind kind, std::string_view text) {
    if (kind == Kind::Text)
        return StoredValue::ofText(text);
    if (kind == Kind::Blob)
        return StoredValue::ofBlob(text);
    const auto number = wholeNumber<std::int64_t>(text);
    if (!number)
        return std::nullopt;
    if (kind == Kind::Integer)
        return StoredValue::ofInteger(*number);
    return StoredValue::ofReal(std::bit_cast<double>(*number));
}

/// Takes "<letter><length>:<text>" off the front.
std::optional<StoredValue> takePart(std::string_view& rest) {
    const auto colon = rest.find(':');
    if (rest.empty() || colon == std::string_view::npos)
        return std::nullopt;
    const auto letter = kindLetters.find(rest[0]);
    const auto length = wholeNumber<std::size_t>(rest.substr(1, colon - 1));
    if (letter == std::string_view::npos || letter == 0 || !length || *length > rest.size() - colon - 1)
        return std::nullopt;
    const auto text = rest.substr(colon + 1, *length);
    rest.remove_prefix(colon + 1 + *length);
    return partOf(static_cast<Kind>(letter), text);
}

std::optional<RowKey> parsed(const PhysicalTable& table, std::string_view bookmark) {
    RowKey key;
    const auto number = wholeNumber<std::int64_t>(bookmark);
    if (number && table.rowKey.size() == 1) {
        key.emplace_back(StoredValue::ofInteger(*number));
        return key;
    }
    if (!table.withoutRowId)
        return std::nullopt;
    while (!bookmark.empty()) {
        const auto part = takePart(bookmark);
        if (!part)
            return std::nullopt;
        key.emplace_back(*part);
    }
    if (key.size() != table.rowKey.size())
        return std::nullopt;
    return key;
}

} // namespace

std::string bookmarkOf(std::span<const StoredValue> key) {
    if (key.size() == 1 && key[0].kind == Kind::Integer)
        return std::to_string(key[0].integer);
    std::string bookmark;
    for (const auto& part : key) {
        const std::string text = partText(part);
        bookmark +=
            fmt::format("{}{}:{}", kindLetters[static_cast<std::size_t>(part.kind)], text.size(), text);
    }
    return bookmark;
}

RowKey keyOfBookmark(const PhysicalTable& table, std::string_view bookmark) {
    auto key = parsed(table, bookmark);
    if (!key)
        runtime::raise(runtime::errInvalidBookmark);
    return std::move(*key);
}

std::string rowKeyExpression(const PhysicalTable& table, std::size_t part) {
    const auto& collations = table.rowKeyOrder.collations;
    std::string column = quotedName(table.rowKey[part]);
    if (part >= collations.size() || collations[part].empty())
        return column;
    return column + " COLLATE " + quotedName(collations[part]);
}

std::string rowKeyCondition(const PhysicalTable& table) {
    std::string condition;
    for (std::size_t part = 0; part < table.rowKey.size(); ++part)
        condition += (part == 0 ? "" : " AND ") + rowKeyExpression(table, part) + " = ?";
    return condition;
}

std::string rowKeyColumns(const PhysicalTable& table) {
    std::string columns;
    for (const auto& column : table.rowKey)
        columns += (columns.empty() ? "" : ", ") + quotedName(column);
    return columns;
}

void bindRowKey(Statement& statement, int parameter, std::span<const StoredValue> key) {
    for (const auto& part : key)
        bindStored(statement, parameter++, part);
}

std::vector<StoredValue> valuesOf(const RowKey& key) {
    std::vector<StoredValue> values;
    for (const auto& part : key)
        values.push_back(part.value());
    return values;
}

} // namespace tol::data::sqlite
