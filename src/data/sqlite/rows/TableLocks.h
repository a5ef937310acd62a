// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/connection/LockFile.h"

#include <cstdint>
#include <set>
#include <string>

namespace tol::data::sqlite {

/// Which tables of a file this process has open, and which it holds exclusively for schema steps,
/// told to other processes by locks on bytes that the tables' names stand for. A table that was changed
/// stays held until the change is committed, so that nobody else meets it half-way, and one whose use has
/// ended stays marked so long. Names count without
/// regard to case. Every refusal is error 3211 with the table's name.
class TableLocks {
  public:
    /// Of a file opened for reading only nothing is told to others.
    TableLocks(LockFile& file, bool readOnly) : m_file(file), m_alone(readOnly) {}

    /// Marks the table as open, once more; `uses` tells how often it was open already.
    void share(const std::string& table, int uses);
    /// Takes back the mark of the last use, now or with releaseHeld(). A table that is held stays so.
    void release(const std::string& table);
    void releaseLater(const std::string& table);

    /// Takes the table exclusively; `uses` tells how often others in this process have it open.
    void hold(const std::string& table, int uses);
    /// Lets go of what is held, but for the marks of uses: the changes are committed or undone.
    void releaseHeld();

  private:
    static std::int64_t byteOf(const std::string& table);

    LockFile& m_file;
    bool m_alone;
    std::set<std::int64_t> m_shared;
    std::set<std::int64_t> m_held; ///< exclusively, or until the changes are committed
};

} // namespace tol::data::sqlite
