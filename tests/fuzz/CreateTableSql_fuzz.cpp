// SPDX-License-Identifier: MIT
#include "data/sqlite/CreateTableSql.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using tol::data::sqlite::ColumnPart;
using tol::data::sqlite::ConstraintPart;
using tol::data::sqlite::CreateTableSql;
using tol::data::sqlite::sameSqlName;

std::vector<std::string> columnNames(const CreateTableSql& statement) {
    std::vector<std::string> names;
    for (const ColumnPart& column : statement.columns())
        names.push_back(column.name);
    return names;
}

/// The text must be taken apart again into these columns; none of them, and there is no table.
void requireColumns(const std::string& text, const std::vector<std::string>& names) {
    const auto again = CreateTableSql::parse(text);
    if (again.has_value() == names.empty() || (again && columnNames(*again) != names))
        std::abort();
}

void removeOneColumn(CreateTableSql statement, const std::string& name) {
    std::vector<std::string> rest = columnNames(statement);
    std::erase_if(rest, [&name](const std::string& other) { return sameSqlName(other, name); });
    statement.removeColumn(name);
    requireColumns(statement.text("t"), rest);
}

void removeConstraints(CreateTableSql statement) {
    const std::vector<std::string> names = columnNames(statement);
    for (const ConstraintPart& part : statement.allConstraints())
        statement.removeConstraint(part);
    statement.removeWithoutRowId();
    requireColumns(statement.text("t"), names);
}

} // namespace

/// A text that passes for CREATE TABLE keeps its columns under any edit but the removal of them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto statement = CreateTableSql::parse(std::string(reinterpret_cast<const char*>(data), size));
    if (!statement)
        return 0;
    requireColumns(statement->text("t \"u\""), columnNames(*statement));
    for (const ColumnPart& column : statement->columns())
        removeOneColumn(*statement, column.name);
    removeConstraints(*statement);
    return 0;
}
