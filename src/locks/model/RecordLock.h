// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"
#include "runtime/Value.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tol::locks {

/// A row of RECORDLOCKS, under the names of its fields: somebody edits a record. Null is 0 or "".
struct RecordLock {
    std::int32_t TAGNO = 0;   ///< of the record, in its own table
    std::string TABLENAME;    ///< the record's table
    std::string RLUSERNAME;   ///< who holds the lock
    std::string RLTIMESTAMP;  ///< since when, as it is shown
    std::int32_t USERTAG = 0; ///< of the holder
    std::int32_t Session = 0;

    bool operator==(const RecordLock&) const = default;
};

/// The lock on which the recordset of RECORDLOCKS stands.
RecordLock readLock(const data::Recordset& locks);

/// Since when the lock is held, where its time stamp, a text or a date, names a day.
std::optional<runtime::Date> takenAt(const RecordLock& lock);

/// Deletes the lock at the mark. False when it is gone, or another one by now: then nothing is deleted.
bool deleteLock(data::Recordset& locks, const std::string& mark, const RecordLock& lock);

} // namespace tol::locks
