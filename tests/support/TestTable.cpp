// SPDX-License-Identifier: MIT
#include "support/TestTable.h"

#include "data/DBEngine.h"
#include "platform/Paths.h"
#include "runtime/Conversions.h"

#include <fmt/ranges.h>

#include <stdexcept>

namespace tol::test {

TestTable::TestTable(std::string file, std::string name, const std::vector<TestColumn>& columns,
                     const std::vector<TestIndex>& indexes)
    : m_file(std::move(file)),
      m_name(std::move(name)),
      m_order(indexes.empty() ? std::string() : indexes.front().name) {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database =
        platform::dir(m_file).empty() ? workspace.CreateDatabase(m_file) : workspace.OpenDatabase(m_file);
    data::TableDefinition table{.name = m_name};
    for (const TestColumn& column : columns)
        table.fields.push_back({.name = column.name,
                                .type = column.type,
                                .size = column.size,
                                .allowZeroLength = column.type == data::dbText});
    for (const TestIndex& index : indexes)
        table.indexes.push_back({.name = index.name, .fields = index.fields, .unique = index.unique});
    database.CreateTable(table);
}

void TestTable::use(const std::function<void(data::Recordset&)>& work) const {
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase(m_file);
    data::Recordset recordset = database.OpenRecordset(m_name);
    recordset.Index(m_order);
    work(recordset);
}

void TestTable::add(const std::vector<Row>& rows) const {
    use([&](data::Recordset& recordset) {
        for (const Row& row : rows) {
            recordset.AddNew();
            for (std::size_t i = 0; i < row.size(); ++i)
                recordset.Fields(static_cast<int>(i)).Value(row[i]);
            recordset.Update();
        }
    });
}

void TestTable::find(const std::string& field, const runtime::Value& value,
                     const std::function<void(data::Recordset&)>& work) const {
    use([&](data::Recordset& recordset) {
        while (!recordset.AtEOF() && !runtime::valuesEqual(recordset.Fields(field).Value(), value))
            recordset.MoveNext();
        if (recordset.AtEOF())
            throw std::logic_error("no such record in " + m_name);
        work(recordset);
    });
}

void TestTable::remove(const std::string& field, const runtime::Value& value) const {
    find(field, value, [](data::Recordset& recordset) { recordset.Delete(); });
}

void TestTable::change(const std::string& field, const runtime::Value& from, const runtime::Value& to) const {
    find(field, from, [&](data::Recordset& recordset) {
        recordset.Edit();
        recordset.Fields(field).Value(to);
        recordset.Update();
    });
}

std::vector<std::string> TestTable::rows() const {
    std::vector<std::string> result;
    use([&](data::Recordset& recordset) {
        for (; !recordset.AtEOF(); recordset.MoveNext()) {
            std::vector<std::string> texts;
            for (int i = 0; i < recordset.Fields().Count(); ++i) {
                const runtime::Value value = recordset.Fields(i).Value();
                texts.push_back(value.isNull() ? "Null" : runtime::toText(value));
            }
            result.push_back(fmt::format("{}", fmt::join(texts, "|")));
        }
    });
    return result;
}

} // namespace tol::test
