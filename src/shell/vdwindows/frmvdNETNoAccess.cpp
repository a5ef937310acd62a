// SPDX-License-Identifier: MIT
#include "shell/vdwindows/frmvdNETNoAccess.h"

#include "forms/controls/Controls.h"

#include <QLabel>
#include <QPushButton>

namespace tol::shell {

using forms::addLabel;

frmvdNETNoAccess::frmvdNETNoAccess()
    : Form("frmvdNETNoAccess"),
      m_lblUSERNAME(addLabel(*this, "lblUSERNAME", {}, {1650, 855, 3600, 270})),
      m_lblProcess(addLabel(*this, "lblProcess", {}, {1650, 1185, 3600, 270})) {
    setWindowTitle("Access Denied");
    setScaleSize(5550, 3225);
    forms::setTextSize(addLabel(*this, "lblAccessDenied", "Access Denied", {300, 210, 4950, 420}), 150, true);
    addLabel(*this, "lblHUserName", "User Name: ", {300, 855, 1350, 270});
    addLabel(*this, "lblHProcess", "Process: ", {300, 1185, 1350, 270});
    addLabel(*this, "lblExplain",
             "The above User is denied access to the above process.  For permission to access the above "
             "process contact your network administrator.",
             {300, 1620, 4950, 855})
        .setWordWrap(true);
    QPushButton& ok = forms::addButton(*this, "cmdOK", "OK", {2175, 2640, 1200, 375}, [this] { unload(); });
    setDefaultButton(&ok);
    setCancelButton(&ok);
}

void frmvdNETNoAccess::setDenied(const std::string& user, const std::string& process) {
    m_lblUSERNAME.setText(QString::fromStdString(user));
    m_lblProcess.setText(QString::fromStdString(process));
}

} // namespace tol::shell
