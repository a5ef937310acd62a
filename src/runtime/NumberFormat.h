// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"

#include <string>

namespace tol::runtime {

/// A number shown through a display format such as "###.00", "#,##0.00", "0", "####", "0%": digits
/// and `#` places, a point, thousands commas, percent, literal text in quotes or behind a backslash,
/// and up to three sections for positive; negative; zero. Rounds half away from zero, as displays do.
/// An empty format gives the ordinary text form; a value that is no number comes back as its text.
std::string format(const Value& value, std::string_view pattern);

} // namespace tol::runtime
