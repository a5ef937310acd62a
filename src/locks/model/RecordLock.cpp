// SPDX-License-Identifier: MIT
#include "locks/model/RecordLock.h"

#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"

#include <cmath>

namespace tol::locks {
namespace {

using runtime::RuntimeError;
using runtime::Value;

Value valueOf(const data::Recordset& locks, const char* field, Value blank) {
    Value value = locks.Fields(field).Value();
    return value.is<runtime::Null>() ? blank : value;
}

std::string textOf(const data::Recordset& locks, const char* field) {
    return runtime::toText(valueOf(locks, field, ""));
}

std::int32_t numberOf(const data::Recordset& locks, const char* field) {
    return runtime::toLong(valueOf(locks, field, 0));
}

/// What the conversion gives; nothing when it says that the text is none of that kind.
template <typename Conversion>
auto orNothing(const Conversion& conversion) -> std::optional<decltype(conversion())> {
    try {
        return conversion();
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

} // namespace

RecordLock readLock(const data::Recordset& locks) {
    return {.TAGNO = numberOf(locks, "TAGNO"),
            .TABLENAME = textOf(locks, "TABLENAME"),
            .RLUSERNAME = textOf(locks, "RLUSERNAME"),
            .RLTIMESTAMP = textOf(locks, "RLTIMESTAMP"),
            .USERTAG = numberOf(locks, "USERTAG"),
            .Session = numberOf(locks, "Session")};
}

// A time without a day has the day 0, and a number would be the serial of a day.
std::optional<runtime::Date> takenAt(const RecordLock& lock) {
    const auto date = orNothing([&] { return runtime::toDate(lock.RLTIMESTAMP); });
    const bool namesDay = date && std::fabs(date->serial) >= 1;
    return namesDay && !orNothing([&] { return runtime::toDouble(lock.RLTIMESTAMP); }) ? date : std::nullopt;
}

bool deleteLock(data::Recordset& locks, const std::string& mark, const RecordLock& lock) {
    try {
        locks.Bookmark(mark);
        if (readLock(locks) != lock)
            return false;
        locks.Delete();
        return true;
    } catch (const RuntimeError& error) {
        if (error.number() != runtime::errRecordDeleted)
            throw;
        return false;
    }
}

} // namespace tol::locks
