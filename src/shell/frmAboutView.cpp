// SPDX-License-Identifier: MIT
#include "shell/frmAboutView.h"

#include "forms/controls/Controls.h"
#include "runtime/RuntimeError.h"
#include "shell/ProgramIcon.h"
#include "shell/SiteInformation.h"
#include "shell/SystemInformation.h"
#include "shell/frmAboutEdit.h"
#include "shell/vdfunctions/vdNullCheck.h"
#include "shell/vdfunctions/vdTexts.h"
#include "shell/vdwindows/vdFormLoadError.h"

#include <QDesktopServices>
#include <QFrame>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QUrl>

namespace tol::shell {
namespace {

constexpr const char* usualNotice =
    "Copyright (c) 2026 The Tolvane developers. Free software under the MIT License.";

constexpr int keyF10 = forms::keyF1 + 9;
constexpr int shiftAlone = 1;

std::string fieldText(data::Recordset& site, const char* field) {
    return vdNullCheckText(site.Fields(field));
}

/// City, state and zip.
std::string lastLine(data::Recordset& site) {
    std::string line =
        fieldText(site, "CITY") + ", " + fieldText(site, "State") + " " + fieldText(site, "ZIP");
    if (const std::string plus4 = fieldText(site, "PLUS4"); vdNotBlank(plus4))
        line += "-" + plus4;
    return line;
}

void setCaption(QLabel& label, const std::string& text) {
    label.setText(QString::fromStdString(text));
}

} // namespace

frmAboutView::frmAboutView(AboutData given) : Form("frmAboutView"), m_given(std::move(given)) {
    setScaleSize(6450, 4725);
    makeModule();
    makeSite();
    makeLinks();
    cmdOK = &forms::addButton(*this, "cmdOK", "OK", {3375, 4200, 1350, 375}, [this] { unload(); });
    forms::addButton(*this, "cmdSysInfo", "&System Info...", {4875, 4200, 1425, 375},
                     [] { startSystemInformation(); });
    setDefaultButton(cmdOK);
    setCancelButton(cmdOK);
}

void frmAboutView::makeModule() {
    forms::addImage(*this, "Image1", programIcon(), "Program icon", {150, 225, 900, 900});
    lblModuleName = &forms::addLabel(*this, "lblModuleName", {}, {1275, 150, 5025, 450});
    forms::setTextSize(*lblModuleName, 160, true);
    lblVersionNumber = &forms::addLabel(*this, "lblVersionNumber", {}, {1275, 600, 5025, 270});
    lblCRNotice = &forms::addLabel(*this, "lblCRNotice", {}, {1275, 900, 5025, 480});
    lblCRNotice->setWordWrap(true);
    lblCRNotice->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void frmAboutView::makeSite() {
    QFrame& frame = forms::addFrame(*this, "Frame1", {150, 1500, 6150, 1950});
    const auto line = [&](const char* name, int row) {
        return &forms::addLabel(frame, name, {}, {150, 90 + row * 300, 5850, 270});
    };
    lblCONAME = line("lblCONAME", 0);
    lblADDBLK1 = line("lblADDBLK1", 1);
    lblADDBLK2 = line("lblADDBLK2", 2);
    lblADDBLK3 = line("lblADDBLK3", 3);
    forms::addLabel(frame, "lblHLOCATIONNO", "Job Site Number:", {150, 1530, 1650, 270});
    lblLOCATIONNO = &forms::addLabel(frame, "lblLOCATIONNO", {}, {1800, 1530, 4200, 270});
}

void frmAboutView::makeLinks() {
    lblHyperLink = &forms::addLabel(*this, "lblHyperLink", TOL_HOMEPAGE, {150, 3600, 6150, 300});
    QFont underlined = lblHyperLink->font();
    underlined.setUnderline(true);
    lblHyperLink->setFont(underlined);
    lblHyperLink->setForegroundRole(QPalette::Link);
    lblHyperLink->setCursor(Qt::PointingHandCursor);
    forms::onClick(*lblHyperLink, [this] { lblHyperLink_Click(); });
}

void frmAboutView::setModule(const std::string& name, const std::string& version) {
    setCaption(*lblModuleName, name);
    setCaption(*lblVersionNumber, version);
}

void frmAboutView::onLoad() {
    m_loadFinished = false;
    setKeyPreview(true);
    try {
        m_site = openSiteInformation(m_given.folder, m_given.database);
        fill();
        setCaption(*lblCRNotice, vdIsBlank(m_given.notice) ? usualNotice : m_given.notice);
        m_loadFinished = true;
    } catch (const runtime::RuntimeError& error) {
        vdFormLoadError(*this, *cmdOK, "frmAboutView", std::to_string(error.number()), error.description());
    }
}

void frmAboutView::fill() {
    data::Recordset& site = m_site.rows;
    moveToSiteInformation(site);
    setCaption(*lblCONAME, fieldText(site, "CONAME"));
    setCaption(*lblADDBLK1, fieldText(site, "ADDRESS1"));
    const std::string second = fieldText(site, "ADDRESS2");
    setCaption(*lblADDBLK2, vdIsBlank(second) ? lastLine(site) : second);
    setCaption(*lblADDBLK3, vdIsBlank(second) ? std::string() : lastLine(site));
    setCaption(*lblLOCATIONNO, fieldText(site, "LOCATIONNO"));
}

void frmAboutView::onUnload() {
    if (m_loadFinished)
        m_site.Close();
    m_loadFinished = false;
    m_site = {};
}

// What is open and shown is this window's database; the one that is changed is the folder's MAIN.MDB, which
// may be another one.
void frmAboutView::onKeyDown(forms::KeyPress& key) {
    if (!m_loadFinished || key.code != keyF10 || key.shift != shiftAlone)
        return;
    key.code = forms::keyNone;
    frmAboutEdit edit(m_given.folder);
    edit.showModal(this);
    fill();
}

void frmAboutView::lblHyperLink_Click() {
    QDesktopServices::openUrl(QUrl(lblHyperLink->text()));
}

} // namespace tol::shell
