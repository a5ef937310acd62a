// SPDX-License-Identifier: MIT
#pragma once

#include "ForeignFile.h"
#include "data/DBEngine.h"
#include "data/StoreRegistry.h"
#include "runtime/Value.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace tol::test {

/// A file that another program made, opened through the database interface.
class ForeignFilesTest : public testing::Test {
  protected:
    ForeignFilesTest();
    ~ForeignFilesTest() override;

    /// Makes the file and opens it.
    void make(const std::string& sql);
    void open();
    void reopen();

    TempFolder folder;
    ForeignFile file{folder / "OTHER.DB"};
    data::Workspace workspace;
    data::Database database;

  private:
    data::StoreRegistry::Engines m_before;
};

/// The ordinary text of a value, "Null" for Null.
std::string valueText(const runtime::Value& value);
/// From the current record on: each one's fields as texts, joined by "|".
std::vector<std::string> walk(data::Recordset& rows);
/// All of it in the order of an index.
std::vector<std::string> walkBy(data::Recordset& rows, const std::string& index);
/// One field of all records, from the last to the first.
std::vector<std::string> walkBack(data::Recordset& rows, int field);

void set(data::Recordset& rows, const std::string& field, const runtime::Value& value);
void add(data::Recordset& rows, std::initializer_list<std::pair<const char*, runtime::Value>> values);

/// "name:type/size" of each field, and the names of the indexes.
std::vector<std::string> fieldsOf(const data::TableDef& table);
std::vector<std::string> indexesOf(const data::TableDef& table);

} // namespace tol::test
