// SPDX-License-Identifier: MIT
#include "rights/model/RightsCheck.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <random>

namespace tol::rights {
namespace {

/// Small tables of small numbers, in which everything that can be amiss soon is.
class RandomTables {
  public:
    explicit RandomTables(unsigned seed) : m_random(seed) {}

    CheckedTables make() {
        CheckedTables tables;
        RightsTables& rights = tables.rights;
        for (int i = number(3); i > 0; --i)
            rights.modules.push_back({code(), ""});
        for (int i = number(4); i > 0; --i)
            rights.items.push_back({number(5), code(), code(), "", ""});
        for (int i = number(3); i > 0; --i)
            rights.templates.push_back({number(3), code(), ""});
        for (int i = number(6); i > 0; --i)
            rights.templateItems.push_back({number(3), number(5), number(1) == 1});
        for (int i = number(3); i > 0; --i)
            rights.users.push_back({number(3), code(), "", false});
        for (int i = number(9); i > 0; --i)
            rights.rights.push_back({number(3), number(5), number(1) == 1, number(3)});
        for (int i = number(1); i > 0; --i)
            tables.locks.push_back({number(4)});
        if (number(3) > 0)
            tables.counters = TagCounters{number(7), number(5), number(6)};
        if (number(3) > 0)
            tables.settings = NetSettings{code()};
        return tables;
    }

  private:
    std::int32_t number(int highest) { return std::uniform_int_distribution(0, highest)(m_random); }
    std::string code() {
        return std::vector<std::string>{"A", "a", "B", " ", ""}[static_cast<std::size_t>(number(4))];
    }

    std::mt19937 m_random;
};

/// The same questions, asked of each row by a look at all the others.
class Model {
  public:
    explicit Model(const CheckedTables& tables) : m_tables(tables), m_rights(tables.rights) {}

    std::vector<std::string> findings() {
        for (const Right& row : m_rights.rights) {
            tell(!has(m_rights.items, &AccessItem::UAITAG, row.UAITAG), "right-without-item", key(row));
            tell(!has(m_rights.users, &User::USERTAG, row.USERTAG), "right-without-user", key(row));
            tell(row.URTTAG != 0 && !has(m_rights.templates, &Template::URTTAG, row.URTTAG),
                 "right-with-dead-template", key(row));
        }
        for (const TemplateItem& row : m_rights.templateItems) {
            tell(!has(m_rights.items, &AccessItem::UAITAG, row.UAITAG), "template-item-without-item",
                 key(row));
            tell(!has(m_rights.templates, &Template::URTTAG, row.URTTAG), "template-item-without-template",
                 key(row));
        }
        for (const AccessItem& row : m_rights.items)
            tell(!isModule(row.MODULEID), "item-without-module", fmt::format("{}", row.UAITAG));
        tellDoubled(m_rights.rights, "doubled-right");
        tellDoubled(m_rights.templateItems, "doubled-template-item");
        tellCounters();
        if (m_tables.settings && m_tables.settings->MODULEID.find_first_not_of(' ') != std::string::npos)
            tell(!isModule(m_tables.settings->MODULEID), "unknown-module-selected", "");
        std::ranges::sort(m_found);
        return m_found;
    }

    static std::string key(const Right& row) {
        return fmt::format("{} {} {}", row.USERTAG, row.UAITAG, row.URTTAG);
    }
    static std::string key(const TemplateItem& row) { return fmt::format("{} {}", row.URTTAG, row.UAITAG); }

  private:
    void tell(bool isAmiss, const std::string& kind, const std::string& key) {
        if (isAmiss)
            m_found.push_back(kind + " " + key);
    }
    template <typename Row>
    static bool has(const std::vector<Row>& rows, std::int32_t Row::*tag, std::int32_t wanted) {
        return std::ranges::any_of(rows, [&](const Row& row) { return row.*tag == wanted; });
    }
    [[nodiscard]] bool isModule(const std::string& code) const {
        const auto upper = [](std::string text) { return text == "a" ? "A" : text; };
        return code.find_first_not_of(' ') != std::string::npos &&
               std::ranges::any_of(m_rights.modules,
                                   [&](const Module& row) { return upper(row.MODULEID) == upper(code); });
    }
    template <typename Row>
    void tellDoubled(const std::vector<Row>& rows, const std::string& kind) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const auto isSame = [&](const Row& row) { return key(row) == key(rows[i]); };
            const auto here = rows.begin() + static_cast<std::ptrdiff_t>(i);
            const auto times = std::count_if(rows.begin(), rows.end(), isSame);
            tell(times > 1 && std::none_of(rows.begin(), here, isSame), kind,
                 fmt::format("{} x{}", key(rows[i]), times));
        }
    }
    void tellCounters() {
        const TagCounters next = m_tables.counters ? *m_tables.counters : TagCounters{1, 1, 1};
        bool item = false, urt = false, user = false;
        for (const AccessItem& row : m_rights.items)
            item = item || row.UAITAG >= next.UAITAG;
        for (const Template& row : m_rights.templates)
            urt = urt || row.URTTAG >= next.URTTAG;
        for (const User& row : m_rights.users)
            user = user || row.USERTAG >= next.USERTAG;
        for (const LockHolder& row : m_tables.locks)
            user = user || row.USERTAG >= next.USERTAG;
        for (const TemplateItem& row : m_rights.templateItems) {
            item = item || row.UAITAG >= next.UAITAG;
            urt = urt || row.URTTAG >= next.URTTAG;
        }
        for (const Right& row : m_rights.rights) {
            item = item || row.UAITAG >= next.UAITAG;
            urt = urt || (row.URTTAG != 0 && row.URTTAG >= next.URTTAG);
            user = user || row.USERTAG >= next.USERTAG;
        }
        tell(item, "counter-too-low", "UAITAG");
        tell(urt, "counter-too-low", "URTTAG");
        tell(user, "counter-too-low", "USERTAG");
    }

    const CheckedTables& m_tables;
    const RightsTables& m_rights;
    std::vector<std::string> m_found;
};

std::string keyOf(const Finding& finding) {
    const std::string times = finding.times > 1 ? fmt::format(" x{}", finding.times) : "";
    if (const auto* right = std::get_if<Right>(&finding.row))
        return Model::key(*right) + times;
    if (const auto* item = std::get_if<TemplateItem>(&finding.row))
        return Model::key(*item) + times;
    if (const auto* item = std::get_if<AccessItem>(&finding.row))
        return fmt::format("{}", item->UAITAG);
    if (const auto* counter = std::get_if<LowCounter>(&finding.row))
        return std::string(counter->name);
    return "";
}

TEST(RightsCheckModel, FindsWhatALookAtEveryPairFinds) {
    std::size_t found = 0;
    for (unsigned seed = 0; seed < 20'000; ++seed) {
        const CheckedTables tables = RandomTables(seed).make();
        std::vector<std::string> findings;
        for (const Finding& finding : check(tables))
            findings.push_back(std::string(wordFor(finding.kind)) + " " + keyOf(finding));
        std::ranges::sort(findings);
        ASSERT_EQ(findings, Model(tables).findings()) << "seed " << seed;
        found += findings.size();
    }
    EXPECT_GT(found, 100'000U);
}

} // namespace
} // namespace tol::rights
