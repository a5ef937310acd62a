// SPDX-License-Identifier: MIT
#include "data/engine/FileError.h"
#include "rights/model/FillFromTemplate.h"
#include "tolctl/Interrupt.h"
#include "tolctl/rights/RightsCommand.h"
#include "tolctl/rights/RightsDatabase.h"
#include "tolctl/rights/RightsQuestion.h"

namespace tol::ctl {
namespace {

constexpr const char* closing =
    "The user's rights from this template are replaced by its items as they are now; other rights stay. The\n"
    "rights from the template are printed. A fill that was stopped is made good by the next one.";

/// tolctl rights fill: brings a template's items to a user.
class FillCommand : public RightsQuestion {
  public:
    explicit FillCommand(CLI::App& rights);
    ExitStatus execute() override;

  private:
    std::string m_name, m_template;
};

FillCommand::FillCommand(CLI::App& rights)
    : RightsQuestion(rights, "fill", "Fill a user's rights from a template") {
    addArgument("NAME", m_name, "Name of the user");
    addArgument("TEMPLATE", m_template, "Code of the template");
    app().footer(closing);
}

/// Fills the rights; all is stored afterwards.
void fill(data::Database& database, const rights::TemplateFill& fill) {
    try {
        data::Recordset userRights = database.OpenRecordset(rights::Right::table);
        data::Recordset items = database.OpenRecordset(rights::TemplateItem::table);
        rights::FillFromTemplate(userRights, items, fill, [] { return !interrupted(); });
        runtime::flush();
    } catch (const runtime::RuntimeError& error) {
        throw data::aboutFile(error, database.Name());
    }
    stopIfInterrupted();
}

ExitStatus FillCommand::execute() {
    RightsDatabase network(RightsDatabase::Use::Write);
    rights::RightsTables tables = rights::readTables(network.database);
    const std::int32_t user = namedUser(tables.users, m_name).USERTAG;
    const std::int32_t urt = namedTemplate(tables.templates, m_template).URTTAG;
    fill(network.database, {user, urt});
    tables.rights = rights::readRows<rights::Right>(network.database);
    return answer(
        tableOfRights(tables,
                      [&](const rights::Right& row) { return row.USERTAG == user && row.URTTAG == urt; }),
        ExitStatus::Finished, ExitStatus::NeedsAttention);
}

} // namespace

std::unique_ptr<Command> fillCommand(CLI::App& rights) {
    return std::make_unique<FillCommand>(rights);
}

} // namespace tol::ctl
