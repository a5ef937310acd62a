// SPDX-License-Identifier: MIT
#pragma once

#include "data/rows/Cursor.h"
#include "data/sqlite/SqliteEngine.h"
#include "data/sqlite/SqliteStore.h"
#include "runtime/RuntimeError.h"
#include "support/TempFolder.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

struct sqlite3;

namespace tol::test {

/// The error that a call raises; number 0 when it raises none.
runtime::RuntimeError errorOf(const std::function<void()>& call);

/// The file as a program that knows nothing of the engine sees it.
class PlainSqlite {
  public:
    explicit PlainSqlite(const std::filesystem::path& file);
    PlainSqlite(const PlainSqlite&) = delete;
    PlainSqlite& operator=(const PlainSqlite&) = delete;
    ~PlainSqlite();

    /// Runs statements; throws std::runtime_error with SQLite's words.
    void execute(const std::string& sql);
    /// First column of the first row as text, "" for none or Null.
    std::string text(const std::string& sql);
    /// Sorts TOLTEXT indexes by bytes, as if by another collator.
    void useBinaryTextOrder();
    /// Whether the file is as SQLite wants it, indexes included.
    bool isIntact() { return text("PRAGMA integrity_check") == "ok"; }

  private:
    sqlite3* m_database = nullptr;
};

data::TableDefinition definitionOf(const std::string& name, std::vector<data::FieldDef> fields = {},
                                   std::vector<data::IndexDef> indexes = {});
void createTable(data::Store& store, const data::TableDefinition& table);
[[nodiscard]] std::vector<std::string> tableNames(data::Store& store);
/// Makes a table with "Id" Long, "Name" Text 20 and "Note" Memo, an index "ById" (unique) and one "ByName".
void makeTable(data::Store& store, const std::string& name = "T");
/// Adds rows with Id from..to and Name "n<Id>", and flushes.
void addRows(data::Store& store, const std::string& table, int from, int to);
/// Values of a field of all rows, in the order of an index ("" for stored order).
std::vector<runtime::Value> column(data::Store& store, const std::string& table, std::size_t field,
                                   const std::string& index = "");

/// A database of the engine's own in a folder of its own.
class EngineTest : public testing::Test {
  protected:
    EngineTest();

    [[nodiscard]] std::filesystem::path file() const { return folder / "A.MDB"; }
    data::sqlite::SqliteStore& sqliteStore() { return dynamic_cast<data::sqlite::SqliteStore&>(*store); }
    data::sqlite::Session& session() { return sqliteStore().session(); }
    /// Opens the same file again, as if by a program started later.
    void reopen(bool readOnly = false);

    TempFolder folder;
    data::sqlite::SqliteEngine engine;
    std::shared_ptr<data::Store> store;
};

} // namespace tol::test
