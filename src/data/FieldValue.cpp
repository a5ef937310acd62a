// SPDX-License-Identifier: MIT
#include "data/FieldValue.h"

#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>

namespace tol::data {
namespace {

using runtime::Value;

/// Thirty-two hexadecimal digits in groups of 8, 4, 4, 4 and 12, in braces or not.
bool isIdentifier(std::string_view text) {
    constexpr std::string_view pattern = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    if (text.size() == pattern.size() + 2 && text.front() == '{' && text.back() == '}')
        text = text.substr(1, pattern.size());
    return std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(), [](char c, char expected) {
        return expected == '-' ? c == '-' : std::isxdigit(static_cast<unsigned char>(c)) != 0;
    });
}

Value toIdentifier(const Value& value) {
    std::string text = runtime::toText(value);
    if (!runtime::trim(text).empty() && !isIdentifier(text))
        runtime::raise(runtime::errDataConversion);
    return text;
}

Value toBinary(const Value& value) {
    const std::string text = runtime::toText(value);
    runtime::Bytes bytes(text.size());
    if (!text.empty())
        std::memcpy(bytes.data(), text.data(), text.size());
    return bytes;
}

/// What the database can't keep must not come in as a value of the right type either.
void requireFinite(const Value& value) {
    const bool finite = value.is<double>()  ? std::isfinite(value.get<double>())
                        : value.is<float>() ? std::isfinite(value.get<float>())
                                            : true;
    if (!finite)
        runtime::raise(runtime::errOverflow);
}

Value convert(FieldType type, const Value& value) {
    switch (type) {
    case dbBoolean:
        return runtime::toBoolean(value);
    case dbByte:
        return runtime::toByte(value);
    case dbInteger:
        return runtime::toInteger(value);
    case dbLong:
        return runtime::toLong(value);
    case dbCurrency:
        return runtime::toCurrency(value);
    case dbSingle:
        return runtime::toSingle(value);
    case dbDouble:
        return runtime::toDouble(value);
    case dbDate:
        return runtime::toDate(value);
    case dbLongBinary:
        return toBinary(value);
    case dbGUID:
        return toIdentifier(value);
    case dbText:
    case dbMemo:
        break;
    }
    return runtime::toText(value);
}

} // namespace

bool hasOwnType(FieldType type, const Value& value) {
    switch (type) {
    case dbBoolean:
        return value.is<bool>();
    case dbByte:
        return value.is<std::uint8_t>();
    case dbInteger:
        return value.is<std::int16_t>();
    case dbLong:
        return value.is<std::int32_t>();
    case dbCurrency:
        return value.is<runtime::Currency>();
    case dbSingle:
        return value.is<float>();
    case dbDouble:
        return value.is<double>();
    case dbDate:
        return value.is<runtime::Date>();
    case dbLongBinary:
        return value.is<runtime::Bytes>();
    case dbText:
    case dbMemo:
    case dbGUID:
        break;
    }
    return value.is<std::string>();
}

Value toFieldType(FieldType type, const Value& value) {
    if (value.isNull())
        return value;
    requireFinite(value);
    if (type != dbGUID && hasOwnType(type, value))
        return value;
    try {
        return convert(type, value);
    } catch (const runtime::RuntimeError& error) {
        if (error.number() != runtime::errTypeMismatch)
            throw;
        runtime::raise(runtime::errDataConversion, {}, error.description());
    }
}

void requireFits(const FieldDef& field, const Value& value) {
    if (field.type != dbText || !value.is<std::string>())
        return;
    const auto& text = value.get<std::string>();
    const auto size = static_cast<std::size_t>(field.size);
    // A text of no more bytes than characters allowed need not be counted.
    if (text.size() > size && runtime::length(text) > size)
        runtime::raise(runtime::errFieldTooSmall, {field.name});
}

} // namespace tol::data
