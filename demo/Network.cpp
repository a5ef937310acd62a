// SPDX-License-Identifier: MIT
#include "demo/Network.h"

#include "demo/Lines.h"
#include "runtime/Conversions.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

namespace tol::demo {

namespace {

std::int32_t number(const std::string& text) {
    return static_cast<std::int32_t>(std::stol(text));
}

std::string joined(const std::vector<std::string>& all, std::size_t first) {
    return fmt::format("{}", fmt::join(all.begin() + static_cast<std::ptrdiff_t>(first), all.end(), " "));
}

/// The tag (position from 1) of the entry that `wanted` names by that member.
template <typename T>
std::int32_t tagOf(const std::vector<T>& all, std::string T::*member, std::string_view wanted) {
    const auto found = std::ranges::find(all, wanted, member);
    if (found == all.end())
        throw std::logic_error("nothing is called " + std::string(wanted) + " in network.txt");
    return static_cast<std::int32_t>(found - all.begin()) + 1;
}

} // namespace

Network::Network() {
    for (Lines lines(texts::network); lines.next();)
        readLine(trimmed(lines.line()));
}

void Network::readLine(std::string_view text) {
    const std::vector<std::string> line = words(text);
    const std::string& kind = line.front();
    if (kind == "action")
        m_actions.emplace_back(line.at(1), line.at(2));
    else if (kind == "module")
        m_modules.push_back({line.at(1), joined(line, 2)});
    else if (kind == "subject")
        readSubject(line);
    else if (kind == "template")
        readTemplate(text);
    else if (kind == "user")
        readUser(text);
    else if (kind == "grant")
        user(line.at(1))
            .grants.push_back({itemTag(line.at(2).substr(line.at(2).starts_with('!') ? 1 : 0)),
                               !line.at(2).starts_with('!')});
    else if (kind == "lock")
        m_locks.push_back(
            {line.at(1), line.at(3), number(line.at(2)), number(line.at(4)), number(line.at(5))});
    else
        throw std::logic_error("network.txt: unknown word " + kind);
}

void Network::readSubject(const std::vector<std::string>& line) {
    const std::string& module = m_modules.back().id;
    int form = 1;
    for (const auto& [code, verb] : m_actions) {
        m_items.push_back({module, fmt::format("{}{}{}", module, line.at(1), code),
                           fmt::format("{} {}", verb, joined(line, 2)),
                           fmt::format("FRM{}{}{:02}", module, line.at(1), form++), code});
    }
}

void Network::readTemplate(std::string_view line) {
    const std::vector<std::string> halves = parts(line, ':');
    const std::vector<std::string> name = words(halves.at(0));
    Template result{name.at(1), joined(name, 2), {}};
    for (const std::string& pattern : words(halves.at(1))) {
        for (const Right& right : rightsOf(pattern)) {
            // An item that two patterns name follows the later one.
            std::erase_if(result.rights, [&](const Right& other) { return other.item == right.item; });
            result.rights.push_back(right);
        }
    }
    std::ranges::sort(result.rights, {}, &Right::item);
    m_templates.push_back(std::move(result));
}

void Network::readUser(std::string_view line) {
    const std::vector<std::string> halves = parts(line, ':');
    const std::vector<std::string> left = words(halves.at(0));
    User result;
    result.admin = left.at(1) == "admin";
    const std::size_t first = result.admin ? 2 : 1;
    result.name = left.at(first);
    result.remarks = joined(left, first + 1);
    for (const std::string& code : words(halves.at(1)))
        result.templates.push_back(templateTag(code));
    m_users.push_back(std::move(result));
}

std::vector<Network::Right> Network::rightsOf(std::string_view pattern) const {
    const bool allowed = !pattern.starts_with('!');
    const std::vector<std::string> path = parts(pattern.substr(allowed ? 0 : 1), '/');
    const auto fits = [](const std::string& wanted, const std::string& found) {
        return wanted == "*" || wanted == found;
    };
    std::vector<Right> rights;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (fits(path.at(0), m_items[i].module) && fits(path.at(1), m_items[i].action))
            rights.push_back({static_cast<std::int32_t>(i + 1), allowed});
    }
    return rights;
}

std::int32_t Network::itemTag(std::string_view code) const {
    return tagOf(m_items, &Item::code, code);
}

std::int32_t Network::templateTag(std::string_view code) const {
    return tagOf(m_templates, &Template::code, code);
}

Network::User& Network::user(std::string_view name) {
    return m_users[static_cast<std::size_t>(tagOf(m_users, &User::name, name) - 1)];
}

void Network::addLists(DemoDatabase& database) const {
    for (const Module& module : m_modules)
        database.add("MODULES", {{"MODULEID", module.id}, {"MODULENAME", module.name}});
    std::int32_t tag = 0;
    for (const Item& item : m_items) {
        database.add("USERACCESSITEMS", {{"UAITAG", ++tag},
                                         {"MODULEID", item.module},
                                         {"UAICODE", item.code},
                                         {"Desc", item.description},
                                         {"FORMNAME", item.form}});
    }
}

void Network::addAll(DemoDatabase& database) const {
    addLists(database);
    addTemplates(database);
    addUsers(database);
    addLocks(database);
    database.add("NETTAGS", {{"UAITAG", static_cast<std::int32_t>(m_items.size()) + 1},
                             {"URTTAG", static_cast<std::int32_t>(m_templates.size()) + 1},
                             {"USERTAG", static_cast<std::int32_t>(m_users.size()) + 1}});
    database.add("NETSETTINGS", {{"MODULEID", m_modules.front().id}});
}

void Network::addTemplates(DemoDatabase& database) const {
    std::int32_t tag = 0;
    for (const Template& entry : m_templates) {
        database.add("URTEMPLATES", {{"URTTAG", ++tag}, {"URTCODE", entry.code}, {"URTNAME", entry.name}});
        for (const Right& right : entry.rights)
            database.add("URTITEMS", {{"URTTAG", tag}, {"UAITAG", right.item}, {"ALLOWED", right.allowed}});
    }
}

void Network::addUsers(DemoDatabase& database) const {
    std::int32_t tag = 0;
    for (const User& entry : m_users) {
        database.add("USERLIST", {{"USERTAG", ++tag},
                                  {"UserName", entry.name},
                                  {"REMARKS", entry.remarks},
                                  {"ADMIN", entry.admin}});
        for (const std::int32_t source : entry.templates) {
            for (const Right& right : m_templates[static_cast<std::size_t>(source - 1)].rights)
                database.add("USERRIGHTS", {{"USERTAG", tag},
                                            {"UAITAG", right.item},
                                            {"ALLOWED", right.allowed},
                                            {"URTTAG", source}});
        }
        for (const Right& right : entry.grants) // typed in by hand: no template
            database.add("USERRIGHTS",
                         {{"USERTAG", tag}, {"UAITAG", right.item}, {"ALLOWED", right.allowed}});
    }
}

void Network::addLocks(DemoDatabase& database) const {
    constexpr double minutesOfDay = 24.0 * 60;
    const double firstLock = runtime::dateFromIso("2024-11-29 07:12:00").serial;
    for (const RecordLock& lock : m_locks) {
        database.add("RECORDLOCKS", {{"TAGNO", lock.tag},
                                     {"TABLENAME", lock.table},
                                     {"RLUSERNAME", lock.user},
                                     {"RLTIMESTAMP", runtime::Date{firstLock + lock.minutes / minutesOfDay}},
                                     {"USERTAG", tagOf(m_users, &User::name, lock.user)},
                                     {"Session", lock.session}});
    }
}

} // namespace tol::demo
