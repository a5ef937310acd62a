// SPDX-License-Identifier: MIT
#pragma once

#include "rights/model/RightsTables.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tol::rights {

/// A wish, as texts: this user is to have that item allowed ("Y") or denied ("N") by hand. The module may be
/// blank where the code stands in one module only.
struct RightWish {
    std::string user, item, module, allowed;
};

/// What becomes of a wish; from UnknownUser on it is refused.
enum class Verdict { Added, Changed, Unchanged, UnknownUser, UnknownItem, CodeInSeveralModules, BadValue };
const char* wordFor(Verdict verdict);
bool isRefused(Verdict verdict);

/// What wishes make of the rows that were entered by hand.
struct RightChanges {
    using Key = std::pair<std::int32_t, std::int32_t>; ///< USERTAG and UAITAG

    std::vector<Verdict> verdicts; ///< one for each wish
    std::vector<Right> added;      ///< rows to add
    std::map<Key, bool> changed;   ///< what the rows that there are become

    [[nodiscard]] bool anyRefused() const;
};

/// Judges each wish as if those in front of it were fulfilled already. Names are found without regard to case
/// and to blanks around them.
RightChanges judge(const RightsTables& tables, const std::vector<RightWish>& wishes);

/// Makes the changes in USERRIGHTS. A row added has the template that the table gives it: none.
void write(data::Recordset& rights, const RightChanges& changes);

} // namespace tol::rights
