// SPDX-License-Identifier: MIT
#include "tolctl/LogCommand.h"

#include "tolctl/ActivityRows.h"
#include "tolctl/JsonReport.h"
#include "tolctl/Output.h"
#include "tolctl/ProgressLine.h"
#include "tolctl/TerminalHost.h"

#include <iostream>

namespace tol::ctl {
namespace {

// Two walks, so that the columns fit without the log being held in memory.
void printColumns() {
    ActivityTable table;
    forEachActivity([&](const update::ActivityRow& row) { table.widen(row); });
    std::cout << table.heading() << "\n";
    forEachActivity([&](const update::ActivityRow& row) { std::cout << table.line(row) << "\n"; });
}

} // namespace

LogCommand::LogCommand(CLI::App& program)
    : Command(program, "log", "Print the log of the last update, in stored order") {
    app().add_flag("--json", m_json, "Print the rows as a JSON array of objects");
}

ExitStatus LogCommand::execute() {
    ProgressLine progress;
    const TerminalHost host(progress, OnUnconvertible::Stop);
    if (m_json) {
        printJsonActivity();
        std::cout << "\n";
    } else {
        printColumns();
    }
    if (!finishOutput())
        return ExitStatus::CouldNotStart;
    return host.troubled() ? ExitStatus::NeedsAttention : ExitStatus::Finished;
}

} // namespace tol::ctl
