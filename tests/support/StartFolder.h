// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Value.h"
#include "support/TempFolder.h"

#include <string>
#include <vector>

namespace tol::test {

/// A current folder in which the program starts: NETPATH.MDB, DBPATHS.MDB, and ZOVUSER.MDB on drive C. The
/// table NETPATH is empty at first.
class StartFolder : public TempFolder {
  public:
    StartFolder();

    /// Adds a row to NETPATH.
    void addPath(const runtime::Value& path) const;
    /// The paths of NETPATH's rows as they are stored.
    [[nodiscard]] std::vector<runtime::Value> paths() const;
    void remove(const std::string& name) const;
};

} // namespace tol::test
