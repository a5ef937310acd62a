// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"

#include <string>

namespace tol::search_print {

// Searches over tables of the network database, whose folder is DBPath. Each returns what vdSearch does.

/// The User Access Items of one module, by description at first.
std::string vdSearchUAIInModule(const std::string& DBPath, const runtime::Value& moduleId,
                                const std::string& moduleName);
/// Those of all modules, by code at first.
std::string vdSearchUAI(const std::string& DBPath);
/// The templates of user rights, by name at first.
std::string vdSearchURT(const std::string& DBPath);

} // namespace tol::search_print
