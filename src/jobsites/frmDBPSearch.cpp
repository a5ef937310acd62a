// SPDX-License-Identifier: MIT
#include "jobsites/frmDBPSearch.h"

#include "forms/controls/Controls.h"
#include "forms/controls/FolderControls.h"
#include "platform/Paths.h"
#include "runtime/Host.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "screens/RowLabel.h"

#include <QLabel>

namespace tol::jobsites {
namespace {

using forms::addLabel;

QLabel& addLabelOf(QWidget& window, const QString& name, const QString& caption, forms::Place where,
                   QWidget& control) {
    QLabel& label = addLabel(window, name, caption, where);
    forms::setLabelOf(label, control);
    return label;
}

} // namespace

frmDBPSearch::frmDBPSearch() : Form("frmDBPSearch") {
    setWindowTitle("Select a Location");
    setScaleSize(7800, 5550);
    makeLists();
    makeLocation();
    forms::addButton(*this, "cmdSelect", "&Select", {4950, 4980, 1275, 375}, [this] { cmdSelect_Click(); });
    forms::addButton(*this, "cmdCancel", "&Cancel", {6375, 4980, 1275, 375}, [this] { cmdCancel_Click(); });
}

void frmDBPSearch::makeLists() {
    m_drives = &forms::DriveList::add(*this, "Drive1", {150, 450, 3675, 345});
    m_folders = &forms::FolderList::add(*this, "Dir1", {150, 1245, 3675, 2625});
    m_files = &forms::FileList::add(*this, "File1", "*.mdb", {3975, 450, 3675, 3420});
    addLabelOf(*this, "lblDisks", "&Disks", {150, 150, 3675, 270}, *m_drives);
    addLabelOf(*this, "lblFolders", "&Folders", {150, 945, 3675, 270}, *m_folders);
    addLabelOf(*this, "lblFiles", "Database Files", {3975, 150, 3675, 270}, *m_files);
    m_drives->onChange([this] { Drive1_Change(); });
    m_folders->onChange([this] { Dir1_Change(); });
    m_folders->onClick([this] { Dir1_Click(); });
}

void frmDBPSearch::makeLocation() {
    addLabel(*this, "lblHint", "Double Click on a File Folder to Select", {150, 3930, 7500, 270});
    forms::setTextSize(addLabel(*this, "lblHPATHNAME", "Location:", {150, 4350, 1050, 270}), 100, true);
    auto& location = *new screens::RowLabel(*this, "lblPATHNAME", screens::TextCut::Middle);
    location.setTransparent();
    forms::place(location, {1200 - screens::RowLabel::margin, 4350, 6510, 270});
    m_lblPATHNAME = &location;
}

void frmDBPSearch::onLoad() {
    setKeyPreview(true);
    mStartPath = sPath;
    mDrive = m_drives->Drive();
    sPath = platform::currentFolder();
    showLocation(sPath);
    m_folders->setFocus();
}

void frmDBPSearch::showLocation(const std::string& location) {
    mLocation = location;
    m_lblPATHNAME->setText(QString::fromStdString(location));
}

bool frmDBPSearch::showDrive(const std::string& drive) {
    try {
        m_folders->Path(drive);
        return true;
    } catch (const runtime::RuntimeError&) {
        return false;
    }
}

void frmDBPSearch::Drive1_Change() {
    const std::string drive = m_drives->Drive();
    if (showDrive(drive)) {
        mDrive = drive;
        return;
    }
    runtime::host().msgBox("Cannot access drive: " + drive + " at this time.",
                           {runtime::MsgIcon::Critical, runtime::MsgButtons::Ok}, "Drive Unavailable.");
    m_drives->Drive(mDrive);
    showDrive(mDrive); // or leave the folders as they are, if that one is gone by now, too
}

void frmDBPSearch::Dir1_Change() {
    showLocation(m_folders->Path());
    m_lblPATHNAME->repaint();
    m_files->Path(m_folders->Path());
}

void frmDBPSearch::Dir1_Click() {
    Dir1_Change();
    m_files->Refresh();
}

void frmDBPSearch::cmdSelect_Click() {
    sPath = runtime::upperCase(runtime::trim(mLocation));
    unload();
}

void frmDBPSearch::cmdCancel_Click() {
    sPath = " ";
    unload();
}

void frmDBPSearch::onKeyDown(forms::KeyPress& key) {
    if (key.code != forms::keyEscape)
        return;
    sPath = mStartPath;
    unload();
}

} // namespace tol::jobsites
