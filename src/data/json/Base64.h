// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tol::data::json {

/// Bytes as text: the alphabet with `+` and `/`, always padded, in one line.
void appendBase64(std::string& out, std::span<const std::byte> bytes);

/// The bytes behind such a text; nothing when it is none. Only the one spelling that appendBase64()
/// gives is taken, so that reading and writing again changes no file.
std::optional<runtime::Bytes> fromBase64(std::string_view text);

} // namespace tol::data::json
