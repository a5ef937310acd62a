// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tol::data::json {

bool isUtf8(std::string_view text);

/// The text as a JSON string with its quotes: characters beyond ASCII stand as they are, control
/// characters are escaped. The text must be UTF-8.
void appendQuoted(std::string& out, std::string_view text);

/// Bytes as text: the alphabet with `+` and `/`, always padded, in one line.
void appendBase64(std::string& out, std::span<const std::byte> bytes);

/// The bytes behind such a text; nothing when it is none. Only the one spelling that appendBase64()
/// gives is taken, so that reading and writing again changes no file.
std::optional<runtime::Bytes> fromBase64(std::string_view text);

} // namespace tol::data::json
