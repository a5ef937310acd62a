// SPDX-License-Identifier: MIT
#include "definition_update/windows/ActivityList.h"

#include "definition_update/windows/ListKeys.h"

namespace tol::update {
namespace {

constexpr int rows = 8;
constexpr int lastRow = rows - 1;

screens::BrowseDescription description() {
    return {.index = "",
            .columns = {{"lblALPATHNAME", "lblHALPATHNAME", "Job Site", 1980, "PATHNAME"},
                        {"lblDBNAME", "lblHDBNAME", "Database", 1140, "DBNAME"},
                        {"lblTABLENAME", "lblHTABLENAME", "Table", 1230, "TABLENAME"},
                        {"lblINDEXNAME", "lblHINDEXNAME", "Index", 1230, "INDEXNAME"},
                        {"lblFIELDNAME", "lblHFIELDNAME", "Field", 1320, "FIELDNAME"},
                        {"lblACTION", "Label1", "Action", 3900, "Action"}},
            .descriptionColumn = 5,
            .rows = rows,
            .endText = "End of List",
            .emptyText = "List is Empty"};
}

} // namespace

ActivityList::ActivityList(forms::Form& form, int left, int top)
    : m_panel(form, description(), {left, top, "hsbALMAIN", "cmdALB", "Activity Log"}) {
    m_panel.setAction({}, nullptr); // a row of the log is only looked at
}

void ActivityList::open(DefinitionUpdate& update) {
    close();
    m_list = std::make_unique<screens::BrowseList>(
        m_panel, description(), update.ACTIVITYLOG(), [&update] { return update.openACTIVITYLOG(); },
        screens::BrowseActions{});
    m_panel.connectTo(*m_list, [this](int) { takeFocus(); });
    m_list->BrowseLoad();
}

void ActivityList::close() {
    m_panel.disconnect();
    m_list.reset();
}

void ActivityList::reset() {
    close();
    for (int row = 0; row < rows; ++row) {
        setRow(row, {" ", " ", " ", " ", " ", " "});
        m_panel.setRowColor(row, screens::rgb(256, 256, 256));
    }
    m_nextRow = 0;
}

void ActivityList::show(const ActivityRow& row) {
    if (m_nextRow > lastRow) {
        scrollUp();
        m_nextRow = lastRow;
    }
    setRow(m_nextRow, {row.PATHNAME, row.DBNAME, row.TABLENAME, row.INDEXNAME, row.FIELDNAME, row.Action});
    ++m_nextRow;
}

void ActivityList::scrollUp() {
    for (int row = 1; row < rows; ++row)
        for (int column = 0; column < 6; ++column)
            m_panel.setCaption(row - 1, column, m_panel.caption(row, column));
}

void ActivityList::setRow(int row, const std::array<std::string, 6>& captions) {
    for (int column = 0; column < 6; ++column)
        m_panel.setCaption(row, column, captions.at(static_cast<std::size_t>(column)));
}

void ActivityList::keyDown(forms::KeyPress& key) {
    if (isMoveKey(key.code) && m_list != nullptr)
        m_list->BrowseKeyDown(key.code, key.shift);
}

} // namespace tol::update
