// SPDX-License-Identifier: MIT
#include "shell/vdwindows/vdFormLoadError.h"

#include "forms/controls/Controls.h"
#include "shell/vdfunctions/vdBoxes.h"

#include <QWidget>

namespace tol::shell {

void vdFormLoadError(QWidget& window, QWidget& button, std::string_view name, std::string_view number,
                     std::string_view description) {
    vdFormLoadErrorBox(name, number, description);
    forms::hideControls(window);
    for (QWidget* shown = &button; shown != &window && shown != nullptr; shown = shown->parentWidget())
        shown->show(); // with the frames around it
    button.setFocus();
}

} // namespace tol::shell
