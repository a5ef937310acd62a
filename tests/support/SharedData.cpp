// SPDX-License-Identifier: MIT
#include "support/SharedData.h"

#include <cstdlib>

namespace tol::test {

namespace fs = std::filesystem;

std::optional<fs::path> sharedData(std::string_view name) {
    if (const char* named = std::getenv("TOL_SHARED_DATA")) {
        const fs::path file = fs::path(named) / name;
        return fs::exists(file) ? std::optional(file) : std::nullopt;
    }
    for (fs::path folder = TOL_SOURCE_FOLDER; folder.has_relative_path(); folder = folder.parent_path()) {
        const fs::path file = folder / "shared" / "data" / name;
        if (fs::exists(file))
            return file;
    }
    return std::nullopt;
}

} // namespace tol::test
