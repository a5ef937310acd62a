// SPDX-License-Identifier: MIT
#include "rights/model/UserRights.h"

#include <algorithm>
#include <tuple>

namespace tol::rights {
namespace {

RightState stateOf(bool allowed) {
    return allowed ? RightState::Allowed : RightState::Denied;
}

/// Where each of them stands, by its tag; of several with the same tag the first.
template <typename Tags>
std::unordered_map<std::int32_t, std::size_t> places(const Tags& tags) {
    std::unordered_map<std::int32_t, std::size_t> result;
    std::size_t place = 0;
    for (const std::int32_t tag : tags)
        result.emplace(tag, place++);
    return result;
}

} // namespace

const char* wordFor(RightState state) {
    switch (state) {
    case RightState::Allowed:
        return "allowed";
    case RightState::Denied:
        return "denied";
    case RightState::Conflict:
        break;
    }
    return "conflict";
}

RightState joined(std::optional<RightState> state, bool allowed) {
    return !state || *state == stateOf(allowed) ? stateOf(allowed) : RightState::Conflict;
}

std::vector<EffectiveRight> effectiveRights(const RightsTables& tables, std::int32_t USERTAG) {
    const References references(tables);
    std::vector<EffectiveRight> result;
    std::unordered_map<std::int32_t, std::size_t> placeOf;
    for (const Right& row : tables.rights) {
        if (row.USERTAG != USERTAG)
            continue;
        const auto [place, isNew] = placeOf.emplace(row.UAITAG, result.size());
        if (isNew)
            result.push_back({references.shownItem(row.UAITAG), stateOf(row.ALLOWED), {}});
        EffectiveRight& right = result[place->second];
        right.state = joined(right.state, row.ALLOWED);
        right.rows.push_back(row);
    }
    return result;
}

std::vector<ItemHolder> itemHolders(const RightsTables& tables, const std::vector<const AccessItem*>& items) {
    std::vector<std::int32_t> itemTags, userTags;
    for (const AccessItem* item : items)
        itemTags.push_back(item->UAITAG);
    for (const User& user : tables.users)
        userTags.push_back(user.USERTAG);
    const auto itemPlaces = places(itemTags), userPlaces = places(userTags);

    std::vector<std::tuple<std::size_t, std::size_t, const Right*>> found;
    for (const Right& row : tables.rights) {
        const auto item = itemPlaces.find(row.UAITAG);
        const auto user = userPlaces.find(row.USERTAG);
        if (item != itemPlaces.end() && user != userPlaces.end())
            found.emplace_back(item->second, user->second, &row);
    }
    std::ranges::sort(found); // rows lie in memory in their order
    std::vector<ItemHolder> holders;
    for (const auto& [item, user, row] : found)
        holders.push_back({*items[item], tables.users[user], *row});
    return holders;
}

} // namespace tol::rights
