// SPDX-License-Identifier: MIT
#include "data/sqlite/LockFile.h"

#include "data/sqlite/EngineError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace tol::data::sqlite {
namespace {

// Behind the tables' bytes: shared by everyone who has the file open, and by those who wait.
constexpr std::int64_t presenceByte = LockFile::lastByte + 2;
constexpr std::int64_t waitingByte = LockFile::lastByte + 3;

struct flock oneByte(short type, std::int64_t byte) {
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = byte;
    lock.l_len = 1;
    return lock;
}

bool sameFile(int file, const std::filesystem::path& path) {
    struct stat ours = {};
    struct stat there = {};
    return ::fstat(file, &ours) == 0 && ::stat(path.c_str(), &there) == 0 && ours.st_dev == there.st_dev &&
           ours.st_ino == there.st_ino;
}

/// Whoever may write to the database must be able to lock its tables.
void copyPermissions(int file, const std::filesystem::path& database) {
    struct stat of = {};
    if (::stat(database.c_str(), &of) != 0)
        return;
    // Either may be refused to a user who is not the database's owner; the file serves him all the same.
    [[maybe_unused]] const int group = ::fchown(file, static_cast<uid_t>(-1), of.st_gid);
    [[maybe_unused]] const int mode = ::fchmod(file, of.st_mode & 0666);
}

} // namespace

LockFile::LockFile(const std::filesystem::path& database)
    : m_database(database), m_path(database.native() + ".lock") {}

LockFile::~LockFile() {
    close();
}

bool LockFile::open() {
    if (m_file >= 0)
        return true;
    bool retry = true;
    while (retry && !m_impossible) {
        if (openOnce(retry))
            return true;
    }
    return false;
}

/// Between the opening and the lock on the presence byte the last user may have removed the file; then
/// this is no longer the file that others open.
bool LockFile::openOnce(bool& retry) {
    retry = false;
    m_file = ::open(m_path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    if (m_file >= 0) {
        copyPermissions(m_file, m_database);
    } else if (errno == EEXIST) {
        m_file = openExisting();
        retry = m_file < 0 && errno == ENOENT; // just removed
    } else {
        m_impossible = errno == EACCES || errno == EROFS || errno == EPERM;
    }
    if (m_file < 0) {
        if (!retry && !m_impossible)
            throw fileError(runtime::errDiskOrNetwork, m_path, std::strerror(errno));
        return false;
    }
    retry = true;
    if (lock(F_RDLCK, presenceByte) && sameFile(m_file, m_path))
        return true;
    ::close(m_file);
    m_file = -1;
    return false;
}

/// A file of another user may be readable only, which is enough to share a table.
int LockFile::openExisting() const {
    const int file = ::open(m_path.c_str(), O_RDWR | O_CLOEXEC);
    return file >= 0 || errno != EACCES ? file : ::open(m_path.c_str(), O_RDONLY | O_CLOEXEC);
}

void LockFile::close() {
    if (m_file < 0)
        return;
    struct flock all = oneByte(F_WRLCK, presenceByte);
    if (::fcntl(m_file, F_OFD_SETLK, &all) == 0 && sameFile(m_file, m_path))
        ::unlink(m_path.c_str());
    ::close(m_file);
    m_file = -1;
}

bool LockFile::lock(short type, std::int64_t byte) {
    struct flock wanted = oneByte(type, byte);
    if (::fcntl(m_file, F_OFD_SETLK, &wanted) == 0)
        return true;
    if (errno == EAGAIN || errno == EACCES)
        return false;
    const auto number = errno == EBADF ? runtime::errNoPermission : runtime::errDiskOrNetwork;
    throw fileError(number, m_path, std::strerror(errno));
}

bool LockFile::share(std::int64_t byte) {
    return !open() || lock(F_RDLCK, byte);
}

bool LockFile::take(std::int64_t byte) {
    return !open() || lock(F_WRLCK, byte);
}

void LockFile::release(std::int64_t byte) {
    if (m_file >= 0)
        lock(F_UNLCK, byte);
}

void LockFile::setWaiting(bool waiting) noexcept {
    try {
        if (waiting ? open() : m_file >= 0)
            lock(waiting ? F_RDLCK : F_UNLCK, waitingByte);
    } catch (const runtime::RuntimeError&) {
        // A mere courtesy: without it the wait lasts longer.
    }
}

bool LockFile::anotherWaits() {
    if (m_file < 0 && !open())
        return false;
    struct flock probe = oneByte(F_WRLCK, waitingByte);
    return ::fcntl(m_file, F_OFD_GETLK, &probe) == 0 && probe.l_type != F_UNLCK;
}

} // namespace tol::data::sqlite
