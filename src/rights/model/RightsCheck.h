// SPDX-License-Identifier: MIT
#pragma once

#include "rights/model/References.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tol::rights {

/// What a check of the network database can find.
enum class FindingKind {
    RightWithoutItem,
    RightWithoutUser,
    RightWithDeadTemplate,
    TemplateItemWithoutItem,
    TemplateItemWithoutTemplate,
    ItemWithoutModule,
    DoubledRight,
    DoubledTemplateItem,
    CounterTooLow,
    UnknownModuleSelected,
};
/// The kind's name for programs: "right-without-item".
const char* wordFor(FindingKind kind);

/// A counter that is about to give out a tag which is in use.
struct LowCounter {
    static constexpr const char* table = TagCounters::table;
    std::string_view name;
    std::int32_t next = 0;
    std::int32_t highest = 0; ///< of the tags in use
};

/// One thing that is not as it should be, and the row that it is about.
struct Finding {
    FindingKind kind = {};
    std::variant<Right, TemplateItem, AccessItem, LowCounter, NetSettings> row;
    std::size_t times = 1; ///< that the row is there

    [[nodiscard]] const char* table() const;
};

/// All tables that refer to each other.
struct CheckedTables {
    RightsTables rights;
    std::optional<TagCounters> counters;
    std::optional<NetSettings> settings;
    std::vector<LockHolder> locks;
};
CheckedTables readCheckedTables(data::Database& database);

/// All findings, in the order of their kinds, and among them in that of the rows.
std::vector<Finding> check(const CheckedTables& tables);

/// The sentence that tells a person of it.
std::string textOf(const Finding& finding, const References& references);

} // namespace tol::rights
