// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/Command.h"
#include "tolctl/ProgressLine.h"

#include <string>

namespace tol::ctl {

/// tolctl load: makes a database from JSON.
class LoadCommand : public Command {
  public:
    explicit LoadCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    std::string m_file;
    std::string m_json;
    ProgressLine m_progress;
};

} // namespace tol::ctl
