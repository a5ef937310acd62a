// SPDX-License-Identifier: MIT
#include "rights/frmTOLUTL01.h"

#include "forms/controls/Controls.h"
#include "rights/model/CopyUAIList.h"
#include "runtime/Host.h"
#include "shell/vdfunctions/vdLocation.h"

#include <QFontDatabase>
#include <QLabel>
#include <QPushButton>

namespace tol::rights {
namespace {

using runtime::MsgButtons;
using runtime::MsgIcon;

constexpr const char* notice = "   This utility will update the list of User Access Items in\n"
                               "the Tolvane Database.  Before running this\n"
                               "utility make sure you have the latest version of the Database\n"
                               "Definition Update file: ZOVDEF.mdb placed in the same folder as\n"
                               "the application file, TOL.exe.\n";

constexpr int margin = 300;
constexpr int noticeWidth = 8400, noticeHeight = 1650;
constexpr int buttonWidth = 1200, buttonHeight = 375;

} // namespace

frmTOLUTL01::frmTOLUTL01(std::string netPath) : Form("frmTOLUTL01"), sNetPath(std::move(netPath)) {
    setWindowTitle("Update User Access Items List");
    forms::addLabel(*this, "lblNotice", notice, {margin, margin, noticeWidth, noticeHeight})
        .setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    const int top = margin + noticeHeight + margin / 2;
    const int right = margin + noticeWidth;
    QPushButton& begin = forms::addButton(
        *this, "cmdBegin", "&Begin", {right - 2 * buttonWidth - margin / 2, top, buttonWidth, buttonHeight},
        [this] { cmdBegin_Click(); });
    cmdExit =
        &forms::addButton(*this, "cmdExit", "E&xit", {right - buttonWidth, top, buttonWidth, buttonHeight},
                          [this] { cmdExit_Click(); });
    setDefaultButton(&begin);
    setCancelButton(cmdExit);
    setScaleSize(right + margin, top + buttonHeight + margin);
}

void frmTOLUTL01::cmdBegin_Click() {
    cmdExit->setText("&Cancel");
    mRunning = true;
    CopyUAIList(shell::vdNetPath(sNetPath, false));
    if (mRunning)
        runtime::host().msgBox("List of User Access Items Updated.", {MsgIcon::Information, MsgButtons::Ok},
                               "Finished");
    else
        runtime::host().msgBox("Process has been interrupted. \n"
                               "Not all User Access Items were Transfered.",
                               {MsgIcon::Critical, MsgButtons::Ok}, "Process Incomplete");
    cmdExit->setText("E&xit");
    mRunning = false;
}

/// The copy does not yield: a click meanwhile comes when it has finished.
void frmTOLUTL01::cmdExit_Click() {
    if (mRunning)
        mRunning = false;
    else
        unload();
}

} // namespace tol::rights
