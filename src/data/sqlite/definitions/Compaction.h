// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace tol::data::sqlite {

/// Makes a file anew without the bytes of deleted fields and rows; rows keep their keys. The file itself is
/// only read: a copy is made beside it, looked through, and takes its name in one step. Nobody may have
/// it open meanwhile, in this process or another (3045, 3218), it may have no second name (3045), and it must
/// be sound (3049). After an error it is what it was.
void compactFile(const std::filesystem::path& file);

} // namespace tol::data::sqlite
