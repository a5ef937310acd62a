// SPDX-License-Identifier: MIT
#include "search_print/frmvdSearch.h"

#include "forms/controls/Controls.h"
#include "runtime/RuntimeError.h"
#include "screens/RowLabel.h"
#include "shell/vdfunctions/vdTexts.h"
#include "shell/vdwindows/vdFormLoadError.h"

#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace tol::search_print {
namespace {

constexpr int margin = 300, lineHeight = 270;
constexpr int instructionTop = 150, titleTop = 1080, searchTop = 1380, listTop = 1830;
constexpr int frameGap = 75;    // between the list's buttons and the frame around them
constexpr int narrowest = 6600; // the longest instruction
constexpr int buttonWidth = 1275, buttonHeight = 375;
constexpr QRgb ActiveTitleColor = screens::rgb(210, 210, 210), TitleColor = screens::rgb(160, 160, 160),
               plainTitleColor = screens::rgb(192, 192, 192);
constexpr int altKey = 4;

} // namespace

frmvdSearch::frmvdSearch(SearchDescription description)
    : Form("frmvdSearch"), m_description(std::move(description)) {
    setWindowTitle("Search for an item");
    makeLabels();
    m_CmdSelect = &forms::addButton(*this, "CmdSelect", "&Select", {}, [this] { CmdSelect_Click(); });
    m_CmdCancel = &forms::addButton(*this, "CmdCancel", "&Cancel", {}, [this] { CmdCancel_Click(); });
    setDefaultButton(m_CmdSelect);
    placeControls(narrowest, listTop);
}

void frmvdSearch::makeLabels() {
    const auto add = [this](const char* name, const char* caption, int top) {
        return &forms::addLabel(*this, name, caption, {margin, top, narrowest, lineHeight});
    };
    m_lblInstructA =
        add("lblInstructA", "1. Type the first few characters you are looking for.", instructionTop);
    add("lblInstructB", "2. Click on the desired item and then click Select .", instructionTop + lineHeight);
    m_lblInstructC = add("lblInstructC", "To search by the other column click on title bar of that column.",
                         instructionTop + 2 * lineHeight);
    m_lblSearchTitle = add("lblSearchTitle", "Name of Search Item ", titleTop);
    m_lblSearch = add("lblSearch", "", searchTop);
    m_lblSearch->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    m_lblSearch->setIndent(forms::toPixels(screens::RowLabel::margin));
    m_lblSearch->setAutoFillBackground(true);
    QPalette white = m_lblSearch->palette();
    white.setColor(QPalette::Window, Qt::white);
    m_lblSearch->setPalette(white);
}

void frmvdSearch::onLoad() {
    setKeyPreview(true);
    try {
        makeList();
        m_search->list().BrowseLoad();
        m_CmdSelect->setEnabled(isOnRecord());
        m_panel->takeFocus();
    } catch (const runtime::RuntimeError& error) {
        m_search.reset();
        shell::vdFormLoadError(*this, *m_CmdCancel, "frmvdSearch", std::to_string(error.number()),
                               error.description());
    }
    showTitles();
}

void frmvdSearch::makeList() {
    const SearchColumns columns = searchColumns(m_description);
    QFrame& frame = forms::addFrame(*this, "lblDisplay(0)", {});
    m_panel = std::make_unique<screens::ListPanel>(
        *this, searchPage(columns),
        screens::ListPlace{.left = margin,
                           .top = listTop,
                           .caption = QString::fromStdString(m_description.WindowTitle),
                           .coloredHeadings = true});
    m_search = std::make_unique<SearchList>(*m_panel, m_description, columns);
    m_panel->connectTo(m_search->list(), [this](int) { m_panel->takeFocus(); });
    const auto selectRecord = [this] {
        if (isOnRecord())
            CmdSelect_Click();
    };
    m_panel->setAction("Select", selectRecord);
    m_panel->onDoubleClick(selectRecord);
    m_panel->onHeadingClick([this](int column) { heading_Click(column); });
    m_lblInstructC->setVisible(m_search->isSearchable(1));
    showColumn(0); // whatever column the list is ordered by
    const int width = m_panel->width() + frameGap;
    forms::place(frame, {margin, listTop, width, m_panel->height()});
    placeControls(std::max(width, narrowest), listTop + m_panel->height());
}

/// The controls that have the list's width, and those below it.
void frmvdSearch::placeControls(int width, int listEnd) {
    for (QLabel* label : {m_lblSearchTitle, m_lblSearch})
        label->resize(forms::toPixels(width), label->height());
    const int top = listEnd + 150;
    setScaleSize(width + 2 * margin, top + buttonHeight + 150);
    const int cancelLeft = width + 2 * margin - buttonWidth - 380;
    forms::place(*m_CmdCancel, {cancelLeft, top, buttonWidth, buttonHeight});
    forms::place(*m_CmdSelect, {cancelLeft - buttonWidth - 100, top, buttonWidth, buttonHeight});
}

/// What the caller has named goes over the window's own texts.
void frmvdSearch::showTitles() {
    if (shell::vdNotBlank(m_description.Instruction))
        m_lblInstructA->setText(QString::fromStdString(m_description.Instruction));
    setWindowTitle(QString::fromStdString(m_description.WindowTitle));
    m_lblSearchTitle->setText(QString::fromStdString(m_description.SearchTitle));
}

/// Lights the column's title and tells what to type for it.
void frmvdSearch::showColumn(int column) {
    for (int other = 0; other < static_cast<int>(SearchColumns().size()); ++other) {
        const QRgb searchable = other == column ? ActiveTitleColor : TitleColor;
        m_panel->setHeadingColor(other, m_search->isSearchable(other) ? searchable : plainTitleColor);
    }
    m_lblInstructA->setText(m_search->isNumber(column)
                                ? "1. Enter the number of the item you are searching for."
                                : "1. Type the first few characters you are looking for.");
}

void frmvdSearch::onUnload() {
    if (m_panel)
        m_panel->disconnect();
    m_search.reset();
}

// What a person does.

void frmvdSearch::onKeyDown(forms::KeyPress& key) {
    const bool onButton = dynamic_cast<QPushButton*>(focusWidget()) != nullptr;
    if (key.code == forms::keyTab || (key.shift & altKey) != 0 || (onButton && key.code == forms::keyReturn))
        return; // as on every other window
    const int code = std::exchange(key.code, forms::keyNone);
    if (code == forms::keyEscape)
        CmdCancel_Click();
    else if (m_search && code == forms::keyReturn)
        CmdSelect_Click();
    else if (m_search && m_search->keyDown(code, key.shift))
        m_lblSearch->setText(m_search->text().empty() ? " " : QString::fromStdString(m_search->text()));
}

void frmvdSearch::heading_Click(int column) {
    if (!m_search->changeColumn(column))
        return;
    m_lblSearch->clear();
    showColumn(column);
}

/// A record that somebody has deleted meanwhile can't be chosen.
void frmvdSearch::CmdSelect_Click() {
    if (isOnRecord() && !m_search->list().goToCurrent())
        return;
    SearchResult = m_search->list().currentMark();
    unload();
}

void frmvdSearch::CmdCancel_Click() {
    SearchResult = " ";
    unload();
}

bool frmvdSearch::isOnRecord() const {
    return shell::vdNotBlank(m_search->list().currentMark());
}

} // namespace tol::search_print
