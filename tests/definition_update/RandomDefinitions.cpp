// SPDX-License-Identifier: MIT
#include "RandomDefinitions.h"

#include "ConversionModel.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <iterator>
#include <map>
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
    const int count = fields.empty() || impossible ? 0 : below(8);
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
    const int becomes = wantedField.is_null() ? type : wantedField.at(1).get<int>();
    if (type == data::dbText && becomes == data::dbDate)
        return dateText(field.at(2).get<int>());
    if (oneIn(5))
        return nullptr;
    switch (type) {
    case data::dbBoolean:
        return oneIn(2);
    case data::dbDate:
        return fmt::format("200{}-{:02}-{:02} 00:00:00", below(10), 1 + below(12), 1 + below(28));
    case data::dbText:
        return text(field.at(2).get<int>(), becomes == data::dbInteger || becomes == data::dbLong);
    case data::dbMemo:
    case data::dbLongBinary:
        return text(30, false);
    case data::dbGUID:
        return fmt::format("{{0000000{}-0000-0000-0000-000000000000}}", below(10));
    default:
        return number(type, becomes == data::dbText ? wantedField.at(2).get<int>() : mostTextCharacters);
    }
}

/// One that has no more characters than that in its ordinary text form.
Json RandomDefinitions::number(int type, int characters) {
    const int sixteenths = below(32'000'000) - 16'000'000;
    const std::map<int, Json> numbers{
        {data::dbByte, below(256)},
        {data::dbInteger, below(65'536) - 32'768},
        {data::dbLong, oneIn(2) ? below(70'000) - 35'000 : below(2'000'000'000) - 1'000'000'000},
        {data::dbCurrency, fmt::format("{}.{:04}", below(80'000) - 40'000, below(10'000))},
        {data::dbSingle, sixteenths % 1600 / 16.0},
        {data::dbDouble, sixteenths / 16.0}};
    const Json any = numbers.at(type);
    if (ordinaryText(any, type).size() <= static_cast<std::size_t>(characters))
        return any;
    return type == data::dbCurrency ? Json(std::to_string(below(10)) + ".0000") : Json(below(10));
}

std::string RandomDefinitions::text(int characters, bool becomesNumber) {
    static constexpr std::array numbers{"12abc",  "1 2 34x", "-3.5", "2.5", "3.5", "x7",  "99999", "-32767",
                                        "32 766", "+8",      "0.5",  "-1",  "007", "4,5", ".",     "9 - 9"};
    static constexpr std::array characterTable{"a", "Z", "é", "Ü", "木", "🙂", "7", " ", "'", "ß", "_"};
    std::string made;
    if (becomesNumber) {
        made = numbers.at(static_cast<std::size_t>(below(numbers.size())));
    } else {
        for (int count = 1 + below(characters); count > 0; --count)
            made += characterTable.at(static_cast<std::size_t>(below(characterTable.size())));
    }
    return firstCharacters(made, characters);
}

std::string RandomDefinitions::dateText(int characters) {
    std::string made = fmt::format("{}/{}/{}", 1 + below(9), 10 + below(18), 10 + below(80));
    const std::string time = " 4 PM";
    return oneIn(4) && made.size() + time.size() <= static_cast<std::size_t>(characters) ? made + time : made;
}

} // namespace tol::test
