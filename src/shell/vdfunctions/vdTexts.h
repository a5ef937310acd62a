// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tol::shell {

/// Whether nothing but blanks is in the text.
bool vdIsBlank(std::string_view text);
bool vdNotBlank(std::string_view text);
std::string vdRepeat(std::string_view text, std::int16_t count);
/// The text, trimmed, or the number with zeros, or blanks, in front up to the width.
std::string vdZeroPad(std::string_view value, int width);
std::string vdIntText(std::int16_t value, int width);
std::string vdLongText(std::int32_t value, int width);
/// The number in the format; for 0 and Null "-", or " " where no dash is wanted.
std::string vdFormatOrDash(const runtime::Value& value, std::string_view format, bool dash);

} // namespace tol::shell
