// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"

namespace tol::update {

/// Says in the definition database itself that NEWDEF and NEWINDEXES are being filled, or that their last
/// filling did not come to its end, so that they may hold a part of the definition only. The mark is a table
/// without fields.
class FillingMark {
  public:
    explicit FillingMark(data::Database& definitions) : m_definitions(definitions) {}

    [[nodiscard]] bool isSet() const;
    /// Each has reached the disk when it returns, with all that was written before; else it raises why not.
    void set();
    void clear();

  private:
    data::Database& m_definitions;
};

} // namespace tol::update
