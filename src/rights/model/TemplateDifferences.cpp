// SPDX-License-Identifier: MIT
#include "rights/model/TemplateDifferences.h"

#include <algorithm>
#include <set>

namespace tol::rights {
namespace {

/// What a template and a user say of each item, in the order in which they were added.
class Comparison {
  public:
    using Side = std::optional<RightState> TemplateDifference::*;

    Comparison(const RightsTables& tables, std::int32_t URTTAG) : m_references(tables), m_tag(URTTAG) {}

    void add(Side side, std::int32_t UAITAG, bool allowed) {
        const auto [place, isNew] = m_places.emplace(UAITAG, m_items.size());
        if (isNew)
            m_items.push_back({m_tag, m_references.shownItem(UAITAG), {}, {}});
        auto& state = m_items[place->second].*side;
        state = joined(state, allowed);
    }
    [[nodiscard]] std::vector<TemplateDifference> differences() {
        std::erase_if(m_items, [](const TemplateDifference& item) { return item.inTemplate == item.atUser; });
        return std::move(m_items);
    }
    [[nodiscard]] bool hasTemplate() const { return m_references.templates.find(m_tag) != nullptr; }

  private:
    References m_references;
    std::int32_t m_tag;
    std::vector<TemplateDifference> m_items;
    std::unordered_map<std::int32_t, std::size_t> m_places;
};

} // namespace

std::vector<std::int32_t> filledTemplates(const RightsTables& tables, std::int32_t USERTAG) {
    std::set<std::int32_t> gone;
    for (const Right& row : tables.rights)
        if (row.USERTAG == USERTAG && row.URTTAG != 0)
            gone.insert(row.URTTAG);
    std::vector<std::int32_t> result;
    for (const Template& entry : tables.templates)
        if (gone.erase(entry.URTTAG) > 0)
            result.push_back(entry.URTTAG);
    result.insert(result.end(), gone.begin(), gone.end());
    return result;
}

std::vector<TemplateDifference> templateDifferences(const RightsTables& tables, std::int32_t USERTAG,
                                                    std::int32_t URTTAG) {
    Comparison comparison(tables, URTTAG);
    if (comparison.hasTemplate())
        for (const TemplateItem& row : tables.templateItems)
            if (row.URTTAG == URTTAG)
                comparison.add(&TemplateDifference::inTemplate, row.UAITAG, row.ALLOWED);
    for (const Right& row : tables.rights)
        if (row.USERTAG == USERTAG && row.URTTAG == URTTAG)
            comparison.add(&TemplateDifference::atUser, row.UAITAG, row.ALLOWED);
    return comparison.differences();
}

} // namespace tol::rights
