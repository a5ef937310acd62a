// SPDX-License-Identifier: MIT
#include "screens/ListWindow.h"

#include "forms/controls/Controls.h"
#include "runtime/RuntimeError.h"
#include "shell/vdwindows/vdFormLoadError.h"

#include <QPushButton>

#include <algorithm>

namespace tol::screens {
namespace {

constexpr int buttonHeight = 375;
constexpr int buttonGap = 75;
constexpr int shortestButton = 1050;
constexpr int captionMargin = 300; // blank space of a button beside its caption

int widthFor(const QPushButton& button) {
    return std::max(shortestButton,
                    forms::toTwips(button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width()) +
                        captionMargin);
}

} // namespace

ListWindow::ListWindow(ListWindowDescription description)
    : Form(QString::fromStdString(description.name)),
      m_description(std::move(description)),
      m_panel(*this, m_description.list,
              {.left = margin,
               .top = margin + m_description.headerHeight,
               .caption = QString::fromStdString(m_description.caption)}),
      m_list(m_panel, m_description.list, m_table.rows,
             [this] { return m_table.database.OpenRecordset(m_description.table, data::dbOpenTable); },
             {[this] { m_edit.add(); }, [this] { m_edit.edit(); }, [this] { m_edit.remove(); },
              [this] { cmdExit_Click(); }}),
      m_edit(*this, m_panel, m_list, m_description.edit) {
    setWindowTitle(QString::fromStdString(m_description.caption));
    m_panel.connectTo(m_list, [this](int column) { m_edit.setEditColumn(column); });
    makeButtons();
    m_edit.setButtons(m_buttons);
}

QPushButton* ListWindow::makeButton(const std::string& name, const std::string& caption,
                                    forms::EventProcedure click) {
    return &forms::addButton(*this, QString::fromStdString(name), QString::fromStdString(caption),
                             {0, 0, 0, 0}, std::move(click));
}

/// In the order in which Tab goes from one to the next.
void ListWindow::makeButtons() {
    m_buttons.cmdAdd = makeButton("cmdAdd", "&Add", [this] { m_edit.add(); });
    m_buttons.cmdEdit = makeButton("cmdEdit", "&Edit", [this] { m_edit.edit(); });
    m_buttons.cmdDelete = makeButton("cmdDelete", "&Delete", [this] { m_edit.remove(); });
    m_buttons.cmdPrint = makeButton("cmdPrint", "&Print", [this] { cmdPrint_Click(); });
    m_buttons.cmdUpdate = makeButton("cmdUpdate", "&Update", [this] { m_edit.update(); });
    m_buttons.cmdExit = makeButton("cmdExit", "E&xit", [this] { cmdExit_Click(); });
    std::vector<QPushButton*> row = {m_buttons.cmdAdd, m_buttons.cmdEdit, m_buttons.cmdDelete,
                                     m_buttons.cmdPrint};
    for (const ListCommand& command : m_description.commands) {
        row.push_back(makeButton(command.name, command.caption, command.click));
        row.back()->setToolTip(QString::fromStdString(command.toolTip));
        if (!command.whileEditing)
            m_buttons.browseOnly.push_back(row.back());
    }
    row.insert(row.end(), {m_buttons.cmdUpdate, m_buttons.cmdExit});
    placeButtons(row);
}

/// From left to right below the list; the last two keep to the right edge.
void ListWindow::placeButtons(const std::vector<QPushButton*>& row) {
    const int top = margin + m_description.headerHeight + m_panel.height() + margin;
    int left = margin;
    for (QPushButton* button : row) {
        const int width = widthFor(*button);
        forms::place(*button, {left, top, width, buttonHeight});
        left += width + buttonGap;
    }
    int right = std::max(margin + m_panel.width(), left - buttonGap);
    setScaleSize(right + margin, top + buttonHeight + margin);
    for (QPushButton* button : {m_buttons.cmdExit, m_buttons.cmdUpdate}) {
        const int width = widthFor(*button);
        forms::place(*button, {right - width, top, width, buttonHeight});
        right -= width + buttonGap;
    }
}

// Load and Unload.

void ListWindow::onLoad() {
    m_loadFinished = false;
    setKeyPreview(true);
    try {
        openDatabase();
        loadList();
        m_loadFinished = true;
    } catch (const runtime::RuntimeError& error) {
        shell::vdFormLoadError(*this, *m_buttons.cmdExit, m_description.name, std::to_string(error.number()),
                               error.description());
    }
}

void ListWindow::openDatabase() {
    m_table = data::OpenTable(m_description.workspace, databaseFile(), m_description.table);
    openMore(m_table.database);
}

void ListWindow::onUnload() {
    if (m_loadFinished)
        m_table.Close();
    m_loadFinished = false;
    m_table = {};
}

// What a person does.

void ListWindow::onActivate() {
    const bool first = !std::exchange(m_activated, true);
    if (first || !m_loadFinished || m_description.edit.form == EditForm::Plain || !m_panel.isInUse())
        return;
    m_list.BrowseReload();
    m_panel.takeFocus();
}

void ListWindow::onKeyDown(forms::KeyPress& key) {
    if (!keyPreview() || !m_loadFinished)
        return;
    // Enter on a button that has the focus presses it, as on every other window.
    const bool onButton = dynamic_cast<QPushButton*>(focusWidget()) != nullptr;
    if (!(onButton && key.code == forms::keyReturn))
        m_list.BrowseKeyDown(key.code, key.shift);
}

void ListWindow::cmdExit_Click() {
    if (m_edit.isEditing())
        return m_edit.cancel();
    if (mayExit())
        unload();
}

} // namespace tol::screens
