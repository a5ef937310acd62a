// SPDX-License-Identifier: MIT
#include "runtime/Conversions.h"
#include "runtime/Decimal.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <type_traits>

namespace tol::runtime {
namespace {

constexpr int singleDigits = 7, doubleDigits = 15;

std::string wholeText(std::int64_t value) {
    std::array<char, 24> text;
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

/// "1234.5", "0.0012". `point` is where the decimal point stands among the digits.
std::string plainText(const Decimal& number) {
    std::string text(number.negative() ? "-" : "");
    const std::string_view digits = number.digits();
    const auto count = static_cast<std::int64_t>(digits.size());
    if (number.point() <= 0) {
        text += "0.";
        text.append(static_cast<std::size_t>(-number.point()), '0').append(digits);
    } else if (number.point() >= count) {
        text.append(digits).append(static_cast<std::size_t>(number.point() - count), '0');
    } else {
        const auto whole = static_cast<std::size_t>(number.point());
        text.append(digits.substr(0, whole)).append(".").append(digits.substr(whole));
    }
    return text;
}

std::string exponentText(const Decimal& number) {
    const std::string_view digits = number.digits();
    const std::int64_t exponent = number.point() - 1;
    return fmt::format("{}{}{}{}E{}{:02}", number.negative() ? "-" : "", digits.front(),
                       digits.size() > 1 ? "." : "", digits.substr(1), exponent < 0 ? '-' : '+',
                       std::abs(exponent));
}

/// A number keeps to plain digits as long as all of them, zeros behind the point included, fit into
/// the type's significant places.
std::string floatText(double value, int places) {
    if (std::isnan(value))
        return "NaN";
    if (std::isinf(value))
        return value < 0 ? "-Infinity" : "Infinity";
    const Decimal number(value, places);
    if (number.count() == 0)
        return "0";
    const bool plain =
        number.point() > 0 ? number.point() <= places : number.count() - number.point() <= places;
    return plain ? plainText(number) : exponentText(number);
}

std::string currencyText(Currency amount) {
    std::string text = fourDecimals(amount);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.pop_back();
    return text;
}

char* writeNumber(char* out, int number, int digits = 1) {
    std::array<char, 12> text;
    char* const end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    for (auto missing = digits - (end - text.data()); missing > 0; --missing)
        *out++ = '0';
    return std::copy(text.data(), end, out);
}

char* writeDay(char* out, const DateParts& parts) {
    out = writeNumber(out, parts.month);
    *out++ = '/';
    out = writeNumber(out, parts.day);
    *out++ = '/';
    return writeNumber(out, parts.year, 4);
}

char* writeTime(char* out, const DateParts& parts) {
    out = writeNumber(out, parts.hour % 12 == 0 ? 12 : parts.hour % 12);
    *out++ = ':';
    out = writeNumber(out, parts.minute, 2);
    *out++ = ':';
    out = writeNumber(out, parts.second, 2);
    constexpr std::string_view morning = " AM", afternoon = " PM";
    return std::ranges::copy(parts.hour < 12 ? morning : afternoon, out).out;
}

std::string dateText(Date date) {
    const DateParts parts = dateParts(date);
    const bool midnight = parts.hour == 0 && parts.minute == 0 && parts.second == 0;
    const bool dayZero = parts.year == 1899 && parts.month == 12 && parts.day == 30;
    std::array<char, 32> text;
    char* out = text.data();
    if (!dayZero)
        out = writeDay(out, parts);
    if (!dayZero && !midnight)
        *out++ = ' ';
    if (dayZero || !midnight)
        out = writeTime(out, parts);
    return {text.data(), out};
}

struct ToText {
    std::string operator()(Empty) const { return {}; }
    std::string operator()(Null) const { raise(errInvalidNull); }
    std::string operator()(bool value) const { return value ? "True" : "False"; }
    std::string operator()(std::uint8_t value) const { return wholeText(value); }
    std::string operator()(std::int16_t value) const { return wholeText(value); }
    std::string operator()(std::int32_t value) const { return wholeText(value); }
    std::string operator()(Currency value) const { return currencyText(value); }
    std::string operator()(float value) const { return floatText(static_cast<double>(value), singleDigits); }
    std::string operator()(double value) const { return floatText(value, doubleDigits); }
    std::string operator()(Date value) const { return dateText(value); }
    std::string operator()(const std::string& value) const { return value; }
    std::string operator()(const Bytes& value) const {
        return {reinterpret_cast<const char*>(value.data()), value.size()};
    }
};

} // namespace

std::string toText(const Value& value) {
    return value.visit(ToText{});
}

} // namespace tol::runtime
