// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace tol::runtime {

/// A decimal number as its digits: 0.d1d2d3... times ten to the power `point`, the first digit not 0.
/// Zero has no digits. Used between texts, amounts and floating numbers, where going through a Double
/// would lose digits. More than `capacity` digits are cut, which no type can tell.
class Decimal {
  public:
    static constexpr int capacity = 800;

    Decimal() = default;
    /// The shortest form of a finite number with at most that many significant digits.
    Decimal(double value, int significantDigits);

    void setNegative(bool negative) { m_negative = negative; }
    void appendDigit(char digit, bool fraction);
    void scale(std::int64_t powerOfTen);
    /// Must follow the last appendDigit(): the digits end with another digit than 0.
    void dropTrailingZeros();

    [[nodiscard]] bool negative() const { return m_negative; }
    [[nodiscard]] int count() const { return m_count; }
    [[nodiscard]] std::int64_t point() const { return m_point; }
    /// The digit for ten to the power `place`, '0' outside of the digits.
    [[nodiscard]] char digitAt(std::int64_t place) const;
    [[nodiscard]] std::string_view digits() const {
        return {m_digits.data(), static_cast<std::size_t>(m_count)};
    }

    /// Cuts behind ten to the power `place`, rounding half away from zero.
    void roundAwayAt(std::int64_t place);

    /// The nearest Double, and the nearest amount (half to even); both raise 6 beyond the range.
    [[nodiscard]] double toDouble() const;
    [[nodiscard]] Currency toCurrency() const;

  private:
    [[nodiscard]] bool isShort() const;
    [[nodiscard]] double shortToDouble() const;

    std::array<char, capacity> m_digits; // only the first m_count are ever read
    int m_count = 0;
    std::int64_t m_point = 0;
    bool m_negative = false;
};

/// Reads a whole text as a number, as Conversions.h tells. False when the text is none.
bool readNumber(std::string_view text, Decimal& number);

/// Reads the number at the front of a text, as Conversions.h tells; zero when there is none.
Decimal readLeadingNumber(std::string_view text);

} // namespace tol::runtime
