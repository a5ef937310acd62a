// SPDX-License-Identifier: MIT
#pragma once

#include "rights/model/RightsTables.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace tol::rights {

/// Rows by a tag; of several rows with the same tag the first.
template <typename Row>
class ByTag {
  public:
    ByTag(const std::vector<Row>& rows, std::int32_t Row::*tag) {
        m_rows.reserve(rows.size());
        for (const Row& row : rows)
            m_rows.emplace(row.*tag, &row);
    }
    /// Null when there is none.
    [[nodiscard]] const Row* find(std::int32_t tag) const {
        const auto found = m_rows.find(tag);
        return found == m_rows.end() ? nullptr : found->second;
    }

  private:
    std::unordered_map<std::int32_t, const Row*> m_rows;
};

/// What the tags in the rights tables refer to. The tables have to outlive it.
class References {
  public:
    explicit References(const RightsTables& tables);

    const ByTag<AccessItem> items;
    const ByTag<Template> templates;
    const ByTag<User> users;

    /// The item as the windows show it: code and description are question marks where it is gone.
    [[nodiscard]] AccessItem shownItem(std::int32_t UAITAG) const;
    /// The code as the windows show it: "" for a row entered by hand, question marks where the template is
    /// gone.
    [[nodiscard]] std::string shownTemplate(std::int32_t URTTAG) const;
};

// What people name, without regard to case and to blanks around it. Null when there is none.
const User* findUser(const std::vector<User>& users, std::string_view name);
const Template* findTemplate(const std::vector<Template>& templates, std::string_view code);
/// All items of that code; of that module only unless it is blank.
std::vector<const AccessItem*> findItems(const std::vector<AccessItem>& items, std::string_view code,
                                         std::string_view module);
/// Whether two texts name the same; and what all texts that do have in common.
bool sameName(std::string_view left, std::string_view right);
std::string nameKey(std::string_view name);

} // namespace tol::rights
