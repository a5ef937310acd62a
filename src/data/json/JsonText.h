// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tol::data::json {

bool isUtf8(std::string_view text);

/// The text as a JSON string with its quotes: characters beyond ASCII stand as they are, control
/// characters are escaped. The text must be UTF-8.
void appendQuoted(std::string& out, std::string_view text);

} // namespace tol::data::json
