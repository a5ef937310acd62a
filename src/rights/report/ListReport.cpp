// SPDX-License-Identifier: MIT
#include "rights/report/ListReport.h"

#include "rights/report/ListPages.h"
#include "runtime/Conversions.h"
#include "search_print/document/vdPrintRun.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <algorithm>

namespace tol::rights {
namespace {

constexpr const char* itemTable = "USERACCESSITEMS";
constexpr const char* itemKey = "UAITAG"; // its index by it has the same name

} // namespace

std::optional<PrintedRows> rowsOf(PrintedList list, data::Database& database, const std::string& code) {
    const PrintedListDescription& described = describe(list);
    const ListOwner& owner = *described.owner;
    data::Recordset records = database.OpenRecordset(owner.table);
    records.Index(owner.index);
    records.Seek("=", {code});
    if (records.NoMatch())
        return std::nullopt;
    data::Recordset rows = database.OpenRecordset(described.table);
    const runtime::Value key = shell::vdNullCheck(records.Fields(owner.key));
    return PrintedRows{shell::vdFindFirst(rows, described.index, {{key, rows.Fields(owner.key)}}),
                       shell::vdNullCheckText(records.Fields(owner.code)),
                       shell::vdNullCheckText(records.Fields(owner.name))};
}

ListReport::ListReport(PrintedList list, data::Database& database)
    : m_list(describe(list)), m_rows(database.OpenRecordset(m_list.table)) {
    if (std::ranges::any_of(m_list.columns, &PrintedColumn::isOfItem)) {
        m_items = database.OpenRecordset(itemTable);
        m_items.Index(itemKey);
    }
    for (const PrintedColumn& column : m_list.columns) {
        const data::Recordset& rows = column.isOfItem() ? m_items : m_rows;
        m_cells.push_back({column, rows.Fields(column.field)});
    }
}

bool ListReport::print(search_print::ReportView& view, search_print::VSPrinter& printer, int savedOrientation,
                       const PrintedRows& rows) {
    const bool started = vdPrintStart(view, printer);
    if (started)
        printRows(view, printer, rows);
    return vdPrintFinish(view, printer, savedOrientation, started);
}

void ListReport::printRows(search_print::ReportView& view, search_print::VSPrinter& printer,
                           const PrintedRows& rows) {
    printer.documentTitle(m_list.title);
    ListPages pages(view, printer, m_list, {rows.code, rows.name});
    std::vector<std::string> texts(m_cells.size());
    bool more = goToFirstRow(rows);
    while (more && shell::vdRecordOK(m_rows, m_key)) {
        const bool itemFound = findItem();
        std::ranges::transform(m_cells, texts.begin(),
                               [&](const Cell& cell) { return textOf(cell, itemFound); });
        pages.addRow(texts);
        more = view.keepPrinting();
        if (more)
            m_rows.MoveNext();
    }
}

/// Whether there is one.
bool ListReport::goToFirstRow(const PrintedRows& rows) {
    m_rows.Index(m_list.index);
    m_key.clear();
    if (m_list.owner == nullptr)
        return true;
    if (shell::vdIsBlank(rows.firstRow))
        return false;
    m_rows.Bookmark(rows.firstRow);
    const data::Field key = m_rows.Fields(m_list.owner->key);
    m_key.push_back({shell::vdNullCheck(key), key});
    return true;
}

/// Goes to the User Access Item that the row names, if rows name one.
bool ListReport::findItem() {
    if (!m_items.isOpen())
        return false;
    m_items.Seek("=", {shell::vdNullCheck(m_rows.Fields(itemKey))});
    return !m_items.NoMatch();
}

std::string ListReport::textOf(const Cell& cell, bool itemFound) const {
    if (cell.column.isOfItem() && !itemFound)
        return shell::vdRepeat("?", cell.column.itemLength);
    const runtime::Value value = shell::vdNullCheck(cell.field);
    if (cell.column.isYesNo)
        return runtime::toBoolean(value) ? "Yes" : "No";
    return runtime::toText(value);
}

} // namespace tol::rights
