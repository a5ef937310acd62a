// SPDX-License-Identifier: MIT
#include "tolctl/rights/RightsCommand.h"

#include "rights/report/ListReport.h"
#include "tolctl/PdfReport.h"
#include "tolctl/ProgressLine.h"
#include "tolctl/rights/RightsDatabase.h"

#include <fmt/format.h>

#include <algorithm>

namespace tol::ctl {
namespace {

using rights::PrintedList;

struct PrintedAs {
    const char* name;
    const char* help;
    PrintedList list;
    const char* argument = nullptr; ///< what it names; null: the whole table is printed
    const char* argumentHelp = nullptr;
    const char* owner = nullptr; ///< what is named
};

/// In the order of the help.
constexpr PrintedAs printedLists[] = {
    {"modules", "Print the modules", PrintedList::Modules},
    {"items", "Print the User Access Items of a module", PrintedList::AccessItems, "MODULE",
     "Code of the module", "module"},
    {"templates", "Print the User Rights Templates", PrintedList::Templates},
    {"template", "Print the items of a template", PrintedList::TemplateItems, "CODE", "Code of the template",
     "User Rights Template"},
    {"users", "Print the users", PrintedList::Users},
    {"user", "Print a user's rights", PrintedList::UserRights, "NAME", "Name of the user", "user"},
};

/// tolctl rights print: the reports of the windows' print buttons.
class PrintCommand : public Command {
  public:
    explicit PrintCommand(CLI::App& rights);
    ExitStatus execute() override;

  private:
    [[nodiscard]] rights::PrintedRows rowsOf(const PrintedAs& printed, data::Database& database) const;

    std::string m_pdf; ///< file to write
    std::string m_name;
};

PrintCommand::PrintCommand(CLI::App& rights)
    : Command(rights, "print", "Write a list as a printed report to a PDF file") {
    app().require_subcommand(1);
    app().add_option("--pdf", m_pdf, "The PDF file to write")->required()->type_name("FILE");
    for (const PrintedAs& printed : printedLists) {
        CLI::App* list = app().add_subcommand(printed.name, printed.help);
        if (printed.argument != nullptr)
            list->add_option(printed.argument, m_name, printed.argumentHelp)->required()->type_name("");
    }
}

ExitStatus PrintCommand::execute() {
    const PrintedAs& printed = *std::ranges::find_if(
        printedLists, [this](const PrintedAs& list) { return app().got_subcommand(list.name); });
    RightsDatabase network;
    const rights::PrintedRows rows = rowsOf(printed, network.database);
    ProgressLine progress;
    writePdfReport(m_pdf, progress, [&](search_print::ReportView& view, search_print::VSPrinter& printer) {
        rights::ListReport(printed.list, network.database).print(view, printer, printer.Orientation(), rows);
    });
    return ExitStatus::Finished;
}

rights::PrintedRows PrintCommand::rowsOf(const PrintedAs& printed, data::Database& database) const {
    if (printed.owner == nullptr)
        return {};
    if (std::optional<rights::PrintedRows> rows = rights::rowsOf(printed.list, database, m_name))
        return *rows;
    throw Failure{ExitStatus::CouldNotStart, fmt::format("there is no {} \"{}\".", printed.owner, m_name)};
}

} // namespace

std::unique_ptr<Command> printCommand(CLI::App& rights) {
    return std::make_unique<PrintCommand>(rights);
}

} // namespace tol::ctl
