// SPDX-License-Identifier: MIT
#pragma once

namespace tol::test {

/// How many beeps the program has given since the last call. A test program that asks hears them in the
/// place of the loudspeaker.
int takeBeeps();

} // namespace tol::test
