// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/Command.h"
#include "tolctl/ProgressLine.h"

namespace tol::ctl {

/// tolctl refresh: fills the wanted definition and the delivered lists.
class RefreshCommand : public Command {
  public:
    explicit RefreshCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    bool m_json = false;
    ProgressLine m_progress;
};

} // namespace tol::ctl
