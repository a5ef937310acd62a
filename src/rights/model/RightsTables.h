// SPDX-License-Identifier: MIT
#pragma once

#include "data/Database.h"
#include "rights/model/RightsRows.h"

#include <vector>

namespace tol::rights {

enum class RowOrder {
    Listed, ///< by the index in whose order the windows list the table
    Stored,
};

/// All rows of the row type's table. Whatever is amiss (no such table, index or field, a value that has no
/// meaning) is raised with the names of file, table and field.
template <typename Row>
std::vector<Row> readRows(data::Database& database, RowOrder order = RowOrder::Listed);

/// Who may do what: the tables that every question to the rights is about.
struct RightsTables {
    std::vector<Module> modules = {};
    std::vector<AccessItem> items = {};
    std::vector<Template> templates = {};
    std::vector<TemplateItem> templateItems = {};
    std::vector<User> users = {};
    std::vector<Right> rights = {};
};

/// What refers to others is read first, so that a row which somebody adds meanwhile with all that it refers
/// to is not taken for one that refers to nothing.
RightsTables readTables(data::Database& database, RowOrder order = RowOrder::Listed);

} // namespace tol::rights
