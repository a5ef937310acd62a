// SPDX-License-Identifier: MIT
#pragma once

#include <fcntl.h>

#include <cstdint>
#include <filesystem>

namespace tol::data::sqlite {

/// The file beside a database on whose bytes table use is marked, "<database>.lock". It holds no data.
/// Its locks belong to this object's open file: two programs, or two objects, exclude each other, and
/// locks vanish with a killed program. The file is made by whoever enters, or asks for the first lock. The
/// last one to leave removes it, and with it what killed programs left; whoever comes meanwhile notices and
/// makes it again. A file with content is somebody's own: it is locked, but never removed. Where the folder
/// can't be written to nobody can change the database either, and every lock is granted. 3051 when there is
/// no file, but something else of that name, or one that can't be opened.
class LockFile {
  public:
    /// All names of a database that are links to it have one lock file.
    explicit LockFile(const std::filesystem::path& database);
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;
    ~LockFile();

    /// Bytes from 0 to lastByte stand for tables.
    static constexpr std::int64_t lastByte = (std::int64_t{1} << 62) - 1;

    /// Each of these returns at once, and false when another has a lock that forbids it. Asking again
    /// changes the lock that is held.
    /// Shows others that the database is open, whatever tables are.
    [[nodiscard]] bool enter();
    /// Takes the database from all others: nobody enters, nobody has entered, and no table is locked.
    [[nodiscard]] bool takeAll();
    [[nodiscard]] bool share(std::int64_t byte);
    [[nodiscard]] bool take(std::int64_t byte);
    void release(std::int64_t byte);

  private:
    bool open();
    bool openOnce(bool& retry);
    bool lock(short type, std::int64_t byte);
    bool lock(struct flock wanted);
    void leave() noexcept;
    void drop() noexcept;
    /// Whether nobody has put anything into the file.
    [[nodiscard]] bool isOurs() const;

    std::filesystem::path m_database;
    std::filesystem::path m_path;
    int m_file = -1;
    bool m_impossible = false;
};

} // namespace tol::data::sqlite
