// SPDX-License-Identifier: MIT
#include "RandomDefinitions.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace tol::test {

namespace {

constexpr std::array fieldTypes{1, 2, 3, 4, 5, 6, 7, 8, 10, 10, 10, 11, 12, 15};
constexpr std::array fieldNames{"AMOUNT",  "CODE", "DONE", "ID", "NOTE",
                                "PAID ON", "RATE", "Ünit", "X",  "ZIP"};
constexpr std::array indexNames{"BYCODE", "BYID", "MAIN", "OTHER"};
constexpr int mostTextCharacters = 12;
constexpr int dateTextCharacters = 8;

bool canBeKey(const Json& field) {
    return field.at(1) != data::dbMemo && field.at(1) != data::dbLongBinary;
}

Json find(const Json& fields, const Json& name) {
    const auto found =
        std::find_if(fields.begin(), fields.end(), [&](const Json& each) { return each.at(0) == name; });
    return found == fields.end() ? Json() : *found;
}

} // namespace

Json RandomDefinitions::wanted(const std::string& prefix) {
    Json tables = Json::object();
    const int count = 1 + below(2);
    for (int i = 0; i < count; ++i)
        tables[prefix + std::to_string(i)] = table();
    return tables;
}

Json RandomDefinitions::older(const std::string& prefix, const Json& wanted) {
    Json tables = Json::object();
    for (const auto& [name, definition] : wanted.items()) {
        if (oneIn(6))
            continue;
        tables[name] = oneIn(4) ? table() : changed(definition);
        if (oneIn(20))
            tables[name] = {{"fields", Json::array()}};
        addRows(tables[name], definition);
    }
    if (oneIn(4)) {
        tables[prefix + "OLD"] = table();
        addRows(tables[prefix + "OLD"], Json::object());
    }
    return tables;
}

Json RandomDefinitions::table() {
    Json fields = Json::array();
    std::vector<const char*> names(fieldNames.begin(), fieldNames.end());
    std::shuffle(names.begin(), names.end(), m_random);
    names.resize(1 + static_cast<std::size_t>(below(5)));
    for (const char* name : names)
        fields.push_back(field(name));
    return {{"fields", fields}, {"indexes", indexes(fields)}};
}

Json RandomDefinitions::field(const std::string& name) {
    const int type = fieldTypes.at(static_cast<std::size_t>(below(static_cast<int>(fieldTypes.size()))));
    const int size = data::reportedSize(static_cast<data::FieldType>(type), 1 + below(mostTextCharacters));
    return Json::array({name, type, size});
}

Json RandomDefinitions::indexes(const Json& fields) {
    Json made = Json::object();
    std::vector<Json> keys;
    std::copy_if(fields.begin(), fields.end(), std::back_inserter(keys), canBeKey);
    for (const char* name : indexNames) {
        if (keys.empty() || !oneIn(3))
            continue;
        std::shuffle(keys.begin(), keys.end(), m_random);
        const auto count = 1 + static_cast<std::size_t>(below(static_cast<int>(keys.size())));
        for (std::size_t key = 0; key < std::min<std::size_t>(count, 3); ++key)
            made[name].push_back(keys[key].at(0));
    }
    return made;
}

/// Leaves out, adds, changes and moves fields, and has indexes of its own about as often as the same ones.
Json RandomDefinitions::changed(const Json& table) {
    Json fields = Json::array();
    for (const Json& each : table.at("fields")) {
        if (oneIn(5))
            continue;
        fields.push_back(oneIn(3) ? field(each.at(0).get<std::string>()) : each);
        if (each.at(1) == data::dbText && oneIn(3))
            fields.back() = Json::array({each.at(0), data::dbText, 1 + below(mostTextCharacters), !oneIn(3)});
    }
    const std::string another = fieldNames.at(static_cast<std::size_t>(below(fieldNames.size())));
    if (oneIn(3) && find(fields, another).is_null())
        fields.push_back(field(another));
    if (oneIn(3))
        std::shuffle(fields.begin(), fields.end(), m_random);
    return {{"fields", fields}, {"indexes", indexes(fields)}};
}

void RandomDefinitions::addRows(Json& older, const Json& wanted) {
    Json rows = Json::array();
    const Json& fields = older.at("fields");
    const Json wantedFields = wanted.value("fields", Json::array());
    // A text too short for a date could not become one.
    const bool impossible = std::any_of(fields.begin(), fields.end(), [&](const Json& each) {
        const Json becomes = find(wantedFields, each.at(0));
        return each.at(1) == data::dbText && each.at(2) < dateTextCharacters && !becomes.is_null() &&
               becomes.at(1) == data::dbDate;
    });
    const int count = fields.empty() || impossible ? 0 : below(5);
    for (int i = 0; i < count; ++i) {
        Json row = Json::array();
        for (const Json& each : fields)
            row.push_back(value(each, find(wantedFields, each.at(0))));
        rows.push_back(row);
    }
    older["rows"] = rows;
}

Json RandomDefinitions::value(const Json& field, const Json& wantedField) {
    const int type = field.at(1).get<int>();
    const bool becomesDate =
        type == data::dbText && !wantedField.is_null() && wantedField.at(1) == data::dbDate;
    if (becomesDate)
        return std::to_string(1 + below(9)) + "/" + std::to_string(10 + below(18)) + "/" +
               std::to_string(10 + below(80));
    if (oneIn(5))
        return nullptr;
    const int digit = below(10);
    switch (type) {
    case data::dbBoolean:
        return digit < 5;
    case data::dbCurrency:
        return std::to_string(digit) + ".0000";
    case data::dbDate:
        return "200" + std::to_string(digit) + "-11-30 00:00:00";
    case data::dbText:
    case data::dbMemo:
    case data::dbLongBinary:
        return std::string(
                   static_cast<std::size_t>(1 + below(type == data::dbText ? field.at(2).get<int>() : 30)),
                   static_cast<char>('0' + digit))
            .substr(0, 9);
    case data::dbGUID:
        return "{0000000" + std::to_string(digit) + "-0000-0000-0000-000000000000}";
    default:
        return digit;
    }
}

} // namespace tol::test
