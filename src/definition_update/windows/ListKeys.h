// SPDX-License-Identifier: MIT
#pragma once

#include "forms/Keys.h"

namespace tol::update {

/// The keys that both lists of the update window take: those that move the highlight. Nothing can be added,
/// edited or deleted there.
constexpr bool isMoveKey(int code) {
    return code >= forms::keyPageUp && code <= forms::keyDown;
}

} // namespace tol::update
