// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/ExitStatus.h"

#include <optional>
#include <string>

namespace tol::ctl {

/// Ctrl+C, the end of the terminal and the polite end signal ask a command to stop at its next yield, where
/// the files are in order. A second one ends the program at once. What the starter wants ignored stays
/// ignored.
void watchInterrupts();
[[nodiscard]] bool interrupted();

/// A line of standard input without its end; nothing when that has ended, or when a stop is asked for
/// before the line is there. A person's input only: it is read byte by byte.
[[nodiscard]] std::optional<std::string> readLine();

/// What ends a command that was asked to stop; and throws it when a stop was asked for.
[[nodiscard]] Failure stopped();
void stopIfInterrupted();

} // namespace tol::ctl
