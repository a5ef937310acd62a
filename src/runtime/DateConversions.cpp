// SPDX-License-Identifier: MIT
#include "runtime/Conversions.h"
#include "runtime/Decimal.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>

namespace tol::runtime {
namespace {

namespace chrono = std::chrono;

constexpr int secondsOfDay = 86'400;
constexpr int firstYear = 100, lastYear = 9999;
constexpr chrono::sys_days dayZero = chrono::year{1899} / 12 / 30;

constexpr int serialOf(chrono::year_month_day day) {
    return static_cast<int>((chrono::sys_days(day) - dayZero).count());
}
constexpr int firstDay = serialOf(chrono::year{firstYear} / 1 / 1);
constexpr int lastDay = serialOf(chrono::year{lastYear} / 12 / 31);

/// The date of the parts, none when there is no such day or time.
std::optional<Date> dateOf(const DateParts& parts) {
    const chrono::year_month_day day{chrono::year(parts.year),
                                     chrono::month(static_cast<unsigned>(parts.month)),
                                     chrono::day(static_cast<unsigned>(parts.day))};
    if (parts.year < firstYear || parts.year > lastYear || parts.month < 1 || parts.month > 12 ||
        parts.day < 1 || parts.day > 31 || !day.ok())
        return std::nullopt;
    if (parts.hour < 0 || parts.hour > 23 || parts.minute < 0 || parts.minute > 59 || parts.second < 0 ||
        parts.second > 59)
        return std::nullopt;
    const int days = serialOf(day);
    const double fraction =
        static_cast<double>(parts.hour * 3600 + parts.minute * 60 + parts.second) / secondsOfDay;
    return Date{days < 0 ? days - fraction : days + fraction};
}

/// Takes pieces off the front of a text.
class DateScanner {
  public:
    explicit DateScanner(std::string_view text) : m_text(text) {}

    [[nodiscard]] bool atEnd() const { return m_text.empty(); }
    [[nodiscard]] std::string_view rest() const { return m_text; }
    void skipBlanks() { m_text.remove_prefix(std::min(m_text.find_first_not_of(' '), m_text.size())); }

    bool takeIf(char c) {
        if (!m_text.starts_with(c))
            return false;
        m_text.remove_prefix(1);
        return true;
    }

    /// A number of `least` to `most` digits and how many it has; 0 digits when there is none such.
    struct Number {
        int value = 0;
        int digits = 0;
    };
    Number takeNumber(int least, int most) {
        Number number;
        for (const char c : m_text) {
            if (!isDigit(c))
                break;
            if (number.digits == most)
                return {};
            number.value = number.value * 10 + (c - '0');
            ++number.digits;
        }
        if (number.digits < least)
            return {};
        m_text.remove_prefix(static_cast<std::size_t>(number.digits));
        return number;
    }

    bool takeNumber(int least, int most, int& value) {
        const Number number = takeNumber(least, most);
        value = number.value;
        return number.digits > 0;
    }

  private:
    static bool isDigit(char c) { return c >= '0' && c <= '9'; }
    std::string_view m_text;
};

int fullYear(DateScanner::Number year) {
    constexpr int lastOf2000s = 29;
    if (year.digits > 2)
        return year.value;
    return year.value + (year.value <= lastOf2000s ? 2000 : 1900);
}

/// "1/31/2003", "1-31-03", "1.31.2003", "2003-01-31": both separators alike, month first unless a year is.
bool readDay(DateScanner& in, DateParts& parts) {
    constexpr int yearDigits = 4;
    const auto first = in.takeNumber(1, yearDigits);
    in.skipBlanks();
    const char separator = in.atEnd() ? '\0' : in.rest().front();
    if (first.digits == 0 || (separator != '/' && separator != '-' && separator != '.'))
        return false;
    in.takeIf(separator);
    in.skipBlanks();
    const auto second = in.takeNumber(1, 2);
    in.skipBlanks();
    if (second.digits == 0 || !in.takeIf(separator))
        return false;
    in.skipBlanks();
    const auto third = in.takeNumber(1, yearDigits);
    if (third.digits == 0)
        return false;
    if (first.digits > 2) {
        parts.year = first.value, parts.month = second.value, parts.day = third.value;
        return third.digits <= 2;
    }
    parts.month = first.value, parts.day = second.value, parts.year = fullYear(third);
    return true;
}

/// "16:05", "4:05:00 PM", "4 PM". The half of the day makes the minutes dispensable.
bool readTime(DateScanner& in, DateParts& parts) {
    if (!in.takeNumber(1, 2, parts.hour))
        return false;
    const bool hasMinutes = in.takeIf(':');
    if (hasMinutes && !in.takeNumber(1, 2, parts.minute))
        return false;
    if (hasMinutes && in.takeIf(':') && !in.takeNumber(1, 2, parts.second))
        return false;
    in.skipBlanks();
    if (in.atEnd())
        return hasMinutes;
    const bool afternoon = sameText(in.rest(), "PM");
    if ((!afternoon && !sameText(in.rest(), "AM")) || parts.hour > 12)
        return false;
    parts.hour = parts.hour % 12 + (afternoon ? 12 : 0);
    return true;
}

std::optional<Date> readDate(std::string_view text) {
    DateParts parts;
    DateScanner in(trim(text));
    DateScanner ahead = in;
    if (readDay(ahead, parts)) {
        in = ahead;
        if (in.atEnd())
            return dateOf(parts);
        if (!in.takeIf(' '))
            return std::nullopt;
        in.skipBlanks();
    } else {
        parts = {};
    }
    return readTime(in, parts) ? dateOf(parts) : std::nullopt;
}

bool isSerial(double serial) {
    return serial > firstDay - 1 && serial < lastDay + 1;
}

Date dateInText(std::string_view text) {
    if (const auto date = readDate(text))
        return *date;
    Decimal number;
    constexpr int mostDigits = 7; // in front of the point, of a serial day
    if (readNumber(text, number) && number.point() <= mostDigits) {
        const double serial = number.toDouble();
        if (isSerial(serial))
            return {serial};
    }
    raise(errTypeMismatch);
}

char* writeDigits(char* out, int value, int digits) {
    for (int i = digits - 1; i >= 0; --i, value /= 10)
        out[i] = static_cast<char>('0' + value % 10);
    return out + digits;
}

/// ".5", ".123Z", "Z" or nothing, behind the seconds. Dates hold whole seconds, and no zone.
bool isFractionAndZone(std::string_view text) {
    if (text.ends_with('Z'))
        text.remove_suffix(1);
    return text.empty() || (text.size() > 1 && text.front() == '.' &&
                            text.find_first_not_of("0123456789", 1) == std::string_view::npos);
}

} // namespace

Date toDate(const Value& value) {
    if (value.is<Date>())
        return value.get<Date>();
    if (value.is<std::string>())
        return dateInText(value.get<std::string>());
    const double serial = toDouble(value);
    if (!isSerial(serial))
        raise(errOverflow);
    return {serial};
}

Date makeDate(const DateParts& parts) {
    const auto date = dateOf(parts);
    if (!date)
        raise(errInvalidCall);
    return *date;
}

DateParts dateParts(Date date) {
    if (!isSerial(date.serial))
        raise(errOverflow);
    const double day = std::trunc(date.serial);
    int days = static_cast<int>(day);
    int seconds = static_cast<int>(std::lround(std::fabs(date.serial - day) * secondsOfDay));
    if (seconds == secondsOfDay && days < lastDay) {
        ++days;
        seconds = 0;
    }
    seconds = std::min(seconds, secondsOfDay - 1);
    const chrono::year_month_day ymd{dayZero + chrono::days(days)};
    return {.year = static_cast<int>(ymd.year()),
            .month = static_cast<int>(static_cast<unsigned>(ymd.month())),
            .day = static_cast<int>(static_cast<unsigned>(ymd.day())),
            .hour = seconds / 3600,
            .minute = seconds / 60 % 60,
            .second = seconds % 60};
}

std::string isoText(Date date) {
    const DateParts parts = dateParts(date);
    std::string text(19, '-');
    char* out = writeDigits(text.data(), parts.year, 4);
    out = writeDigits(out + 1, parts.month, 2);
    out = writeDigits(out + 1, parts.day, 2);
    *out = ' ';
    out = writeDigits(out + 1, parts.hour, 2);
    *out = ':';
    out = writeDigits(out + 1, parts.minute, 2);
    *out = ':';
    writeDigits(out + 1, parts.second, 2);
    return text;
}

Date dateFromIso(std::string_view text) {
    DateParts parts;
    DateScanner in(text);
    bool valid = in.takeNumber(4, 4, parts.year) && in.takeIf('-') && in.takeNumber(2, 2, parts.month) &&
                 in.takeIf('-') && in.takeNumber(2, 2, parts.day);
    if (valid && !in.atEnd()) {
        valid = (in.takeIf(' ') || in.takeIf('T')) && in.takeNumber(2, 2, parts.hour) && in.takeIf(':') &&
                in.takeNumber(2, 2, parts.minute) && in.takeIf(':') && in.takeNumber(2, 2, parts.second);
        valid = valid && isFractionAndZone(in.rest());
    }
    const auto date = valid ? dateOf(parts) : std::nullopt;
    if (!date)
        raise(errTypeMismatch);
    return *date;
}

} // namespace tol::runtime
