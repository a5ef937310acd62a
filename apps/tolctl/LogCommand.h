// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/Command.h"

namespace tol::ctl {

/// tolctl log: prints the log of the last run.
class LogCommand : public Command {
  public:
    explicit LogCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    bool m_json = false;
};

} // namespace tol::ctl
