// SPDX-License-Identifier: MIT
#include "data/DBEngine.h"
#include "data/json/DatabaseJson.h"
#include "tolctl/Command.h"
#include "tolctl/Output.h"
#include "tolctl/ProgressLine.h"
#include "tolctl/RowReport.h"

#include <iostream>
#include <memory>
#include <string>

#include <unistd.h>

namespace tol::ctl {
namespace {

constexpr const char* closing =
    "The text is {\"tables\": [{\"name\", \"fields\", \"indexes\", \"rows\"}]}, one row a line. Null is "
    "null, an\n"
    "amount a text with four decimals, a date \"YYYY-MM-DD HH:MM:SS\", binary base64, infinity \"Infinity\", "
    "a\n"
    "text that is no UTF-8 {\"base64\": \"...\"}. tolctl load makes the same database from it.";

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

DumpCommand::DumpCommand(CLI::App& program)
    : Command(program, "dump", "Print a database as JSON"), m_progress(isatty(STDOUT_FILENO) == 0) {
    app().add_option("FILE", m_file, "The database")->required()->type_name("");
    app().add_flag("--schema-only", m_schemaOnly, "Tables, fields and indexes without rows");
    app().footer(closing);
}

ExitStatus DumpCommand::execute() {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksDUMP");
    data::Database database = workspace.OpenDatabase(m_file, false, true);
    ExitStatus status = ExitStatus::Finished;
    const auto complain = [&](const runtime::RuntimeError& error) {
        m_progress.clear();
        std::cerr << "tolctl: can't be loaded again: " << error.description() << " (error " << error.number()
                  << ")\n";
        status = ExitStatus::NeedsAttention;
    };
    data::json::writeDatabase(database, std::cout, {m_schemaOnly, rowReport(m_progress), complain});
    m_progress.clear();
    return finishOutput() ? status : ExitStatus::CouldNotStart;
}

} // namespace

std::unique_ptr<Command> dumpCommand(CLI::App& program) {
    return std::make_unique<DumpCommand>(program);
}

} // namespace tol::ctl
