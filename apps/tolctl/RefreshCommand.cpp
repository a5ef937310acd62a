// SPDX-License-Identifier: MIT
#include "tolctl/RefreshCommand.h"

#include "data/DBEngine.h"
#include "definition_update/engine/DefinitionRefresh.h"
#include "tolctl/JsonReport.h"
#include "tolctl/NetLocation.h"
#include "tolctl/Output.h"
#include "tolctl/TerminalHost.h"
#include "tolctl/TerminalView.h"

#include <array>
#include <iostream>
#include <utility>

namespace tol::ctl {
namespace {

using update::RefreshLabel;

constexpr const char* finished = "Finished";

constexpr const char* closing =
    "Reads the reference copies that DATABASES of ZOVDEF.MDB names (FILLLOC, ALTDBNAME) into NEWDEF and\n"
    "NEWINDEXES, then the network database's MODULES and USERACCESSITEMS. A reference copy that is missing\n"
    "leaves no definition: a later update would remove all tables of that database.";

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

void printJson(const std::string& result, const Counts& counts, const MessageLog& messages) {
    std::cout << "{\"result\": ";
    printJsonText(result);
    std::cout << ",\n \"counts\": {";
    for (std::size_t i = 0; i < counts.size(); ++i)
        std::cout << (i == 0 ? "\"" : ", \"") << filledTables[i] << "\": " << counts[i];
    std::cout << "},\n \"messages\": ";
    printJsonMessages(messages);
    std::cout << "}\n";
}

void printText(const TerminalRefreshView& view, const Counts& counts) {
    std::cerr << view.label(RefreshLabel::DBNAME) << ". " << view.label(RefreshLabel::DBDESC) << "\n";
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
    TerminalHost host(m_progress, OnUnconvertible::Stop);
    TerminalRefreshView view(m_progress);
    countRows();
    update::DefinitionRefresh refresh(view, netLocation());
    host.onStop([&] { refresh.Cancel(); });
    host.placeFrom([&] { return view.place(); });
    refresh.RefreshDefinitions();
    m_progress.clear();
    if (view.label(RefreshLabel::DBNAME).empty()) // the tables could not be emptied
        return ExitStatus::CouldNotStart;

    const bool isFinished = view.label(RefreshLabel::DBNAME) == finished;
    const Counts counts = countRows();
    if (m_json)
        printJson(isFinished ? finished : "STOPPED", counts, host.messages());
    else
        printText(view, counts);
    const bool printed = finishOutput();
    if (!isFinished)
        return ExitStatus::Stopped;
    return host.troubled() || !printed ? ExitStatus::NeedsAttention : ExitStatus::Finished;
}

} // namespace tol::ctl
