// SPDX-License-Identifier: MIT
#include "data/sqlite/connection/EngineError.h"

#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <optional>

namespace tol::data::sqlite {
namespace {

using runtime::ErrorNumber;
using runtime::RuntimeError;

struct Meaning {
    int resultCode;
    ErrorNumber number;
};

/// Result codes of conditions that concern the file as a whole; an extended one counts before its primary.
constexpr Meaning fileConditions[] = {
    {SQLITE_READONLY_ROLLBACK, runtime::errNoPermission}, // it has to be recovered before it can be read
    {SQLITE_READONLY_RECOVERY, runtime::errNoPermission},
    {SQLITE_READONLY_CANTINIT, runtime::errNoPermission},
    {SQLITE_READONLY_DBMOVED, runtime::errObjectInvalid}, // another file has its name now
    {SQLITE_BUSY, runtime::errRowLocked},
    {SQLITE_LOCKED, runtime::errRowLocked},
    {SQLITE_PROTOCOL, runtime::errRowLocked},
    {SQLITE_FULL, runtime::errNoDiskSpace},
    {SQLITE_READONLY, runtime::errReadOnly},
    {SQLITE_CORRUPT, runtime::errCannotOpen},
    {SQLITE_IOERR, runtime::errDiskOrNetwork},
    {SQLITE_CANTOPEN, runtime::errNoPermission},
    {SQLITE_PERM, runtime::errNoPermission},
    {SQLITE_AUTH, runtime::errNoPermission},
    {SQLITE_NOTADB, runtime::errUnrecognisedFormat},
    {SQLITE_FORMAT, runtime::errUnrecognisedFormat},
};

/// "UNIQUE constraint failed: table.column, table.column" names what was broken behind the colon.
std::string_view subjectOf(std::string_view engineText) {
    const auto colon = engineText.find(": ");
    return colon == std::string_view::npos ? engineText : engineText.substr(colon + 2);
}

/// "NOT NULL constraint failed: table.column" names the column behind the last full stop.
std::string_view columnOf(std::string_view engineText) {
    return engineText.substr(engineText.rfind('.') + 1);
}

RuntimeError constraintError(int extendedCode, std::string_view engineText) {
    const auto make = [&](ErrorNumber number, std::initializer_list<std::string_view> arguments) {
        return RuntimeError(number, runtime::describe(number, arguments), std::string(engineText));
    };
    switch (extendedCode) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return make(runtime::errDuplicateKey, {subjectOf(engineText)});
    case SQLITE_CONSTRAINT_NOTNULL:
        return make(runtime::errValueRequired, {columnOf(engineText)});
    default:
        return make(runtime::errInvalidOperation, {});
    }
}

/// A quota or a limit on file sizes comes as a mere write error.
bool meansNoSpace(int systemError) {
    return systemError == ENOSPC || systemError == EFBIG || systemError == EDQUOT;
}

bool meansNoPermission(int systemError) {
    return systemError == EACCES || systemError == EPERM || systemError == EROFS;
}

std::optional<ErrorNumber> fileCondition(int resultCode, int systemError) {
    const int primary = resultCode & 0xff;
    if (primary == SQLITE_IOERR && meansNoSpace(systemError))
        return runtime::errNoDiskSpace;
    if (resultCode == SQLITE_IOERR_DELETE && meansNoPermission(systemError))
        return runtime::errNoPermission;
    for (const int code : {resultCode, primary}) {
        const auto* found = std::ranges::find(fileConditions, code, &Meaning::resultCode);
        if (found != std::end(fileConditions))
            return found->number;
    }
    return std::nullopt;
}

ssize_t asFullDisk(ssize_t written) {
    if (written < 0 && (errno == EFBIG || errno == EDQUOT))
        errno = ENOSPC;
    return written;
}

ssize_t writeAt(int file, const void* bytes, std::size_t count, off_t place) {
    return asFullDisk(pwrite(file, bytes, count, place));
}

ssize_t writeOn(int file, const void* bytes, std::size_t count) {
    return asFullDisk(write(file, bytes, count));
}

template <typename Call>
void replace(sqlite3_vfs& system, const char* name, Call* call) {
    if (system.xGetSystemCall(&system, name) != nullptr)
        system.xSetSystemCall(&system, name, reinterpret_cast<sqlite3_syscall_ptr>(call));
}

bool replaceWrites() {
    static_assert(sizeof(off_t) == sizeof(sqlite3_int64), "both forms of pwrite are one");
    sqlite3_vfs* const system = sqlite3_vfs_find(nullptr);
    if (system == nullptr || system->iVersion < 3)
        return false;
    replace(*system, "write", &writeOn);
    replace(*system, "pwrite", &writeAt);
    replace(*system, "pwrite64", &writeAt);
    return true;
}

} // namespace

RuntimeError engineError(int resultCode, std::string_view engineText, const std::filesystem::path& file,
                         int systemError) {
    if ((resultCode & 0xff) == SQLITE_CONSTRAINT)
        return constraintError(resultCode, engineText);
    const auto number = fileCondition(resultCode, systemError).value_or(runtime::errInvalidOperation);
    return fileError(number, file, std::string(engineText));
}

void tellLimitsAsFullDisk() {
    static const bool done = replaceWrites();
    static_cast<void>(done);
}

} // namespace tol::data::sqlite
