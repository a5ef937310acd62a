// SPDX-License-Identifier: MIT
#pragma once

#include "data/json/RowProgress.h"
#include "runtime/RuntimeError.h"

#include <functional>

namespace tol::data::json {

/// Told of something that is written, but that no database made from the text could take: a table's
/// definition, or the first such value of a field. The description tells the place.
using LoadComplaint = std::function<void(const runtime::RuntimeError&)>;

/// What to write, and whom to tell.
struct WriteOptions {
    bool schemaOnly = false;     ///< tables without "rows"
    RowWatcher watcher = {};     ///< of each row
    LoadComplaint complain = {}; ///< without it the complaint is raised
};

} // namespace tol::data::json
