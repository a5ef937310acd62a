// SPDX-License-Identifier: MIT
#include "locks/frmTOLRLKS01.h"

#include "forms/controls/Controls.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"
#include "shell/vdwindows/vdFormLoadError.h"

#include <QPushButton>

#include <utility>

namespace tol::locks {
namespace {

using runtime::MsgButtons;
using runtime::MsgIcon;
using runtime::RuntimeError;

constexpr const char* name = "frmTOLRLKS01";
constexpr const char* caption = "Record Locks";
constexpr int interval = 1000;

constexpr int margin = 150;
constexpr int buttonWidth = 1050, buttonHeight = 375;

screens::BrowseColumn numberColumn(const std::string& field, std::string heading, int width) {
    return {.label = "lbl" + runtime::upperCase(field),
            .headingLabel = "lblH" + runtime::upperCase(field),
            .heading = std::move(heading),
            .width = width,
            .text = [field](data::Recordset& lock) {
                return std::string(runtime::trim(shell::vdNullCheckText(lock.Fields(field))));
            }};
}

screens::BrowseColumn textColumn(const std::string& field, std::string heading, int width) {
    return {
        .label = "lbl" + field,
        .headingLabel = "lblH" + field,
        .heading = std::move(heading),
        .width = width,
        .text = [field](data::Recordset& lock) { return " " + shell::vdNullCheckText(lock.Fields(field)); }};
}

screens::BrowseColumn notSelecting(screens::BrowseColumn column) {
    column.selects = false;
    return column;
}

screens::BrowseDescription description() {
    return {.index = "RECORDLOCKS",
            .columns = {numberColumn("TAGNO", "Item Tag", 1200), textColumn("TABLENAME", " Table Name", 2100),
                        textColumn("RLUSERNAME", " User Name", 2100),
                        textColumn("RLTIMESTAMP", " R/L Time Stamp", 2400),
                        notSelecting(numberColumn("USERTAG", "User Tag", 1050)),
                        notSelecting(numberColumn("Session", "Session #", 1200))},
            .descriptionColumn = 2};
}

void criticalBox(const std::string& text) {
    runtime::host().msgBox(text, {MsgIcon::Critical, MsgButtons::Ok}, "Cannot Delete Record Lock");
}

bool isConfirmed() {
    return runtime::host().msgBox("OK to Delete this Record Lock?", {MsgIcon::Question, MsgButtons::OkCancel},
                                  "Confirm Delete") == runtime::MsgResult::Ok;
}

} // namespace

frmTOLRLKS01::frmTOLRLKS01(std::string netPath)
    : Form(name),
      sNetPath(std::move(netPath)),
      m_panel(*this, description(), {.left = margin, .top = margin, .caption = caption}),
      m_list(m_panel, description(), m_table.rows,
             [this] { return m_table.database.OpenRecordset("RECORDLOCKS"); },
             {.remove = [this] { cmdDelete_Click(); },
              .exit = [this] { unload(); },
              .failed = [this] { setConnected(false); }}),
      tmrRLKS(*this, "tmrRLKS", [this] { tmrRLKS_Timer(); }) {
    setWindowTitle(caption);
    m_panel.connectTo(m_list);
    makeButtons();
    tmrRLKS.setInterval(interval);
}

void frmTOLRLKS01::makeButtons() {
    const int top = margin + m_panel.height() + margin;
    const int right = margin + m_panel.width();
    cmdDelete = &forms::addButton(*this, "cmdDelete", "&Delete", {margin, top, buttonWidth, buttonHeight},
                                  [this] { cmdDelete_Click(); });
    cmdExit = &forms::addButton(*this, "cmdExit", "E&xit",
                                {right - buttonWidth, top, buttonWidth, buttonHeight}, [this] { unload(); });
    forms::setTabStop(*cmdExit, false);
    setCancelButton(cmdExit);
    setScaleSize(right + margin, top + buttonHeight + margin);
}

void frmTOLRLKS01::onLoad() {
    m_loadFinished = false;
    setKeyPreview(true);
    LockState = ' ';
    LockCount = 0;
    try {
        m_file = shell::vdNetPath(sNetPath, false);
        openAfresh();
        m_list.BrowseLoad();
        m_loadFinished = true;
        tmrRLKS.setEnabled(true);
    } catch (const RuntimeError& error) {
        shell::vdFormLoadError(*this, *cmdExit, name, std::to_string(error.number()), error.description());
    }
}

void frmTOLRLKS01::onUnload() {
    tmrRLKS.setEnabled(false);
    if (m_table.rows.isOpen())
        m_table.Close();
    m_table = {};
}

void frmTOLRLKS01::onActivate() {
    if (std::exchange(m_activated, true) && m_loadFinished)
        m_panel.takeFocus();
}

void frmTOLRLKS01::onKeyDown(forms::KeyPress& key) {
    if (m_loadFinished && m_connected)
        m_list.BrowseKeyDown(key.code, key.shift);
}

/// The file of an earlier tick is closed first: what was put in its place must be seen.
void frmTOLRLKS01::openAfresh() {
    m_table = {};
    m_table = data::OpenTable("wksNET", m_file, "RECORDLOCKS");
}

void frmTOLRLKS01::tmrRLKS_Timer() {
    if (LockState == ' ')
        showOrDisconnect([this] { showPresent(); });
}

template <typename Show>
void frmTOLRLKS01::showOrDisconnect(const Show& show) {
    try {
        openAfresh();
        show();
        setConnected(true);
    } catch (const RuntimeError&) { // the next tick tries again
        m_table = {};
        setConnected(false);
    }
}

void frmTOLRLKS01::showPresent() {
    const auto count = static_cast<std::int32_t>(m_table.rows.RecordCount());
    if (std::exchange(LockCount, count) == count)
        m_list.BrowseFollow();
    else
        m_list.BrowseLoad();
}

void frmTOLRLKS01::setConnected(bool connected) {
    if (std::exchange(m_connected, connected) == connected)
        return;
    setWindowTitle(QString(caption) + (connected ? "" : " - not connected"));
    if (connected)
        m_panel.connectTo(m_list);
    else
        m_panel.disconnect();
    if (focusWidget() == cmdDelete)
        m_panel.takeFocus();
    cmdDelete->setEnabled(connected);
}

void frmTOLRLKS01::cmdDelete_Click() {
    if (shell::vdNotBlank(m_list.currentMark())) {
        LockState = 'D';
        deleteCurrent();
        LockState = ' ';
    }
    m_panel.takeFocus();
}

void frmTOLRLKS01::deleteCurrent() {
    const Busy busy(*this);
    try {
        const std::optional<RecordLock> lock = currentLock();
        if (lock && !isConfirmed())
            return;
        if (!lock || !remove(*lock))
            criticalBox("This Record Lock has been Deleted or Changed by Another User.");
    } catch (const RuntimeError& error) {
        criticalBox(error.description());
    }
    showOrDisconnect([this] { m_list.BrowseLoad(); });
}

/// The highlighted lock as it is now, which the row then shows; nothing when it is gone.
std::optional<RecordLock> frmTOLRLKS01::currentLock() {
    if (!m_list.goToCurrent())
        return std::nullopt;
    m_list.rows().BrowseFillRow(m_list.row(), m_table.rows);
    return readLock(m_table.rows);
}

/// Others may have changed the table while the question stood.
bool frmTOLRLKS01::remove(const RecordLock& lock) {
    openAfresh();
    const bool deleted = deleteLock(m_table.rows, m_list.currentMark(), lock);
    runtime::flush();
    return deleted;
}

} // namespace tol::locks
