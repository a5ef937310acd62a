// SPDX-License-Identifier: MIT
#include "data/engine/FileError.h"
#include "data/json/DatabaseJson.h"
#include "data/json/JsonValue.h"
#include "data/json/LineCountingBuffer.h"
#include "data/json/TableLoader.h"
#include "runtime/RuntimeError.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

namespace tol::data::json {
namespace {

using runtime::RuntimeError;

/// The objects and arrays of the text; Outside is what surrounds the whole.
enum class Place {
    Outside,
    Database,
    Tables,
    Table,
    Fields,
    Field,
    Indexes,
    Index,
    IndexFields,
    Rows,
    Row,
    RawText,
};

/// Where a text has room for an object or array, and what keys an object has.
struct PlaceRule {
    Place place;
    Place within;
    std::string_view key;                      ///< under which key of that; "" in an array
    std::string_view name = {};                ///< an object, for complaints; "" for an array
    std::array<std::string_view, 5> keys = {}; ///< each at most once, in any order
    std::size_t required = 0;                  ///< how many keys must be there, the first ones

    [[nodiscard]] bool isObject() const { return !name.empty(); }
};

constexpr PlaceRule rules[] = {
    {Place::Outside, Place::Outside, "-"},
    {Place::Database, Place::Outside, "", "A database", {"tables"}, 1},
    {Place::Tables, Place::Database, "tables"},
    {Place::Table, Place::Tables, "", "A table", {"name", "fields", "indexes", "rows", "withoutRowKeys"}, 2},
    {Place::Fields, Place::Table, "fields"},
    {Place::Field, Place::Fields, "", "A field", {"name", "type", "size", "ordinal", "allowZeroLength"}, 2},
    {Place::Indexes, Place::Table, "indexes"},
    {Place::Index, Place::Indexes, "", "An index", {"name", "fields", "unique", "primary"}, 2},
    {Place::IndexFields, Place::Index, "fields"},
    {Place::Rows, Place::Table, "rows"},
    {Place::Row, Place::Rows, ""},
    {Place::RawText, Place::Row, "", "A text that is no UTF-8", {rawTextKey}, 1},
};

[[noreturn]] void raiseUnexpected(std::string_view what) {
    throw RuntimeError(runtime::errTypeMismatch,
                       fmt::format("{}: {} does not belong here.", describe(runtime::errTypeMismatch), what));
}

/// An object or array that has begun and not ended.
class Level {
  public:
    explicit Level(const PlaceRule& rule) : m_rule(&rule) {}

    [[nodiscard]] Place place() const { return m_rule->place; }
    /// The key whose value comes now, "" in an array.
    [[nodiscard]] std::string_view key() const { return m_key; }
    void key(std::string_view name) {
        const auto found = std::ranges::find(m_rule->keys, name);
        if (found == m_rule->keys.end() || name.empty())
            complain("has no", name);
        const auto position = static_cast<std::size_t>(found - m_rule->keys.begin());
        if (seen(position))
            complain("has twice", name);
        m_seen |= 1U << position;
        m_key = *found;
    }

    /// What of the keys that must be there has not come, "" for nothing.
    [[nodiscard]] std::string_view missing() const {
        std::size_t position = 0;
        while (position < m_rule->required && seen(position))
            ++position;
        return position < m_rule->required ? m_rule->keys[position] : "";
    }
    void requireKeys() const {
        if (!missing().empty())
            complain("lacks", missing());
    }

    /// The rule for an object or array that begins here.
    [[nodiscard]] const PlaceRule& inner(bool isObject) const {
        const auto* rule = std::ranges::find_if(rules, [&](const PlaceRule& candidate) {
            return candidate.within == place() && candidate.key == m_key && candidate.isObject() == isObject;
        });
        if (rule == std::end(rules))
            raiseUnexpected(isObject ? "an object" : "an array");
        return *rule;
    }

  private:
    [[nodiscard]] bool seen(std::size_t position) const { return (m_seen >> position & 1U) != 0; }
    [[noreturn]] void complain(std::string_view complaint, std::string_view key) const {
        throw RuntimeError(runtime::errInvalidArgument,
                           fmt::format("{} {} \"{}\".", m_rule->name, complaint, key));
    }

    const PlaceRule* m_rule;
    std::string_view m_key;
    unsigned m_seen = 0;
};

/// A scalar outside the rows obeys the same rules as a value of a field of that type, but is never null.
template <typename T>
T requiredValue(FieldType type, JsonScalar&& scalar) {
    runtime::Value value = toFieldValue(type, std::move(scalar));
    if (value.isNull())
        runtime::raise(runtime::errInvalidNull);
    return value.get<T>();
}

std::string nameValue(JsonScalar&& scalar) {
    return requiredValue<std::string>(dbMemo, std::move(scalar));
}

int intValue(JsonScalar&& scalar) {
    return requiredValue<std::int32_t>(dbLong, std::move(scalar));
}

bool flagValue(JsonScalar&& scalar) {
    return requiredValue<bool>(dbBoolean, std::move(scalar));
}

FieldType typeValue(JsonScalar&& scalar) {
    const int type = intValue(std::move(scalar));
    if (!isFieldType(type))
        throw RuntimeError(runtime::errInvalidFieldType, fmt::format("There is no field type {}.", type));
    return static_cast<FieldType>(type);
}

void setProperty(FieldDef& field, std::string_view key, JsonScalar&& scalar) {
    if (key == "name")
        field.name = nameValue(std::move(scalar));
    else if (key == "type")
        field.type = typeValue(std::move(scalar));
    else if (key == "size")
        field.size = intValue(std::move(scalar));
    else if (key == "ordinal")
        field.ordinal = intValue(std::move(scalar));
    else
        field.allowZeroLength = flagValue(std::move(scalar));
}

void setProperty(IndexDef& index, std::string_view key, JsonScalar&& scalar) {
    if (key == "fields")
        raiseUnexpected(kindOf(scalar));
    if (key == "name")
        index.name = nameValue(std::move(scalar));
    else
        (key == "unique" ? index.unique : index.primary) = flagValue(std::move(scalar));
}

/// A text must say its size; other types have a size of their own, whatever the text says.
void checkSize(FieldDef& field) {
    if (field.type == dbText && (field.size < 1 || field.size > maxTextSize))
        throw RuntimeError(
            runtime::errInvalidArgument,
            fmt::format("Field \"{}\": a text has a size of 1 to {} characters.", field.name, maxTextSize));
    field.size = reportedSize(field.type, field.size);
}

/// What the parser says, without the tags and the position that stand in front of it; the last token,
/// which may be a whole book, is cut.
std::string complaintOf(const nlohmann::detail::exception& error) {
    constexpr std::size_t longest = 160;
    const std::string_view whole = error.what();
    const auto tag = whole.find("] ");
    std::string_view text = tag == std::string_view::npos ? whole : whole.substr(tag + 2);
    if (const auto place = text.find(": ");
        text.starts_with("parse error") && place != std::string_view::npos)
        text.remove_prefix(place + 2);
    std::string result(text.substr(0, longest));
    // The cut must not leave half a character.
    while (!result.empty() && result.size() < text.size() && (text[result.size()] & 0xC0) == 0x80)
        result.pop_back();
    return result + (result.size() < text.size() ? "..." : "");
}

/// Takes the parser's events. Rows go into their table as they are read, so that no more than one value is
/// ever held in memory.
class DatabaseReader : public nlohmann::json_sax<nlohmann::json> {
  public:
    DatabaseReader(Database& database, const RowWatcher& watcher) : m_loader(database, watcher) {}

    bool null() override { return take(nullptr); }
    bool boolean(bool value) override { return take(value); }
    bool number_integer(number_integer_t value) override { return take(std::int64_t{value}); }
    bool number_unsigned(number_unsigned_t value) override {
        if (std::in_range<std::int64_t>(value))
            return take(static_cast<std::int64_t>(value));
        return take(std::uint64_t{value});
    }
    bool number_float(number_float_t value, const string_t& spelled) override {
        return take(JsonReal{value, spelled});
    }
    bool string(string_t& value) override { return take(std::move(value)); }
    bool binary(binary_t& /*value*/) override { return false; } // no part of a JSON text

    bool start_object(std::size_t /*count*/) override { return begin(true); }
    bool key(string_t& name) override {
        m_levels.back().key(name);
        return true;
    }
    bool end_object() override { return end(); }
    bool start_array(std::size_t /*count*/) override { return begin(false); }
    bool end_array() override { return end(); }

    bool parse_error(std::size_t /*position*/, const std::string& /*lastToken*/,
                     const nlohmann::detail::exception& error) override {
        throw RuntimeError(runtime::errUnrecognisedFormat, "Not valid JSON: " + complaintOf(error));
    }

  private:
    bool begin(bool isObject);
    bool end();
    bool take(JsonScalar scalar);
    void beginRows();
    [[nodiscard]] TableDefinition& table() { return m_loader.wanted(); }

    TableLoader m_loader;
    std::vector<Level> m_levels{Level(rules[0])};
    std::string m_rawText;
};

bool DatabaseReader::begin(bool isObject) {
    const PlaceRule& rule = m_levels.back().inner(isObject);
    switch (rule.place) {
    case Place::Table:
        m_loader.beginTable();
        break;
    case Place::Field:
        table().fields.emplace_back();
        break;
    case Place::Index:
        table().indexes.emplace_back();
        break;
    case Place::Rows:
        beginRows();
        break;
    case Place::Row:
        m_loader.beginRow();
        break;
    default:
        break;
    }
    m_levels.emplace_back(rule);
    return true;
}

void DatabaseReader::beginRows() {
    if (!m_levels.back().missing().empty())
        throw RuntimeError(runtime::errInvalidArgument,
                           "\"rows\" must stand behind \"name\" and \"fields\" of its table.");
    m_loader.beginRows();
}

bool DatabaseReader::end() {
    m_levels.back().requireKeys();
    switch (m_levels.back().place()) {
    case Place::Table:
        m_loader.endTable();
        break;
    case Place::Field:
        checkSize(table().fields.back());
        break;
    case Place::Row:
        m_loader.endRow();
        break;
    case Place::RawText:
        m_loader.addRawText(std::move(m_rawText));
        break;
    default:
        break;
    }
    m_levels.pop_back();
    return true;
}

bool DatabaseReader::take(JsonScalar scalar) {
    const Level& level = m_levels.back();
    switch (level.place()) {
    case Place::Table:
        if (level.key() == "withoutRowKeys") { // one of another maker; here it becomes a table like any other
            flagValue(std::move(scalar));
            break;
        }
        if (level.key() != "name" || !std::holds_alternative<std::string>(scalar))
            raiseUnexpected(kindOf(scalar));
        table().name = std::get<std::string>(std::move(scalar));
        break;
    case Place::Field:
        setProperty(table().fields.back(), level.key(), std::move(scalar));
        break;
    case Place::Index:
        setProperty(table().indexes.back(), level.key(), std::move(scalar));
        break;
    case Place::IndexFields:
        table().indexes.back().fields.push_back(nameValue(std::move(scalar)));
        break;
    case Place::Row:
        m_loader.addValue(std::move(scalar));
        break;
    case Place::RawText: {
        const auto bytes = requiredValue<runtime::Bytes>(dbLongBinary, std::move(scalar));
        m_rawText.assign(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        break;
    }
    default:
        raiseUnexpected(kindOf(scalar));
    }
    return true;
}

} // namespace

void readDatabase(std::istream& in, Database& database, const RowWatcher& watcher) {
    LineCountingBuffer lines(in);
    std::istream counted(&lines);
    DatabaseReader reader(database, watcher);
    try {
        nlohmann::json::sax_parse(counted, &reader);
    } catch (const RuntimeError& error) {
        throw atPlace(fmt::format("Line {}", lines.line()), error);
    }
}

} // namespace tol::data::json
