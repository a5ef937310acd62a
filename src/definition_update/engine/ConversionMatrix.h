// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"

namespace tol::update {

/// How a value of one field type becomes one of another: a cell of the matrix. It returns false when
/// the value is unable to convert. It may raise a run-time error: overflow, a text that is no date, a
/// number too long for its text field. The value is never Null.
using Conversion = bool (*)(const runtime::Value& value, int wantedSize, runtime::Value& converted);

/// The cell for these field types; one that converts nothing for types that the matrix does not have.
Conversion conversionFor(int oldType, int wantedType);

} // namespace tol::update
