// SPDX-License-Identifier: MIT
#pragma once

#include "tolctl/Answers.h"
#include "tolctl/Command.h"
#include "tolctl/ProgressLine.h"
#include "tolctl/SiteChoice.h"

#include <string>

namespace tol::ctl {

class RunSummary;
class TerminalHost;
class TerminalView;

/// tolctl update: one run of the definition update.
class UpdateCommand : public Command {
  public:
    explicit UpdateCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    void run(TerminalHost& host, TerminalView& view, RunSummary& summary);
    void report(const TerminalHost& host, const TerminalView& view, const RunSummary& summary) const;
    [[nodiscard]] ExitStatus status(const TerminalHost& host) const;

    SiteRequest m_sites;
    std::string m_module = "N";
    OnUnconvertible m_onUnconvertible = usualOnUnconvertible();
    bool m_json = false;
    update::RunOutcome m_outcome = update::RunOutcome::NotBegun;
    bool m_anyIncomplete = false; ///< of the run, or a site was left out or its folder missing
    ProgressLine m_progress;
};

} // namespace tol::ctl
