// SPDX-License-Identifier: MIT
#include "data/sqlite/SqliteEngine.h"

#include "data/engine/FileError.h"
#include "data/sqlite/SqliteStore.h"
#include "data/sqlite/connection/EngineError.h"
#include "data/sqlite/connection/FileFormat.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

namespace tol::data::sqlite {
namespace {

/// Makes the file, empty; it must not exist.
void makeFile(const std::filesystem::path& file) {
    const int made = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (made >= 0) {
        ::close(made);
        return;
    }
    const int error = errno;
    const auto number = error == EEXIST                       ? runtime::errDatabaseExists
                        : error == ENOENT || error == ENOTDIR ? runtime::errInvalidPath
                                                              : runtime::errNoPermission;
    throw fileError(number, file, std::strerror(error));
}

} // namespace

bool SqliteEngine::recognises(std::string_view firstBytes) const {
    using namespace std::string_view_literals;
    return firstBytes.starts_with("SQLite format 3\0"sv);
}

std::shared_ptr<Store> SqliteEngine::open(const std::filesystem::path& file, bool readOnly) {
    try {
        return std::make_shared<SqliteStore>(file, readOnly ? Connection::Mode::ReadOnly
                                                            : Connection::Mode::ReadWrite);
    } catch (const runtime::RuntimeError& error) {
        throw aboutFile(error, file);
    }
}

std::shared_ptr<Store> SqliteEngine::create(const std::filesystem::path& file) {
    makeFile(file);
    try {
        {
            Connection connection(file, Connection::Mode::ReadWrite);
            writeFormat(connection);
        }
        return open(file, false);
    } catch (...) {
        std::error_code ignored; // what went wrong before is what counts
        std::filesystem::remove(file, ignored);
        throw;
    }
}

} // namespace tol::data::sqlite
