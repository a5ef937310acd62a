// SPDX-License-Identifier: MIT
#include "rights/frmTOLMODSEL.h"

#include "forms/controls/Controls.h"
#include "forms/controls/ListBox.h"
#include "rights/model/SelectedModule.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"
#include "shell/vdwindows/vdFormLoadError.h"

#include <QFontDatabase>
#include <QLabel>
#include <QPushButton>

namespace tol::rights {
namespace {

constexpr int codeLength = 3;

constexpr int margin = 150;
constexpr int listWidth = 7200, listHeight = 3600;
constexpr int labelHeight = 300;
constexpr int buttonWidth = 1200, buttonHeight = 375;

void criticalBox(const char* text, const char* title) {
    runtime::host().msgBox(text, {runtime::MsgIcon::Critical, runtime::MsgButtons::Ok}, title);
}

} // namespace

frmTOLMODSEL::frmTOLMODSEL(std::string netPath) : Form("frmTOLMODSEL"), sNetPath(std::move(netPath)) {
    setWindowTitle("Select a Module");
    QLabel& instruction =
        forms::addLabel(*this, "lblInstruction", "Click Desired Module. Next,  click Select.",
                        {margin, margin, listWidth, labelHeight});
    const int listTop = margin + labelHeight + margin / 2;
    lstMODULEID = &forms::ListBox::add(*this, "lstMODULEID", {margin, listTop, listWidth, listHeight});
    lstMODULEID->setAccessibleName("Modules");
    lstMODULEID->setAccessibleDescription(instruction.text());
    lstMODULEID->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont)); // names stand below each other
    lstMODULEID->onEnter([this] { cmdSelect_Click(); });

    const int buttonTop = listTop + listHeight + margin;
    const int right = margin + listWidth;
    forms::addButton(*this, "cmdSelect", "&Select",
                     {right - 2 * buttonWidth - margin / 2, buttonTop, buttonWidth, buttonHeight},
                     [this] { cmdSelect_Click(); });
    cmdCancel = &forms::addButton(*this, "cmdCancel", "&Cancel",
                                  {right - buttonWidth, buttonTop, buttonWidth, buttonHeight},
                                  [this] { cmdCancel_Click(); });
    setCancelButton(cmdCancel);
    setScaleSize(right + margin, buttonTop + buttonHeight + margin);
}

void frmTOLMODSEL::onLoad() {
    m_loadFinished = false;
    m_chosen = " ";
    try {
        openTables();
        fillList();
        m_loadFinished = true;
    } catch (const runtime::RuntimeError& error) {
        shell::vdFormLoadError(*this, *cmdCancel, "frmTOLMODSEL", std::to_string(error.number()),
                               error.description());
    }
}

void frmTOLMODSEL::openTables() {
    m_modules = data::OpenTable("wksNET", shell::vdNetPath(sNetPath, false), "MODULES");
    m_settings = m_modules.database.OpenRecordset("NETSETTINGS");
}

void frmTOLMODSEL::fillList() {
    lstMODULEID->Clear();
    const std::string current = selectedModule(m_settings);
    data::Recordset& modules = m_modules.rows;
    if (modules.RecordCount() == 0) {
        criticalBox("Module Table is Empty.\n\nAdd a Module First.", "Table Empty ");
        m_chosen = "0";
        return;
    }
    modules.Index("MODULES");
    for (modules.MoveFirst(); !modules.AtEOF(); modules.MoveNext()) {
        const std::string code = shell::vdNullCheckText(modules.Fields("MODULEID"));
        lstMODULEID->AddItem(code + "   " + shell::vdNullCheckText(modules.Fields("MODULENAME")));
        if (code == current)
            lstMODULEID->ListIndex(lstMODULEID->ListCount() - 1);
    }
    if (shell::vdIsBlank(current))
        lstMODULEID->ListIndex(0);
}

void frmTOLMODSEL::onUnload() {
    if (m_loadFinished)
        m_modules.Close();
    m_loadFinished = false;
    m_settings = {};
    m_modules = {};
}

void frmTOLMODSEL::cmdSelect_Click() {
    const std::string line = lstMODULEID->Text();
    m_chosen = runtime::left(line, codeLength);
    if (shell::vdNotBlank(m_chosen))
        return unload();
    criticalBox("Invalid Module Selected", "Invalid Module");
}

void frmTOLMODSEL::cmdCancel_Click() {
    m_chosen = " ";
    unload();
}

/// The close button of the window's frame is a Cancel.
void frmTOLMODSEL::closeEvent(QCloseEvent* event) {
    m_chosen = " ";
    Form::closeEvent(event);
}

} // namespace tol::rights
