// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Definition.h"
#include "runtime/Value.h"

namespace tol::data {

/// Whether the value is of the type in which fields of this type hold it: bool, std::uint8_t,
/// std::int16_t, std::int32_t, Currency, float, double, Date; std::string for text, memo and
/// identifier; Bytes for binary.
bool hasOwnType(FieldType type, const runtime::Value& value);

/// The value in the field's own type; Null stays Null. Raises 6 for a number beyond the type's range and
/// 3421 for what can't become the type at all. An identifier takes the usual spellings, with braces or
/// without, and blanks; it is kept as it is spelled.
runtime::Value toFieldType(FieldType type, const runtime::Value& value);

/// Raises 3163 for a text with more characters than the field holds.
void requireFits(const FieldDef& field, const runtime::Value& value);

} // namespace tol::data
