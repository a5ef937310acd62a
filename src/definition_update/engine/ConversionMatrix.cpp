// SPDX-License-Identifier: MIT
#include "definition_update/engine/ConversionMatrix.h"

#include "data/engine/Definition.h"
#include "runtime/Conversions.h"
#include "runtime/Text.h"
#include "screens/input/Dates.h"
#include "shell/vdfunctions/vdTexts.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace tol::update {

using namespace data; // the names of the field types
using runtime::Value;

namespace {

// Both bounds are left out, as the data of the older releases were checked against them.
bool inIntegerRange(double value) {
    return value > -32767 && value < 32767;
}

bool unable(const Value& /*value*/, int /*wantedSize*/, Value& /*converted*/) {
    return false;
}

bool copy(const Value& value, int /*wantedSize*/, Value& converted) {
    converted = value;
    return true;
}

bool oneOrZero(const Value& value, int /*wantedSize*/, Value& converted) {
    converted = std::int16_t{runtime::toBoolean(value)};
    return true;
}

bool truthLetter(const Value& value, int /*wantedSize*/, Value& converted) {
    converted = runtime::toBoolean(value) ? "T" : "F";
    return true;
}

bool positive(const Value& value, int /*wantedSize*/, Value& converted) {
    converted = runtime::toDouble(value) > 0;
    return true;
}

bool integerInRange(const Value& value, int /*wantedSize*/, Value& converted) {
    if (!inIntegerRange(runtime::toDouble(value)))
        return false;
    converted = runtime::toInteger(value);
    return true;
}

bool toLong(const Value& value, int /*wantedSize*/, Value& converted) {
    converted = runtime::toLong(value);
    return true;
}

bool toCurrency(const Value& value, int /*wantedSize*/, Value& converted) {
    converted = runtime::toCurrency(value);
    return true;
}

bool toSingle(const Value& value, int /*wantedSize*/, Value& converted) {
    converted = runtime::toSingle(value);
    return true;
}

bool toDouble(const Value& value, int /*wantedSize*/, Value& converted) {
    converted = runtime::toDouble(value);
    return true;
}

bool asText(const Value& value, int /*wantedSize*/, Value& converted) {
    converted = runtime::toText(value);
    return true;
}

// The number ends at the field's last character; one that is longer than the field raises an error.
bool rightAligned(const Value& value, int wantedSize, Value& converted) {
    const std::string text = runtime::toText(value);
    const std::string number(runtime::trim(text));
    const long blanks = wantedSize - static_cast<long>(runtime::length(number));
    const std::string aligned = runtime::space(blanks) + number + runtime::space(wantedSize);
    converted = runtime::left(aligned, wantedSize);
    return true;
}

bool dateAsText(const Value& value, int wantedSize, Value& converted) {
    constexpr int widthOfDate = 10;
    return wantedSize >= widthOfDate && asText(value, wantedSize, converted);
}

bool leadingInteger(const Value& value, int /*wantedSize*/, Value& converted) {
    const double number = runtime::leadingNumber(runtime::toText(value));
    if (!inIntegerRange(number))
        return false;
    converted = runtime::toInteger(number);
    return true;
}

bool leadingLong(const Value& value, int /*wantedSize*/, Value& converted) {
    converted = runtime::toLong(runtime::leadingNumber(runtime::toText(value)));
    return true;
}

// A text that names a time of day as well is unable: its last part is no year.
bool textToDate(const Value& value, int /*wantedSize*/, Value& converted) {
    int width = 10;
    int pivot = 0;
    const std::string text = runtime::toText(runtime::toDate(value));
    const std::string checked = screens::vdDateCheck(text, width, pivot);
    if (shell::vdIsBlank(checked))
        return false;
    converted = runtime::toDate(checked);
    return true;
}

constexpr std::array wantedTypes{dbBoolean, dbInteger, dbLong, dbCurrency, dbSingle,
                                 dbDouble,  dbDate,    dbText, dbMemo};

struct MatrixRow {
    int oldType;
    std::array<Conversion, wantedTypes.size()> cells;
};

// clang-format off
constexpr std::array<MatrixRow, 8> matrix{{
    //            Boolean   Integer         Long         Currency    Single     Double     Date        Text          Memo
    {dbBoolean,  {copy,     oneOrZero,      oneOrZero,   oneOrZero,  oneOrZero, oneOrZero, unable,     truthLetter,  unable}},
    {dbInteger,  {positive, copy,           toLong,      toCurrency, toSingle,  toDouble,  unable,     rightAligned, unable}},
    {dbLong,     {positive, integerInRange, copy,        toCurrency, toSingle,  toDouble,  unable,     asText,       unable}},
    {dbCurrency, {positive, integerInRange, toLong,      copy,       toSingle,  toDouble,  unable,     asText,       unable}},
    {dbSingle,   {positive, integerInRange, toLong,      toCurrency, copy,      toDouble,  unable,     asText,       unable}},
    {dbDouble,   {positive, integerInRange, toLong,      toCurrency, toSingle,  copy,      unable,     asText,       unable}},
    {dbDate,     {unable,   unable,         unable,      unable,     unable,    unable,    copy,       dateAsText,   unable}},
    {dbText,     {unable,   leadingInteger, leadingLong, unable,     unable,    unable,    textToDate, copy,         copy}},
}};
// clang-format on

} // namespace

Conversion conversionFor(int oldType, int wantedType) {
    const auto row = std::find_if(matrix.begin(), matrix.end(),
                                  [oldType](const MatrixRow& each) { return each.oldType == oldType; });
    const auto column = std::find(wantedTypes.begin(), wantedTypes.end(), wantedType);
    if (row == matrix.end() || column == wantedTypes.end())
        return unable;
    return row->cells[static_cast<std::size_t>(column - wantedTypes.begin())];
}

} // namespace tol::update
