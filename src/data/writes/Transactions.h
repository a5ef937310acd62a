// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tol::data {

/// The transactions of one file, as a storage engine gives them. One is open at a time, with savepoints in
/// it; release and rollBackTo are about the savepoint set last, which they end. Each may raise RuntimeError.
class Transactions {
  public:
    Transactions() = default;
    Transactions(const Transactions&) = delete;
    Transactions& operator=(const Transactions&) = delete;
    virtual ~Transactions() = default;

    /// Takes the write lock, or keeps readers out too; it may have to wait for either.
    enum class Lock { Write, Exclusive };
    virtual void begin(Lock lock) = 0;
    virtual void commit() = 0;
    virtual void rollback() = 0;
    virtual void setSavepoint() = 0;
    virtual void releaseSavepoint() = 0;
    virtual void rollBackToSavepoint() = 0;
    /// Whether a transaction is open: an engine may give it up itself when a change fails.
    [[nodiscard]] virtual bool isOpen() const = 0;
    /// The file's name, for its errors.
    [[nodiscard]] virtual const std::string& file() const = 0;

    /// Called when a transaction has begun.
    virtual void began() = 0;
    /// Called when one has ended, committed or not, and when a part of one has been undone; then it
    /// is still open.
    virtual void ended(bool committed) = 0;
};

} // namespace tol::data
