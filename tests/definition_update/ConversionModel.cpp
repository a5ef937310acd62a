// SPDX-License-Identifier: MIT
#include "ConversionModel.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace tol::test {

using namespace data; // the names of the field types

namespace {

int typeOf(const Json& field) {
    return field.at(1).get<int>();
}

int sizeOf(const Json& field) {
    return field.at(2).get<int>();
}

Json blankOf(const Json& field) {
    switch (typeOf(field)) {
    case dbBoolean:
        return false;
    case dbCurrency:
        return "0.0000";
    case dbDate:
        return "1900-01-01 00:00:00";
    case dbText:
        return std::string(static_cast<std::size_t>(sizeOf(field)), ' ');
    case dbLongBinary:
    case dbMemo:
    case dbGUID:
        return " ";
    default:
        return 0;
    }
}

Json blankForNull(const Json& value, const Json& field) {
    return value.is_null() ? blankOf(field) : value;
}

bool isNumber(int type) {
    return type >= dbInteger && type <= dbDouble;
}

double numberOf(const Json& value) {
    return value.is_string() ? std::strtod(value.get<std::string>().c_str(), nullptr) : value.get<double>();
}

std::string fourPlaces(double number) {
    char text[40];
    std::snprintf(text, sizeof text, "%.4f", number);
    return text;
}

Json rounded(double number) {
    return static_cast<std::int64_t>(std::nearbyint(number)); // half to even
}

/// In the number type, none where the type's bounds are in the way.
std::optional<Json> asNumber(double number, int oldType, int wanted) {
    switch (wanted) {
    case dbBoolean:
        return number > 0;
    case dbInteger:
        if (oldType != dbInteger && !(number > -32767 && number < 32767))
            return std::nullopt;
        return rounded(number);
    case dbLong:
        return rounded(number);
    case dbCurrency:
        return fourPlaces(number);
    case dbSingle:
        return static_cast<double>(static_cast<float>(number));
    case dbDouble:
        return number;
    default:
        return std::nullopt;
    }
}

std::optional<Json> fromBoolean(bool value, int wanted) {
    if (wanted == dbText)
        return value ? "T" : "F";
    return asNumber(value ? 1 : 0, dbInteger, wanted);
}

std::optional<Json> fromNumber(const Json& value, int type, const Json& wanted) {
    if (typeOf(wanted) != dbText)
        return asNumber(numberOf(value), type, typeOf(wanted));
    const std::string text = ordinaryText(value, type);
    if (type != dbInteger)
        return text;
    return std::string(static_cast<std::size_t>(sizeOf(wanted)) - text.size(), ' ') + text;
}

std::optional<Json> fromDate(const Json& value, const Json& wanted) {
    constexpr int placesOfDate = 10;
    if (typeOf(wanted) != dbText || sizeOf(wanted) < placesOfDate)
        return std::nullopt;
    return ordinaryText(value, dbDate);
}

double leadingNumberOf(std::string text) {
    std::erase(text, ' ');
    const auto behindDigits = [&text](std::size_t at) {
        return std::min(text.find_first_not_of("0123456789", at), text.size());
    };
    const std::size_t first = text.find_first_not_of("+-") == 1 ? 1 : 0;
    std::size_t end = behindDigits(first);
    if (end == first)
        return 0;
    if (end < text.size() && text[end] == '.' && behindDigits(end + 1) > end + 1)
        end = behindDigits(end + 1);
    return std::strtod(text.substr(0, end).c_str(), nullptr);
}

/// "1/31/03"; what names a time as well does not become a date.
std::optional<Json> dayOf(const std::string& text) {
    int month = 0, day = 0, year = 0;
    if (std::sscanf(text.c_str(), "%d/%d/%d", &month, &day, &year) != 3 || text.ends_with("M"))
        return std::nullopt;
    char stored[40];
    std::snprintf(stored, sizeof stored, "%04d-%02d-%02d 00:00:00", year + (year < 30 ? 2000 : 1900), month,
                  day);
    return stored;
}

std::optional<Json> fromText(const std::string& text, int wanted) {
    switch (wanted) {
    case dbInteger:
    case dbLong:
        return asNumber(leadingNumberOf(text), dbText, wanted);
    case dbDate:
        return dayOf(text);
    case dbMemo:
        return text;
    default:
        return std::nullopt;
    }
}

std::optional<Json> converted(const Json& value, int type, const Json& wanted) {
    if (type == dbBoolean)
        return fromBoolean(value.get<bool>(), typeOf(wanted));
    if (isNumber(type))
        return fromNumber(value, type, wanted);
    if (type == dbDate)
        return fromDate(value, wanted);
    if (type == dbText)
        return fromText(value.get<std::string>(), typeOf(wanted));
    return std::nullopt;
}

} // namespace

std::string ordinaryText(const Json& value, int type) {
    if (type == dbDate) {
        int year = 0, month = 0, day = 0;
        std::sscanf(value.get<std::string>().c_str(), "%d-%d-%d", &year, &month, &day);
        return std::to_string(month) + "/" + std::to_string(day) + "/" + std::to_string(year);
    }
    std::string text = fourPlaces(numberOf(value));
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.pop_back();
    return text;
}

std::string firstCharacters(const std::string& text, int count) {
    std::size_t end = 0;
    for (; end < text.size(); ++end) {
        const bool starts = (static_cast<unsigned char>(text[end]) & 0xC0) != 0x80;
        if (starts && count-- == 0)
            break;
    }
    return text.substr(0, end);
}

Json valueAfterUpdate(const Json& value, const Json& oldField, const Json& wantedField) {
    const int type = typeOf(oldField);
    if (type != typeOf(wantedField))
        return converted(blankForNull(value, oldField), type, wantedField).value_or(blankOf(wantedField));
    if (sizeOf(oldField) == sizeOf(wantedField))
        return value;
    return firstCharacters(blankForNull(value, oldField).get<std::string>(), sizeOf(wantedField));
}

} // namespace tol::test
