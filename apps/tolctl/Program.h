// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/Command.h"
#include "tolctl/ExitStatus.h"

#include <memory>
#include <string>
#include <vector>

namespace tol::ctl {

/// The program: reads the command line, goes to the folder that it names, runs the one command, and
/// turns whatever went wrong into a sentence and a status.
class Program {
  public:
    Program();
    ExitStatus run(int count, const char* const* words);

  private:
    /// Turns whatever the work raises into a sentence and a status.
    template <typename Work>
    ExitStatus attempt(Work&& work);
    ExitStatus runChosen();
    void tellUsage(const CLI::ParseError& error) const;
    void enterFolder() const;

    CLI::App m_app;
    std::string m_folder;
    std::vector<std::unique_ptr<Command>> m_commands;
};

} // namespace tol::ctl
