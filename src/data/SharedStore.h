// SPDX-License-Identifier: MIT
#pragma once

#include "data/Engine.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace tol::data {

class WorkspaceCore;

/// A file's one Store in this process, with what its users must know of each other: whose transaction
/// is open on it, and when its definitions may have changed. Shared by the databases that are open on
/// the file, in whatever workspace; the file is closed with the last of them.
class SharedStore {
  public:
    explicit SharedStore(std::shared_ptr<Store> store) : m_store(std::move(store)) {}

    [[nodiscard]] Store& store() { return *m_store; }

    /// Grows whenever a definition may have changed: what was looked up under an older number has to be
    /// looked up again.
    [[nodiscard]] std::uint64_t definitionsVersion() const { return m_version; }
    void definitionsChanged() { ++m_version; }
    /// Takes in what other processes have changed in the definitions.
    void refresh();
    /// All tables by name order.
    const std::vector<std::string>& tableNames();

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
    std::uint64_t m_version = 1;
    std::vector<std::string> m_tableNames;
    std::uint64_t m_namesVersion = 0;
};

} // namespace tol::data
