// SPDX-License-Identifier: MIT
#include "data/engine/Names.h"

#include "runtime/RuntimeError.h"

#include <algorithm>

namespace tol::data {
namespace {

constexpr std::string_view reservedCharacters = ".!`[]";

bool isForbidden(unsigned char c) {
    return c < 0x20 || c == 0x7f || reservedCharacters.find(static_cast<char>(c)) != std::string_view::npos;
}

bool isFitForNew(std::string_view name) {
    return name.front() != ' ' && runtime::length(name) <= maxNameLength &&
           std::none_of(name.begin(), name.end(), isForbidden);
}

} // namespace

void requireNewName(std::string_view name, bool asFound) {
    const bool valid = !name.empty() && (asFound || isFitForNew(name));
    if (!valid)
        runtime::raise(runtime::errInvalidName, {name});
}

void requireNewFieldName(std::string_view name, bool asFound) {
    requireNewName(name, asFound);
    if (sameName(name, rowKeyColumn) || name.starts_with(hiddenColumnPrefix))
        runtime::raise(runtime::errInvalidName, {name});
}

} // namespace tol::data
