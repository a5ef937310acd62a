// SPDX-License-Identifier: MIT
#include "shell/vdwindows/frmvdWarning.h"

#include "forms/controls/Controls.h"

#include <QCheckBox>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace tol::shell {

frmvdWarning::frmvdWarning()
    : Form("frmvdWarning"),
      m_lblWarning(forms::addLabel(*this, "lblWarning", {}, {1050, 240, 4200, 1215})),
      m_ckbWarnOption(forms::addCheckBox(*this, "ckbWarnOption", "Do Not Warn Again During this Report Run.",
                                         {1050, 1605, 4200, 300})) {
    setWindowTitle("Warning Form with Option");
    setScaleSize(5550, 2745);
    forms::addImage(*this, "picRedX", style()->standardIcon(QStyle::SP_MessageBoxCritical), "Warning",
                    {300, 300, 480, 480});
    m_lblWarning.setWordWrap(true);
    m_lblWarning.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QPushButton& ok =
        forms::addButton(*this, "cmdOK", "OK", {2175, 2145, 1200, 375}, [this] { cmdOK_Click(); });
    setDefaultButton(&ok);
    ok.setFocus();
}

void frmvdWarning::setWarning(const std::string& text) {
    m_lblWarning.setText(QString::fromStdString(text));
}

void frmvdWarning::cmdOK_Click() {
    bWarnAgain = !m_ckbWarnOption.isChecked();
    unload();
}

} // namespace tol::shell
