// SPDX-License-Identifier: MIT
#include "data/sqlite/rows/FieldStorage.h"

#include "runtime/Conversions.h"
#include "runtime/Overloaded.h"
#include "runtime/RuntimeError.h"

#include <sqlite3.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>

namespace tol::data::sqlite {
namespace {

using runtime::Value;
using Kind = StoredValue::Kind;

constexpr std::int64_t currencyScale = 10000;
constexpr double dayOfUnixEpoch = 25569;       // 1 January 1970, counted from 30 December 1899
constexpr double dayOfJulianEpoch = 2415018.5; // Julian day of 30 December 1899, midnight
constexpr double secondsOfDay = 86400;
constexpr double exactInDouble = 9007199254740992; // 2^53

std::string_view viewOf(const runtime::Bytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

runtime::Bytes bytesOf(std::string_view text) {
    runtime::Bytes bytes(text.size());
    if (!text.empty())
        std::memcpy(bytes.data(), text.data(), text.size());
    return bytes;
}

StoredValue storedCurrency(runtime::Currency amount, Storage storage) {
    if (storage == Storage::ScaledCurrency)
        return StoredValue::ofInteger(amount.tenThousandths);
    if (amount.tenThousandths % currencyScale == 0)
        return StoredValue::ofInteger(amount.tenThousandths / currencyScale);
    return StoredValue::ofReal(static_cast<double>(amount.tenThousandths) / currencyScale);
}

std::optional<std::int64_t> wholeNumber(std::string_view text) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

/// The value without regard to the field: a whole number, a Double, a text or bytes.
Value plainValue(const StoredValue& stored) {
    switch (stored.kind) {
    case Kind::Integer:
        if (stored.integer >= std::numeric_limits<std::int32_t>::min() &&
            stored.integer <= std::numeric_limits<std::int32_t>::max())
            return static_cast<std::int32_t>(stored.integer);
        return static_cast<double>(stored.integer);
    case Kind::Real:
        return stored.real;
    case Kind::Text:
        return stored.text;
    case Kind::Blob:
        return bytesOf(stored.text);
    case Kind::Null:
        break;
    }
    return runtime::Null{};
}

Value longValue(Value plain) {
    return plain.is<std::int32_t>() ? std::move(plain) : Value(runtime::toLong(plain));
}

Value currencyValue(const StoredValue& stored, Storage storage) {
    if (stored.kind == Kind::Integer && storage == Storage::ScaledCurrency)
        return runtime::Currency{stored.integer};
    std::int64_t scaled = 0;
    if (stored.kind == Kind::Integer && !__builtin_mul_overflow(stored.integer, currencyScale, &scaled))
        return runtime::Currency{scaled};
    return runtime::toCurrency(plainValue(stored));
}

/// Days with the time as fraction. Dates hold whole seconds, and before day 0 their fraction still
/// counts forward from midnight.
runtime::Date dateOfDays(double days) {
    const double rounded = std::round(days * secondsOfDay) / secondsOfDay;
    const double day = std::floor(rounded);
    const double time = rounded - day;
    return runtime::Date{day < 0 ? day - time : day + time};
}

Value dateValue(const StoredValue& stored) {
    switch (stored.kind) {
    case Kind::Integer:
        return dateOfDays(dayOfUnixEpoch + static_cast<double>(stored.integer) / secondsOfDay);
    case Kind::Real:
        return dateOfDays(stored.real - dayOfJulianEpoch);
    default:
        return runtime::dateFromIso(stored.text);
    }
}

/// A whole number of 64 bits has a text of its own; Double would round it.
std::string textValue(const StoredValue& stored) {
    if (stored.kind == Kind::Integer)
        return std::to_string(stored.integer);
    if (stored.kind == Kind::Real)
        return runtime::toText(stored.real);
    return std::string(stored.text);
}

Value typedValue(const StoredValue& stored, FieldType type, Storage storage) {
    switch (type) {
    case dbBoolean:
        return runtime::toBoolean(plainValue(stored));
    case dbByte:
        return runtime::toByte(plainValue(stored));
    case dbInteger:
        return runtime::toInteger(plainValue(stored));
    case dbLong:
        return longValue(plainValue(stored));
    case dbCurrency:
        return currencyValue(stored, storage);
    case dbSingle:
        return runtime::toSingle(plainValue(stored));
    case dbDouble:
        return stored.kind == Kind::Real ? stored.real : runtime::toDouble(plainValue(stored));
    case dbDate:
        return dateValue(stored);
    case dbLongBinary:
        return bytesOf(textValue(stored));
    case dbText:
    case dbMemo:
    case dbGUID:
        break;
    }
    return textValue(stored);
}

} // namespace

StoredValue toStored(const Value& value, Storage storage, std::string& buffer) {
    return value.visit(runtime::Overloaded{
        [](runtime::Empty) { return StoredValue(); },
        [](runtime::Null) { return StoredValue(); },
        [&](runtime::Currency amount) { return storedCurrency(amount, storage); },
        [&](runtime::Date date) {
            buffer = runtime::isoText(date);
            return StoredValue::ofText(buffer);
        },
        [&](const std::string& text) {
            const auto number = storage == Storage::WholeNumber ? wholeNumber(text) : std::nullopt;
            return number ? StoredValue::ofInteger(*number) : StoredValue::ofText(text);
        },
        [](const runtime::Bytes& bytes) { return StoredValue::ofBlob(viewOf(bytes)); },
        [&](std::floating_point auto number) {
            if (std::isnan(number))
                return StoredValue(); // as SQLite would
            const bool isWhole = storage == Storage::WholeNumber && std::fabs(number) <= exactInDouble &&
                                 std::trunc(number) == number;
            return isWhole ? StoredValue::ofInteger(static_cast<std::int64_t>(number))
                           : StoredValue::ofReal(number);
        },
        [](std::integral auto number) { return StoredValue::ofInteger(number); },
    });
}

Value fromStored(const StoredValue& stored, FieldType type, Storage storage) {
    if (stored.isNull())
        return runtime::Null{};
    try {
        return typedValue(stored, type, storage);
    } catch (const runtime::RuntimeError& error) {
        runtime::raise(runtime::errDataConversion, {}, error.description());
    }
}

void bindStored(Statement& statement, int parameter, const StoredValue& value) {
    sqlite3_stmt* handle = statement.handle();
    switch (value.kind) {
    case Kind::Null:
        statement.bindNull(parameter);
        break;
    case Kind::Integer:
        statement.bind(parameter, value.integer);
        break;
    case Kind::Real:
        statement.bind(parameter, value.real);
        break;
    case Kind::Text:
        sqlite3_bind_text64(handle, parameter, value.text.data() == nullptr ? "" : value.text.data(),
                            value.text.size(), SQLITE_STATIC, SQLITE_UTF8);
        break;
    case Kind::Blob:
        sqlite3_bind_blob64(handle, parameter, value.text.empty() ? "" : value.text.data(), value.text.size(),
                            SQLITE_STATIC);
        break;
    }
}

} // namespace tol::data::sqlite
