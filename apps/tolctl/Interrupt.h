// SPDX-License-Identifier: MIT
#pragma once

namespace tol::ctl {

/// Ctrl+C, the end of the terminal and the polite end signal ask a command to stop at its next yield, where
/// the files are in order. A second one ends the program at once. What the starter wants ignored stays
/// ignored.
void watchInterrupts();
[[nodiscard]] bool interrupted();

/// Raises Stopped when a stop was asked for.
void stopIfInterrupted();

} // namespace tol::ctl
