// SPDX-License-Identifier: MIT
#include "data/engine/StagedFile.h"

#include "data/engine/FileError.h"
#include "runtime/RuntimeError.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace tol::data {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view folderPrefix = ".making-";
constexpr std::string_view folderPattern = ".making-XXXXXX"; // six letters or digits

[[noreturn]] void raiseFor(int code, const fs::path& target) {
    const auto number = [&] {
        switch (code) {
        case EEXIST:
            return runtime::errDatabaseExists;
        case ENOENT:
        case ENOTDIR:
        case ENAMETOOLONG:
            return runtime::errInvalidPath;
        case EACCES:
        case EPERM:
        case EROFS:
            return runtime::errNoPermission;
        case ENOSPC:
        case EDQUOT:
            return runtime::errNoDiskSpace;
        default:
            return runtime::errDiskOrNetwork;
        }
    };
    throw fileError(number(), target, std::strerror(code));
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

fs::path folderOf(const fs::path& target) {
    return target.has_parent_path() ? target.parent_path() : fs::path(".");
}

bool isStagingFolder(const fs::directory_entry& entry) {
    std::error_code ignored;
    const std::string name = entry.path().filename();
    return name.size() == folderPattern.size() && name.starts_with(folderPrefix) &&
           std::all_of(name.begin() + folderPrefix.size(), name.end(),
                       [](unsigned char c) { return std::isalnum(c) != 0; }) &&
           fs::is_directory(entry.symlink_status(ignored));
}

int openFolder(const fs::path& folder) {
    return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW);
}

std::string attribute(const fs::path& file, const std::string& name) {
    std::string value(
        static_cast<std::size_t>(std::max<ssize_t>(getxattr(file.c_str(), name.c_str(), nullptr, 0), 0)),
        '\0');
    const ssize_t size = getxattr(file.c_str(), name.c_str(), value.data(), value.size());
    value.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    return value;
}

/// Extended attributes, access lists among them. One that has come by itself need not be set.
bool copyAttributes(const fs::path& from, const fs::path& to) {
    std::string names(static_cast<std::size_t>(std::max<ssize_t>(listxattr(from.c_str(), nullptr, 0), 0)),
                      '\0');
    const ssize_t size = listxattr(from.c_str(), names.data(), names.size());
    names.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    for (std::size_t at = 0; at < names.size();) {
        const std::string name = names.c_str() + at;
        at += name.size() + 1;
        const std::string value = attribute(from, name);
        if (attribute(to, name) != value &&
            setxattr(to.c_str(), name.c_str(), value.data(), value.size(), 0) != 0)
            return false;
    }
    return true;
}

/// Whose the file is and what others may do with it.
bool copyRights(const fs::path& from, const fs::path& to) {
    struct stat wanted = {};
    struct stat made = {};
    if (::stat(from.c_str(), &wanted) != 0 || ::stat(to.c_str(), &made) != 0)
        return false;
    const bool sameOwner = wanted.st_uid == made.st_uid && wanted.st_gid == made.st_gid;
    if (!sameOwner && ::chown(to.c_str(), wanted.st_uid, wanted.st_gid) != 0)
        return false;
    return ::chmod(to.c_str(), wanted.st_mode & 07777) == 0 && copyAttributes(from, to);
}

} // namespace

StagedFile::StagedFile(fs::path target) : m_target(std::move(target)) {
    removeAbandoned();
    while (!make()) {
    }
}

StagedFile::~StagedFile() {
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
    ::close(m_handle);
}

/// Before the folder was locked, somebody may have taken it for abandoned. A file system that has no such
/// locks abandons nothing.
bool StagedFile::make() {
    std::string pattern = (folderOf(m_target) / folderPattern).string();
    if (mkdtemp(pattern.data()) == nullptr)
        raiseFor(errno, m_target);
    m_folder = pattern;
    m_handle = openFolder(m_folder);
    if (m_handle < 0 && errno != ENOENT)
        raiseFor(errno, m_target);
    const bool taken = m_handle >= 0 && ::flock(m_handle, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (m_handle >= 0 && !taken && fs::exists(m_folder))
        return true;
    ::close(m_handle);
    return false;
}

void StagedFile::removeAbandoned() const {
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folderOf(m_target), ignored)) {
        const int handle = isStagingFolder(entry) ? openFolder(entry.path()) : -1;
        if (handle < 0)
            continue;
        if (::flock(handle, LOCK_EX | LOCK_NB) == 0)
            fs::remove_all(entry.path(), ignored);
        ::close(handle);
    }
}

void StagedFile::flush(const fs::path& path) const {
    const int handle = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (handle < 0)
        raiseFor(errno, m_target);
    const int code = ::fsync(handle) == 0 ? 0 : errno;
    ::close(handle);
    if (code != 0 && code != EINVAL) // a folder of some network file systems
        raiseFor(code, m_target);
}

void StagedFile::publish() {
    flush(path());
    if (const int code = renameToNew(path(), m_target); code != 0)
        raiseFor(code, m_target);
    flush(folderOf(m_target));
}

void StagedFile::replace() {
    if (!copyRights(m_target, path()))
        throw withRemark(fileError(runtime::errNoPermission, m_target),
                         "Its owner, permissions and attributes can't be kept by a file in its place.");
    flush(path());
    if (std::rename(path().c_str(), m_target.c_str()) != 0)
        raiseFor(errno, m_target);
    flush(folderOf(m_target));
}

} // namespace tol::data
