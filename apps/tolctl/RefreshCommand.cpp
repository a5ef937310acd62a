// SPDX-License-Identifier: MIT
#include "tolctl/RefreshCommand.h"

#include "data/DBEngine.h"
#include "definition_update/engine/DefinitionRefresh.h"
#include "shell/vdfunctions/vdLocation.h"
#include "tolctl/JsonReport.h"
#include "tolctl/Output.h"
#include "tolctl/TerminalHost.h"
#include "tolctl/TerminalView.h"

#include <array>
#include <iostream>
#include <utility>

namespace tol::ctl {
namespace {

using update::RefreshOutcome;

constexpr const char* closing =
    "Reads the reference copies that DATABASES of ZOVDEF.MDB names (FILLLOC, ALTDBNAME) into NEWDEF and\n"
    "NEWINDEXES, then the network database's MODULES and USERACCESSITEMS. A reference copy that is missing\n"
    "leaves no definition: a later update would remove all tables of that database.";

constexpr const char* incomplete =
    "Database Definitions ARE INCOMPLETE: until a refresh finishes no update begins.";

constexpr std::array<const char*, 4> filledTables = {"NEWDEF", "NEWINDEXES", "MODULES", "USERACCESSITEMS"};

using Counts = std::array<std::int64_t, filledTables.size()>;

/// Rows of the tables that a refresh fills. Also shows that the definition database can be opened at all.
Counts countRows() {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksDBU");
    data::Database definitions = workspace.OpenDatabase("ZOVDEF.MDB");
    Counts counts{};
    for (std::size_t i = 0; i < counts.size(); ++i)
        counts[i] = definitions.OpenRecordset(filledTables[i]).RecordCount();
    return counts;
}

struct Report {
    const char* result;
    const char* sentence;
    ExitStatus status; ///< of a refresh without a box
};

Report reportOf(RefreshOutcome outcome) {
    switch (outcome) {
    case RefreshOutcome::Finished:
        return {"Finished", "Database Definitions Have Been Refreshed.", ExitStatus::Finished};
    case RefreshOutcome::WithoutLists:
        return {"INCOMPLETE", "Database Definitions Have Been Refreshed, the Network Lists Have Not.",
                ExitStatus::NeedsAttention};
    case RefreshOutcome::Incomplete:
        return {"INCOMPLETE", incomplete, ExitStatus::NeedsAttention};
    case RefreshOutcome::Canceled:
        return {"STOPPED", incomplete, ExitStatus::Stopped};
    case RefreshOutcome::NotBegun:
        break;
    }
    return {"", "", ExitStatus::CouldNotStart};
}

void printJson(const std::string& result, const Counts& counts, const MessageLog& messages) {
    std::cout << "{\"result\": ";
    printJsonValue(result);
    std::cout << ",\n \"counts\": {";
    for (std::size_t i = 0; i < counts.size(); ++i)
        std::cout << (i == 0 ? "\"" : ", \"") << filledTables[i] << "\": " << counts[i];
    std::cout << "},\n \"messages\": ";
    printJsonMessages(messages);
    std::cout << "}\n";
}

void printText(const Report& report, const Counts& counts) {
    std::cerr << report.result << ". " << report.sentence << "\n";
    for (std::size_t i = 0; i < counts.size(); ++i)
        std::cerr << "  " << filledTables[i] << ": " << counts[i] << " rows\n";
}

} // namespace

RefreshCommand::RefreshCommand(CLI::App& program)
    : Command(program, "refresh", "Fill the wanted definition from the reference databases") {
    app().add_flag("--json", m_json, "Print the outcome as JSON");
    app().footer(closing);
}

ExitStatus RefreshCommand::execute() {
    outliveReader();
    TerminalHost host(m_progress);
    TerminalRefreshView view(m_progress);
    countRows();
    update::DefinitionRefresh refresh(view, shell::vdNetworkFolder());
    host.onStop([&] { refresh.Cancel(); });
    const RefreshOutcome outcome = refresh.RefreshDefinitions();
    m_progress.clear();
    const Report report = reportOf(outcome);
    if (outcome == RefreshOutcome::NotBegun)
        return report.status;

    const Counts counts = countRows();
    if (m_json)
        printJson(report.result, counts, host.messages());
    else
        printText(report, counts);
    const bool printed = finishOutput();
    if (report.status != ExitStatus::Finished)
        return report.status;
    return host.troubled() || !printed ? ExitStatus::NeedsAttention : ExitStatus::Finished;
}

std::unique_ptr<Command> refreshCommand(CLI::App& program) {
    return std::make_unique<RefreshCommand>(program);
}

} // namespace tol::ctl
