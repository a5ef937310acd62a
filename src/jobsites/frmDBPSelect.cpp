// SPDX-License-Identifier: MIT
#include "jobsites/frmDBPSelect.h"

#include "forms/controls/Controls.h"
#include "forms/controls/ListBox.h"
#include "jobsites/model/UserSettings.h"
#include "runtime/Host.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"

#include <QPushButton>

namespace tol::jobsites {

frmDBPSelect::frmDBPSelect(std::int32_t currentTag) : Form("frmDBPSelect"), m_currentTag(currentTag) {
    setWindowTitle("Job Sites");
    setScaleSize(4500, 4275);
    lstPATHNAME = &forms::ListBox::add(*this, "lstPATHNAME", {150, 150, 4200, 3450});
    lstPATHNAME->setAccessibleName("Job Sites");
    lstPATHNAME->setToolTip("Double Click on Desired Database for Quick Select");
    lstPATHNAME->onMouseClick([this] { select(); });
    lstPATHNAME->onEnter([this] { select(); });
    forms::addButton(*this, "cmdSelect", "&Select", {1650, 3750, 1275, 375}, [this] { select(); });
    setCancelButton(
        &forms::addButton(*this, "cmdCancel", "&Cancel", {3075, 3750, 1275, 375}, [this] { unload(); }));
}

void frmDBPSelect::onLoad() {
    m_sites = data::OpenTable("wksPATH", "DBPATHS.MDB", "DBPATHS");
    data::Recordset& rows = m_sites.rows;
    if (rows.RecordCount() == 0)
        return;
    rows.Index("DBPATHS");
    for (; !rows.AtEOF(); rows.MoveNext())
        lstPATHNAME->AddItem(shell::vdNullCheckText(rows.Fields("PATHNAME")));
}

void frmDBPSelect::onUnload() {
    m_sites.Close();
    m_sites = {};
}

void frmDBPSelect::select() {
    const std::string wanted = lstPATHNAME->Text();
    const auto found = shell::vdIsBlank(wanted) ? std::nullopt : findJobSite(m_sites.rows, wanted);
    if (!found) { // nor is it any more, when somebody else has deleted it
        runtime::host().msgBox("Invalid Job Site Selected",
                               {runtime::MsgIcon::Critical, runtime::MsgButtons::Ok}, "Invalid Selection");
        return;
    }
    m_chosen = *found;
    m_succeeded = changeUserSettings(m_currentTag, m_chosen.tag);
    unload();
}

} // namespace tol::jobsites
