// SPDX-License-Identifier: MIT
#include "rights/model/TemplateDifferences.h"
#include "tolctl/rights/RightsCommand.h"
#include "tolctl/rights/RightsDatabase.h"
#include "tolctl/rights/RightsQuestion.h"

namespace tol::ctl {
namespace {

using rights::RightState;
using rights::TemplateDifference;

struct DifferenceWords {
    const char* name;
    const char* text; ///< for people
};

DifferenceWords wordsFor(const TemplateDifference& difference) {
    if (!difference.atUser)
        return {"missing", "missing at the user"};
    if (!difference.inTemplate)
        return {"not-in-template", "no longer in the template"};
    return {"allowed-differently", "allowed differently"};
}

/// Null where there is no such item.
Cell stateCell(const std::optional<RightState>& state) {
    return state ? Cell{rights::wordFor(*state)} : Cell{nullptr};
}

/// tolctl rights diff: where a user differs from the templates.
class DiffCommand : public RightsQuestion {
  public:
    explicit DiffCommand(CLI::App& rights)
        : RightsQuestion(rights, "diff", "Tell how a user differs from the templates behind the rights") {
        addArgument("NAME", m_name, "Name of the user");
        app()
            .add_option("TEMPLATE", m_template, "Only this one instead of all that filled the user")
            ->type_name("");
    }
    ExitStatus execute() override;

  private:
    [[nodiscard]] std::vector<TemplateDifference> differences(const rights::RightsTables& tables) const;

    std::string m_name, m_template;
};

std::vector<TemplateDifference> DiffCommand::differences(const rights::RightsTables& tables) const {
    const std::int32_t user = namedUser(tables.users, m_name).USERTAG;
    const std::vector<std::int32_t> templates =
        m_template.empty() ? rights::filledTemplates(tables, user)
                           : std::vector{namedTemplate(tables.templates, m_template).URTTAG};
    std::vector<TemplateDifference> all;
    for (const std::int32_t tag : templates)
        for (TemplateDifference& difference : rights::templateDifferences(tables, user, tag))
            all.push_back(std::move(difference));
    return all;
}

ExitStatus DiffCommand::execute() {
    RightsDatabase network;
    const rights::RightsTables tables = rights::readTables(network.database);
    const rights::References references(tables);
    using Columns = std::vector<ColumnOf<TemplateDifference>>;
    const Columns front = {{{"URTTAG", ""}, [](const auto& row) { return Cell{row.URTTAG}; }},
                           {{"URTCODE", "URT Code"},
                            [&](const auto& row) { return Cell{references.shownTemplate(row.URTTAG)}; }}};
    const Columns behind = {
        {{"difference", "Difference"},
         [](const auto& row) {
             return Cell{wordsFor(row).name, wordsFor(row).text};
         }},
        {{"template", "Template"}, [](const auto& row) { return stateCell(row.inTemplate); }},
        {{"user", "User"}, [](const auto& row) { return stateCell(row.atUser); }}};
    const std::vector<TemplateDifference> rows = differences(tables);
    return answer(tableOf(rows, front + itemColumns<TemplateDifference>("Module") + behind),
                  rows.empty() ? ExitStatus::Finished : ExitStatus::Found);
}

} // namespace

std::unique_ptr<Command> diffCommand(CLI::App& rights) {
    return std::make_unique<DiffCommand>(rights);
}

} // namespace tol::ctl
