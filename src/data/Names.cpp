// SPDX-License-Identifier: MIT
#include "data/Names.h"

#include "runtime/RuntimeError.h"

#include <algorithm>

namespace tol::data {
namespace {

constexpr std::string_view reservedCharacters = ".!`[]";

bool isForbidden(unsigned char c) {
    return c < 0x20 || c == 0x7f || reservedCharacters.find(static_cast<char>(c)) != std::string_view::npos;
}

} // namespace

void requireNewName(std::string_view name) {
    const bool valid = !name.empty() && name.front() != ' ' && runtime::length(name) <= maxNameLength &&
                       std::none_of(name.begin(), name.end(), isForbidden);
    if (!valid)
        runtime::raise(runtime::errInvalidName, {name});
}

} // namespace tol::data
