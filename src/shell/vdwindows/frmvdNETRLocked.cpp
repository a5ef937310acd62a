// SPDX-License-Identifier: MIT
#include "shell/vdwindows/frmvdNETRLocked.h"

#include "forms/controls/Controls.h"

#include <QLabel>
#include <QPushButton>

namespace tol::shell {

using forms::addButton;
using forms::addLabel;

frmvdNETRLocked::frmvdNETRLocked()
    : Form("frmvdNETRLocked"),
      m_lblTABLENAME(addLabel(*this, "lblTABLENAME", {}, {1800, 300, 3450, 270})),
      m_lblUSERNAME(addLabel(*this, "lblUSERNAME", {}, {1800, 630, 3450, 270})),
      m_lblRLTIMESTAMP(addLabel(*this, "lblRLTIMESTAMP", {}, {1800, 960, 3450, 270})) {
    setWindowTitle("Record Locked");
    setScaleSize(5550, 2775);
    addLabel(*this, "lblHTABLENAME", "Table Name: ", {300, 300, 1500, 270});
    addLabel(*this, "lblHUSERNAME", "User Name: ", {300, 630, 1500, 270});
    addLabel(*this, "lblHRLTIMESTAMP", "Time Stamp: ", {300, 960, 1500, 270});
    addLabel(*this, "lblExplain", "The Record you are attemping to access is locked by the above user.",
             {300, 1395, 4950, 600})
        .setWordWrap(true);
    QPushButton& ok = addButton(*this, "cmdOK", "OK", {1200, 2190, 1200, 375}, [this] { finish(false); });
    addButton(*this, "cmdREMOVE", "Remove Lock", {2700, 2190, 1650, 375}, [this] { finish(true); });
    setDefaultButton(&ok);
    setCancelButton(&ok);
}

void frmvdNETRLocked::setLock(const std::string& table, const std::string& user,
                              const std::string& timeStamp) {
    m_lblTABLENAME.setText(QString::fromStdString(table));
    m_lblUSERNAME.setText(QString::fromStdString(user));
    m_lblRLTIMESTAMP.setText(QString::fromStdString(timeStamp));
}

void frmvdNETRLocked::finish(bool remove) {
    bRemove = remove;
    unload();
}

} // namespace tol::shell
