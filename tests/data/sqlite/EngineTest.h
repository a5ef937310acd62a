// SPDX-License-Identifier: MIT
#pragma once

#include "data/sqlite/SqliteEngine.h"
#include "data/sqlite/SqliteStore.h"
#include "runtime/RuntimeError.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tol::test {

/// The error that a call raises; number 0 when it raises none.
runtime::RuntimeError errorOf(const std::function<void()>& call);

/// A database of the engine's own in a folder of its own.
class EngineTest : public testing::Test {
  protected:
    EngineTest();

    /// A table "T" with "Id" Long, "Name" Text 20 and "Note" Memo, an index "ById" (unique) and one "ByName".
    void makeTable(const std::string& name = "T");
    /// Adds rows with Id from..to and Name "n<Id>".
    void addRows(const std::string& table, int from, int to);
    /// Values of a field of all rows, in the order of an index ("" for stored order).
    std::vector<runtime::Value> column(const std::string& table, std::size_t field,
                                       const std::string& index = "");
    [[nodiscard]] std::filesystem::path file() const { return m_folder / "A.MDB"; }
    data::sqlite::SqliteStore& sqliteStore() { return dynamic_cast<data::sqlite::SqliteStore&>(*store); }
    /// Opens the same file again, as if by a program started later.
    void reopen();

    TempFolder m_folder;
    data::sqlite::SqliteEngine engine;
    std::shared_ptr<data::Store> store;
};

} // namespace tol::test
