// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace tol::forms {

/// Shows the exception in flight in an error box and ends the program: a run-time error with its number
/// and description, anything else as an internal error. An error under that box adds nothing: only then
/// the call returns. To be called in a catch block.
void endOnError() noexcept;

/// Whether an error box is up that will end the program.
bool endingOnError();

/// Runs what Qt calls us for. No exception leaves it, so none travels on through Qt.
template <typename Procedure>
void guarded(Procedure&& procedure) noexcept {
    try {
        std::forward<Procedure>(procedure)();
    } catch (...) {
        endOnError();
    }
}

} // namespace tol::forms
