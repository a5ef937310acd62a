// SPDX-License-Identifier: MIT
#include "tol/Windows.h"

#include "definition_update/windows/frmDBUDDU.h"
#include "shell/frmTOLMAIN.h"

namespace tol {

void addWindows(shell::frmTOLMAIN& main) {
    main.addWindow("frmDBUDDU", [](shell::frmTOLMAIN& owner) {
        auto window = std::make_unique<update::frmDBUDDU>();
        window->ModuleCode = "N";
        window->NetLocation = owner.sNetPath;
        return window;
    });
}

} // namespace tol
