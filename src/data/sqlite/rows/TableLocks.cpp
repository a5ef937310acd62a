// SPDX-License-Identifier: MIT
#include "data/sqlite/rows/TableLocks.h"

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace tol::data::sqlite {

/// 64-bit FNV-1a. Two names with the same 62 bits would only be in each other's way.
std::int64_t TableLocks::byteOf(const std::string& table) {
    std::uint64_t hash = 14695981039346656037U;
    for (const char c : runtime::foldCase(table))
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return static_cast<std::int64_t>(hash) & LockFile::lastByte;
}

void TableLocks::share(const std::string& table, int uses) {
    const std::int64_t byte = byteOf(table);
    if (uses > 0 || m_alone)
        return;
    if (!m_held.contains(byte) && !m_file.share(byte))
        runtime::raise(runtime::errTableInUse, {table});
    m_shared.insert(byte);
}

void TableLocks::release(const std::string& table) {
    const std::int64_t byte = byteOf(table);
    m_shared.erase(byte);
    if (!m_alone && !m_held.contains(byte))
        m_file.release(byte);
}

void TableLocks::releaseLater(const std::string& table) {
    if (m_shared.erase(byteOf(table)) > 0)
        m_held.insert(byteOf(table));
}

void TableLocks::hold(const std::string& table, int uses) {
    if (uses > 0 || (!m_alone && !m_file.take(byteOf(table))))
        runtime::raise(runtime::errTableInUse, {table});
    m_held.insert(byteOf(table));
}

/// To share a byte that is held can't fail.
void TableLocks::releaseHeld() {
    for (const auto byte : m_held) {
        if (!m_alone && !(m_shared.contains(byte) && m_file.share(byte)))
            m_file.release(byte);
    }
    m_held.clear();
}

} // namespace tol::data::sqlite
