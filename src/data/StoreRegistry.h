// SPDX-License-Identifier: MIT
#pragma once

#include "data/engine/Engine.h"

#include <sys/types.h>

#include <deque>
#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

namespace tol::data {

class WorkspaceCore;

/// A file's one Store in this process, with whose transaction is open on it. Shared by the databases that
/// are open on the file, in whatever workspace; the file is closed with the last of them.
class SharedStore {
  public:
    explicit SharedStore(std::shared_ptr<Store> store) : m_store(std::move(store)) {}

    [[nodiscard]] Store& store() { return *m_store; }

    /// One workspace at a time may have a transaction on a file; while it is open nobody else writes,
    /// since the writes of all would be kept or lost with it.
    void begin(const WorkspaceCore& workspace);
    void commit();
    void rollback();
    /// Raises 3218 when the open transaction is another workspace's.
    void requireNoOther(const WorkspaceCore* workspace) const {
        if (m_transactionOf != nullptr && m_transactionOf != workspace)
            raiseLocked();
    }

  private:
    [[noreturn]] void raiseLocked() const;

    std::shared_ptr<Store> m_store;
    const WorkspaceCore* m_transactionOf = nullptr;
};

/// The storage engines that the program carries, and the stores that are open in this process. A file
/// is known by its identity on the disk, whatever path or link led to it, and has at most one store for
/// reading and writing and one for reading alone. Used on one thread.
class StoreRegistry {
  public:
    using Engines = std::vector<std::unique_ptr<Engine>>;

    static StoreRegistry& instance();

    void addEngine(std::unique_ptr<Engine> engine) { m_engines.push_back(std::move(engine)); }
    /// Puts other engines in the place of those there are, which it returns.
    Engines exchangeEngines(Engines engines);

    std::shared_ptr<SharedStore> open(const std::filesystem::path& file, bool readOnly);
    std::shared_ptr<SharedStore> create(const std::filesystem::path& file);
    /// 3045 when the file is open in this process.
    void compact(const std::filesystem::path& file);
    /// Flushes every open store. What fails is deferred.
    void flush();
    /// To be called by a user who is done with the store: flushes it. In a batch of writes it stays open
    /// instead, with what waits to be stored, until the batch is flushed or has left many others; what fails
    /// then is deferred.
    void leave(std::shared_ptr<SharedStore> store);

  private:
    struct Identity {
        dev_t device = 0;
        ino_t inode = 0;
        bool operator==(const Identity&) const = default;
    };
    struct OpenFile {
        Identity identity;
        Engine* engine = nullptr;
        std::weak_ptr<SharedStore> readWrite, readOnly;

        [[nodiscard]] bool isUsed() const { return !(readWrite.expired() && readOnly.expired()); }
        std::weak_ptr<SharedStore>& store(bool forReading) { return forReading ? readOnly : readWrite; }
    };

    static Identity identityOf(const std::filesystem::path& file);
    OpenFile& entryFor(const Identity& identity);
    [[nodiscard]] Engine& engineFor(const std::filesystem::path& file) const;
    static void flushOrDefer(Store& store);
    static std::shared_ptr<SharedStore> keep(OpenFile& entry, bool readOnly, std::shared_ptr<Store> store);

    Engines m_engines;
    std::vector<OpenFile> m_open;
    std::deque<std::shared_ptr<SharedStore>> m_left;
};

} // namespace tol::data
