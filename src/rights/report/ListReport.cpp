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

ListReport::ListReport(PrintedList list, const std::string& file)
    : m_list(describe(list)), m_table("wksNET", file, m_list.table) {
    if (std::ranges::any_of(m_list.columns, &PrintedColumn::isOfItem)) {
        m_items = m_table.database.OpenRecordset(itemTable);
        m_items.Index(itemKey);
    }
    for (const PrintedColumn& column : m_list.columns) {
        const data::Recordset& rows = column.isOfItem() ? m_items : m_table.rows;
        m_cells.push_back({column, rows.Fields(column.field)});
    }
}

std::optional<PrintedRows> ListReport::rowsOf(const std::string& code) {
    const ListOwner& owner = *m_list.owner;
    data::Recordset records = m_table.database.OpenRecordset(owner.table);
    records.Index(owner.index);
    records.Seek("=", {code});
    if (records.NoMatch())
        return std::nullopt;
    const runtime::Value key = shell::vdNullCheck(records.Fields(owner.key));
    return PrintedRows{
        shell::vdFindFirst(m_table.rows, m_list.index, {{key, m_table.rows.Fields(owner.key)}}),
        shell::vdNullCheckText(records.Fields(owner.code)),
        shell::vdNullCheckText(records.Fields(owner.name))};
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
    while (more && shell::vdRecordOK(m_table.rows, m_key)) {
        const bool itemFound = findItem();
        std::ranges::transform(m_cells, texts.begin(),
                               [&](const Cell& cell) { return textOf(cell, itemFound); });
        pages.addRow(texts);
        more = view.keepPrinting();
        if (more)
            m_table.rows.MoveNext();
    }
}

/// Whether there is one.
bool ListReport::goToFirstRow(const PrintedRows& rows) {
    m_table.rows.Index(m_list.index);
    m_key.clear();
    if (m_list.owner == nullptr)
        return true;
    if (shell::vdIsBlank(rows.firstRow))
        return false;
    m_table.rows.Bookmark(rows.firstRow);
    const data::Field key = m_table.rows.Fields(m_list.owner->key);
    m_key.push_back({shell::vdNullCheck(key), key});
    return true;
}

/// Goes to the User Access Item that the row names, if rows name one.
bool ListReport::findItem() {
    if (!m_items.isOpen())
        return false;
    m_items.Seek("=", {shell::vdNullCheck(m_table.rows.Fields(itemKey))});
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
