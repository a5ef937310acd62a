// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/ExitStatus.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace tol::ctl {

/// One command of tolctl. Its constructor tells name, help and options to the command line; execute()
/// does the work when the command was chosen. What execute() raises is told to the person by Program.
class Command {
  public:
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    virtual ~Command() = default;

    [[nodiscard]] bool chosen() const { return m_app->parsed(); }
    virtual ExitStatus execute() = 0;

  protected:
    Command(CLI::App& program, const std::string& name, const std::string& help)
        : m_app(program.add_subcommand(name, help)) {}
    /// Where the constructor adds its options.
    [[nodiscard]] CLI::App& app() { return *m_app; }

  private:
    CLI::App* m_app;
};

/// The commands, each made in the file of its name; Program lists them.
using CommandFactory = std::unique_ptr<Command>(CLI::App& program);
CommandFactory updateCommand, refreshCommand, logCommand, dumpCommand, loadCommand, compactCommand,
    rightsCommand, locksCommand, itemsUpdateCommand, settingsCommand, demoCommand;

} // namespace tol::ctl
