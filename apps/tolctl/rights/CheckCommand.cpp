// SPDX-License-Identifier: MIT
#include "rights/model/RightsCheck.h"
#include "runtime/Overloaded.h"
#include "tolctl/rights/RightsCommand.h"
#include "tolctl/rights/RightsDatabase.h"
#include "tolctl/rights/RightsQuestion.h"

#include <fmt/format.h>

namespace tol::ctl {
namespace {

using nlohmann::ordered_json;
using rights::Finding;

/// What tells the row apart, by the names of its fields.
ordered_json keyOf(const Finding& finding) {
    return std::visit(
        runtime::Overloaded{
            [](const rights::Right& row) {
                return ordered_json{{"USERTAG", row.USERTAG}, {"UAITAG", row.UAITAG}, {"URTTAG", row.URTTAG}};
            },
            [](const rights::TemplateItem& row) {
                return ordered_json{{"URTTAG", row.URTTAG}, {"UAITAG", row.UAITAG}};
            },
            [](const rights::AccessItem& row) {
                return ordered_json{
                    {"UAITAG", row.UAITAG}, {"MODULEID", row.MODULEID}, {"UAICODE", row.UAICODE}};
            },
            [](const rights::LowCounter& row) {
                return ordered_json{{std::string(row.name), row.next}};
            },
            [](const rights::NetSettings& row) {
                return ordered_json{{"MODULEID", row.MODULEID}};
            }},
        finding.row);
}

/// "USERTAG 1, UAITAG 17, URTTAG 0"
Cell keyCell(const Finding& finding) {
    Cell cell{keyOf(finding), ""};
    for (const auto& [name, value] : cell.value.items())
        *cell.text += fmt::format("{}{} {}", cell.text->empty() ? "" : ", ", name,
                                  value.is_string() ? value.get<std::string>() : value.dump());
    return cell;
}

/// tolctl rights check: what in the network database refers to nothing, or is there twice.
class CheckCommand : public RightsQuestion {
  public:
    explicit CheckCommand(CLI::App& rights)
        : RightsQuestion(rights, "check", "Look for stale references, doubled rows and counters too low") {}
    ExitStatus execute() override;
};

ExitStatus CheckCommand::execute() {
    RightsDatabase network;
    const rights::CheckedTables tables = rights::readCheckedTables(network.database);
    const std::vector<Finding> findings = rights::check(tables);
    const rights::References references(tables.rights);
    return answer(
        tableOf<Finding>(
            findings,
            {{{"kind", "Kind"}, [](const Finding& finding) { return Cell{rights::wordFor(finding.kind)}; }},
             {{"table", "Table"}, [](const Finding& finding) { return Cell{finding.table()}; }},
             {{"key", ""}, keyCell},
             {{"text", "Finding"},
              [&](const Finding& finding) { return Cell{rights::textOf(finding, references)}; }}}),
        findings.empty() ? ExitStatus::Finished : ExitStatus::Found);
}

} // namespace

std::unique_ptr<Command> checkCommand(CLI::App& rights) {
    return std::make_unique<CheckCommand>(rights);
}

} // namespace tol::ctl
