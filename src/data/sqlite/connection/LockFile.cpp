// SPDX-License-Identifier: MIT
#include "data/sqlite/connection/LockFile.h"

#include "data/sqlite/connection/EngineError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

namespace tol::data::sqlite {
namespace {

// Behind the tables' bytes: shared by everyone who has the database open, and by everyone who has this
// file open.
constexpr std::int64_t entryByte = LockFile::lastByte + 1;
constexpr std::int64_t presenceByte = LockFile::lastByte + 2;

struct flock bytes(short type, std::int64_t first, std::int64_t count) {
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = first;
    lock.l_len = count;
    return lock;
}

struct flock oneByte(short type, std::int64_t byte) {
    return bytes(type, byte, 1);
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

bool isRegular(int file) {
    struct stat status = {};
    return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

constexpr const char* noFile = "What has this name is no file, so that table use can't be marked on it.";

std::filesystem::path withoutLinks(const std::filesystem::path& database) {
    std::error_code error;
    auto real = std::filesystem::weakly_canonical(database, error);
    return error ? database : real;
}

/// Neither waits for the other end of a pipe nor follows anybody elsewhere. A file of another user may be
/// readable only, which is enough to share a table.
int openExisting(const std::filesystem::path& path) {
    constexpr int flags = O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW;
    const int file = ::open(path.c_str(), O_RDWR | flags);
    return file >= 0 || errno != EACCES ? file : ::open(path.c_str(), O_RDONLY | flags);
}

} // namespace

LockFile::LockFile(const std::filesystem::path& database)
    : m_database(withoutLinks(database)), m_path(m_database.native() + ".lock") {}

LockFile::~LockFile() {
    leave();
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
        m_file = openExisting(m_path);
        retry = m_file < 0 && errno == ENOENT; // just removed
        if (m_file >= 0 ? !isRegular(m_file) : errno == EISDIR || errno == ELOOP) {
            drop();
            throw withRemark(fileError(runtime::errNoPermission, m_path), noFile);
        }
    } else {
        m_impossible = errno == EACCES || errno == EROFS || errno == EPERM;
    }
    if (m_file < 0) {
        if (!retry && !m_impossible)
            throw fileError(errno == EACCES ? runtime::errNoPermission : runtime::errDiskOrNetwork, m_path,
                            std::strerror(errno));
        return false;
    }
    retry = true;
    if (lock(F_RDLCK, presenceByte) && sameFile(m_file, m_path))
        return true;
    drop();
    return false;
}

/// Two who leave at the same time must not keep each other from being the last: the own presence ends
/// before it is asked whether there is another's.
void LockFile::leave() noexcept {
    if (m_file < 0)
        m_file = openExisting(m_path);
    if (m_file < 0)
        return;
    struct flock absent = oneByte(F_UNLCK, presenceByte);
    ::fcntl(m_file, F_OFD_SETLK, &absent);
    struct flock alone = oneByte(F_WRLCK, presenceByte);
    if (isOurs() && ::fcntl(m_file, F_OFD_SETLK, &alone) == 0 && sameFile(m_file, m_path))
        ::unlink(m_path.c_str());
    drop();
}

void LockFile::drop() noexcept {
    if (m_file >= 0)
        ::close(m_file);
    m_file = -1;
}

bool LockFile::isOurs() const {
    struct stat status = {};
    return ::fstat(m_file, &status) == 0 && S_ISREG(status.st_mode) && status.st_size == 0;
}

bool LockFile::enter() {
    return share(entryByte);
}

bool LockFile::takeAll() {
    return !open() || lock(bytes(F_WRLCK, 0, entryByte + 1));
}

bool LockFile::lock(short type, std::int64_t byte) {
    return lock(oneByte(type, byte));
}

bool LockFile::lock(struct flock wanted) {
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

} // namespace tol::data::sqlite
