// SPDX-License-Identifier: MIT
#include "data/StoreRegistry.h"

#include "data/engine/FileError.h"
#include "data/writes/WriteClock.h"
#include "runtime/DeferredErrors.h"
#include "runtime/RuntimeError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace tol::data {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t signatureLength = 100;
/// More than a Job Site has databases, all of which an update opens twice.
constexpr std::size_t mostLeft = 24;

bool folderExists(const fs::path& file) {
    std::error_code ignored;
    const fs::path folder = file.parent_path();
    return folder.empty() || fs::is_directory(folder, ignored);
}

[[noreturn]] void raiseOpenError(int systemError, const fs::path& file) {
    const auto number = [&] {
        switch (systemError) {
        case ENOENT:
            return folderExists(file) ? runtime::errDatabaseNotFound : runtime::errInvalidPath;
        case ENOTDIR:
        case ELOOP:
        case ENAMETOOLONG:
            return runtime::errInvalidPath;
        case EACCES:
        case EPERM:
        case EISDIR:
            return runtime::errNoPermission;
        default:
            return runtime::errDiskOrNetwork;
        }
    };
    throw fileError(number(), file, std::strerror(systemError));
}

/// The file's first bytes. Never called for a file that is open in this process: closing any handle on it
/// would give up the locks that a store holds on it.
std::string firstBytes(const fs::path& file) {
    const int handle = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (handle < 0)
        raiseOpenError(errno, file);
    std::array<char, signatureLength> buffer{};
    const ssize_t count = ::read(handle, buffer.data(), buffer.size());
    const int readError = errno;
    ::close(handle);
    if (count < 0)
        raiseOpenError(readError, file);
    return {buffer.data(), static_cast<std::size_t>(count)};
}

} // namespace

void SharedStore::begin(const WorkspaceCore& workspace) {
    requireNoOther(&workspace);
    m_store->begin();
    m_transactionOf = &workspace;
}

void SharedStore::commit() {
    m_store->commit();
    m_transactionOf = nullptr;
}

void SharedStore::rollback() {
    m_transactionOf = nullptr;
    m_store->rollback();
}

void SharedStore::raiseLocked() const {
    throw fileError(runtime::errRowLocked, m_store->path());
}

StoreRegistry& StoreRegistry::instance() {
    static StoreRegistry registry;
    return registry;
}

StoreRegistry::Engines StoreRegistry::exchangeEngines(Engines engines) {
    return std::exchange(m_engines, std::move(engines));
}

std::shared_ptr<SharedStore> StoreRegistry::open(const fs::path& file, bool readOnly) {
    OpenFile& entry = entryFor(identityOf(file));
    if (auto store = entry.store(readOnly).lock())
        return store;
    if (!entry.isUsed())
        entry.engine = &engineFor(file);
    return keep(entry, readOnly, entry.engine->open(file, readOnly));
}

std::shared_ptr<SharedStore> StoreRegistry::create(const fs::path& file) {
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(file, ignored)))
        throw fileError(runtime::errDatabaseExists, file);
    if (!folderExists(file))
        throw fileError(runtime::errInvalidPath, file);
    if (m_engines.empty())
        runtime::raise(runtime::errNotSupported);
    auto store = m_engines.front()->create(file);
    OpenFile& entry = entryFor(identityOf(file));
    entry.engine = m_engines.front().get();
    return keep(entry, false, std::move(store));
}

void StoreRegistry::compact(const fs::path& file) {
    if (entryFor(identityOf(file)).isUsed())
        throw fileError(runtime::errFileInUse, file);
    engineFor(file).compact(file);
}

void StoreRegistry::flush() {
    for (std::size_t i = 0; i < m_open.size(); ++i) {
        for (const bool readOnly : {false, true}) {
            if (const auto store = m_open[i].store(readOnly).lock())
                flushOrDefer(store->store());
        }
    }
    m_left.clear();
}

void StoreRegistry::leave(std::shared_ptr<SharedStore> store) {
    if (!WriteClock::instance().inBatch()) {
        store->store().flush();
        return;
    }
    std::erase(m_left, store);
    m_left.push_back(std::move(store));
    if (m_left.size() > mostLeft)
        m_left.pop_front();
}

/// The failure is the file's own: its next change raises it, if nobody asks before.
void StoreRegistry::flushOrDefer(Store& store) {
    try {
        store.flush();
    } catch (...) {
        runtime::deferError(std::current_exception(), store.path().native());
    }
}

StoreRegistry::Identity StoreRegistry::identityOf(const fs::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0)
        raiseOpenError(errno, file);
    if (S_ISDIR(status.st_mode))
        raiseOpenError(EISDIR, file);
    // Reading from a pipe or a device could wait for ever.
    if (!S_ISREG(status.st_mode))
        throw fileError(runtime::errUnrecognisedFormat, file);
    return {status.st_dev, status.st_ino};
}

StoreRegistry::OpenFile& StoreRegistry::entryFor(const Identity& identity) {
    std::erase_if(m_open, [](const OpenFile& entry) { return !entry.isUsed(); });
    const auto found = std::find_if(m_open.begin(), m_open.end(),
                                    [&](const OpenFile& entry) { return entry.identity == identity; });
    if (found != m_open.end())
        return *found;
    m_open.push_back({identity, nullptr, {}, {}});
    return m_open.back();
}

Engine& StoreRegistry::engineFor(const fs::path& file) const {
    const std::string bytes = firstBytes(file);
    const auto found = std::find_if(m_engines.begin(), m_engines.end(),
                                    [&](const auto& engine) { return engine->recognises(bytes); });
    if (bytes.empty() || found == m_engines.end())
        throw fileError(runtime::errUnrecognisedFormat, file);
    return **found;
}

std::shared_ptr<SharedStore> StoreRegistry::keep(OpenFile& entry, bool readOnly,
                                                 std::shared_ptr<Store> store) {
    auto shared = std::make_shared<SharedStore>(std::move(store));
    entry.store(readOnly) = shared;
    return shared;
}

} // namespace tol::data
