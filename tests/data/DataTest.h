// SPDX-License-Identifier: MIT
#pragma once

#include "EngineUnderTest.h"

#include "data/DBEngine.h"
#include "runtime/RuntimeError.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tol::test {

/// "3021 No current record.", or "" when the call raises no error.
template <typename Call>
std::string raised(Call&& call) {
    try {
        call();
    } catch (const runtime::RuntimeError& error) {
        return std::to_string(error.number()) + " " + error.description();
    }
    return {};
}

data::FieldDef field(std::string name, data::FieldType type, int size = 0);
data::IndexDef plainIndex(std::string name, std::vector<std::string> fields);
data::IndexDef uniqueIndex(std::string name, std::vector<std::string> fields);
data::IndexDef primaryKey(std::string name, std::vector<std::string> fields);

using Cell = std::pair<std::string, runtime::Value>;
using Cells = std::initializer_list<Cell>;

/// Adds a record with these fields.
void add(data::Recordset& rows, Cells cells);
/// Changes fields of the current record.
void change(data::Recordset& rows, Cells cells);
/// A field's values as text from the first record to the last, in the current order; "Null" for Null.
std::vector<std::string> walk(data::Recordset& rows, std::string_view fieldName);
std::vector<std::string> walkBack(data::Recordset& rows, std::string_view fieldName);
std::string textOf(const runtime::Value& value);
/// The current record's field as text.
std::string at(const data::Recordset& rows, std::string_view fieldName);

/// A workspace and a database "TEST.MDB" in a folder of the test's own, over one storage engine.
class DataTest : public testing::TestWithParam<EngineUnderTest> {
  protected:
    DataTest();

    /// Makes a table through the interface.
    void make(const std::string& name, const std::vector<data::FieldDef>& fields,
              const std::vector<data::IndexDef>& indexes = {});
    data::Recordset open(const std::string& table) { return database.OpenRecordset(table); }
    /// Closes the database, and with it the file, and opens it again.
    void reopen();
    /// The same with a compaction between.
    void compact();

    TempFolder folder;
    EngineScope engine;
    data::Workspace workspace;
    data::Database database;
};

struct EngineName {
    std::string operator()(const testing::TestParamInfo<EngineUnderTest>& info) const {
        return info.param.name;
    }
};

} // namespace tol::test

/// Runs a suite of tests over every engine.
#define TOL_OVER_ALL_ENGINES(Suite)                                                                          \
    INSTANTIATE_TEST_SUITE_P(Engines, Suite, testing::ValuesIn(tol::test::enginesUnderTest()),               \
                             tol::test::EngineName())
