// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/RuntimeError.h"

#include <cstddef>

namespace tol::data {

/// A position in a collection of `count` items, raising 3265 for one that is outside. A look-up by name
/// that found nothing gives -1, which is outside too.
inline std::size_t requirePosition(int position, std::size_t count) {
    if (position < 0 || static_cast<std::size_t>(position) >= count)
        runtime::raise(runtime::errItemNotFound);
    return static_cast<std::size_t>(position);
}

} // namespace tol::data
