// SPDX-License-Identifier: MIT
#pragma once

#include "data/Workspace.h"
#include "locks/model/RecordLock.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tol::locks {

/// A lock with what can be told about it.
struct ListedLock {
    std::string mark; ///< of its row
    RecordLock lock;
    std::optional<std::int64_t> age; ///< seconds that it is held, where its time stamp is a date
    bool userIsKnown = true;         ///< whether its holder is in USERLIST
};

/// Which locks are meant: those for which all of this holds that is given. Names are compared without regard
/// to case and to blanks around them.
struct LockFilter {
    std::optional<std::string> user = {}, table = {};
    std::optional<std::int32_t> tag = {}, session = {};
    std::optional<std::int64_t> olderThan = {}; ///< seconds; never holds for a lock without age

    [[nodiscard]] bool isAny() const { return user || table || tag || session || olderThan; }
};

/// The locks of the network database that are meant, in the order in which the window lists them.
std::vector<ListedLock> listLocks(data::Database& network, const LockFilter& filter, runtime::Date now);

/// Deletes these locks at once: all of them or, with the error that is raised, none. Those that somebody else
/// has deleted or changed since they were listed are left alone; the others are returned, and stored by then.
std::vector<ListedLock> deleteLocks(data::Workspace& workspace, data::Database& network,
                                    const std::vector<ListedLock>& locks);

} // namespace tol::locks
