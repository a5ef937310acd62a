// SPDX-License-Identifier: MIT
#pragma once

namespace tol::ctl {

/// Passes on what is still held back of standard output, which may only now turn out to have no place.
/// False, after a word on standard error, when something of it was lost.
[[nodiscard]] bool finishOutput();

/// From now on a reader who goes away before the end is no reason to end: work on databases goes on.
void outliveReader();

} // namespace tol::ctl
