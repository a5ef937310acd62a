// SPDX-License-Identifier: MIT
#include "tolctl/ActivityRows.h"

#include "data/OpenTable.h"
#include "runtime/Conversions.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "tolctl/Columns.h"

#include <algorithm>

namespace tol::ctl {

using update::ActivityRow;

const std::array<ActivityColumn, 8>& activityColumns() {
    static constexpr std::array<ActivityColumn, 8> columns = {{
        {"PATHNAME", "Job Site", &ActivityRow::PATHNAME, 16},
        {"DBNAME", "Database", &ActivityRow::DBNAME, 10},
        {"TABLENAME", "Table", &ActivityRow::TABLENAME, 16},
        {"INDEXNAME", "Index", &ActivityRow::INDEXNAME, 16},
        {"FIELDNAME", "Field", &ActivityRow::FIELDNAME, 16},
        {"Action", "Action", &ActivityRow::Action, 40},
        {"FDATE", "Date", &ActivityRow::FDATE, 10},
        {"PTIME", "Time", &ActivityRow::PTIME, 11},
    }};
    return columns;
}

void forEachActivity(const std::function<void(const ActivityRow&)>& visit) {
    data::OpenTable log("wksDEF", "ZOVDEF.MDB", "ACTIVITYLOG");
    ActivityRow row;
    for (; !log.rows.AtEOF(); log.rows.MoveNext()) {
        for (const ActivityColumn& column : activityColumns())
            row.*column.member = runtime::toText(shell::vdNullCheck(log.rows.Fields(column.name)));
        visit(row);
    }
}

ActivityTable::ActivityTable() {
    for (std::size_t i = 0; i < m_widths.size(); ++i)
        m_widths[i] = activityColumns()[i].width;
}

void ActivityTable::widen(const ActivityRow& row) {
    for (std::size_t i = 0; i < m_widths.size(); ++i)
        m_widths[i] = std::max(m_widths[i], runtime::length(row.*activityColumns()[i].member));
}

std::string ActivityTable::heading() const {
    return joined([](const ActivityColumn& column) { return column.title; });
}

std::string ActivityTable::line(const ActivityRow& row) const {
    return joined([&](const ActivityColumn& column) -> std::string_view { return row.*column.member; });
}

template <typename CellOf>
std::string ActivityTable::joined(CellOf&& cellOf) const {
    std::array<std::string_view, 8> cells;
    std::ranges::transform(activityColumns(), cells.begin(), cellOf);
    return alignedLine(cells, m_widths);
}

} // namespace tol::ctl
