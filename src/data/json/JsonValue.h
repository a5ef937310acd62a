// SPDX-License-Identifier: MIT
#pragma once

#include "data/Definition.h"
#include "data/json/JsonScalar.h"
#include "runtime/Value.h"

#include <string>
#include <string_view>

namespace tol::data::json {

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
