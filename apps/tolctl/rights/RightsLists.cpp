// SPDX-License-Identifier: MIT
#include "tolctl/rights/RightsDatabase.h"
#include "tolctl/rights/RightsQuestion.h"

#include "shell/vdfunctions/vdTexts.h"

#include <fmt/format.h>

#include <algorithm>

namespace tol::ctl {
namespace {

using data::Database;
using rights::readRows;

template <typename Row, typename Type>
ColumnOf<Row> column(std::string_view name, std::string_view title, Type Row::*member) {
    return {{name, title}, [member](const Row& row) { return Cell{row.*member}; }};
}

Table modules(Database& database, const std::string& /*none*/) {
    using rights::Module;
    return tableOf<Module>(readRows<Module>(database),
                           {column("MODULEID", "Code", &Module::MODULEID),
                            column("MODULENAME", "Module Name", &Module::MODULENAME)});
}

/// The items of that module; a module that is gone may still have some.
void keepModule(std::vector<rights::AccessItem>& items, const std::vector<rights::Module>& modules,
                const std::string& code) {
    std::erase_if(items,
                  [&](const rights::AccessItem& item) { return !rights::sameName(item.MODULEID, code); });
    const bool isModule = std::ranges::any_of(
        modules, [&](const rights::Module& module) { return rights::sameName(module.MODULEID, code); });
    if (items.empty() && !isModule)
        throw Failure{ExitStatus::CouldNotStart, fmt::format("there is no module \"{}\".", code)};
}

Table items(Database& database, const std::string& module) {
    using rights::AccessItem;
    std::vector<AccessItem> rows = readRows<AccessItem>(database);
    if (!module.empty())
        keepModule(rows, readRows<rights::Module>(database), module);
    return tableOf<AccessItem>(rows, {column("UAITAG", "", &AccessItem::UAITAG),
                                      column("MODULEID", "Module", &AccessItem::MODULEID),
                                      column("UAICODE", "UAI Code", &AccessItem::UAICODE),
                                      column("Desc", "Description", &AccessItem::Desc),
                                      column("FORMNAME", "Form Name", &AccessItem::FORMNAME)});
}

Table templates(Database& database, const std::string& /*none*/) {
    using rights::Template;
    return tableOf<Template>(readRows<Template>(database),
                             {column("URTTAG", "", &Template::URTTAG),
                              column("URTCODE", "URT Code", &Template::URTCODE),
                              column("URTNAME", "Template Description", &Template::URTNAME)});
}

Table users(Database& database, const std::string& /*none*/) {
    using rights::User;
    return tableOf<User>(readRows<User>(database), {column("USERTAG", "User Number", &User::USERTAG),
                                                    column("UserName", "User Name", &User::UserName),
                                                    column("REMARKS", "Remarks", &User::REMARKS),
                                                    column("ADMIN", "Admin.?", &User::ADMIN)});
}

/// A row of a template or a user, with what its tags refer to.
struct ListedItem {
    rights::AccessItem item;
    bool ALLOWED = false;
    std::int32_t URTTAG = 0;
    std::string URTCODE;
};

ColumnOf<ListedItem> allowed() {
    return column("ALLOWED", "Allowed?", &ListedItem::ALLOWED);
}

Table templateItems(Database& database, const std::string& code) {
    const rights::RightsTables tables = {.items = readRows<rights::AccessItem>(database),
                                         .templates = readRows<rights::Template>(database)};
    const std::int32_t tag = namedTemplate(tables.templates, code).URTTAG;
    const rights::References references(tables);
    std::vector<ListedItem> rows;
    for (const rights::TemplateItem& row : readRows<rights::TemplateItem>(database))
        if (row.URTTAG == tag)
            rows.push_back({references.shownItem(row.UAITAG), row.ALLOWED, {}, {}});
    return tableOf(rows, itemColumns<ListedItem>() + std::vector{allowed()});
}

Table userRights(Database& database, const std::string& name) {
    const rights::RightsTables tables = {.items = readRows<rights::AccessItem>(database),
                                         .templates = readRows<rights::Template>(database),
                                         .users = readRows<rights::User>(database),
                                         .rights = readRows<rights::Right>(database)};
    const std::int32_t tag = namedUser(tables.users, name).USERTAG;
    return tableOfRights(tables, [tag](const rights::Right& row) { return row.USERTAG == tag; });
}

/// Whether a list is of something that the command line names.
enum class Of { All, Module, Named };

struct List {
    const char* name;
    const char* help;
    Of of;
    const char* argument; ///< its name and what it is
    const char* argumentHelp;
    Table (*make)(Database& database, const std::string& argument);
};

/// tolctl rights modules, items and so on: a list as its window shows it.
class ListCommand : public RightsQuestion {
  public:
    ListCommand(CLI::App& rights, const List& list)
        : RightsQuestion(rights, list.name, list.help), m_list(list) {
        if (list.of == Of::Module)
            addModule(m_argument, list.argumentHelp);
        if (list.of == Of::Named)
            addArgument(list.argument, m_argument, list.argumentHelp);
    }
    ExitStatus execute() override {
        RightsDatabase network;
        return answer(m_list.make(network.database, m_argument));
    }

  private:
    const List m_list;
    std::string m_argument;
};

} // namespace

Table tableOfRights(const rights::RightsTables& tables,
                    const std::function<bool(const rights::Right&)>& isWanted) {
    const rights::References references(tables);
    std::vector<ListedItem> rows;
    for (const rights::Right& row : tables.rights)
        if (isWanted(row))
            rows.push_back({references.shownItem(row.UAITAG), row.ALLOWED, row.URTTAG,
                            references.shownTemplate(row.URTTAG)});
    return tableOf(rows, itemColumns<ListedItem>() +
                             std::vector{allowed(), column("URTTAG", "", &ListedItem::URTTAG),
                                         column("URTCODE", "URT Code", &ListedItem::URTCODE)});
}

std::unique_ptr<Command> modulesCommand(CLI::App& rights) {
    return std::make_unique<ListCommand>(rights,
                                         List{"modules", "List the modules", Of::All, "", "", modules});
}

std::unique_ptr<Command> itemsCommand(CLI::App& rights) {
    return std::make_unique<ListCommand>(rights, List{"items", "List the User Access Items", Of::Module, "",
                                                      "Only the items of this module", items});
}

std::unique_ptr<Command> templatesCommand(CLI::App& rights) {
    return std::make_unique<ListCommand>(
        rights, List{"templates", "List the User Rights Templates", Of::All, "", "", templates});
}

std::unique_ptr<Command> templateCommand(CLI::App& rights) {
    return std::make_unique<ListCommand>(rights, List{"template", "List the items of a template", Of::Named,
                                                      "CODE", "Code of the template", templateItems});
}

std::unique_ptr<Command> usersCommand(CLI::App& rights) {
    return std::make_unique<ListCommand>(rights, List{"users", "List the users", Of::All, "", "", users});
}

std::unique_ptr<Command> userCommand(CLI::App& rights) {
    return std::make_unique<ListCommand>(
        rights, List{"user", "List a user's rights with the template that each came from", Of::Named, "NAME",
                     "Name of the user", userRights});
}

} // namespace tol::ctl
