// SPDX-License-Identifier: MIT
#include "data/sqlite/FullDisk.h"

#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>

namespace tol::data::sqlite {
namespace {

ssize_t told(ssize_t written) {
    if (written < 0 && (errno == EFBIG || errno == EDQUOT))
        errno = ENOSPC;
    return written;
}

ssize_t writeAt(int file, const void* bytes, std::size_t count, off_t place) {
    return told(pwrite(file, bytes, count, place));
}

ssize_t writeOn(int file, const void* bytes, std::size_t count) {
    return told(write(file, bytes, count));
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

void tellLimitsAsFullDisk() {
    static const bool done = replaceWrites();
    static_cast<void>(done);
}

} // namespace tol::data::sqlite
