// SPDX-License-Identifier: MIT
#pragma once

#include "demo/DemoDatabase.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tol::demo {

/// Who may do what in the demo: modules, User Access Items, templates, users, their rights and the
/// Record Locks that were left behind. Tags count from 1 in the order of the text.
class Network {
  public:
    /// Reads network.txt.
    Network();

    /// MODULES and USERACCESSITEMS, which stand in two databases.
    void addLists(DemoDatabase& database) const;
    /// All tables of the rights, the counters, the settings and the Record Locks.
    void addAll(DemoDatabase& database) const;

  private:
    struct Module {
        std::string id, name;
    };
    struct Item {
        std::string module, code, description, form, action;
    };
    struct Right {
        std::int32_t item;
        bool allowed;
    };
    struct Template {
        std::string code, name;
        std::vector<Right> rights;
    };
    struct User {
        std::string name, remarks;
        bool admin = false;
        std::vector<std::int32_t> templates;
        std::vector<Right> grants;
    };
    struct RecordLock {
        std::string table, user;
        std::int32_t tag, session, minutes;
    };

    void readLine(std::string_view line);
    void readSubject(const std::vector<std::string>& line);
    void readTemplate(std::string_view line);
    void readUser(std::string_view line);
    std::vector<Right> rightsOf(std::string_view pattern) const;
    std::int32_t itemTag(std::string_view code) const;
    std::int32_t templateTag(std::string_view code) const;
    User& user(std::string_view name);
    void addTemplates(DemoDatabase& database) const;
    void addUsers(DemoDatabase& database) const;
    void addLocks(DemoDatabase& database) const;

    std::vector<std::pair<std::string, std::string>> m_actions;
    std::vector<Module> m_modules;
    std::vector<Item> m_items;
    std::vector<Template> m_templates;
    std::vector<User> m_users;
    std::vector<RecordLock> m_locks;
};

} // namespace tol::demo
