// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace tol::runtime {

/// Failures that came where they could not be raised: at the end of a handle, in a call for another file,
/// while a box was about to be shown. They are kept, oldest first, until somebody raises or takes them, so
/// that none is lost. Used on one thread.

/// Keeps a failure. `owner` is the file that it concerns, "" for none in particular.
void deferError(std::exception_ptr failure, std::string owner = {});
[[nodiscard]] bool anyDeferred();
/// The oldest failure, no longer deferred then; null when there is none.
std::exception_ptr takeDeferred();
/// Raises the oldest failure, if there is any: of all, or of that owner's.
void raiseDeferred();
void raiseDeferred(std::string_view owner);

} // namespace tol::runtime
