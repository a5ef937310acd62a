// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tol::network {

/// A module of the suite, as the network settings know it.
struct SuiteModule {
    std::string_view code;
    std::string_view name;
    /// The file in which the module keeps where the network database lies; blank for a module that has none.
    std::string_view pathFile;
};

/// The module of that code; for an unknown one a module called "????" without a path file.
const SuiteModule& suiteModule(std::string_view code);

} // namespace tol::network
