// SPDX-License-Identifier: MIT
#pragma once

namespace tol::data::sqlite {

/// Lets SQLite tell a used-up quota, or a limit on the size of files, as the full disk that it is. By
/// itself it takes them for failing hardware, and which of the two a write met is lost by the time it has
/// rolled back. Holds for the whole process; calling it again does nothing.
void tellLimitsAsFullDisk();

} // namespace tol::data::sqlite
