// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/Command.h"

#include <string>

namespace tol::ctl {

/// tolctl demo: makes a complete working folder with invented data.
class DemoCommand : public Command {
  public:
    explicit DemoCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    std::string m_demoFolder;
};

} // namespace tol::ctl
