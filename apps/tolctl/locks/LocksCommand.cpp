// SPDX-License-Identifier: MIT
#include "locks/model/LockList.h"
#include "platform/System.h"
#include "tolctl/Command.h"
#include "tolctl/Output.h"
#include "tolctl/locks/Duration.h"
#include "tolctl/rights/RightsDatabase.h"
#include "tolctl/rights/RightsQuestion.h"

#include <fmt/format.h>

#include <iostream>

namespace tol::ctl {
namespace {

using locks::ListedLock;
using locks::RecordLock;

constexpr const char* closing = "The age is worked out from the time stamp. Where that names no day a lock "
                                "has no age, and is older than\n"
                                "nothing. A lock whose user is not in the list of users is marked.";

constexpr const char* deleteClosing =
    "At least one of the options that choose locks has to be given. What is deleted is printed, with its\n"
    "holder. A lock that somebody else deletes or changes before the answer is left alone.";

template <typename Type>
ColumnOf<ListedLock> column(std::string_view name, std::string_view title, Type RecordLock::*member) {
    return {{name, title}, [member](const ListedLock& listed) { return Cell{listed.lock.*member}; }};
}

Cell ageOf(const ListedLock& listed) {
    return listed.age ? Cell{*listed.age, durationText(*listed.age)} : Cell{nullptr};
}

Cell markOf(const ListedLock& listed) {
    return {listed.userIsKnown, listed.userIsKnown ? "" : "not in USERLIST"};
}

Table tableOfLocks(const std::vector<ListedLock>& locks) {
    return tableOf<ListedLock>(locks, {column("TAGNO", "Item Tag", &RecordLock::TAGNO),
                                       column("TABLENAME", "Table Name", &RecordLock::TABLENAME),
                                       column("RLUSERNAME", "User Name", &RecordLock::RLUSERNAME),
                                       column("RLTIMESTAMP", "R/L Time Stamp", &RecordLock::RLTIMESTAMP),
                                       column("USERTAG", "User Tag", &RecordLock::USERTAG),
                                       column("Session", "Session #", &RecordLock::Session),
                                       {{"AGE", "Age"}, ageOf},
                                       {{"INUSERLIST", "User"}, markOf}});
}

/// The options that choose locks.
void addFilter(CLI::App& app, locks::LockFilter& filter) {
    app.add_option("--user", filter.user, "Locks that this user holds")->type_name("NAME");
    app.add_option("--table", filter.table, "Locks of records of this table")->type_name("NAME");
    app.add_option("--tag", filter.tag, "Locks of records with this tag")->type_name("N");
    app.add_option("--session", filter.session, "Locks of this session")->type_name("N");
    app.add_option_function<std::string>(
           "--older-than",
           [&filter](const std::string& text) {
               filter.olderThan = secondsIn(text);
               if (!filter.olderThan)
                   throw CLI::ValidationError(
                       "--older-than", fmt::format("\"{}\" is no time such as 90m, 2h or 1d12h", text));
           },
           "Locks that are held longer, such as 90m, 2h or 1d12h")
        ->type_name("TIME");
}

/// tolctl locks delete. The locks may be chosen before the word or behind it.
class DeleteCommand : public RightsQuestion {
  public:
    DeleteCommand(CLI::App& locks, locks::LockFilter& filter);
    ExitStatus execute() override;

  private:
    [[nodiscard]] bool isConfirmed(const std::vector<ListedLock>& locks) const;

    locks::LockFilter& m_filter;
    bool m_yes = false;
};

DeleteCommand::DeleteCommand(CLI::App& locks, locks::LockFilter& filter)
    : RightsQuestion(locks, "delete", "Delete Record Locks, after a question"), m_filter(filter) {
    addFilter(app(), m_filter);
    app().add_flag("--yes", m_yes, "Do not ask");
    app().footer(deleteClosing);
}

ExitStatus DeleteCommand::execute() {
    if (!m_filter.isAny())
        throw Failure{ExitStatus::WrongUsage,
                      "which Record Locks are to be deleted? See tolctl locks delete --help."};
    outliveReader();
    RightsDatabase network(RightsDatabase::Use::Write);
    const auto locks = locks::listLocks(network.database, m_filter, platform::now());
    if (!locks.empty() && !m_yes && !isConfirmed(locks))
        return ExitStatus::Stopped;
    const auto deleted = locks::deleteLocks(network.workspace, network.database, locks);
    if (deleted.empty())
        std::cerr << "No Record Lock was deleted.\n";
    if (const std::size_t left = locks.size() - deleted.size(); left > 0)
        std::cerr << "Deleted or changed by another user meanwhile: " << left << "\n";
    return answer(tableOfLocks(deleted));
}

bool DeleteCommand::isConfirmed(const std::vector<ListedLock>& locks) const {
    std::string text;
    for (const ListedLock& listed : locks)
        text += fmt::format("{} of {}, held by {}{} since {}, session {}\n", listed.lock.TAGNO,
                            listed.lock.TABLENAME, listed.lock.RLUSERNAME,
                            listed.userIsKnown ? "" : " (not in USERLIST)", listed.lock.RLTIMESTAMP,
                            listed.lock.Session);
    text += locks.size() == 1 ? "OK to Delete this Record Lock?"
                              : fmt::format("OK to Delete these {} Record Locks?", locks.size());
    ProgressLine progress(false);
    TerminalHost person(progress);
    person.foresee(std::nullopt);
    return person.msgBox(text, {runtime::MsgIcon::Question, runtime::MsgButtons::YesNo}, "Confirm Delete") ==
           runtime::MsgResult::Yes;
}

/// tolctl locks: who has locked which records.
class LocksCommand : public RightsQuestion {
  public:
    explicit LocksCommand(CLI::App& program);
    ExitStatus execute() override;

  private:
    locks::LockFilter m_filter;
    std::unique_ptr<DeleteCommand> m_delete;
};

LocksCommand::LocksCommand(CLI::App& program)
    : RightsQuestion(program, "locks", "List the Record Locks, or delete some of them") {
    addFilter(app(), m_filter);
    app().footer(closing);
    m_delete = std::make_unique<DeleteCommand>(app(), m_filter);
}

ExitStatus LocksCommand::execute() {
    if (m_delete->chosen())
        return m_delete->execute();
    RightsDatabase network;
    return answer(tableOfLocks(locks::listLocks(network.database, m_filter, platform::now())));
}

} // namespace

std::unique_ptr<Command> locksCommand(CLI::App& program) {
    return std::make_unique<LocksCommand>(program);
}

} // namespace tol::ctl
