// SPDX-License-Identifier: MIT
#pragma once

#include "data/Database.h"
#include "data/Recordset.h"
#include "data/Workspace.h"
#include "data/engine/Definition.h"
#include "runtime/Value.h"

#include <functional>
#include <string>
#include <vector>

namespace tol::test {

struct TestColumn {
    std::string name;
    data::FieldType type = data::dbText;
    int size = 0;
};

struct TestIndex {
    std::string name;
    std::vector<std::string> fields;
    bool unique = false;
};

/// A table of a database file, made for a test, and what another user does to it meanwhile. Every call opens
/// the file on its own and closes it again.
class TestTable {
  public:
    /// Makes the table, and the file if there is none. The engine has to be there: see StartFolder.
    TestTable(std::string file, std::string name, const std::vector<TestColumn>& columns,
              const std::vector<TestIndex>& indexes = {});

    using Row = std::vector<runtime::Value>;
    void add(const std::vector<Row>& rows) const;
    /// Deletes, or changes the field of, the first record whose field has the value.
    void remove(const std::string& field, const runtime::Value& value) const;
    void change(const std::string& field, const runtime::Value& from, const runtime::Value& to) const;
    /// All rows in the order of the first index, else in stored order, fields joined by bars: "A|Name".
    [[nodiscard]] std::vector<std::string> rows() const;

  private:
    void use(const std::function<void(data::Recordset&)>& work) const;
    void find(const std::string& field, const runtime::Value& value,
              const std::function<void(data::Recordset&)>& work) const;

    std::string m_file, m_name, m_order;
};

} // namespace tol::test
