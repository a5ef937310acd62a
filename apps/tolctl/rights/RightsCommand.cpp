// SPDX-License-Identifier: MIT
#include "tolctl/rights/RightsCommand.h"

#include <memory>
#include <string>
#include <vector>

namespace tol::ctl {
namespace {

constexpr const char* closing =
    "All of them work on the network database, which NETPATH.MDB of the current folder finds.";

/// In the order of the help.
constexpr CommandFactory* commands[] = {modulesCommand, itemsCommand, templatesCommand, templateCommand,
                                        usersCommand,   userCommand,  effectiveCommand, whoCommand,
                                        diffCommand,    checkCommand, fillCommand,      applyCommand};

/// tolctl rights: who may do what, by commands of its own.
class RightsCommand : public Command {
  public:
    explicit RightsCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    std::vector<std::unique_ptr<Command>> m_commands;
};

RightsCommand::RightsCommand(CLI::App& program)
    : Command(program, "rights", "Tell and set who may do what in the modules of the suite") {
    app().require_subcommand(1);
    app().footer(closing);
    for (CommandFactory* make : commands)
        m_commands.push_back(make(app()));
#if TOL_PDF
    m_commands.push_back(printCommand(app()));
#endif
}

ExitStatus RightsCommand::execute() {
    for (const auto& command : m_commands)
        if (command->chosen())
            return command->execute();
    return ExitStatus::WrongUsage;
}

} // namespace

std::unique_ptr<Command> rightsCommand(CLI::App& program) {
    return std::make_unique<RightsCommand>(program);
}

} // namespace tol::ctl
