// SPDX-License-Identifier: MIT
#include "tolctl/rights/RightsQuestion.h"

#include "tolctl/Output.h"

#include <fmt/format.h>

#include <iostream>

namespace tol::ctl {

RightsQuestion::RightsQuestion(CLI::App& rights, const std::string& name, const std::string& help)
    : Command(rights, name, help) {
    auto* json = app().add_flag("--json", m_json, "Print a JSON array of objects");
    app().add_flag("--csv", m_csv, "Print comma-separated values")->excludes(json);
}

void RightsQuestion::addArgument(const std::string& name, std::string& value, const std::string& help) {
    app().add_option(name, value, help)->required()->type_name("");
}

void RightsQuestion::addModule(std::string& code, const std::string& help) {
    app().add_option("--module", code, help)->type_name("CODE");
}

ExitStatus RightsQuestion::answer(const Table& table, ExitStatus status, ExitStatus unprinted) const {
    printTable(table, m_json ? TableFormat::Json : m_csv ? TableFormat::Csv : TableFormat::Columns);
    if (!std::cout.flush() && readerIsGone())
        return unprinted;
    return finishOutput() ? status : unprinted;
}

const rights::User& namedUser(const std::vector<rights::User>& users, const std::string& name) {
    if (const rights::User* user = rights::findUser(users, name))
        return *user;
    throw Failure{ExitStatus::CouldNotStart, fmt::format("there is no user \"{}\".", name)};
}

const rights::Template& namedTemplate(const std::vector<rights::Template>& templates,
                                      const std::string& code) {
    if (const rights::Template* found = rights::findTemplate(templates, code))
        return *found;
    throw Failure{ExitStatus::CouldNotStart, fmt::format("there is no User Rights Template \"{}\".", code)};
}

} // namespace tol::ctl
