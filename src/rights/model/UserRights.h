// SPDX-License-Identifier: MIT
#pragma once

#include "rights/model/References.h"

#include <optional>
#include <vector>

namespace tol::rights {

/// What rows about one item say together.
enum class RightState {
    Allowed,
    Denied,
    Conflict, ///< some this, some that
};
const char* wordFor(RightState state);

/// What they say when one more says that; nothing stands for no rows.
RightState joined(std::optional<RightState> state, bool allowed);

/// What a user may do with an item, and the rows that say so.
struct EffectiveRight {
    AccessItem item;
    RightState state = RightState::Denied;
    std::vector<Right> rows;
};
/// Each item of the user once, in the order of the user's list, also those that are gone.
std::vector<EffectiveRight> effectiveRights(const RightsTables& tables, std::int32_t USERTAG);

/// A row that gives an item to a user, or denies it.
struct ItemHolder {
    AccessItem item;
    User user;
    Right right;
};
/// All such rows of the items whose user exists: item by item in the given order, users in the order of their
/// list.
std::vector<ItemHolder> itemHolders(const RightsTables& tables, const std::vector<const AccessItem*>& items);

} // namespace tol::rights
