// SPDX-License-Identifier: MIT
#include "tolctl/UpdateCommand.h"

#include "definition_update/engine/UpdateTexts.h"
#include "platform/Paths.h"
#include "tolctl/ActivityRows.h"
#include "tolctl/JsonReport.h"
#include "tolctl/Output.h"
#include "tolctl/RunSummary.h"
#include "tolctl/TerminalHost.h"
#include "tolctl/TerminalView.h"

#include <fmt/format.h>

#include <iostream>

namespace tol::ctl {
namespace {

using update::RunOutcome;

constexpr const char* closing =
    "Without --site and --all the only Job Site of the list is taken; where there are several, one must be\n"
    "chosen. Standard output gets the rows of the log as they are written, or with --json one object with\n"
    "\"result\", \"rows\", \"messages\", \"notes\", \"left\" and \"missing\".\n"
    "A value that can't convert to its field's new type is lost. \"ask\" asks before (usual where there is "
    "a\n"
    "terminal), \"continue\" goes on and warns again, \"quiet\" goes on without warning: the later rows of "
    "that\n"
    "field lose their values too, \"stop\" (usual without a terminal) stops the run.";

OnUnconvertible onUnconvertibleOf(const std::string& word) {
    if (const auto choice = onUnconvertibleFor(word))
        return *choice;
    throw CLI::ValidationError("--on-unconvertible",
                               fmt::format("\"{}\" is none of {}", word, onUnconvertibleWords));
}

} // namespace

UpdateCommand::UpdateCommand(CLI::App& program)
    : Command(program, "update", "Bring the databases of Job Sites up to date") {
    auto* site =
        app().add_option("--site", m_sites.names, "Update all Job Sites of this name; may be repeated");
    site->type_name("NAME")->allow_extra_args(false);
    app().add_flag("--all", m_sites.all, "Update all Job Sites; a run takes the first 51")->excludes(site);
    app()
        .add_option("--module", m_module, "Module for which the databases must be complete")
        ->type_name("CODE")
        ->capture_default_str();
    app()
        .add_option_function<std::string>(
            "--on-unconvertible",
            [this](const std::string& word) { m_onUnconvertible = onUnconvertibleOf(word); },
            "What to do about values that can't convert")
        ->type_name(onUnconvertibleWords);
    app().add_flag("--json", m_json, "Print the outcome as JSON");
    app().footer(closing);
}

ExitStatus UpdateCommand::execute() {
    outliveReader();
    TerminalHost host(m_progress);
    RunSummary summary;
    TerminalView view(m_progress, [&](const update::Activity& activity, const update::ActivityRow& row) {
        summary.add(activity, row);
        if (m_json)
            return;
        m_progress.clear();
        std::cout << ActivityTable().line(row) << std::endl; // for who follows the run
    });
    run(host, view, summary);
    if (m_outcome == RunOutcome::NotBegun)
        return ExitStatus::CouldNotStart;
    report(host, view, summary);
    const bool printed = finishOutput();
    const ExitStatus outcome = status(host);
    return outcome == ExitStatus::Finished && !printed ? ExitStatus::NeedsAttention : outcome;
}

void UpdateCommand::run(TerminalHost& host, TerminalView& view, RunSummary& summary) {
    update::DefinitionUpdate update(view, m_module);
    SiteChoice choice(m_sites);
    const std::string mark = choice.tag(update);
    for (const std::string& name : choice.leftOut())
        std::cerr << "tolctl: a run takes " << update::maxTaggedItems << " Job Sites; left out: " << name
                  << "\n";
    for (const std::string& name : choice.withoutNumber())
        std::cerr << "tolctl: left out, since it has no number: " << name << "\n";

    host.onStop([&] { update.Stop(update::StopRequest::EndRun); });
    view.onRepeatedError([&] { update.Stop(update::StopRequest::LeaveDatabase); });
    view.onQuestion([&](const update::Question& question) {
        host.foresee(answerTo(question.kind, m_onUnconvertible));
        summary.add(question);
    });
    update.ProcessTaggedItems(mark);
    host.onStop([] {});
    m_progress.clear();
    m_anyIncomplete = update.anyIncomplete() || !choice.withoutNumber().empty() || !view.missing().empty();
    m_outcome = update.outcome();
}

void UpdateCommand::report(const TerminalHost& host, const TerminalView& view,
                           const RunSummary& summary) const {
    const update::ClosingText closingText = update::closingText(m_outcome);
    if (m_json) {
        std::cout << "{\"result\": ";
        printJsonValue(closingText.result);
        std::cout << ",\n \"rows\": ";
        printJsonActivity();
        std::cout << ",\n \"messages\": ";
        printJsonMessages(host.messages());
        std::cout << ",\n \"notes\": ";
        printJsonNotes(view.notes());
        std::cout << ",\n \"left\": ";
        printJsonLeft(view.left());
        std::cout << ",\n \"missing\": ";
        printJsonMissing(view.missing());
        std::cout << "}\n";
        return;
    }
    std::cout << std::flush;
    summary.print(std::cerr);
    summary.printNotes(std::cerr, view.notes());
    std::cerr << closingText.result << ". " << closingText.sentence << "\nThe whole log: tolctl --dir '"
              << platform::currentFolder() << "' log\n";
}

ExitStatus UpdateCommand::status(const TerminalHost& host) const {
    if (m_outcome != RunOutcome::Finished)
        return ExitStatus::Stopped;
    return m_anyIncomplete || host.troubled() ? ExitStatus::NeedsAttention : ExitStatus::Finished;
}

std::unique_ptr<Command> updateCommand(CLI::App& program) {
    return std::make_unique<UpdateCommand>(program);
}

} // namespace tol::ctl
