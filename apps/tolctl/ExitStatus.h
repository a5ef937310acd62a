// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tol::ctl {

/// What tolctl tells to whoever started it.
enum class ExitStatus : int {
    Finished = 0,
    CouldNotStart = 1, ///< a folder, file or text is missing or unusable; nothing was done
    WrongUsage = 2,    ///< the command line makes no sense
    NeedsAttention =
        3, ///< finished, but a database stayed incomplete, a folder is missing or a box reported trouble
    Stopped = 4, ///< broken off by the person, by a signal or by an answer
    Found = 5,   ///< finished: what the command looks for is there, a difference or something amiss
};

/// Thrown by a command that can't go on, for another reason than a run-time error: what the person is told,
/// and how tolctl ends.
struct Failure {
    ExitStatus status;
    std::string text;
};

} // namespace tol::ctl
