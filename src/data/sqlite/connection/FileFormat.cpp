// SPDX-License-Identifier: MIT
#include "data/sqlite/connection/FileFormat.h"

#include "data/sqlite/connection/EngineError.h"
#include "data/sqlite/definitions/SystemTables.h"

#include <sqlite3.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace tol::data::sqlite {

namespace {

constexpr std::string_view signature{"SQLite format 3\0", 16};
constexpr std::size_t headerSize = 100;

// Places in the header, as SQLite's file format defines them.
constexpr std::size_t pageSizeAt = 16;
constexpr std::size_t readVersionAt = 19; // 2 for files that keep a write-ahead log
constexpr std::size_t changeCounterAt = 24;
constexpr std::size_t pageCountAt = 28; // holds if the change counter is written once more at 92
constexpr std::size_t userVersionAt = 60;
constexpr std::size_t applicationIdAt = 68;
constexpr std::size_t pageCountHoldsAt = 92;

/// The file's first bytes, and its size.
struct Header {
    std::array<unsigned char, headerSize> bytes{};
    std::int64_t fileSize = 0;

    [[nodiscard]] std::uint32_t number(std::size_t at, std::size_t count) const {
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < count; ++i)
            value = value << 8 | bytes.at(at + i);
        return value;
    }
    [[nodiscard]] bool hasSignature() const {
        return std::string_view(reinterpret_cast<const char*>(bytes.data()), signature.size()) == signature;
    }
    [[nodiscard]] std::int64_t pageSize() const {
        const std::uint32_t stored = number(pageSizeAt, 2);
        return stored == 1 ? 65536 : stored;
    }
    [[nodiscard]] bool isWhole() const {
        return fileSize >= static_cast<std::int64_t>(headerSize) && pageSize() >= 512 &&
               std::has_single_bit(static_cast<std::uint64_t>(pageSize()));
    }
    /// The file ends before its last page does.
    [[nodiscard]] bool isCutOff() const {
        const bool holds =
            number(changeCounterAt, 4) == number(pageCountHoldsAt, 4) && number(readVersionAt, 1) == 1;
        return holds && fileSize < number(pageCountAt, 4) * pageSize();
    }
    [[nodiscard]] bool keepsLog() const { return number(readVersionAt, 1) == 2; }
    [[nodiscard]] bool isOfLaterFormat() const {
        return number(applicationIdAt, 4) == applicationId && number(userVersionAt, 4) > formatVersion;
    }
};

/// Reads through SQLite's own handle: to open and close the file once more would give up the locks that
/// another connection of this process holds on it.
Header readHeader(Connection& connection) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(connection.handle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    Header header;
    sqlite3_int64 size = 0;
    int code = file->pMethods->xFileSize(file, &size);
    if (code == SQLITE_OK)
        code = file->pMethods->xRead(file, header.bytes.data(), headerSize, 0);
    if (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ)
        throw engineError(code, sqlite3_errstr(code), connection.file());
    header.fileSize = size;
    return header;
}

std::string journalOf(Connection& connection) {
    return sqlite3_filename_journal(sqlite3_db_filename(connection.handle(), "main"));
}

bool hasJournal(Connection& connection) {
    std::error_code ignored;
    return std::filesystem::exists(journalOf(connection), ignored);
}

/// What stands in the way of a reader who has to write first: the file is recovered from the journal of a
/// killed program, or can't be read without a log beside it.
std::string obstacle(Connection& connection, const Header& header) {
    if (hasJournal(connection))
        return "A killed program has left a change half done; to undo it, the file, '" +
               journalOf(connection) + "' and their folder must be writable.";
    if (header.keepsLog())
        return "It keeps a write-ahead log; to read it, '" + connection.file().native() +
               "-wal', its '-shm' and their folder must be writable.";
    return {};
}

/// While another process commits, a file may be shorter than its header says; what a killed one left
/// half done is put right with the first read. So the second look is taken as a reader.
bool isCutOff(Connection& connection) {
    connection.execute("BEGIN");
    connection.number("SELECT count(*) FROM sqlite_schema");
    const bool cutOff = readHeader(connection).isCutOff();
    connection.execute("COMMIT");
    return cutOff;
}

/// Reads for the first time, which puts right what a killed program left.
void readFirst(Connection& connection, const Header& header) {
    try {
        if (isCutOff(connection))
            throw fileError(runtime::errCannotOpen, connection.file());
    } catch (const runtime::RuntimeError& error) {
        const bool mayNotWrite =
            error.number() == runtime::errNoPermission || error.number() == runtime::errReadOnly;
        const std::string sentence = mayNotWrite ? obstacle(connection, header) : "";
        if (sentence.empty())
            throw;
        throw withRemark(fileError(runtime::errNoPermission, connection.file(), error.engineText()),
                         sentence);
    }
}

/// A journal in which nothing had come to stand when its program was killed is passed over by readers, and
/// would lie there until the next change. With a write lock it is nobody's; else it is left alone.
void clearJournal(Connection& connection, const Header& header) {
    if (!header.keepsLog() && hasJournal(connection))
        connection.execute("PRAGMA journal_mode = PERSIST; PRAGMA journal_mode = DELETE");
}

} // namespace

void checkFile(Connection& connection) {
    const Header header = readHeader(connection);
    if (!header.hasSignature())
        throw fileError(runtime::errUnrecognisedFormat, connection.file());
    if (!header.isWhole())
        throw fileError(runtime::errCannotOpen, connection.file());
    readFirst(connection, header);
    clearJournal(connection, header);
    if (header.isOfLaterFormat())
        throw withRemark(fileError(runtime::errUnrecognisedFormat, connection.file()),
                         "It was made by a later version of this program.");
}

void writeFormat(Connection& connection) {
    configure(connection);
    connection.execute("BEGIN IMMEDIATE; PRAGMA application_id = " + std::to_string(applicationId) +
                       "; PRAGMA user_version = " + std::to_string(formatVersion));
    SystemTables(connection).create();
    connection.execute("COMMIT");
}

void configure(Connection& connection) {
    // Bounds the memory, whatever the size of a transaction; deleted content is wiped where the page is
    // written anyway.
    connection.execute("PRAGMA cache_size = -8192; PRAGMA synchronous = FULL; PRAGMA secure_delete = FAST");
}

} // namespace tol::data::sqlite
