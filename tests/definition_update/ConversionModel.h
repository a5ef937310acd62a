// SPDX-License-Identifier: MIT
#pragma once

#include "JsonDatabase.h"

#include <string>

namespace tol::test {

/// What an update makes of a value, worked out from the rules for fields alone: the value that the field
/// holds once it is as wanted, where the operator answers every question with Yes. Fields and values as
/// case files write them; for values that no conversion fails on.
Json valueAfterUpdate(const Json& value, const Json& oldField, const Json& wantedField);

/// A number, an amount or a day in its ordinary text form.
std::string ordinaryText(const Json& value, int type);

/// The first characters of a text.
std::string firstCharacters(const std::string& text, int count);

} // namespace tol::test
