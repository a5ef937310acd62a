// SPDX-License-Identifier: MIT
#include "runtime/NumberFormat.h"

#include "runtime/Conversions.h"
#include "runtime/Decimal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

namespace tol::runtime {
namespace {

/// One character of a pattern: a literal one, or one with a meaning.
struct Sign {
    char character;
    bool literal;
    [[nodiscard]] bool is(char c) const { return !literal && character == c; }
    [[nodiscard]] bool isPlace() const { return is('0') || is('#'); }
};
using Section = std::vector<Sign>;

/// The pattern's sections, with quotes and backslashes resolved.
std::vector<Section> split(std::string_view pattern) {
    std::vector<Section> sections(1);
    bool quoted = false;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char c = pattern[i];
        if (c == '"')
            quoted = !quoted;
        else if (quoted)
            sections.back().push_back({c, true});
        else if (c == '\\' && i + 1 < pattern.size())
            sections.back().push_back({pattern[++i], true});
        else if (c == ';')
            sections.emplace_back();
        else
            sections.back().push_back({c, false});
    }
    return sections;
}

/// What a section asks of the number.
struct Layout {
    int wholePlaces = 0;   ///< `0` and `#` in front of the point
    int wholeDigits = 0;   ///< digits that always show: from the first `0` on
    int decimalPlaces = 0; ///< places behind the point
    bool thousands = false;
    bool percent = false;
};

Layout layoutOf(const Section& section) {
    Layout layout;
    bool behindPoint = false, zeroSeen = false;
    for (const Sign& sign : section) {
        if (sign.is('.')) {
            behindPoint = true;
        } else if (sign.is(',')) {
            layout.thousands = layout.thousands || (layout.wholePlaces > 0 && !behindPoint);
        } else if (sign.is('%')) {
            layout.percent = true;
        } else if (sign.isPlace() && behindPoint) {
            ++layout.decimalPlaces;
        } else if (sign.isPlace()) {
            ++layout.wholePlaces;
            zeroSeen = zeroSeen || sign.is('0');
            layout.wholeDigits += zeroSeen ? 1 : 0;
        }
    }
    return layout;
}

/// Writes the digits of a rounded number through one section.
class SectionWriter {
  public:
    SectionWriter(const Section& section, const Layout& layout, const Decimal& number)
        : m_section(section), m_layout(layout), m_number(number) {}

    std::string write() {
        int placesLeft = m_layout.wholePlaces;
        std::int64_t decimal = 0;
        bool behindPoint = false;
        for (const Sign& sign : m_section) {
            if (sign.is('.') && !behindPoint) {
                if (m_layout.wholePlaces == 0)
                    writeWhole(topPlace(), 0); // a pattern such as ".00" still shows the whole number
                behindPoint = true;
                m_text += '.';
            } else if (sign.isPlace() && behindPoint) {
                writeDecimal(--decimal, sign.is('0'));
            } else if (sign.isPlace()) {
                writePlace(--placesLeft);
            } else if (!sign.is(',')) {
                m_text += sign.character;
            }
        }
        return m_text;
    }

  private:
    /// The number of digits in front of the point, of the number itself.
    [[nodiscard]] std::int64_t topPlace() const {
        return m_number.count() == 0 ? 0 : std::max<std::int64_t>(m_number.point(), 0);
    }

    /// The first place takes all digits that have no place of their own.
    void writePlace(int place) {
        if (place == m_layout.wholePlaces - 1)
            writeWhole(std::max<std::int64_t>(topPlace(), place + 1), place);
        else
            writeWhole(place + 1, place);
    }

    void writeWhole(std::int64_t from, std::int64_t to) {
        for (std::int64_t place = from - 1; place >= to; --place) {
            if (place >= topPlace() && place >= m_layout.wholeDigits)
                continue;
            m_text += m_number.digitAt(place);
            if (m_layout.thousands && place > 0 && place % 3 == 0)
                m_text += ',';
        }
    }

    void writeDecimal(std::int64_t place, bool always) {
        const bool isWithinDigits = m_number.count() > 0 && place >= m_number.point() - m_number.count();
        if (always || isWithinDigits || anyZeroBehind(place))
            m_text += m_number.digitAt(place);
    }

    /// Whether the section has a `0` at a later decimal place, which makes this one show.
    [[nodiscard]] bool anyZeroBehind(std::int64_t place) const {
        std::int64_t at = 0;
        bool behindPoint = false;
        for (const Sign& sign : m_section) {
            behindPoint = behindPoint || sign.is('.');
            if (behindPoint && sign.isPlace() && --at < place && sign.is('0'))
                return true;
        }
        return false;
    }

    const Section& m_section;
    const Layout& m_layout;
    const Decimal& m_number;
    std::string m_text;
};

std::optional<Decimal> numberOf(const Value& value) {
    constexpr int doubleDigits = 15, singleDigits = 7;
    if (value.is<std::string>()) {
        Decimal number;
        if (readNumber(value.get<std::string>(), number))
            return number;
        return std::nullopt;
    }
    if (value.is<Currency>()) {
        Decimal number;
        readNumber(fourDecimals(value.get<Currency>()), number);
        return number;
    }
    if (value.isEmpty() || value.is<Date>() || value.is<Bytes>())
        return std::nullopt;
    const double amount = toDouble(value);
    if (!std::isfinite(amount))
        return std::nullopt;
    return Decimal(amount, value.is<float>() ? singleDigits : doubleDigits);
}

Decimal rounded(Decimal number, const Layout& layout) {
    if (layout.percent)
        number.scale(2);
    number.roundAwayAt(-layout.decimalPlaces);
    return number;
}

} // namespace

std::string format(const Value& value, std::string_view pattern) {
    if (value.isNull())
        return {};
    const auto number = pattern.empty() ? std::nullopt : numberOf(value);
    if (!number)
        return toText(value);
    const std::vector<Section> sections = split(pattern);
    const auto has = [&](std::size_t index) { return sections.size() > index && !sections[index].empty(); };

    std::size_t index = number->count() == 0 && has(2) ? 2 : number->negative() && has(1) ? 1 : 0;
    Decimal shown = rounded(*number, layoutOf(sections[index]));
    if (index != 2 && shown.count() == 0 && has(2)) {
        index = 2; // what rounds to zero shows as zero
        shown = rounded(*number, layoutOf(sections[index]));
    }
    const Layout layout = layoutOf(sections[index]);
    const bool sign = shown.negative() && shown.count() > 0 && index == 0;
    return (sign ? "-" : "") + SectionWriter(sections[index], layout, shown).write();
}

} // namespace tol::runtime
