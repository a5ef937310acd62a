// SPDX-License-Identifier: MIT
#include "data/json/StagedFile.h"

#include "runtime/RuntimeError.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <system_error>
#include <utility>

#include <fcntl.h>

namespace tol::data::json {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void raiseFor(int code, const fs::path& target) {
    const std::string name = target.string();
    switch (code) {
    case EEXIST:
        runtime::raise(runtime::errDatabaseExists, {name});
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
        runtime::raise(runtime::errInvalidPath, {name}, std::strerror(code));
    case EACCES:
    case EPERM:
    case EROFS:
        runtime::raise(runtime::errNoPermission, {name}, std::strerror(code));
    case ENOSPC:
    case EDQUOT:
        runtime::raise(runtime::errNoDiskSpace, {name}, std::strerror(code));
    default:
        runtime::raise(runtime::errDiskOrNetwork, {name}, std::strerror(code));
    }
}

/// A rename that never replaces a file. Some network file systems can't promise that; there the file is
/// looked for first.
int renameToNew(const fs::path& from, const fs::path& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    if (fs::exists(fs::symlink_status(to)))
        return EEXIST;
    return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

} // namespace

StagedFile::StagedFile(fs::path target) : m_target(std::move(target)) {
    if (fs::exists(fs::symlink_status(m_target)))
        raiseFor(EEXIST, m_target);
    std::string pattern = (m_target.parent_path() / ".making-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        raiseFor(errno, m_target);
    m_folder = pattern;
}

StagedFile::~StagedFile() {
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
}

void StagedFile::publish() {
    if (const int code = renameToNew(path(), m_target); code != 0)
        raiseFor(code, m_target);
}

} // namespace tol::data::json
