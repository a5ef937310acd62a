// SPDX-License-Identifier: MIT
#include "data/sqlite/FileCheck.h"

#include "data/sqlite/EngineError.h"
#include "data/sqlite/FileFormat.h"

#include <sqlite3.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tol::data::sqlite {

namespace {

constexpr std::string_view signature{"SQLite format 3\0", 16};
constexpr std::size_t headerSize = 100;

// Places in the header, as SQLite's file format defines them.
constexpr std::size_t pageSizeAt = 16;
constexpr std::size_t userVersionAt = 60;
constexpr std::size_t applicationIdAt = 68;

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
    [[nodiscard]] bool isWhole() const {
        const std::uint32_t pageSize = number(pageSizeAt, 2);
        return fileSize >= static_cast<std::int64_t>(headerSize) &&
               (pageSize == 1 || (pageSize >= 512 && std::has_single_bit(pageSize)));
    }
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

} // namespace

void checkFile(Connection& connection) {
    const Header header = readHeader(connection);
    if (!header.hasSignature())
        throw fileError(runtime::errUnrecognisedFormat, connection.file());
    if (!header.isWhole())
        throw fileError(runtime::errCannotOpen, connection.file());
    if (header.isOfLaterFormat()) {
        const runtime::RuntimeError error = fileError(runtime::errUnrecognisedFormat, connection.file());
        throw runtime::RuntimeError(error.number(),
                                    error.description() + " It was made by a later version of this program.");
    }
}

} // namespace tol::data::sqlite
