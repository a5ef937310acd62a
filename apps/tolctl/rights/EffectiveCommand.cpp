// SPDX-License-Identifier: MIT
#include "rights/model/UserRights.h"
#include "tolctl/rights/RightsCommand.h"
#include "tolctl/rights/RightsDatabase.h"
#include "tolctl/rights/RightsQuestion.h"

#include <fmt/format.h>

namespace tol::ctl {
namespace {

using rights::EffectiveRight;

/// The rows as an array of objects, and in a line: "OFFICE yes, by hand no".
Cell rowsCell(const EffectiveRight& right, const rights::References& references) {
    Cell cell{nlohmann::ordered_json::array(), ""};
    for (const rights::Right& row : right.rows) {
        const std::string code = references.shownTemplate(row.URTTAG);
        cell.value.push_back({{"ALLOWED", row.ALLOWED}, {"URTTAG", row.URTTAG}, {"URTCODE", code}});
        *cell.text += fmt::format("{}{} {}", cell.text->empty() ? "" : ", ", code.empty() ? "by hand" : code,
                                  row.ALLOWED ? "yes" : "no");
    }
    return cell;
}

/// tolctl rights effective: what a user may do, each item once.
class EffectiveCommand : public RightsQuestion {
  public:
    explicit EffectiveCommand(CLI::App& rights)
        : RightsQuestion(rights, "effective", "Tell what a user may do: each item once") {
        addArgument("NAME", m_name, "Name of the user");
    }
    ExitStatus execute() override;

  private:
    std::string m_name;
};

ExitStatus EffectiveCommand::execute() {
    RightsDatabase network;
    const rights::RightsTables tables = rights::readTables(network.database);
    const rights::References references(tables);
    const auto tag = namedUser(tables.users, m_name).USERTAG;
    return answer(tableOf(
        rights::effectiveRights(tables, tag),
        itemColumns<EffectiveRight>("Module") +
            std::vector<ColumnOf<EffectiveRight>>{
                {{"state", "State"}, [](const auto& right) { return Cell{rights::wordFor(right.state)}; }},
                {{"rows", "By"}, [&](const auto& right) { return rowsCell(right, references); }}}));
}

} // namespace

std::unique_ptr<Command> effectiveCommand(CLI::App& rights) {
    return std::make_unique<EffectiveCommand>(rights);
}

} // namespace tol::ctl
