// SPDX-License-Identifier: MIT
#include "shell/vdfunctions/vdTexts.h"

#include "runtime/Conversions.h"
#include "runtime/NumberFormat.h"
#include "runtime/Text.h"

#include <algorithm>

namespace tol::shell {
namespace {

/// The text with as many characters in front as it lacks to the width.
std::string padded(std::string_view text, int width, char filler) {
    const auto missing = width - static_cast<std::int64_t>(runtime::length(text));
    return std::string(static_cast<std::size_t>(std::max<std::int64_t>(missing, 0)), filler).append(text);
}

} // namespace

bool vdIsBlank(std::string_view text) {
    return runtime::trim(text).empty();
}

bool vdNotBlank(std::string_view text) {
    return !vdIsBlank(text);
}

std::string vdRepeat(std::string_view text, std::int16_t count) {
    std::string result;
    for (; count > 0; --count)
        result += text;
    return result;
}

std::string vdZeroPad(std::string_view value, int width) {
    return padded(runtime::trim(value), width, '0');
}

std::string vdIntText(std::int16_t value, int width) {
    return vdLongText(value, width);
}

std::string vdLongText(std::int32_t value, int width) {
    return padded(std::to_string(value), width, ' ');
}

std::string vdFormatOrDash(const runtime::Value& value, std::string_view format, bool dash) {
    if (!value.isNull() && !runtime::valuesEqual(value, std::int32_t{0}))
        return runtime::format(value, format);
    return dash ? "-" : " ";
}

} // namespace tol::shell
