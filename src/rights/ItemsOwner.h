// SPDX-License-Identifier: MIT
#pragma once

#include "rights/report/PrintedList.h"

#include <array>

namespace tol::rights {

/// A text of the owner, above the list of its items.
struct OwnerLine {
    const char* headingLabel; ///< null where the line before heads this one, too
    const char* heading;
    const char* label;
    const char* field;
};

/// What has User Access Items: all that sets the list of a template's items apart from that of a user's
/// rights.
struct ItemsOwner {
    const char* window;
    const char* caption;
    const char* table; ///< of the items; its order by owner bears the same name
    const char* ownerTable;
    const char* tag; ///< field of the owner and of its items
    std::array<OwnerLine, 2> lines;
    PrintedList printed; ///< the report of the items
    /// Whether its items remember from which template they came, and can be filled from one.
    bool isFilled;
};

extern const ItemsOwner templateItems, userRights;

} // namespace tol::rights
