// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>

namespace tol::data::sqlite {

/// The file beside a database on whose bytes table use is marked, "<database>.lock". It holds no data.
/// Its locks belong to this object's open file: two programs, or two objects, exclude each other, and
/// locks vanish with a killed program. The file is made when the first lock is asked for. The last one to
/// leave removes it; whoever comes meanwhile notices and makes it again. Where the folder can't be
/// written to nobody can change the database either, and every lock is granted.
class LockFile {
  public:
    explicit LockFile(const std::filesystem::path& database);
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;
    ~LockFile();

    /// Bytes from 0 to lastByte stand for tables.
    static constexpr std::int64_t lastByte = (std::int64_t{1} << 62) - 1;

    /// Each returns at once, and false when another has a lock that forbids it. Asking again changes
    /// the lock that is held.
    [[nodiscard]] bool share(std::int64_t byte);
    [[nodiscard]] bool take(std::int64_t byte);
    void release(std::int64_t byte);

    /// Tells others that this one waits for the database's write lock, or looks whether another does.
    void setWaiting(bool waiting) noexcept;
    [[nodiscard]] bool anotherWaits();

  private:
    bool open();
    bool openOnce(bool& retry);
    [[nodiscard]] int openExisting() const;
    bool lock(short type, std::int64_t byte);
    void close();

    std::filesystem::path m_database;
    std::filesystem::path m_path;
    int m_file = -1;
    bool m_impossible = false;
};

} // namespace tol::data::sqlite
