// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/Command.h"

#include <string>

namespace tol::ctl {

/// tolctl compact: removes the bytes of deleted fields and rows.
class CompactCommand : public Command {
  public:
    explicit CompactCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    std::string m_file;
};

} // namespace tol::ctl
