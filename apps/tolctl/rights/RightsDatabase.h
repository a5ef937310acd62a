// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "tolctl/ProgressLine.h"
#include "tolctl/TerminalHost.h"

namespace tol::ctl {

/// The network database, where vdNetPath() finds it, open while this lives. What vdNetPath() tells in a box
/// is printed; a database that can't be found or opened is an error.
class RightsDatabase {
    ProgressLine m_progress{false};
    TerminalHost m_host{m_progress};

  public:
    enum class Use { Read, Write };
    explicit RightsDatabase(Use use = Use::Read);

    data::Workspace workspace;
    data::Database database;
};

} // namespace tol::ctl
