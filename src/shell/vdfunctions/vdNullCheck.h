// SPDX-License-Identifier: MIT
#pragma once

#include "data/Field.h"
#include "runtime/Value.h"

#include <string>

namespace tol::shell {

/// The field's value, or the type's blank value when it is Null: False, 0, 1 January 1900, as many
/// blanks as a text field's size, one blank for memo, binary and GUID. A run-time error (no current
/// record, typically) is shown in a box, and gives the same blanks, "  /  /  " for a date.
runtime::Value vdNullCheck(const data::Field& field);
/// vdNullCheck as text, trimmed or not.
std::string vdNullCheckText(const data::Field& field);

} // namespace tol::shell
