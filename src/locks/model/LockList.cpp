// SPDX-License-Identifier: MIT
#include "locks/model/LockList.h"

#include "rights/model/References.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <cmath>
#include <unordered_set>
#include <utility>

namespace tol::locks {
namespace {

using rights::sameName;

constexpr double secondsOfDay = 86'400;

std::string folded(std::string_view name) {
    return runtime::foldCase(runtime::trim(name));
}

std::unordered_set<std::string> knownUsers(data::Database& network) {
    std::unordered_set<std::string> names;
    for (const rights::User& user : rights::readRows<rights::User>(network))
        names.insert(folded(user.UserName));
    return names;
}

std::optional<std::int64_t> ageOf(const RecordLock& lock, runtime::Date now) {
    const std::optional<runtime::Date> since = takenAt(lock);
    if (!since)
        return std::nullopt;
    return std::llround((now.serial - since->serial) * secondsOfDay);
}

bool isMeant(const ListedLock& listed, const LockFilter& filter) {
    const RecordLock& lock = listed.lock;
    return (!filter.user || sameName(lock.RLUSERNAME, *filter.user)) &&
           (!filter.table || sameName(lock.TABLENAME, *filter.table)) &&
           (!filter.tag || lock.TAGNO == *filter.tag) &&
           (!filter.session || lock.Session == *filter.session) &&
           (!filter.olderThan || (listed.age && *listed.age > *filter.olderThan));
}

} // namespace

std::vector<ListedLock> listLocks(data::Database& network, const LockFilter& filter, runtime::Date now) {
    const std::unordered_set<std::string> users = knownUsers(network);
    std::vector<ListedLock> listed;
    data::Recordset locks = network.OpenRecordset("RECORDLOCKS");
    for (locks.Index("RECORDLOCKS"); !locks.AtEOF(); locks.MoveNext()) {
        const RecordLock lock = readLock(locks);
        ListedLock found{locks.Bookmark(), lock, ageOf(lock, now), users.contains(folded(lock.RLUSERNAME))};
        if (isMeant(found, filter))
            listed.push_back(std::move(found));
    }
    return listed;
}

std::vector<ListedLock> deleteLocks(data::Workspace& workspace, data::Database& network,
                                    const std::vector<ListedLock>& locks) {
    std::vector<ListedLock> deleted;
    data::Recordset rows = network.OpenRecordset("RECORDLOCKS");
    workspace.BeginTrans();
    try {
        for (const ListedLock& listed : locks)
            if (deleteLock(rows, listed.mark, listed.lock))
                deleted.push_back(listed);
        workspace.CommitTrans();
    } catch (const runtime::RuntimeError&) {
        workspace.Rollback();
        throw;
    }
    runtime::flush();
    return deleted;
}

} // namespace tol::locks
