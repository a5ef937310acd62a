// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/Connection.h"

#include <string>

namespace tol::data::sqlite {

/// A yes-or-no PRAGMA of a connection that is switched on while this lives, and set back afterwards.
class PragmaFlag {
  public:
    PragmaFlag(Connection& connection, const std::string& name);
    PragmaFlag(const PragmaFlag&) = delete;
    PragmaFlag& operator=(const PragmaFlag&) = delete;
    ~PragmaFlag();

  private:
    Connection& m_connection;
    std::string m_pragma;
    bool m_wasOn;
};

} // namespace tol::data::sqlite
