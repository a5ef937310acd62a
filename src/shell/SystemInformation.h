// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tol::shell {

/// Reads a value of the registry. False, and an empty value, when it is not there or has more than 1,024
/// bytes. A text comes as it is, a number in figures; anything else is empty, with true.
bool GetKeyValue(std::string_view key, std::string_view name, std::string& value);

/// Starts the system's own program for system information, which the registry names, by itself and not
/// through a shell; says in a box when there is none or it can't be started.
void startSystemInformation();

} // namespace tol::shell
