// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tol::demo {

/// One of the compiled-in texts under demo/data, each of which says itself how it is to be read.
struct Text {
    std::string_view name;
    std::string_view content;
};

namespace texts {
extern const Text definition, releases, databases, sites, lists, network, own;
} // namespace texts

} // namespace tol::demo
