// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/Command.h"
#include "tolctl/ProgressLine.h"

#include <string>

namespace tol::ctl {

/// tolctl dump: prints a database as JSON.
class DumpCommand : public Command {
  public:
    explicit DumpCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    std::string m_file;
    bool m_schemaOnly = false;
    ProgressLine m_progress; ///< not where the JSON itself runs over the terminal
};

} // namespace tol::ctl
