// SPDX-License-Identifier: MIT
#include "data/DBEngine.h"
#include "platform/Paths.h"
#include "tolctl/Command.h"

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>

namespace tol::ctl {
namespace {

/// tolctl compact: removes the bytes of deleted fields and rows.
class CompactCommand : public Command {
  public:
    explicit CompactCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    std::string m_file;
};

CompactCommand::CompactCommand(CLI::App& program)
    : Command(program, "compact", "Remove the bytes of deleted fields and rows from a database") {
    app().add_option("FILE", m_file, "The database; nobody may have it open")->required()->type_name("");
}

ExitStatus CompactCommand::execute() {
    const std::filesystem::path file = platform::hostPath(m_file);
    std::error_code missing; // which the engine tells
    const auto before = std::filesystem::file_size(file, missing);
    data::DBEngine::CompactDatabase(m_file);
    std::cerr << file.string() << ": " << before << " bytes before, " << std::filesystem::file_size(file)
              << " now\n";
    return ExitStatus::Finished;
}

} // namespace

std::unique_ptr<Command> compactCommand(CLI::App& program) {
    return std::make_unique<CompactCommand>(program);
}

} // namespace tol::ctl
