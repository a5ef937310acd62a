// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/RuntimeError.h"

#include <memory>

namespace tol::data {

/// Closes what a handle that goes away stood for. It can't raise an error then: who wants to know of one
/// calls Close.
template <typename Core>
void closeQuietly(const std::shared_ptr<Core>& core) noexcept {
    try {
        if (core)
            core->close();
    } catch (const runtime::RuntimeError&) {
        return;
    }
}

} // namespace tol::data
