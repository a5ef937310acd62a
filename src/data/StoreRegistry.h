// SPDX-License-Identifier: MIT
#pragma once

#include "data/Engine.h"
#include "data/SharedStore.h"

#include <sys/types.h>

#include <filesystem>
#include <memory>
#include <vector>

namespace tol::data {

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
    /// Settles every open store. What fails is owed.
    void settle();

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
    static void settleOrOwe(Store& store);
    static std::shared_ptr<SharedStore> keep(OpenFile& entry, bool readOnly, std::shared_ptr<Store> store);

    Engines m_engines;
    std::vector<OpenFile> m_open;
};

} // namespace tol::data
