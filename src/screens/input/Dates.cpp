// SPDX-License-Identifier: MIT
#include "screens/input/Dates.h"

#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <array>
#include <cstdlib>
#include <fmt/format.h>

namespace tol::screens {
namespace {

using runtime::leadingNumber;
using runtime::trim;

/// The month, day and year of a date text, as they were typed.
struct TypedDate {
    std::array<std::string, 3> parts;
    int separators = 0;

    [[nodiscard]] const std::string& month() const { return parts[0]; }
    [[nodiscard]] const std::string& day() const { return parts[1]; }
    [[nodiscard]] const std::string& year() const { return parts[2]; }
};

/// What stands behind a third separator belongs to no part.
TypedDate split(std::string_view text, std::string_view separators) {
    TypedDate date;
    for (const char c : text) {
        if (separators.find(c) != std::string_view::npos)
            ++date.separators;
        else if (date.separators < 3)
            date.parts[static_cast<std::size_t>(date.separators)] += c;
    }
    return date;
}

void cleanPivot(int& pivot) {
    constexpr int usualPivot = 70, largestPivot = 99;
    // Before the absolute value is taken, since the smallest number has none.
    if (pivot < -largestPivot || pivot > largestPivot || pivot == 0)
        pivot = usualPivot;
    pivot = std::abs(pivot);
}

std::string_view centuryOf(double year, int pivot) {
    return year > pivot ? "19" : "20";
}

/// A part of one character gets a zero in front.
std::string twoDigits(const std::string& part) {
    return runtime::length(part) == 1 ? "0" + part : part;
}

bool isDateShaped(const TypedDate& date) {
    constexpr int yearDigits = 4;
    if (runtime::length(trim(date.year())) > yearDigits || date.separators < 2)
        return false;
    for (const std::string& part : date.parts)
        if (part.empty())
            return false;
    const double month = leadingNumber(date.month()), day = leadingNumber(date.day());
    if (month > 12 || month < 1 || day > 31 || day < 1)
        return false;
    // Every February may have 29 days here; the conversion of the finished text knows the leap years.
    const bool isShort = month == 4 || month == 6 || month == 9 || month == 11;
    return !(month == 2 && day > 29) && !(isShort && day > 30);
}

std::string formed(const TypedDate& date, int width, int pivot) {
    constexpr double yearLimit = 3000;
    const double typedYear = leadingNumber(date.year());
    const double yearValue = typedYear >= yearLimit ? 0 : typedYear;
    const bool isShortYear = runtime::length(trim(date.year())) < 3;
    const std::string_view century = isShortYear ? centuryOf(yearValue, pivot) : "";
    const std::string month = twoDigits(date.month()), day = twoDigits(date.day()),
                      year = twoDigits(date.year());
    const std::string_view lastTwo =
        std::string_view(year).substr(year.size() - std::min<std::size_t>(2, year.size()));
    switch (width) {
    case 6:
        return fmt::format("{}{}{}", month, day, lastTwo);
    case 8:
        return fmt::format("{}/{}/{}", month, day, lastTwo);
    default:
        return fmt::format("{}/{}/{}{}", month, day, century, year);
    }
}

TypedDate takeApart(std::string_view text) {
    constexpr std::string_view separators = "/.-";
    constexpr std::size_t digitsWithoutSeparators = 6;
    if (text.find_first_of(separators) != std::string_view::npos ||
        runtime::length(text) != digitsWithoutSeparators)
        return split(text, separators);
    TypedDate date{{}, 3};
    for (std::string& part : date.parts) {
        part = runtime::left(text, 2);
        text.remove_prefix(part.size());
    }
    return date;
}

} // namespace

std::string vdDateKey(std::string_view text, int& pivot) {
    constexpr int blankKey = 8;
    cleanPivot(pivot);
    const TypedDate date = split(trim(text), "-/");
    if (date.separators != 2)
        return runtime::space(blankKey);
    const bool isShortYear = runtime::length(date.year()) < 3;
    const std::string_view century = isShortYear ? centuryOf(leadingNumber(date.year()), pivot) : "";
    return fmt::format("{}{}{}{}", century, twoDigits(date.year()), twoDigits(date.month()),
                       twoDigits(date.day()));
}

std::string vdDateCheck(std::string_view text, int width, int& pivot) {
    static constexpr const char* noDate = " ";
    cleanPivot(pivot);
    try {
        const TypedDate date = takeApart(trim(text));
        if (!isDateShaped(date))
            return noDate;
        std::string result = formed(date, width, pivot);
        runtime::toDate(result); // refuses what no calendar has; six bare digits are a day's number to it
        return result;
    } catch (const runtime::RuntimeError&) {
        return noDate;
    }
}

} // namespace tol::screens
