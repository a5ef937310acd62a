// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"

#include <string>

namespace tol::runtime {

// Numbers and dates in texts. Three readers share the forms of a decimal number: an optional sign, digits
// with an optional point, and an exponent behind "E", or behind "D" as the suite's older programs wrote that
// of a Double. Other bases ("&H10") are none: what people type into a list is decimal.
//
// - A text as a number (toLong() and the like) is a number as a whole, else it is an error. As amounts are
//   typed, it may have blanks around it, a dollar sign on either side of the sign, and commas among the
//   digits in front of the point, wherever they stand.
// - leadingNumber() takes what stands at the front of any text and never fails for what follows. Blanks and
//   tabs are passed over wherever they stand, inside of the number as well ("12 34" is 1234): so the suite
//   has always read numbers that were right-aligned or grouped by blanks. A line end is no blank: it ends the
//   number, since what stands on the next line of a memo is another number. Commas and currency signs end it.
// - toDate() reads a day, a time, or a day and a time behind it with blanks between, and blanks around them.
//   A day is month, day and year with the same one of "/", "-" and "." between them, blanks beside these
//   allowed; a first part of three or four digits is the year, as in "2003-01-31". Month and day are never
//   exchanged where they make no date: a text that means two dates in two offices shall mean one here. Years
//   of one or two digits are 2000 to 2029 and 1930 to 1999. A time is "16:05" or "16:05:30", or with AM or PM
//   behind it "4:05 PM" or "4 PM". Names of months are not read: no program of the suite writes them. What
//   is no such text but a number as a whole is the serial of a day.
//
// tests/runtime/NumbersAndDatesInTexts_test.cpp has them all in a table.

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
/// A number, also as text ("37652"), is a serial: 6 beyond the years 100 to 9999, for a text that names no
/// date 13.
Date toDate(const Value& value);

/// The ordinary text form: "True"/"False"; whole numbers as they are; Single with 7 and Double with
/// 15 significant digits, exponents as "1E+20"; Currency without trailing zeros; a date as
/// "1/31/2003", with " 4:05:00 PM" behind it unless it is midnight, the time alone on day 0.
/// Bytes are taken as UTF-8 text.
std::string toText(const Value& value);

/// The number at the front of a text; 0 for a text without one. Only a magnitude beyond Double raises an
/// error (6).
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
