// SPDX-License-Identifier: MIT
#include "tol/Windows.h"

#include "definition_update/windows/frmDBUDDU.h"
#include "jobsites/frmDBPBrowse.h"
#include "rights/frmTOLMOD01.h"
#include "shell/frmTOLMAIN.h"

namespace tol {

void addWindows(shell::frmTOLMAIN& main) {
    main.addWindow("frmDBPBrowse",
                   [](shell::frmTOLMAIN&) { return std::make_unique<jobsites::frmDBPBrowse>(); });
    main.addWindow("frmTOLMOD01", [](shell::frmTOLMAIN& owner) {
        return std::make_unique<rights::frmTOLMOD01>(owner.sNetPath);
    });
    main.addWindow("frmDBUDDU", [](shell::frmTOLMAIN& owner) {
        auto window = std::make_unique<update::frmDBUDDU>();
        window->ModuleCode = "N";
        window->NetLocation = owner.sNetPath;
        return window;
    });
}

} // namespace tol
