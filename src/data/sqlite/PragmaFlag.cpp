// SPDX-License-Identifier: MIT
#include "data/sqlite/PragmaFlag.h"

#include <sqlite3.h>

namespace tol::data::sqlite {

PragmaFlag::PragmaFlag(Connection& connection, const std::string& name)
    : m_connection(connection), m_pragma("PRAGMA " + name), m_wasOn(connection.number(m_pragma) != 0) {
    m_connection.execute(m_pragma + " = ON");
}

PragmaFlag::~PragmaFlag() {
    if (!m_wasOn)
        sqlite3_exec(m_connection.handle(), (m_pragma + " = OFF").c_str(), nullptr, nullptr, nullptr);
}

} // namespace tol::data::sqlite
