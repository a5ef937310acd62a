// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Text.h"

#include <string>
#include <string_view>

namespace tol::shell {

/// The file name of a database in a folder: MAIN.MDB when no name is given, by its bare name (that is, in
/// the current folder) when the folder is blank.
inline std::string databaseName(std::string_view folder, std::string_view database) {
    std::string name(runtime::trim(folder));
    if (!name.empty())
        name += '\\';
    return name.append(database.empty() ? "MAIN.MDB" : database);
}

} // namespace tol::shell
