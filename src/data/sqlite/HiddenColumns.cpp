// SPDX-License-Identifier: MIT
#include "data/sqlite/HiddenColumns.h"

#include "data/sqlite/CatalogueTables.h"
#include "data/sqlite/TableRebuild.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace tol::data::sqlite {
namespace {

/// Columns that are always kept free, so that a field can be added before it is known that another goes.
constexpr int margin = 50;
/// More of them than that make every change of the definition slow.
constexpr int hiddenLimit = 500;

} // namespace

std::vector<std::string> HiddenColumns::names() {
    auto query = m_connection.cached("SELECT name FROM pragma_table_xinfo(?1)");
    query->bind(1, m_table);
    std::vector<std::string> names;
    while (query->step()) {
        if (query->text(0).starts_with(hiddenColumnPrefix))
            names.emplace_back(query->text(0));
    }
    return names;
}

std::string HiddenColumns::freeName() {
    const std::size_t prefix = std::string_view(hiddenColumnPrefix).size();
    long last = 0;
    for (const auto& name : names())
        last = std::max(last, std::strtol(name.c_str() + prefix, nullptr, 10));
    return hiddenColumnPrefix + std::to_string(last + 1);
}

bool HiddenColumns::leaveRoom(const PhysicalTable& table) const {
    const int columns = static_cast<int>(table.columns.size()) + table.hiddenColumns;
    return table.hiddenColumns < hiddenLimit &&
           columns + margin < sqlite3_limit(m_connection.handle(), SQLITE_LIMIT_COLUMN, -1);
}

void HiddenColumns::sweep() {
    const std::vector<std::string> hidden = names();
    withoutViews(m_connection, {}, [&] { TableRebuild(m_connection, m_table).removeColumns(hidden); });
    CatalogueTables(m_connection).removeDeletedFields(m_table);
}

} // namespace tol::data::sqlite
