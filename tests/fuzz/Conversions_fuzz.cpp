// SPDX-License-Identifier: MIT

// Any text at all may be typed into a field or lie in a database. Reading it as a number or a date either
// raises one of the expected errors, or gives a value that is in its range and that reads back from its
// own text as itself.

#include "runtime/Conversions.h"
#include "runtime/NumberFormat.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "screens/input/Dates.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <string_view>

namespace {

using namespace tol::runtime;

void require(bool condition) {
    if (!condition)
        std::abort();
}

/// Runs the call; an error that is not among the expected ones ends the program.
template <typename Call>
void expectAtMost(std::initializer_list<int> numbers, Call call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        bool expected = false;
        for (const int number : numbers)
            expected = expected || number == error.number();
        require(expected);
    }
}

void checkNumbers(const std::string& text) {
    expectAtMost({errOverflow}, [&] { require(std::isfinite(leadingNumber(text))); });
    expectAtMost({errOverflow, errTypeMismatch}, [&] {
        const double number = toDouble(text);
        require(std::isfinite(number));
        const double again = toDouble(toText(number));
        require(number == again || std::fabs(number - again) <= std::fabs(number) * 1e-14);
    });
    expectAtMost({errOverflow, errTypeMismatch}, [&] {
        const Currency amount = toCurrency(text);
        require(toCurrency(toText(amount)) == amount);
        require(currencyFromText(fourDecimals(amount)) == amount);
    });
    expectAtMost({errOverflow, errTypeMismatch},
                 [&] { require(toLong(toText(toLong(text))) == toLong(text)); });
    expectAtMost({errOverflow, errTypeMismatch}, [&] { toSingle(text); });
    expectAtMost({errTypeMismatch, errOverflow}, [&] { toBoolean(text); });
    expectAtMost({errTypeMismatch, errOverflow}, [&] { currencyFromText(text); });
}

void checkDates(const std::string& text) {
    expectAtMost({errTypeMismatch}, [&] {
        const Date date = toDate(text);
        require(valuesEqual(dateFromIso(isoText(date)), makeDate(dateParts(date))));
        require(valuesEqual(toDate(toText(date)), makeDate(dateParts(date))));
    });
    expectAtMost({errTypeMismatch}, [&] { require(isoText(dateFromIso(text)).size() == 19); });
    int pivot = static_cast<int>(text.size()) - 60;
    require(tol::screens::vdDateKey(text, pivot).size() >= 2);
    for (const int width : {6, 8, 10}) {
        const std::string checked = tol::screens::vdDateCheck(text, width, pivot);
        require(checked == " " || length(checked) >= 6);
    }
    require(pivot >= 1 && pivot <= 99);
}

void checkTexts(const std::string& text) {
    require(compareText(text, text) == 0);
    require(length(text) <= text.size());
    require(left(text, static_cast<long>(length(text))) == text);
    const std::string half(left(text, static_cast<long>(length(text) / 2)));
    require((compareText(half, text) > 0) == (compareText(text, half) < 0));
    require((compareText(half, text) == 0) == sameText(half, text));
    for (const std::string& other : {upperCase(text), lowerCase(text), foldCase(text)}) {
        require(sameText(text, other) && compareText(text, other) == 0);
        require(length(other) == length(text));
    }
    expectAtMost({}, [&] {
        format(12345.678, text);
        format(text, "#,##0.00;(0);none");
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    checkNumbers(text);
    checkDates(text);
    checkTexts(text);
    return 0;
}
