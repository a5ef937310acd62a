// SPDX-License-Identifier: MIT
#include "data/sqlite/EngineError.h"

#include <sqlite3.h>

#include <cerrno>

namespace tol::data::sqlite {
namespace {

using runtime::ErrorNumber;
using runtime::RuntimeError;

struct Meaning {
    int resultCode;
    ErrorNumber number;
};

/// Primary result codes of conditions that concern the file as a whole.
constexpr Meaning fileConditions[] = {
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
        return make(runtime::errDuplicateKey, {});
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

} // namespace

RuntimeError engineError(int resultCode, std::string_view engineText, const std::filesystem::path& file,
                         int systemError) {
    const int primary = resultCode & 0xff;
    if (primary == SQLITE_CONSTRAINT)
        return constraintError(resultCode, engineText);
    if (primary == SQLITE_IOERR && meansNoSpace(systemError))
        return fileError(runtime::errNoDiskSpace, file, std::string(engineText));
    for (const auto& [code, number] : fileConditions) {
        if (code == primary)
            return fileError(number, file, std::string(engineText));
    }
    return {runtime::errInvalidOperation, runtime::describe(runtime::errInvalidOperation),
            std::string(engineText)};
}

} // namespace tol::data::sqlite
