// SPDX-License-Identifier: MIT
#include "shell/ProgramIcon.h"

#include <QIcon>
#include <QString>

// Resources of a static library are not there until asked for, and the macro works in no namespace.
static void initIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace tol::shell {

QIcon programIcon() {
    initIcons();
    QIcon icon;
    for (const int size : {16, 32, 48, 256})
        icon.addFile(QString(":/icons/org.tolvane.Tol-%1.png").arg(size));
    return icon;
}

} // namespace tol::shell
