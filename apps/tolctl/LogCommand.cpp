// SPDX-License-Identifier: MIT
#include "tolctl/ActivityRows.h"
#include "tolctl/Command.h"
#include "tolctl/JsonReport.h"
#include "tolctl/Output.h"
#include "tolctl/PdfLog.h"
#include "tolctl/ProgressLine.h"
#include "tolctl/TerminalHost.h"

#include <iostream>
#include <memory>
#include <optional>
#include <string>

namespace tol::ctl {
namespace {

constexpr bool hasPdf = TOL_PDF; // a build without Qt draws no reports

// Two walks, so that the columns fit without the log being held in memory.
void printColumns() {
    ActivityTable table;
    forEachActivity([&](const update::ActivityRow& row) { table.widen(row); });
    std::cout << table.heading() << "\n";
    forEachActivity([&](const update::ActivityRow& row) { std::cout << table.line(row) << "\n"; });
}

/// tolctl log: prints the log of the last run, to the terminal or as a PDF file.
class LogCommand : public Command {
  public:
    explicit LogCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    bool m_json = false;
    std::optional<std::string> m_pdf; ///< file to write
};

LogCommand::LogCommand(CLI::App& program)
    : Command(program, "log", "Print the log of the last update, in stored order") {
    app().add_flag("--json", m_json, "Print the rows as a JSON array of objects");
    if constexpr (hasPdf)
        app()
            .add_option("--pdf", m_pdf, "Write the log as a printed report to this PDF file")
            ->type_name("FILE");
}

ExitStatus LogCommand::execute() {
    ProgressLine progress;
    const TerminalHost host(progress);
    if constexpr (hasPdf)
        if (m_pdf)
            writePdfLog(*m_pdf, progress);
    if (m_json) {
        printJsonActivity();
        std::cout << "\n";
    } else if (!m_pdf) {
        printColumns();
    }
    if (!finishOutput())
        return ExitStatus::CouldNotStart;
    return host.troubled() ? ExitStatus::NeedsAttention : ExitStatus::Finished;
}

} // namespace

std::unique_ptr<Command> logCommand(CLI::App& program) {
    return std::make_unique<LogCommand>(program);
}

} // namespace tol::ctl
