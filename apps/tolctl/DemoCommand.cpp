// SPDX-License-Identifier: MIT
#include "tolctl/DemoCommand.h"

#include "demo/Demo.h"

#include <iostream>

namespace tol::ctl {

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

} // namespace tol::ctl
