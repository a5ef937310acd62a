// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"

#include <string>

namespace tol::runtime {

/// Conversions between the types of Value. Numbers round half to even. All of them raise
/// RuntimeError 6 (overflow) when the result does not fit, 13 (type mismatch) for a text that is no
/// number or no date and for bytes, and 94 (invalid use of Null) for Null. Empty counts as 0, "" or
/// False; True counts as -1.
bool toBoolean(const Value& value);
std::uint8_t toByte(const Value& value);
std::int16_t toInteger(const Value& value);
std::int32_t toLong(const Value& value);
Currency toCurrency(const Value& value);
float toSingle(const Value& value);
double toDouble(const Value& value);
/// A text is read month first ("1/31/2003", "1-31-03 4:05 PM", "2003-01-31 16:05:00", "4:05 PM"); years of
/// two digits are 1930 to 2029. A number, also as text ("37652"), is a serial: 6 beyond the years 100 to
/// 9999, a text that names no date 13.
Date toDate(const Value& value);

/// The ordinary text form: "True"/"False"; whole numbers as they are; Single with 7 and Double with
/// 15 significant digits, exponents as "1E+20"; Currency without trailing zeros; a date as
/// "1/31/2003", with " 4:05:00 PM" behind it unless it is midnight, the time alone on day 0.
/// Bytes are taken as UTF-8 text.
std::string toText(const Value& value);

/// The number at the front of a text, blanks passed over: "12abc" gives 12, "abc" gives 0,
/// " 1 2.5e1x" gives 125. A text without one gives 0; only a magnitude beyond Double raises an error (6).
double leadingNumber(std::string_view text);

/// The database's equality: numbers by amount whatever their type, dates to the second, texts without
/// regard to case (the rule of index keys), Null equal to Null alone.
bool valuesEqual(const Value& left, const Value& right);

/// A date from its parts and back; months 1 to 12, hours 0 to 23. makeDate raises 5 for parts that
/// name no date in the years 100 to 9999.
struct DateParts {
    int year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0;
    auto operator<=>(const DateParts&) const = default;
};
Date makeDate(const DateParts& parts);
DateParts dateParts(Date date);

/// "YYYY-MM-DD HH:MM:SS", the form in which dates are stored and exchanged.
std::string isoText(Date date);
/// Reads the stored form; also without time, with "T", and with fractions of a second, which are
/// dropped. Raises 13 for anything else.
Date dateFromIso(std::string_view text);

/// "12.3400": always four decimals. And back, exactly: at most four decimals, else 13; 6 beyond the range.
std::string fourDecimals(Currency amount);
Currency currencyFromText(std::string_view text);

} // namespace tol::runtime
