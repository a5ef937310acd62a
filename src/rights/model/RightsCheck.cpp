// SPDX-License-Identifier: MIT
#include "rights/model/RightsCheck.h"

#include "runtime/Text.h"
#include "shell/vdfunctions/vdTexts.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <unordered_set>

namespace tol::rights {
namespace {

/// The modules' codes, by the rule by which their list finds one.
class ModuleCodes {
  public:
    explicit ModuleCodes(const std::vector<Module>& modules) {
        for (const Module& module : modules)
            m_codes.insert(runtime::foldCase(module.MODULEID));
    }
    [[nodiscard]] bool has(const std::string& code) const {
        return shell::vdNotBlank(code) && m_codes.contains(runtime::foldCase(code));
    }

  private:
    std::unordered_set<std::string> m_codes;
};

class Check {
  public:
    explicit Check(const CheckedTables& tables)
        : m_tables(tables), m_rights(tables.rights), m_references(m_rights), m_modules(m_rights.modules) {}

    std::vector<Finding> run();

  private:
    template <typename Row, typename Fits>
    void find(FindingKind kind, const std::vector<Row>& rows, Fits&& fits) {
        for (const Row& row : rows)
            if (!fits(row))
                m_findings.push_back({kind, row});
    }
    template <typename Row, typename KeyOf>
    void findDoubled(FindingKind kind, const std::vector<Row>& rows, KeyOf&& keyOf);
    void checkReferences();
    void checkDoubles();
    void checkCounters();
    void checkSettings();

    const CheckedTables& m_tables;
    const RightsTables& m_rights;
    References m_references;
    ModuleCodes m_modules;
    std::vector<Finding> m_findings;
};

std::vector<Finding> Check::run() {
    checkReferences();
    checkDoubles();
    checkCounters();
    checkSettings();
    return std::move(m_findings);
}

void Check::checkReferences() {
    const auto hasItem = [&](const auto& row) { return m_references.items.find(row.UAITAG) != nullptr; };
    const auto hasTemplate = [&](const auto& row) {
        return m_references.templates.find(row.URTTAG) != nullptr;
    };
    find(FindingKind::RightWithoutItem, m_rights.rights, hasItem);
    find(FindingKind::RightWithoutUser, m_rights.rights,
         [&](const Right& row) { return m_references.users.find(row.USERTAG) != nullptr; });
    find(FindingKind::RightWithDeadTemplate, m_rights.rights,
         [&](const Right& row) { return row.URTTAG == 0 || hasTemplate(row); });
    find(FindingKind::TemplateItemWithoutItem, m_rights.templateItems, hasItem);
    find(FindingKind::TemplateItemWithoutTemplate, m_rights.templateItems, hasTemplate);
    find(FindingKind::ItemWithoutModule, m_rights.items,
         [&](const AccessItem& item) { return m_modules.has(item.MODULEID); });
}

/// A key that several rows share is found once, with the first of them.
template <typename Row, typename KeyOf>
void Check::findDoubled(FindingKind kind, const std::vector<Row>& rows, KeyOf&& keyOf) {
    using Keyed = std::pair<std::invoke_result_t<KeyOf, const Row&>, std::size_t>;
    std::vector<Keyed> keyed;
    keyed.reserve(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
        keyed.emplace_back(keyOf(rows[i]), i);
    std::ranges::sort(keyed);

    for (auto first = keyed.begin(); first != keyed.end();) {
        const auto end =
            std::find_if(first, keyed.end(), [&](const Keyed& next) { return next.first != first->first; });
        if (const auto times = static_cast<std::size_t>(end - first); times > 1)
            m_findings.push_back({kind, rows[first->second], times});
        first = end;
    }
}

void Check::checkDoubles() {
    findDoubled(FindingKind::DoubledRight, m_rights.rights, [](const Right& row) {
        return std::tuple{row.USERTAG, row.UAITAG, row.URTTAG};
    });
    findDoubled(FindingKind::DoubledTemplateItem, m_rights.templateItems, [](const TemplateItem& row) {
        return std::tuple{row.URTTAG, row.UAITAG};
    });
}

/// The highest of a column's tags and of what was found before.
template <typename Row>
void raise(std::optional<std::int32_t>& highest, const std::vector<Row>& rows, std::int32_t Row::*tag) {
    for (const Row& row : rows)
        highest = std::max(highest, std::optional(row.*tag));
}

// A tag counts as in use wherever it is referred to: given out again, it would bring the new record what was
// meant for an old one. A right's template 0 refers to none, and a table without a counter gives out 1 first.
void Check::checkCounters() {
    std::optional<std::int32_t> items, templates, users;
    raise(items, m_rights.items, &AccessItem::UAITAG);
    raise(items, m_rights.templateItems, &TemplateItem::UAITAG);
    raise(items, m_rights.rights, &Right::UAITAG);
    raise(templates, m_rights.templates, &Template::URTTAG);
    raise(templates, m_rights.templateItems, &TemplateItem::URTTAG);
    for (const Right& row : m_rights.rights)
        if (row.URTTAG != 0)
            templates = std::max(templates, std::optional(row.URTTAG));
    raise(users, m_rights.users, &User::USERTAG);
    raise(users, m_rights.rights, &Right::USERTAG);
    raise(users, m_tables.locks, &LockHolder::USERTAG);

    const TagCounters counters = m_tables.counters.value_or(TagCounters{1, 1, 1});
    const std::array found = {std::tuple{"UAITAG", counters.UAITAG, items},
                              std::tuple{"URTTAG", counters.URTTAG, templates},
                              std::tuple{"USERTAG", counters.USERTAG, users}};
    for (const auto& [name, next, highest] : found)
        if (highest && *highest >= next)
            m_findings.push_back({FindingKind::CounterTooLow, LowCounter{name, next, *highest}});
}

void Check::checkSettings() {
    if (m_tables.settings && shell::vdNotBlank(m_tables.settings->MODULEID) &&
        !m_modules.has(m_tables.settings->MODULEID))
        m_findings.push_back({FindingKind::UnknownModuleSelected, *m_tables.settings});
}

template <typename Row>
std::optional<Row> firstRow(data::Database& database) {
    const std::vector<Row> rows = readRows<Row>(database, RowOrder::Stored);
    return rows.empty() ? std::nullopt : std::optional(rows.front());
}

} // namespace

const char* Finding::table() const {
    return std::visit([](const auto& of) { return of.table; }, row);
}

CheckedTables readCheckedTables(data::Database& database) {
    CheckedTables tables;
    tables.locks = readRows<LockHolder>(database, RowOrder::Stored);
    tables.settings = firstRow<NetSettings>(database);
    tables.rights = readTables(database, RowOrder::Stored);
    tables.counters = firstRow<TagCounters>(database);
    return tables;
}

std::vector<Finding> check(const CheckedTables& tables) {
    return Check(tables).run();
}

} // namespace tol::rights
