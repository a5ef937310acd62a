// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/TableState.h"
#include "data/sqlite/definitions/StoredTable.h"

#include <memory>

namespace tol::data::sqlite {

/// A table of an open file.
struct OpenTable {
    std::shared_ptr<const StoredTable> table;
    TableState rows;
};

} // namespace tol::data::sqlite
