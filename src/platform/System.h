// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"

#include <cstddef>
#include <functional>
#include <string>

namespace tol::platform {

/// The log-in name, by the contract of the call that the suite was written against: `buffer` has at
/// least `size` + 1 characters. On success the name and a NUL stand at its front, `size` is the name's
/// length with the NUL, and the result is true. A name that needs more than `size` characters, its NUL
/// included, gives false and leaves the buffer alone. The name is $LOGNAME, else the account's.
bool getUserName(std::string& buffer, std::size_t& size);

/// Replaces the source of the log-in name for tests; an empty function restores it.
void setLoginName(std::function<std::string()> replacement);

/// The local date and time, to the second. Tests replace the clock; an empty function restores it.
runtime::Date now();
void setClock(std::function<runtime::Date()> replacement);

} // namespace tol::platform
