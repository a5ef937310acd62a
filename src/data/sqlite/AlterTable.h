// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Connection.h"

#include <string>

namespace tol::data::sqlite {

/// ALTER TABLE ... RENAME, also in files in which SQLite refuses it because some view or trigger there
/// does not work any more. What does work is rewritten to the new name, what does not stays as it is. They
/// belong to the transaction that is open.
void renameTable(Connection& connection, const std::string& table, const std::string& newName);
void renameColumn(Connection& connection, const std::string& table, const std::string& column,
                  const std::string& newName);

} // namespace tol::data::sqlite
