// SPDX-License-Identifier: MIT
#include "definition_update/windows/frmDBUDDU.h"

#include "definition_update/engine/ErrorReport.h"
#include "definition_update/windows/frmDBUPrint.h"
#include "definition_update/windows/frmDBURefresh.h"
#include "forms/controls/Controls.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace tol::update {
namespace {

constexpr int windowWidth = 11700;
constexpr int margin = 120;
constexpr int frameHeight = 1185;
constexpr int gap = 75; // between what lies below each other
constexpr int captionHeight = 255;
constexpr int captionsTop = margin + frameHeight + gap;
constexpr int listTop = captionsTop + captionHeight;
constexpr int buttonWidth = 3450;
constexpr int buttonHeight = 360;
constexpr int buttonStep = 405;
constexpr int buttonGap = 75; // between the buttons for tags, the run, the tables, and the exit

constexpr forms::Place topFrame{margin, margin, windowWidth - 2 * margin, frameHeight};

} // namespace

frmDBUDDU::frmDBUDDU()
    : Form("frmDBUDDU"),
      m_fraInstructions(forms::addCaptionedFrame(*this, "fraInstructions", "Instructions", topFrame)),
      m_nowProcessing(*this, topFrame),
      m_jobSites(*this, margin, listTop, [this] { m_cmdTAGEM.click(); }),
      m_cmdTAGEM(addButton("cmdTAGEM", "&Tag", "Tag/Untag a Job Site", 0, &frmDBUDDU::cmdTAGEM_Click)),
      m_cmdTAGALL(addButton("cmdTAGALL", "Tag &All", "Tag All Items", 1, &frmDBUDDU::cmdTAGALL_Click)),
      m_cmdClearTags(
          addButton("cmdClearTags", "&Clear Tags", "Untag All Items", 2, &frmDBUDDU::cmdClearTags_Click)),
      m_cmdCancel(addButton("cmdCancel", "&Begin", "", 3, &frmDBUDDU::cmdCancel_Click)),
      m_cmdRefresh(
          addButton("cmdRefresh", "Refresh &Database Definition Table", "", 4, &frmDBUDDU::cmdRefresh_Click)),
      m_cmdPrint(addButton("cmdPrint", "&Print Activity Log", "Print DB Definition Update Activity", 5,
                           &frmDBUDDU::cmdPrint_Click)),
      m_cmdExit(addButton("cmdExit", "E&xit", "", 6, &frmDBUDDU::cmdExit_Click)),
      m_activity(*this, margin, listTop + m_jobSites.height() + gap) {
    setWindowTitle("Database Definition Update Utility");
    setScaleSize(windowWidth, listTop + m_jobSites.height() + gap + m_activity.height() + margin);
    makeInstructions();
    QLabel& caption =
        forms::addLabel(*this, "lblHJOBSITES", "Job Sites", {margin, captionsTop, 4500, captionHeight});
    forms::setTextSize(caption, 110, true);
    connect(qApp, &QApplication::focusChanged, this, [this] { noteActiveList(); });
}

// The controls go after the lists, and the focus with them.
frmDBUDDU::~frmDBUDDU() {
    disconnect(qApp, nullptr, this, nullptr);
}

void frmDBUDDU::makeInstructions() {
    struct Line {
        const char *name, *text;
    };
    constexpr Line lines[] = {
        {"lblInstructions1", "Tag the Job Sites you wish to update. Click on Begin to update the databases "
                             "located in the selected Job Sites. "},
        {"lblInstructions2", "To tag a Job Site, Click on the Tag Button or press \"T\". To untag an item "
                             "move to the item and re-tag."},
        {"Label2", "If you have only one site then just click on the Begin button."},
    };
    int top = 315;
    for (const Line& line : lines) {
        forms::addLabel(m_fraInstructions, line.name, line.text, {150, top, topFrame.width - 300, 270});
        top += 270;
    }
}

QPushButton& frmDBUDDU::addButton(const char* name, const char* caption, const char* toolTip, int place,
                                  void (frmDBUDDU::*click)()) {
    const int left = windowWidth - margin - buttonWidth;
    const int gaps = (place > 2 ? 1 : 0) + (place > 3 ? 1 : 0) + (place > 5 ? 1 : 0);
    const int top = captionsTop + place * buttonStep + gaps * buttonGap;
    QPushButton& button = forms::addButton(*this, name, caption, {left, top, buttonWidth, buttonHeight},
                                           [this, click] { (this->*click)(); });
    button.setToolTip(toolTip);
    return button;
}

// What happens to the window.

void frmDBUDDU::onLoad() {
    setKeyPreview(true);
    m_nowProcessing.setVisible(false);
    const bool loaded = reportErrors(updateForm, "Load", [this] {
        m_cmdRefresh.setEnabled(TargetFinder::developmentMode());
        UpdateView& view = *this;
        m_update = std::make_unique<DefinitionUpdate>(view, ModuleCode);
        m_jobSites.open(*m_update);
        m_activity.open(*m_update);
    });
    if (!loaded)
        allowExitOnly();
}

// Without its databases the window is of no use.
void frmDBUDDU::allowExitOnly() {
    closeDatabases();
    enableChoices(false);
    m_activity.setInUse(false);
    m_cmdCancel.setEnabled(false);
    m_cmdPrint.setEnabled(false);
    m_cmdExit.setFocus();
}

void frmDBUDDU::onActivate() {
    if (ActiveList == List::JobSites)
        m_jobSites.takeFocus();
    else
        m_activity.takeFocus();
}

void frmDBUDDU::onUnload() {
    closeDatabases();
}

void frmDBUDDU::closeDatabases() {
    m_jobSites.close();
    m_activity.close();
    m_update.reset();
}

// The close button of the frame is another Exit.
bool frmDBUDDU::mayClose() const {
    return m_cmdExit.isEnabled();
}

void frmDBUDDU::noteActiveList() {
    if (m_jobSites.hasFocus())
        ActiveList = List::JobSites;
    else if (m_activity.hasFocus())
        ActiveList = List::Activity;
}

void frmDBUDDU::onKeyDown(forms::KeyPress& key) {
    if (key.code == 'X') {
        key.code = forms::keyNone;
        m_cmdExit.click();
    } else if (ActiveList == List::JobSites) {
        m_jobSites.keyDown(key);
    } else {
        m_activity.keyDown(key);
    }
}

// The buttons.

void frmDBUDDU::cmdTAGEM_Click() {
    m_jobSites.toggleTag();
}

void frmDBUDDU::cmdTAGALL_Click() {
    m_jobSites.tagAll();
}

void frmDBUDDU::cmdClearTags_Click() {
    m_jobSites.clearTags();
}

// The button starts the run and, while it runs, stops it; after either press it has done its work. The press
// that starts returns when the run has ended, the other one comes in at a yield.
void frmDBUDDU::cmdCancel_Click() {
    const Busy busy(*this);
    if (m_inRun) {
        m_update->Stop(StopRequest::Cancel);
    } else {
        m_inRun = true;
        m_update->ProcessTaggedItems(m_jobSites.currentMark());
        m_inRun = false;
    }
    m_cmdCancel.setEnabled(false);
    m_cmdExit.setEnabled(true);
    m_activity.takeFocus();
}

void frmDBUDDU::cmdRefresh_Click() {
    frmDBURefresh refresh;
    refresh.NetLocation = NetLocation;
    refresh.showModal(this);
}

void frmDBUDDU::cmdPrint_Click() {
    frmDBUPrint().showModal(this);
}

void frmDBUDDU::cmdExit_Click() {
    unload();
}

// What a run shows.

void frmDBUDDU::showState(RunState state) {
    if (state == RunState::Ended) {
        m_cmdPrint.setEnabled(true);
        return;
    }
    m_activity.takeFocus();
    ActiveList = List::Activity;
    m_fraInstructions.setVisible(false);
    m_nowProcessing.setVisible(true);
    m_jobSites.retire();
    enableChoices(false);
    m_cmdPrint.setEnabled(false);
    m_cmdExit.setEnabled(false);
    m_cmdCancel.setText("&Cancel");
}

// What is chosen before a run.
void frmDBUDDU::enableChoices(bool enabled) {
    m_jobSites.setInUse(enabled);
    for (QPushButton* button : {&m_cmdTAGEM, &m_cmdTAGALL, &m_cmdClearTags, &m_cmdRefresh})
        button->setEnabled(enabled);
}

void frmDBUDDU::showTagged(int /*index*/) {
    m_jobSites.tickCurrent();
}

void frmDBUDDU::showLabel(RunLabel label, const std::string& text) {
    m_nowProcessing.showLabel(label, text);
}

void frmDBUDDU::showRecordLabels(bool visible) {
    m_nowProcessing.showRecordLabels(visible);
}

void frmDBUDDU::resetActivity() {
    m_activity.reset();
}

void frmDBUDDU::showActivity(const Activity& /*activity*/, const ActivityRow& row) {
    m_activity.show(row);
}

void frmDBUDDU::fillActivity() {
    m_activity.open(*m_update);
}

} // namespace tol::update
