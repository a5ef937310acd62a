// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/OwedErrors.h"

#include <memory>

namespace tol::data {

/// Closes what a handle that goes away stood for. It can't raise an error then, so that the error is owed.
template <typename Core>
void closeOrOwe(const std::shared_ptr<Core>& core) noexcept {
    try {
        if (core)
            core->close();
    } catch (...) {
        runtime::owe(std::current_exception());
    }
}

} // namespace tol::data
