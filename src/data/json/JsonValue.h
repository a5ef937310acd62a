// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Definition.h"
#include "runtime/Value.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace tol::data::json {

/// A number with a fraction or an exponent, and how it was spelled: a Single must be rounded once, from
/// the decimal digits, and not a second time from a Double.
struct JsonReal {
    double value;
    std::string spelled;
};

/// A value of a JSON text that is no object and no array. Whole numbers above the range of the signed
/// type come unsigned.
using JsonScalar = std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, JsonReal, std::string>;

/// The key of the object {"base64": "..."} that stands for a text that is no UTF-8: JSON has no other
/// place for such bytes, and a changed text would be a lost one.
inline constexpr std::string_view rawTextKey = "base64";

/// Appends a field's value: Null as null, Currency as a text with four decimals, Date as
/// "YYYY-MM-DD HH:MM:SS", binary as base64. Single and Double take the shortest spelling that reads
/// back to the same number, always with a point or an exponent (so that -0.0 stays what it is); the
/// infinities are the texts "Infinity" and "-Infinity".
void appendValue(std::string& out, const runtime::Value& value);

/// The value that the JSON text gives to a field of that type. Raises 13 when it is of another kind,
/// 6 when a number does not fit, 3421 for text that is no date, amount or base64.
runtime::Value toFieldValue(FieldType type, JsonScalar scalar);

/// Whether fields of this type hold text, and so may take {"base64": "..."}.
bool holdsText(FieldType type);

/// "a whole number", "a text", ...: what stands in the JSON text, for people.
std::string_view kindOf(const JsonScalar& scalar);

} // namespace tol::data::json
