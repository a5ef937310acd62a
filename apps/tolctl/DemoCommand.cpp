// SPDX-License-Identifier: MIT
#include "demo/Demo.h"
#include "tolctl/Command.h"

#include <iostream>
#include <memory>
#include <string>

namespace tol::ctl {
namespace {

/// tolctl demo: makes a complete working folder with invented data.
class DemoCommand : public Command {
  public:
    explicit DemoCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    std::string m_demoFolder;
};

DemoCommand::DemoCommand(CLI::App& program)
    : Command(program, "demo", "Make a complete working folder with invented data") {
    app()
        .add_option("DIR", m_demoFolder, "The folder to make; it may exist if it is empty")
        ->required()
        ->type_name("");
    app().footer(
        "Six Job Sites that stand one to three releases behind, the network database, the definition\n"
        "database with a filled definition, and the user's databases on drive C. Start tol in the\n"
        "folder, or run: tolctl --dir DIR update --all");
}

ExitStatus DemoCommand::execute() {
    demo::makeDemo(m_demoFolder);
    std::cerr << "Made " << m_demoFolder << ". Next: tolctl --dir " << m_demoFolder << " update --all\n";
    return ExitStatus::Finished;
}

} // namespace

std::unique_ptr<Command> demoCommand(CLI::App& program) {
    return std::make_unique<DemoCommand>(program);
}

} // namespace tol::ctl
