// SPDX-License-Identifier: MIT
#include "data/json/JsonValue.h"

#include "data/json/JsonText.h"
#include "runtime/Conversions.h"
#include "runtime/Overloaded.h"
#include "runtime/RuntimeError.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace tol::data::json {
namespace {

using runtime::RuntimeError;
using runtime::Value;

constexpr std::string_view infinity = "Infinity";
constexpr std::string_view negativeInfinity = "-Infinity";
constexpr std::string_view notANumber = "NaN";
constexpr std::size_t longestNumber = 32;
constexpr std::size_t longestQuote = 40;

void appendSpecial(std::string& out, double number) {
    appendQuoted(out, std::isnan(number) ? notANumber : number > 0 ? infinity : negativeInfinity);
}

template <typename Real>
void appendReal(std::string& out, Real number) {
    if (!std::isfinite(number)) {
        appendSpecial(out, number);
        return;
    }
    std::array<char, longestNumber> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
    out += text;
    if (text.find_first_of(".e") == std::string_view::npos)
        out += ".0";
}

void appendBytes(std::string& out, const runtime::Bytes& bytes) {
    out += '"';
    appendBase64(out, bytes);
    out += '"';
}

void appendText(std::string& out, const std::string& text) {
    if (isUtf8(text)) {
        appendQuoted(out, text);
        return;
    }
    out.append("{\"").append(rawTextKey).append("\": \"");
    appendBase64(out, std::as_bytes(std::span(text)));
    out += "\"}";
}

[[noreturn]] void raiseWrongKind(const JsonScalar& scalar, std::string_view wanted) {
    throw RuntimeError(
        runtime::errTypeMismatch,
        fmt::format("{}: {} where {} belongs.", describe(runtime::errTypeMismatch), kindOf(scalar), wanted));
}

[[noreturn]] void raiseTooLarge(std::string_view number) {
    throw RuntimeError(runtime::errOverflow,
                       fmt::format("{}: {} does not fit.", describe(runtime::errOverflow), number));
}

[[noreturn]] void raiseUnreadable(std::string_view text, std::string_view wanted) {
    const std::string_view end = text.size() > longestQuote ? "..." : "";
    throw RuntimeError(runtime::errDataConversion,
                       fmt::format("{} \"{}{}\" is not {}.", describe(runtime::errDataConversion),
                                   text.substr(0, longestQuote), end, wanted));
}

template <typename Whole>
Value toWhole(const JsonScalar& scalar) {
    if (const auto* number = std::get_if<std::int64_t>(&scalar)) {
        if (!std::in_range<Whole>(*number))
            raiseTooLarge(std::to_string(*number));
        return static_cast<Whole>(*number);
    }
    if (const auto* number = std::get_if<std::uint64_t>(&scalar))
        raiseTooLarge(std::to_string(*number));
    raiseWrongKind(scalar, "a whole number");
}

template <typename Real>
std::optional<Real> specialNumber(const JsonScalar& scalar) {
    const auto* text = std::get_if<std::string>(&scalar);
    if (text == nullptr)
        return std::nullopt;
    if (*text == infinity)
        return std::numeric_limits<Real>::infinity();
    if (*text == negativeInfinity)
        return -std::numeric_limits<Real>::infinity();
    if (*text == notANumber)
        return std::numeric_limits<Real>::quiet_NaN();
    return std::nullopt;
}

float rounded(const JsonReal& real, float /*tag*/) {
    float number = 0;
    const char* end = real.spelled.data() + real.spelled.size();
    if (std::from_chars(real.spelled.data(), end, number).ec == std::errc())
        return number;
    if (std::abs(real.value) > 1)
        raiseTooLarge(real.spelled);
    return static_cast<float>(real.value); // nearer to 0 than any Single but 0
}

double rounded(const JsonReal& real, double /*tag*/) {
    return real.value;
}

template <typename Real>
Value toReal(const JsonScalar& scalar) {
    if (const auto* number = std::get_if<std::int64_t>(&scalar))
        return static_cast<Real>(*number);
    if (const auto* number = std::get_if<std::uint64_t>(&scalar))
        return static_cast<Real>(*number);
    if (const auto* number = std::get_if<JsonReal>(&scalar))
        return rounded(*number, Real());
    if (const auto special = specialNumber<Real>(scalar))
        return *special;
    raiseWrongKind(scalar, "a number");
}

const std::string& textIn(const JsonScalar& scalar, std::string_view wanted) {
    const auto* text = std::get_if<std::string>(&scalar);
    if (text == nullptr)
        raiseWrongKind(scalar, wanted);
    return *text;
}

Value toCurrencyValue(const JsonScalar& scalar) {
    constexpr std::string_view wanted = "an amount as text";
    const std::string& text = textIn(scalar, wanted);
    try {
        return runtime::currencyFromText(text);
    } catch (const RuntimeError& error) {
        if (error.number() == runtime::errOverflow)
            raiseTooLarge(text);
        raiseUnreadable(text, "an amount with at most four decimals");
    }
}

Value toDateValue(const JsonScalar& scalar) {
    const std::string& text = textIn(scalar, "a date as text");
    // Fractions of a second would be dropped in silence; such a text does not fit.
    constexpr std::size_t longest = std::string_view("YYYY-MM-DD HH:MM:SS").size();
    try {
        if (text.size() <= longest)
            return runtime::dateFromIso(text);
    } catch (const RuntimeError&) { // told below, with the text
    }
    raiseUnreadable(text, "a date like \"2003-01-31 16:05:00\"");
}

Value toBinaryValue(const JsonScalar& scalar) {
    const std::string& text = textIn(scalar, "base64 text");
    auto bytes = fromBase64(text);
    if (!bytes)
        raiseUnreadable(text, "base64 text");
    return std::move(*bytes);
}

Value toBooleanValue(const JsonScalar& scalar) {
    const auto* flag = std::get_if<bool>(&scalar);
    if (flag == nullptr)
        raiseWrongKind(scalar, "true or false");
    return *flag;
}

Value toTextValue(JsonScalar& scalar) {
    auto* text = std::get_if<std::string>(&scalar);
    if (text == nullptr)
        raiseWrongKind(scalar, "a text");
    return std::move(*text);
}

} // namespace

void appendValue(std::string& out, const Value& value) {
    value.visit(runtime::Overloaded{
        [&](runtime::Empty) { out += "null"; },
        [&](runtime::Null) { out += "null"; },
        [&](bool flag) { out += flag ? "true" : "false"; },
        [&](std::integral auto number) { fmt::format_to(std::back_inserter(out), "{}", number); },
        [&](std::floating_point auto number) { appendReal(out, number); },
        [&](runtime::Currency amount) { appendQuoted(out, runtime::fourDecimals(amount)); },
        [&](runtime::Date date) { appendQuoted(out, runtime::isoText(date)); },
        [&](const std::string& text) { appendText(out, text); },
        [&](const runtime::Bytes& bytes) { appendBytes(out, bytes); },
    });
}

Value toFieldValue(FieldType type, JsonScalar scalar) {
    if (std::holds_alternative<std::nullptr_t>(scalar))
        return runtime::Null{};
    switch (type) {
    case dbBoolean:
        return toBooleanValue(scalar);
    case dbByte:
        return toWhole<std::uint8_t>(scalar);
    case dbInteger:
        return toWhole<std::int16_t>(scalar);
    case dbLong:
        return toWhole<std::int32_t>(scalar);
    case dbCurrency:
        return toCurrencyValue(scalar);
    case dbSingle:
        return toReal<float>(scalar);
    case dbDouble:
        return toReal<double>(scalar);
    case dbDate:
        return toDateValue(scalar);
    case dbLongBinary:
        return toBinaryValue(scalar);
    case dbText:
    case dbMemo:
    case dbGUID:
        break;
    }
    return toTextValue(scalar);
}

bool holdsText(FieldType type) {
    return type == dbText || type == dbMemo || type == dbGUID;
}

std::string_view kindOf(const JsonScalar& scalar) {
    constexpr std::array<std::string_view, std::variant_size_v<JsonScalar>> kinds = {
        "null", "true or false", "a whole number", "a whole number", "a number with decimals", "a text"};
    return kinds[scalar.index()];
}

} // namespace tol::data::json
