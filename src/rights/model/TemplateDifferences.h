// SPDX-License-Identifier: MIT
#pragma once

#include "rights/model/UserRights.h"

#include <optional>
#include <vector>

namespace tol::rights {

/// An item about which a template and the rows that a user has from it do not agree. Nothing: it is not
/// there.
struct TemplateDifference {
    std::int32_t URTTAG = 0;
    AccessItem item;
    std::optional<RightState> inTemplate, atUser;
};

/// The templates that the user was filled from, in the order of their list, those that are gone behind them.
std::vector<std::int32_t> filledTemplates(const RightsTables& tables, std::int32_t USERTAG);

/// Compares the user's rows that bear the template's tag with its items: first the items as they stand in the
/// template, then the user's others. A template that is gone has no items.
std::vector<TemplateDifference> templateDifferences(const RightsTables& tables, std::int32_t USERTAG,
                                                    std::int32_t URTTAG);

} // namespace tol::rights
