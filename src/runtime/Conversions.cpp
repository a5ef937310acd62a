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
/// the others. `Convert` is called with an arithmetic value, a Currency, or a Decimal read from a text.
template <typename Convert>
struct FromHeld {
    using Result = std::invoke_result_t<Convert, double>;

    Result operator()(Empty) const { return Convert{}(std::int32_t{0}); }
    Result operator()(Null) const { raise(errInvalidNull); }
    Result operator()(const Bytes&) const { raise(errTypeMismatch); }
    Result operator()(const std::string& text) const { return Convert{}(numberIn(text)); }
    Result operator()(Date date) const { return Convert{}(date.serial); }
    template <Numeric T>
    Result operator()(T number) const {
        return Convert{}(number);
    }
};

template <typename Convert>
auto convertNumber(const Value& value) {
    return value.visit(FromHeld<Convert>{});
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
    const std::int64_t result = convertNumber<ToWhole>(value);
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

template <typename T>
constexpr bool isExact = WholeNumber<T> || std::same_as<T, Currency>;

template <Numeric A, Numeric B>
bool amountsEqual(const A& left, const B& right) {
    if constexpr (WholeNumber<A> && WholeNumber<B>)
        return whole(left) == whole(right);
    else if constexpr (isExact<A> && isExact<B>)
        return ToCurrency{}(left) == ToCurrency{}(right);
    else
        return ToDouble{}(left) == ToDouble{}(right);
}

/// Whether a value counts as one that was never assigned.
template <typename T>
bool isInitial(const T& value) {
    if constexpr (std::same_as<T, Empty>)
        return true;
    else if constexpr (Numeric<T>)
        return !ToBoolean{}(value);
    else if constexpr (std::same_as<T, std::string>)
        return value.empty();
    else
        return false;
}

template <typename A, typename B>
bool heldEqual(const A& left, const B& right) {
    if constexpr (std::same_as<A, Empty>)
        return isInitial(right);
    else if constexpr (std::same_as<B, Empty>)
        return isInitial(left);
    else if constexpr (Numeric<A> && Numeric<B>)
        return amountsEqual(left, right);
    else if constexpr (std::same_as<A, Date> && Numeric<B>)
        return amountsEqual(left.serial, right);
    else if constexpr (Numeric<A> && std::same_as<B, Date>)
        return amountsEqual(left, right.serial);
    else if constexpr (!std::same_as<A, B>)
        return false;
    else if constexpr (std::same_as<A, std::string>)
        return sameText(left, right);
    else if constexpr (std::same_as<A, Date>)
        return left == right || dateParts(left) == dateParts(right);
    else
        return left == right;
}

} // namespace

bool toBoolean(const Value& value) {
    if (value.is<std::string>()) {
        const std::string_view text = trim(value.get<std::string>());
        if (sameText(text, "True"))
            return true;
        if (sameText(text, "False"))
            return false;
    }
    return convertNumber<ToBoolean>(value);
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
    return convertNumber<ToCurrency>(value);
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
    return convertNumber<ToDouble>(value);
}

double leadingNumber(std::string_view text) {
    return readLeadingNumber(text).toDouble();
}

bool valuesEqual(const Value& left, const Value& right) {
    return left.visit(
        [&](const auto& a) { return right.visit([&](const auto& b) { return heldEqual(a, b); }); });
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
