// SPDX-License-Identifier: MIT
#include "definition_update/windows/ActivityList.h"

#include "forms/controls/Controls.h"
#include "forms/look/LineBreaks.h"
#include "forms/windows/Form.h"

#include <QLabel>

namespace tol::update {
namespace {

constexpr int rows = 8;
constexpr int captionHeight = 255;
constexpr int captionWidth = 1500;
constexpr int lineHeight = 435; // two lines of text

screens::BrowseColumn nameColumn(const char* label, const char* headingLabel, const char* heading, int width,
                                 const char* field) {
    return {label, headingLabel, heading, width, field, nullptr, screens::TextCut::Middle};
}

// The last column holds every text that the update itself writes.
screens::BrowseDescription description() {
    return {.index = "",
            .columns = {nameColumn("lblALPATHNAME", "lblHALPATHNAME", "Job Site", 1770, "PATHNAME"),
                        nameColumn("lblDBNAME", "lblHDBNAME", "Database", 1230, "DBNAME"),
                        nameColumn("lblTABLENAME", "lblHTABLENAME", "Table", 1170, "TABLENAME"),
                        nameColumn("lblINDEXNAME", "lblHINDEXNAME", "Index", 1170, "INDEXNAME"),
                        nameColumn("lblFIELDNAME", "lblHFIELDNAME", "Field", 1170, "FIELDNAME"),
                        {"lblACTION", "Label1", "Action", 4290, "Action"}},
            .descriptionColumn = 5,
            .rows = rows,
            .endText = "End of List",
            .emptyText = "List is Empty"};
}

} // namespace

ActivityList::ActivityList(forms::Form& form, int left, int top)
    : m_description(description()),
      m_panel(form, m_description, {left, top + lineHeight, "hsbALMAIN", "cmdALB", "Activity Log"}),
      m_rows(m_panel, m_description),
      m_rowText(forms::addLabel(form, "lblALROW", {},
                                {left + captionWidth, top, m_panel.width() - captionWidth, lineHeight})) {
    QLabel& caption = forms::addLabel(form, "lblHHActivityLog", "Activity Log",
                                      {left, top + lineHeight - captionHeight, captionWidth, captionHeight});
    forms::setTextSize(caption, 110, true);
    m_rowText.setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    m_panel.setAction({}, nullptr); // a row of the log is only looked at
    m_panel.onHighlight([this](const std::string& text) { showWhole(text); });
}

// The columns are too narrow for long names.
void ActivityList::showWhole(const std::string& text) {
    const QString whole = QString::fromStdString(text);
    m_rowText.setText(forms::inLines(whole, m_rowText.fontMetrics(), m_rowText.width(), m_rowText.width()));
    m_rowText.setAccessibleName(whole);
    m_rowText.setToolTip(whole);
}

int ActivityList::height() const {
    return lineHeight + m_panel.height();
}

void ActivityList::open(DefinitionUpdate& update) {
    close();
    m_list = std::make_unique<screens::BrowseList>(
        m_panel, m_description, update.ACTIVITYLOG(), [&update] { return update.openACTIVITYLOG(); },
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
    m_nextRow = 0;
}

void ActivityList::show(const ActivityRow& row) {
    if (m_nextRow == rows) {
        m_rows.BrowseScrollUp();
        --m_nextRow;
    }
    int column = 0;
    for (const std::string& caption :
         {row.PATHNAME, row.DBNAME, row.TABLENAME, row.INDEXNAME, row.FIELDNAME, row.Action})
        m_rows.setCaption(m_nextRow, column++, caption);
    showWhole(m_rows.text(m_nextRow++));
}

void ActivityList::keyDown(forms::KeyPress& key) {
    if (m_list != nullptr)
        m_list->BrowseKeyDown(key.code, key.shift);
}

} // namespace tol::update
