// SPDX-License-Identifier: MIT
#include "tol/Windows.h"

#include "definition_update/windows/frmDBUDDU.h"
#include "jobsites/frmDBPBrowse.h"
#include "locks/frmTOLRLKS01.h"
#include "rights/frmTOLMOD01.h"
#include "rights/frmTOLUAI01.h"
#include "rights/frmTOLURL01.h"
#include "rights/frmTOLURT01.h"
#include "rights/frmTOLUTL01.h"
#include "shell/frmTOLMAIN.h"

namespace tol {

namespace {

/// A window over the network database, of which there may be several.
template <typename Window>
std::unique_ptr<forms::Form> overNetwork(shell::frmTOLMAIN& owner) {
    return std::make_unique<Window>(owner.sNetPath);
}

} // namespace

void addWindows(shell::frmTOLMAIN& main) {
    main.addWindow("frmDBPBrowse",
                   [](shell::frmTOLMAIN&) { return std::make_unique<jobsites::frmDBPBrowse>(); });
    main.addWindow("frmTOLURL01", overNetwork<rights::frmTOLURL01>);
    main.addWindow("frmTOLURT01", overNetwork<rights::frmTOLURT01>);
    main.addWindow("frmTOLUAI01", overNetwork<rights::frmTOLUAI01>);
    main.addWindow("frmTOLMOD01", overNetwork<rights::frmTOLMOD01>);
    main.addWindow("frmTOLUTL01", overNetwork<rights::frmTOLUTL01>);
    main.addWindow("frmTOLRLKS01", overNetwork<locks::frmTOLRLKS01>);
    main.addWindow("frmDBUDDU", [](shell::frmTOLMAIN& owner) {
        auto window = std::make_unique<update::frmDBUDDU>();
        window->ModuleCode = "N";
        window->NetLocation = owner.sNetPath;
        return window;
    });
}

} // namespace tol
