// SPDX-License-Identifier: MIT
#include "shell/frmTOLSplash.h"

#include "forms/controls/Controls.h"
#include "forms/events/EventProcedure.h"
#include "shell/ProgramIcon.h"

#include <QFrame>
#include <QIcon>
#include <QLabel>
#include <QScreen>

namespace tol::shell {

using forms::addLabel;

frmTOLSplash::frmTOLSplash() : Form("frmTOLSplash") {
    setWindowTitle("Tolvane Module");
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setScaleSize(7200, 3600);
    QFrame& frame = forms::addFrame(*this, "Frame1", {150, 150, 6900, 3300});
    forms::addImage(frame, "Image1", programIcon(), "Program icon", {300, 750, 1800, 1800});
    forms::setTextSize(addLabel(frame, "lblSuiteName", "Zovarin Series", {2400, 450, 4350, 360}), 120);
    forms::setTextSize(addLabel(frame, "lblProductName", "Tolvane Module", {2400, 840, 4350, 600}), 220,
                       true);
    forms::setTextSize(addLabel(frame, "lblTools", "Project Administration Tools", {2400, 1500, 4350, 360}),
                       120);
    m_lblVersion = &addLabel(frame, "lblVersion", {}, {2400, 2490, 4350, 300});
    unloadOnClick();
}

void frmTOLSplash::setVersion(const QString& version) {
    m_lblVersion->setText(version);
}

void frmTOLSplash::onLoad() {
    const QRect screenArea = screen()->availableGeometry();
    move(screenArea.center() - rect().center());
}

void frmTOLSplash::onKeyDown(forms::KeyPress&) {
    unload();
}

void frmTOLSplash::unloadOnClick() {
    forms::onClick(*this, [this] { unload(); });
    for (QWidget* control : findChildren<QWidget*>())
        forms::onClick(*control, [this] { unload(); });
}

} // namespace tol::shell
