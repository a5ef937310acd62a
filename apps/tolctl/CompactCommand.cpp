// SPDX-License-Identifier: MIT
#include "tolctl/CompactCommand.h"

#include "data/DBEngine.h"

#include <filesystem>
#include <iostream>

namespace tol::ctl {

CompactCommand::CompactCommand(CLI::App& program)
    : Command(program, "compact", "Remove the bytes of deleted fields and rows from a database") {
    app().add_option("FILE", m_file, "The database; nobody may have it open")->required()->type_name("");
}

ExitStatus CompactCommand::execute() {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksCOMPACT");
    data::Database database = workspace.OpenDatabase(m_file);
    const std::filesystem::path file = database.Name();
    const auto before = std::filesystem::file_size(file);
    database.Compact();
    database.Close();
    std::cerr << file.string() << ": " << before << " bytes before, " << std::filesystem::file_size(file)
              << " now\n";
    return ExitStatus::Finished;
}

} // namespace tol::ctl
