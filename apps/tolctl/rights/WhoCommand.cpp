// SPDX-License-Identifier: MIT
#include "rights/model/UserRights.h"
#include "shell/vdfunctions/vdTexts.h"
#include "tolctl/rights/RightsCommand.h"
#include "tolctl/rights/RightsDatabase.h"
#include "tolctl/rights/RightsQuestion.h"

#include <fmt/format.h>

namespace tol::ctl {
namespace {

using rights::ItemHolder;

/// tolctl rights who: the users who hold an item, and from where.
class WhoCommand : public RightsQuestion {
  public:
    explicit WhoCommand(CLI::App& rights)
        : RightsQuestion(rights, "who", "Tell which users hold an item, allowed or not, and from where") {
        addArgument("UAICODE", m_code, "Code of the item; in several modules it is answered for each");
        addModule(m_module, "Only the item of this module");
    }
    ExitStatus execute() override;

  private:
    [[nodiscard]] std::vector<const rights::AccessItem*> items(const rights::RightsTables& tables) const;

    std::string m_code, m_module;
};

std::vector<const rights::AccessItem*> WhoCommand::items(const rights::RightsTables& tables) const {
    auto items = rights::findItems(tables.items, m_code, m_module);
    if (items.empty())
        throw Failure{ExitStatus::CouldNotStart,
                      fmt::format("there is no item \"{}\"{}.", m_code,
                                  m_module.empty() ? "" : fmt::format(" in module \"{}\"", m_module))};
    return items;
}

ExitStatus WhoCommand::execute() {
    RightsDatabase network;
    const rights::RightsTables tables = rights::readTables(network.database);
    const rights::References references(tables);
    using Columns = std::vector<ColumnOf<ItemHolder>>;
    const Columns columns = {
        {{"USERTAG", ""}, [](const ItemHolder& holder) { return Cell{holder.user.USERTAG}; }},
        {{"UserName", "User Name"}, [](const ItemHolder& holder) { return Cell{holder.user.UserName}; }},
        {{"ALLOWED", "Allowed?"}, [](const ItemHolder& holder) { return Cell{holder.right.ALLOWED}; }},
        {{"URTTAG", ""}, [](const ItemHolder& holder) { return Cell{holder.right.URTTAG}; }},
        {{"URTCODE", "From"}, [&](const ItemHolder& holder) {
             const std::string code = references.shownTemplate(holder.right.URTTAG);
             return Cell{code, code.empty() ? "by hand" : code};
         }}};
    return answer(
        tableOf(rights::itemHolders(tables, items(tables)), itemColumns<ItemHolder>("Module") + columns));
}

} // namespace

std::unique_ptr<Command> whoCommand(CLI::App& rights) {
    return std::make_unique<WhoCommand>(rights);
}

} // namespace tol::ctl
