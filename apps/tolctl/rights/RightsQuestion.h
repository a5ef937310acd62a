// SPDX-License-Identifier: MIT
#pragma once

#include "rights/model/References.h"
#include "tolctl/Command.h"
#include "tolctl/Table.h"

namespace tol::ctl {

/// A command below `rights` whose answer is a table: for people, with --json or with --csv.
class RightsQuestion : public Command {
  protected:
    RightsQuestion(CLI::App& rights, const std::string& name, const std::string& help);

    /// Adds an argument that has to be given.
    void addArgument(const std::string& name, std::string& value, const std::string& help);
    void addModule(std::string& code, const std::string& help);
    /// Prints the table and gives that status; the other one where it can't be printed. A reader who has gone
    /// away needs no word about that.
    [[nodiscard]] ExitStatus answer(const Table& table, ExitStatus status = ExitStatus::Finished,
                                    ExitStatus unprinted = ExitStatus::CouldNotStart) const;

  private:
    bool m_json = false;
    bool m_csv = false;
};

/// The columns of rows with a member `item`, that name it.
template <typename Row>
std::vector<ColumnOf<Row>> itemColumns(std::string_view moduleTitle = "") {
    return {{{"UAITAG", ""}, [](const Row& row) { return Cell{row.item.UAITAG}; }},
            {{"MODULEID", moduleTitle}, [](const Row& row) { return Cell{row.item.MODULEID}; }},
            {{"UAICODE", "UAI Code"}, [](const Row& row) { return Cell{row.item.UAICODE}; }},
            {{"Desc", "Description"}, [](const Row& row) { return Cell{row.item.Desc}; }}};
}

/// These columns and more behind them.
template <typename Row>
std::vector<ColumnOf<Row>> operator+(std::vector<ColumnOf<Row>> columns, std::vector<ColumnOf<Row>> more) {
    columns.insert(columns.end(), more.begin(), more.end());
    return columns;
}

/// The rights that are wanted, with the template that each came from.
Table tableOfRights(const rights::RightsTables& tables,
                    const std::function<bool(const rights::Right&)>& isWanted);

// What a command line names. They raise Failure when there is none.
const rights::User& namedUser(const std::vector<rights::User>& users, const std::string& name);
const rights::Template& namedTemplate(const std::vector<rights::Template>& templates,
                                      const std::string& code);

} // namespace tol::ctl
