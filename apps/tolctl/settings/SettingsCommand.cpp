// SPDX-License-Identifier: MIT
#include "data/OpenTable.h"
#include "jobsites/model/UserSettings.h"
#include "network/model/NetworkLocation.h"
#include "network/model/NetworkUser.h"
#include "shell/vdfunctions/vdLocation.h"
#include "tolctl/Command.h"
#include "tolctl/ProgressLine.h"
#include "tolctl/TerminalHost.h"
#include "tolctl/settings/Facts.h"
#include "tolctl/settings/SettingsChange.h"

#include <memory>
#include <vector>

namespace tol::ctl {
namespace {

constexpr SettingsChangeFactory* changes[] = {networkCommand, addUserCommand, selectCommand};

/// Nothing is told of a user whose database can't be reached.
Fact numberFact(const std::string& userName) {
    Fact fact{"userNumber", "User number", {nullptr, ""}};
    if (const auto database = network::networkDatabase("")) {
        const auto number = network::userNumber(*database, userName);
        fact.cell = number ? Cell{*number} : Cell{nullptr, "<none>"};
    }
    return fact;
}

Fact siteFact() {
    const auto tag = jobsites::siteInForce();
    if (!tag)
        return {"jobSite", "Job Site in force", {nullptr, "<not recorded>"}};
    data::OpenTable sites("wksPATH", "DBPATHS.MDB", "DBPATHS");
    const auto site = jobsites::findJobSite(sites.rows, *tag);
    return jobSiteFact(site.value_or(jobsites::JobSite{"<not in the list>", "", *tag}));
}

/// tolctl settings: tells where the network database lies and who works there, and changes it.
class SettingsCommand : public Command {
  public:
    explicit SettingsCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    ExitStatus tell(const TerminalHost& host);

    bool m_json = false;
    std::vector<std::unique_ptr<Command>> m_changes;
};

SettingsCommand::SettingsCommand(CLI::App& program)
    : Command(program, "settings", "Tell and change where the network database lies, and who works there") {
    app().add_flag("--json", m_json, "Print one JSON object");
    app().require_subcommand(0, 1);
    for (SettingsChangeFactory* make : changes)
        m_changes.push_back(make(app(), m_json));
}

ExitStatus SettingsCommand::execute() {
    ProgressLine progress{false};
    const TerminalHost host(progress);
    for (const auto& change : m_changes)
        if (change->chosen())
            return change->execute();
    return tell(host);
}

ExitStatus SettingsCommand::tell(const TerminalHost& host) {
    const auto location = network::networkLocation(network::suiteModule("NET"));
    const std::string user = shell::vdUserName();
    const std::vector<Fact> facts = {
        locationFact(location.value_or("")), {"userName", "User name", {user}}, numberFact(user), siteFact()};
    return answer(facts, m_json, host.troubled() ? ExitStatus::NeedsAttention : ExitStatus::Finished);
}

} // namespace

std::unique_ptr<Command> settingsCommand(CLI::App& program) {
    return std::make_unique<SettingsCommand>(program);
}

} // namespace tol::ctl
