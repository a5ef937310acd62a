// SPDX-License-Identifier: MIT
#include "runtime/Decimal.h"

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>

namespace tol::runtime {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isExponentLetter(char c) {
    return c == 'e' || c == 'E' || c == 'd' || c == 'D';
}

/// Reads through a text character by character, passing over blanks and tabs if told so.
class Scanner {
  public:
    Scanner(std::string_view text, bool passBlanks) : m_text(text), m_passBlanks(passBlanks) { skip(); }

    [[nodiscard]] bool atEnd() const { return m_text.empty(); }
    [[nodiscard]] char peek() const { return atEnd() ? '\0' : m_text.front(); }
    char take() {
        const char c = m_text.front();
        m_text.remove_prefix(1);
        skip();
        return c;
    }
    bool takeIf(char c) {
        if (atEnd() || m_text.front() != c)
            return false;
        take();
        return true;
    }

  private:
    void skip() {
        constexpr std::string_view passed = " \t";
        while (m_passBlanks && !m_text.empty() && passed.find(m_text.front()) != std::string_view::npos)
            m_text.remove_prefix(1);
    }

    std::string_view m_text;
    bool m_passBlanks;
};

enum class Commas { Stop, Pass };

bool readDigits(Scanner& in, Decimal& number, bool fraction, Commas commas = Commas::Stop) {
    bool any = false;
    while (isDigit(in.peek()) || (any && commas == Commas::Pass && in.peek() == ',')) {
        const char c = in.take();
        if (c == ',')
            continue;
        number.appendDigit(c, fraction);
        any = true;
    }
    return any;
}

/// Reads "E+20". Without a digit behind it the letter is no exponent, and `in` stays before it.
void readExponent(Scanner& in, Decimal& number) {
    Scanner ahead = in;
    ahead.take();
    const bool negative = ahead.peek() == '-';
    if (negative || ahead.peek() == '+')
        ahead.take();
    if (!isDigit(ahead.peek()))
        return;
    std::int64_t exponent = 0;
    while (isDigit(ahead.peek()))
        exponent = std::min<std::int64_t>(exponent * 10 + (ahead.take() - '0'), 1'000'000);
    number.scale(negative ? -exponent : exponent);
    in = ahead;
}

/// Reads digits, point and exponent; false when there is no digit.
bool readMagnitude(Scanner& in, Decimal& number, Commas commas) {
    bool any = readDigits(in, number, false, commas);
    if (in.takeIf('.'))
        any = readDigits(in, number, true) || any;
    if (any && isExponentLetter(in.peek()))
        readExponent(in, number);
    number.dropTrailingZeros();
    return any;
}

bool readSign(Scanner& in, Decimal& number) {
    const bool negative = in.peek() == '-';
    if (!negative && in.peek() != '+')
        return false;
    in.take();
    number.setNegative(negative);
    return true;
}

} // namespace

Decimal::Decimal(double value, int significantDigits) : m_negative(value < 0) {
    if (value == 0)
        return;
    std::array<char, 64> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), m_negative ? -value : value,
                                   std::chars_format::scientific, significantDigits - 1)
                         .ptr;
    const char* c = text.data();
    for (; c != end && *c != 'e'; ++c)
        if (isDigit(*c))
            m_digits[static_cast<std::size_t>(m_count++)] = *c;
    c += c != end && c[1] == '+' ? 2 : 1; // from_chars takes no plus sign
    std::from_chars(c, end, m_point);
    ++m_point;
    dropTrailingZeros();
}

void Decimal::appendDigit(char digit, bool fraction) {
    if (m_count == 0 && digit == '0') {
        m_point -= fraction ? 1 : 0;
        return;
    }
    if (m_count < capacity)
        m_digits[static_cast<std::size_t>(m_count++)] = digit;
    m_point += fraction ? 0 : 1;
}

void Decimal::scale(std::int64_t powerOfTen) {
    m_point += powerOfTen;
}

char Decimal::digitAt(std::int64_t place) const {
    const std::int64_t index = m_point - 1 - place;
    return index < 0 || index >= m_count ? '0' : m_digits[static_cast<std::size_t>(index)];
}

void Decimal::dropTrailingZeros() {
    while (m_count > 0 && m_digits[static_cast<std::size_t>(m_count - 1)] == '0')
        --m_count;
}

void Decimal::roundAwayAt(std::int64_t place) {
    const std::int64_t keep = m_point - place;
    if (keep >= m_count)
        return;
    if (keep < 0) {
        m_count = 0;
        return;
    }
    const bool up = m_digits[static_cast<std::size_t>(keep)] >= '5';
    m_count = static_cast<int>(keep);
    if (!up) {
        dropTrailingZeros();
        return;
    }
    while (m_count > 0 && m_digits[static_cast<std::size_t>(m_count - 1)] == '9')
        --m_count;
    if (m_count > 0) {
        ++m_digits[static_cast<std::size_t>(m_count - 1)];
        return;
    }
    m_digits[0] = '1';
    m_count = 1;
    ++m_point;
}

/// Few digits and a small power of ten are exact in a Double, so that one operation on them rounds rightly.
bool Decimal::isShort() const {
    constexpr int exactDigits = 15;
    constexpr std::int64_t exactPower = 22;
    return m_count <= exactDigits && std::abs(m_point - m_count) <= exactPower;
}

double Decimal::shortToDouble() const {
    static constexpr std::array<double, 23> powers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                      1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                      1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    std::int64_t digits = 0;
    for (const char digit : this->digits())
        digits = digits * 10 + (digit - '0');
    const std::int64_t power = m_point - m_count;
    const double value = power < 0 ? static_cast<double>(digits) / powers[static_cast<std::size_t>(-power)]
                                   : static_cast<double>(digits) * powers[static_cast<std::size_t>(power)];
    return m_negative ? -value : value;
}

double Decimal::toDouble() const {
    constexpr std::int64_t beyondAnyDouble = 400;
    if (m_count == 0 || m_point < -beyondAnyDouble)
        return 0;
    if (m_point > beyondAnyDouble)
        raise(errOverflow);
    if (isShort())
        return shortToDouble();
    std::array<char, capacity + 16> text;
    char* end = std::copy_n(m_digits.data(), m_count, text.data());
    *end++ = 'e';
    end = std::to_chars(end, text.data() + text.size(), m_point - m_count).ptr;
    double value = 0;
    if (std::from_chars(text.data(), end, value).ec == std::errc::result_out_of_range) {
        if (m_point > 0)
            raise(errOverflow);
        return 0;
    }
    return m_negative ? -value : value;
}

Currency Decimal::toCurrency() const {
    constexpr int decimals = 4;
    constexpr std::int64_t mostDigits = 19; // of the largest amount, in ten-thousandths
    const std::int64_t whole = m_point + decimals;
    if (m_count == 0 || whole < 0)
        return {};
    if (whole > mostDigits)
        raise(errOverflow);
    std::uint64_t amount = 0;
    for (std::int64_t i = 0; i < whole; ++i)
        amount = amount * 10 + static_cast<std::uint64_t>(digitAt(m_point - 1 - i) - '0');
    const char next = digitAt(-decimals - 1);
    const bool exactHalf = next == '5' && m_count == whole + 1;
    if (exactHalf ? amount % 2 == 1 : next >= '5')
        ++amount;
    constexpr std::uint64_t largest = std::numeric_limits<std::int64_t>::max();
    if (amount > largest + (m_negative ? 1 : 0))
        raise(errOverflow);
    return {static_cast<std::int64_t>(m_negative ? 0 - amount : amount)};
}

bool readNumber(std::string_view text, Decimal& number) {
    Scanner in(trim(text), false);
    const bool signFirst = readSign(in, number);
    in.takeIf('$');
    if (!signFirst)
        readSign(in, number);
    return readMagnitude(in, number, Commas::Pass) && in.atEnd();
}

Decimal readLeadingNumber(std::string_view text) {
    Decimal number;
    Scanner in(text, true);
    readSign(in, number);
    readMagnitude(in, number, Commas::Stop); // without a digit the number stays zero
    return number;
}

} // namespace tol::runtime
