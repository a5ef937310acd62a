// SPDX-License-Identifier: MIT
#include "data/OpenTable.h"
#include "jobsites/model/UserSettings.h"
#include "network/model/NetworkLocation.h"
#include "network/model/NetworkUser.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdTexts.h"
#include "tolctl/settings/Facts.h"
#include "tolctl/settings/SettingsChange.h"

#include <fmt/format.h>

#include <memory>
#include <string>

namespace tol::ctl {
namespace {

/// What the three have in common: the option.
class SettingsChange : public Command {
  protected:
    SettingsChange(CLI::App& settings, const std::string& name, const std::string& help, bool& json)
        : Command(settings, name, help), m_json(json) {
        app().add_flag("--json", json, "Print one JSON object");
    }
    [[nodiscard]] bool json() const { return m_json; }

  private:
    bool& m_json;
};

/// tolctl settings network: stores where the network database lies.
class NetworkCommand : public SettingsChange {
  public:
    NetworkCommand(CLI::App& settings, bool& json)
        : SettingsChange(settings, "network", "Store where the network database lies", json) {
        app().add_option("PATH", m_path, "The folder of ZOVNET.MDB")->required()->type_name("");
    }
    ExitStatus execute() override;

  private:
    std::string m_path;
};

ExitStatus NetworkCommand::execute() {
    const std::string location(runtime::trim(m_path));
    if (const auto length = runtime::length(location); length > network::maxLocation)
        throw Failure{ExitStatus::WrongUsage,
                      fmt::format("the location has {} characters, and at most {} can be stored.", length,
                                  network::maxLocation)};
    network::networkLocation(network::suiteModule("NET")); // by which the file is this program's
    network::storeLocation(location);
    return answer({locationFact(location)}, json());
}

/// tolctl settings add-user: adds the person to the list of users.
class AddUserCommand : public SettingsChange {
  public:
    AddUserCommand(CLI::App& settings, bool& json)
        : SettingsChange(settings, "add-user", "Add the login user to the users of the network database",
                         json) {}
    ExitStatus execute() override;
};

ExitStatus AddUserCommand::execute() {
    const auto database = network::networkDatabase("");
    if (!database)
        return ExitStatus::CouldNotStart;
    const network::AddedUser user = network::addUser(*database, shell::vdUserName());
    network::tell(user);
    if (user.outcome != network::UserAddition::Added)
        return ExitStatus::CouldNotStart;
    return answer({{"userName", "User name", {user.name}}, {"userNumber", "User number", {user.number}}},
                  json());
}

/// tolctl settings select: changes to the settings of a Job Site.
class SelectCommand : public SettingsChange {
  public:
    SelectCommand(CLI::App& settings, bool& json);
    ExitStatus execute() override;

  private:
    [[nodiscard]] static jobsites::JobSite named(const std::string& name);
    [[nodiscard]] std::int32_t tagInForce() const;

    std::string m_site, m_from;
};

SelectCommand::SelectCommand(CLI::App& settings, bool& json)
    : SettingsChange(settings, "select", "Keep the settings in force, and put those of a Job Site in force",
                     json) {
    app().add_option("SITE", m_site, "The Job Site, by its name")->required()->type_name("");
    app().add_option("--from", m_from, "The Job Site whose settings are in force")->type_name("NAME");
}

jobsites::JobSite SelectCommand::named(const std::string& name) {
    data::OpenTable sites("wksPATH", "DBPATHS.MDB", "DBPATHS");
    const auto site = shell::vdIsBlank(name) ? std::nullopt : jobsites::findJobSite(sites.rows, name);
    if (!site)
        throw Failure{ExitStatus::WrongUsage, fmt::format("no Job Site is named \"{}\".", name)};
    return *site;
}

// Under a wrong number they would take the place of another Job Site's settings.
std::int32_t SelectCommand::tagInForce() const {
    if (!m_from.empty())
        return named(m_from).tag;
    if (const auto tag = jobsites::siteInForce())
        return *tag;
    throw Failure{ExitStatus::CouldNotStart,
                  fmt::format("{} does not tell whose settings are in force; name that Job Site with --from.",
                              shell::userDatabase)};
}

ExitStatus SelectCommand::execute() {
    const jobsites::JobSite site = named(m_site);
    if (!jobsites::changeUserSettings(tagInForce(), site.tag))
        return ExitStatus::NeedsAttention;
    jobsites::noteSiteInForce(site.tag);
    return answer({jobSiteFact(site)}, json());
}

} // namespace

std::unique_ptr<Command> networkCommand(CLI::App& settings, bool& json) {
    return std::make_unique<NetworkCommand>(settings, json);
}

std::unique_ptr<Command> addUserCommand(CLI::App& settings, bool& json) {
    return std::make_unique<AddUserCommand>(settings, json);
}

std::unique_ptr<Command> selectCommand(CLI::App& settings, bool& json) {
    return std::make_unique<SelectCommand>(settings, json);
}

} // namespace tol::ctl
