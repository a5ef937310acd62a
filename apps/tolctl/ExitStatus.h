// SPDX-License-Identifier: MIT
#pragma once

namespace tol::ctl {

/// What tolctl tells to whoever started it.
enum class ExitStatus : int {
    Finished = 0,
    CouldNotStart = 1, ///< a folder, file or text is missing or unusable; nothing was done
    WrongUsage = 2,    ///< the command line makes no sense
    NeedsAttention =
        3, ///< finished, but a database stayed incomplete, a folder is missing or a box reported trouble
    Stopped = 4, ///< broken off by the person, by a signal or by an answer
};

/// Thrown where a command that can be broken off at any row was asked to stop.
struct Stopped {};

} // namespace tol::ctl
