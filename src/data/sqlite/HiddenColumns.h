// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Connection.h"
#include "data/sqlite/Physical.h"

#include <string>
#include <vector>

namespace tol::data::sqlite {

/// The columns of deleted fields, which stay in a table under hidden names with their bytes until they
/// are swept out.
class HiddenColumns {
  public:
    HiddenColumns(Connection& connection, std::string table)
        : m_connection(connection), m_table(std::move(table)) {}

    [[nodiscard]] std::vector<std::string> names();
    /// A name for one more.
    [[nodiscard]] std::string freeName();
    /// Whether the table has room for further columns; SQLite bounds their number.
    [[nodiscard]] bool leaveRoom(const PhysicalTable& table) const;
    /// Rebuilds the table without them, as part of the transaction that is open.
    void sweep();

  private:
    Connection& m_connection;
    std::string m_table; ///< its name in the file
};

} // namespace tol::data::sqlite
