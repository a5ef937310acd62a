// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/Command.h"

#include <optional>
#include <string>

namespace tol::ctl {

/// tolctl log: prints the log of the last run, to the terminal or as a PDF file.
class LogCommand : public Command {
  public:
    explicit LogCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    bool m_json = false;
    std::optional<std::string> m_pdf; ///< file to write
};

} // namespace tol::ctl
