// SPDX-License-Identifier: MIT
#include "runtime/Conversions.h"

#include "runtime/Decimal.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <concepts>
#include <limits>
#include <optional>
#include <type_traits>

namespace tol::runtime {
namespace {

constexpr std::int64_t currencyUnit = 10'000;

template <typename T>
concept WholeNumber = std::integral<T>;

template <typename T>
concept Numeric = WholeNumber<T> || std::floating_point<T> || std::same_as<T, Currency>;

/// True counts as -1 in every number.
std::int64_t whole(bool value) {
    return value ? -1 : 0;
}
template <WholeNumber T>
std::int64_t whole(T value) {
    return value;
}

std::int64_t roundHalfEven(double value) {
    // 2 to the power 63 is the first Double beyond; a NaN fails the comparison as well.
    if (!(std::fabs(value) < 9'223'372'036'854'775'808.0))
        raise(errOverflow);
    return std::llrint(value); // to even in the rounding mode that every program starts with
}

std::int64_t roundHalfEven(Currency amount) {
    const std::int64_t quotient = amount.tenThousandths / currencyUnit;
    const std::int64_t rest = std::abs(amount.tenThousandths % currencyUnit);
    const bool up = rest > currencyUnit / 2 || (rest == currencyUnit / 2 && quotient % 2 != 0);
    return quotient + (up ? (amount.tenThousandths < 0 ? -1 : 1) : 0);
}

double amountOf(Currency amount) {
    return static_cast<double>(static_cast<long double>(amount.tenThousandths) / currencyUnit);
}

Decimal numberIn(std::string_view text) {
    Decimal number;
    if (!readNumber(text, number))
        raise(errTypeMismatch);
    return number;
}

/// What is common to the conversions into numbers: which alternatives are errors, and what stands for
/// the others. `From` is called with an arithmetic value, a Currency, or a Decimal read from a text.
template <typename From>
auto convertNumber(const Value& value, From from) {
    return value.visit([&](const auto& held) -> decltype(from(0.0)) {
        using T = std::decay_t<decltype(held)>;
        if constexpr (std::same_as<T, Empty>)
            return from(std::int32_t{0});
        else if constexpr (std::same_as<T, Null>)
            raise(errInvalidNull);
        else if constexpr (std::same_as<T, Bytes>)
            raise(errTypeMismatch);
        else if constexpr (std::same_as<T, std::string>)
            return from(numberIn(held));
        else if constexpr (std::same_as<T, Date>)
            return from(held.serial);
        else
            return from(held);
    });
}

struct ToWhole {
    std::int64_t operator()(WholeNumber auto value) const { return whole(value); }
    std::int64_t operator()(float value) const { return roundHalfEven(static_cast<double>(value)); }
    std::int64_t operator()(double value) const { return roundHalfEven(value); }
    std::int64_t operator()(Currency value) const { return roundHalfEven(value); }
    std::int64_t operator()(const Decimal& value) const { return roundHalfEven(value.toDouble()); }
};

template <typename Target>
Target toWhole(const Value& value) {
    const std::int64_t result = convertNumber(value, ToWhole{});
    if (result < std::numeric_limits<Target>::min() || result > std::numeric_limits<Target>::max())
        raise(errOverflow);
    return static_cast<Target>(result);
}

struct ToDouble {
    double operator()(WholeNumber auto value) const { return static_cast<double>(whole(value)); }
    double operator()(float value) const { return static_cast<double>(value); }
    double operator()(double value) const { return value; }
    double operator()(Currency value) const { return amountOf(value); }
    double operator()(const Decimal& value) const { return value.toDouble(); }
};

struct ToCurrency {
    Currency operator()(WholeNumber auto value) const {
        static_assert(sizeof value <= sizeof(std::int32_t)); // so the product always fits
        return {whole(value) * currencyUnit};
    }
    Currency operator()(float value) const { return (*this)(static_cast<double>(value)); }
    Currency operator()(double value) const {
        // The wider type keeps the product exact enough that the fourth decimal rounds as the value tells.
        const long double scaled = static_cast<long double>(value) * currencyUnit;
        if (!(scaled >= -0x1p63L - 0.5L && scaled < 0x1p63L - 0.5L))
            raise(errOverflow);
        return {std::llrint(scaled)};
    }
    Currency operator()(Currency value) const { return value; }
    Currency operator()(const Decimal& value) const { return value.toCurrency(); }
};

struct ToBoolean {
    bool operator()(Currency value) const { return value.tenThousandths != 0; }
    bool operator()(const Decimal& value) const { return value.count() != 0; }
    template <typename T>
    requires std::is_arithmetic_v<T>
    bool operator()(T value) const { return value != T{}; }
};

// Equality

struct ValuesEqual {
    bool operator()(Empty, Empty) const { return true; }
    bool operator()(Null, Null) const { return true; }
    bool operator()(const Bytes& left, const Bytes& right) const { return left == right; }
    bool operator()(const std::string& left, const std::string& right) const { return sameText(left, right); }
    bool operator()(Date left, Date right) const {
        return left.serial == right.serial || dateParts(left) == dateParts(right);
    }
    bool operator()(Currency left, Currency right) const { return left == right; }
    bool operator()(const WholeNumber auto& left, const WholeNumber auto& right) const {
        return whole(left) == whole(right);
    }
    bool operator()(Currency left, const WholeNumber auto& right) const {
        return left == ToCurrency{}(right);
    }
    bool operator()(const WholeNumber auto& left, Currency right) const {
        return ToCurrency{}(left) == right;
    }
    bool operator()(const Numeric auto& left, const Numeric auto& right) const {
        return ToDouble{}(left) == ToDouble{}(right);
    }
    bool operator()(Date left, const Numeric auto& right) const { return left.serial == ToDouble{}(right); }
    bool operator()(const Numeric auto& left, Date right) const { return ToDouble{}(left) == right.serial; }
    bool operator()(Empty, const Numeric auto& right) const { return !ToBoolean{}(right); }
    bool operator()(const Numeric auto& left, Empty) const { return !ToBoolean{}(left); }
    bool operator()(Empty, const std::string& right) const { return right.empty(); }
    bool operator()(const std::string& left, Empty) const { return left.empty(); }
    bool operator()(const auto&, const auto&) const { return false; }
};

} // namespace

bool toBoolean(const Value& value) {
    if (value.is<std::string>()) {
        const std::string_view text = trim(value.get<std::string>());
        if (sameText(text, "True"))
            return true;
        if (sameText(text, "False"))
            return false;
    }
    return convertNumber(value, ToBoolean{});
}

std::uint8_t toByte(const Value& value) {
    // True in a byte is all bits set.
    return value.is<bool>() ? (value.get<bool>() ? 255 : 0) : toWhole<std::uint8_t>(value);
}

std::int16_t toInteger(const Value& value) {
    return toWhole<std::int16_t>(value);
}

std::int32_t toLong(const Value& value) {
    return toWhole<std::int32_t>(value);
}

Currency toCurrency(const Value& value) {
    return convertNumber(value, ToCurrency{});
}

float toSingle(const Value& value) {
    const double wide = toDouble(value);
    // The middle between the largest Single and the next one that there would be; it rounds up.
    constexpr double beyond = 0x1.ffffffp127;
    if (!(std::fabs(wide) < beyond))
        raise(errOverflow);
    return static_cast<float>(wide);
}

double toDouble(const Value& value) {
    return convertNumber(value, ToDouble{});
}

double leadingNumber(std::string_view text) {
    return readLeadingNumber(text).toDouble();
}

bool valuesEqual(const Value& left, const Value& right) {
    return left.visit(
        [&](const auto& a) { return right.visit([&](const auto& b) { return ValuesEqual{}(a, b); }); });
}

std::string fourDecimals(Currency amount) {
    const bool negative = amount.tenThousandths < 0;
    auto rest = static_cast<std::uint64_t>(amount.tenThousandths);
    if (negative)
        rest = 0 - rest;
    std::array<char, 24> text;
    std::size_t at = text.size();
    constexpr std::size_t decimals = 4;
    for (std::size_t digits = 0; digits <= decimals || rest != 0; ++digits, rest /= 10) {
        if (digits == decimals)
            text[--at] = '.';
        text[--at] = static_cast<char>('0' + rest % 10);
    }
    if (negative)
        text[--at] = '-';
    return {text.data() + at, text.size() - at};
}

Currency currencyFromText(std::string_view text) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    Decimal number;
    number.setNegative(text.starts_with('-'));
    if (number.negative())
        text.remove_prefix(1);
    const std::string_view wholePart = text.substr(0, text.find('.'));
    const bool hasPoint = wholePart.size() < text.size();
    const std::string_view fraction = hasPoint ? text.substr(wholePart.size() + 1) : std::string_view{};
    const bool valid = !wholePart.empty() && std::ranges::all_of(wholePart, isDigit) &&
                       std::ranges::all_of(fraction, isDigit) && fraction.empty() != hasPoint &&
                       fraction.size() <= 4;
    if (!valid)
        raise(errTypeMismatch);
    for (const char digit : wholePart)
        number.appendDigit(digit, false);
    for (const char digit : fraction)
        number.appendDigit(digit, true);
    number.dropTrailingZeros();
    return number.toCurrency();
}

} // namespace tol::runtime
