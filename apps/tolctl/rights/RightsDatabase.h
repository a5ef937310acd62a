// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "tolctl/ProgressLine.h"
#include "tolctl/TerminalHost.h"

#include <string>

namespace tol::ctl {

/// The network database's file, where vdNetPath() finds it. What that tells in a box is printed; a database
/// that can't be found is an error.
std::string networkFile();

/// The network database, open while this lives; one that can't be found or opened is an error.
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
