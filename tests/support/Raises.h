// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/RuntimeError.h"

#include <string>

namespace tol::test {

/// The number of the run-time error that the call raises, 0 when it raises none.
template <typename Call>
int errorOf(Call&& call) {
    try {
        call();
    } catch (const runtime::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

/// The description of the run-time error that the call raises, "" when it raises none.
template <typename Call>
std::string descriptionOf(Call&& call) {
    try {
        call();
    } catch (const runtime::RuntimeError& error) {
        return error.description();
    }
    return {};
}

} // namespace tol::test
