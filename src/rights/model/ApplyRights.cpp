// SPDX-License-Identifier: MIT
#include "rights/model/ApplyRights.h"

#include "rights/model/References.h"
#include "rights/model/UserRights.h"
#include "runtime/Conversions.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdTexts.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>
#include <variant>

namespace tol::rights {
namespace {

using Key = RightChanges::Key;

/// Finds what wishes name, in a time that does not grow with the tables.
class Names {
  public:
    explicit Names(const RightsTables& tables) {
        for (const User& user : tables.users)
            m_users.emplace(nameKey(user.UserName), user.USERTAG);
        for (const AccessItem& item : tables.items)
            m_items[nameKey(item.UAICODE)].push_back({nameKey(item.MODULEID), item.UAITAG});
    }
    /// The tags, or why the wish is refused.
    [[nodiscard]] std::variant<Key, Verdict> resolve(const RightWish& wish) const;

  private:
    struct ItemInModule {
        std::string module;
        std::int32_t UAITAG;
    };
    [[nodiscard]] std::variant<std::int32_t, Verdict> itemTag(const RightWish& wish) const;

    std::unordered_map<std::string, std::int32_t> m_users;
    std::unordered_map<std::string, std::vector<ItemInModule>> m_items;
};

std::variant<Key, Verdict> Names::resolve(const RightWish& wish) const {
    const auto user = m_users.find(nameKey(wish.user));
    if (shell::vdIsBlank(wish.user) || user == m_users.end())
        return Verdict::UnknownUser;
    const auto item = itemTag(wish);
    if (const Verdict* refusal = std::get_if<Verdict>(&item))
        return *refusal;
    return Key{user->second, std::get<std::int32_t>(item)};
}

// A code that stands twice in one module means the first item, as it does in the windows.
std::variant<std::int32_t, Verdict> Names::itemTag(const RightWish& wish) const {
    const auto found = m_items.find(nameKey(wish.item));
    if (shell::vdIsBlank(wish.item) || found == m_items.end())
        return Verdict::UnknownItem;
    const std::vector<ItemInModule>& items = found->second;
    const bool anyModule = shell::vdIsBlank(wish.module);
    const std::string module = anyModule ? items.front().module : nameKey(wish.module);
    const auto isInModule = [&](const ItemInModule& item) { return item.module == module; };
    if (anyModule && !std::ranges::all_of(items, isInModule))
        return Verdict::CodeInSeveralModules;
    const auto item = std::ranges::find_if(items, isInModule);
    if (item == items.end())
        return Verdict::UnknownItem;
    return item->UAITAG;
}

std::optional<bool> valueOf(const RightWish& wish) {
    const std::string letter = nameKey(wish.allowed);
    if (letter != "y" && letter != "n")
        return {};
    return letter == "y";
}

/// What the rows entered by hand say of each user and item, and what they are to say.
class HandRows {
  public:
    explicit HandRows(const std::vector<Right>& rights) {
        for (const Right& row : rights)
            if (row.URTTAG == 0) {
                State& state = m_states[{row.USERTAG, row.UAITAG}];
                state.before = state.now = joined(state.before, row.ALLOWED);
            }
    }
    Verdict set(const Key& key, bool allowed);
    void tellChanges(RightChanges& changes) const;

  private:
    struct State {
        std::optional<RightState> before = {}, now = {};
    };
    std::map<Key, State> m_states;
};

Verdict HandRows::set(const Key& key, bool allowed) {
    State& state = m_states[key];
    const std::optional<RightState> previous = state.now;
    state.now = joined({}, allowed);
    if (!previous)
        return Verdict::Added;
    return previous == state.now ? Verdict::Unchanged : Verdict::Changed;
}

void HandRows::tellChanges(RightChanges& changes) const {
    for (const auto& [key, state] : m_states) {
        const bool allowed = state.now == RightState::Allowed;
        if (!state.before)
            changes.added.push_back({key.first, key.second, allowed, 0});
        else if (state.now != state.before)
            changes.changed.emplace(key, allowed);
    }
}

void add(data::Recordset& rights, const Right& row) {
    rights.AddNew();
    rights.Fields("USERTAG").Value(row.USERTAG);
    rights.Fields("UAITAG").Value(row.UAITAG);
    rights.Fields("ALLOWED").Value(row.ALLOWED);
    rights.Update();
}

std::int32_t tagOf(const data::Field& field) {
    const runtime::Value value = field.Value();
    return value.isNull() ? 0 : runtime::toLong(value);
}

} // namespace

const char* wordFor(Verdict verdict) {
    static constexpr std::array words = {"added",        "changed",      "unchanged",
                                         "unknown user", "unknown item", "code in several modules",
                                         "bad value"};
    return words[static_cast<std::size_t>(verdict)];
}

bool isRefused(Verdict verdict) {
    return verdict >= Verdict::UnknownUser;
}

bool RightChanges::anyRefused() const {
    return std::ranges::any_of(verdicts, isRefused);
}

RightChanges judge(const RightsTables& tables, const std::vector<RightWish>& wishes) {
    const Names names(tables);
    HandRows rows(tables.rights);
    RightChanges changes;
    for (const RightWish& wish : wishes) {
        const auto resolved = names.resolve(wish);
        const std::optional<bool> allowed = valueOf(wish);
        if (const Verdict* refusal = std::get_if<Verdict>(&resolved))
            changes.verdicts.push_back(*refusal);
        else if (!allowed)
            changes.verdicts.push_back(Verdict::BadValue);
        else
            changes.verdicts.push_back(rows.set(std::get<Key>(resolved), *allowed));
    }
    rows.tellChanges(changes);
    return changes;
}

// One walk for all changes, whatever the table's indexes.
void write(data::Recordset& rights, const RightChanges& changes) {
    const data::Field user = rights.Fields("USERTAG"), item = rights.Fields("UAITAG"),
                      allowed = rights.Fields("ALLOWED"), urt = rights.Fields("URTTAG");
    for (; !changes.changed.empty() && !rights.AtEOF(); rights.MoveNext()) {
        const auto found = changes.changed.find({tagOf(user), tagOf(item)});
        if (found == changes.changed.end() || tagOf(urt) != 0)
            continue;
        rights.Edit();
        rights.Fields("ALLOWED").Value(found->second);
        rights.Update();
    }
    for (const Right& row : changes.added)
        add(rights, row);
}

} // namespace tol::rights
