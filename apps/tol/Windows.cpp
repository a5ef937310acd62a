// SPDX-License-Identifier: MIT
#include "tol/Windows.h"

#include "definition_update/windows/frmDBUDDU.h"
#include "jobsites/frmDBPBrowse.h"
#include "locks/frmTOLRLKS01.h"
#include "network/frmNETPATH.h"
#include "network/frmNETSET.h"
#include "rights/frmTOLMOD01.h"
#include "rights/frmTOLUAI01.h"
#include "rights/frmTOLURL01.h"
#include "rights/frmTOLURT01.h"
#include "rights/frmTOLUTL01.h"
#include "shell/frmAboutView.h"
#include "shell/frmTOLMAIN.h"

namespace tol {

namespace {

/// A window over the network database, of which there may be several.
template <typename Window>
std::unique_ptr<forms::Form> overNetwork(shell::frmTOLMAIN& owner) {
    return std::make_unique<Window>(owner.sNetPath);
}

std::unique_ptr<forms::Form> aboutBox(shell::frmTOLMAIN& owner) {
    auto about = std::make_unique<shell::frmAboutView>(
        shell::AboutData{.folder = owner.sNetPath, .mode = "A", .database = "ZOVNET.MDB", .notice = {}});
    about->setWindowTitle("About Tolvane Module");
    about->setModule("Tolvane Module", owner.sVersion);
    return about;
}

} // namespace

void addWindows(shell::frmTOLMAIN& main) {
    main.addWindow("frmNETPATH", [](shell::frmTOLMAIN& owner) {
        return std::make_unique<network::frmNETPATH>(
            [&owner](const std::string& newPath) { owner.sNetPath = newPath; });
    });
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
    main.addWindow("frmNETSET", [](shell::frmTOLMAIN& owner) {
        return std::make_unique<network::frmNETSET>(owner.sNetPath, "NET");
    });
    main.addWindow("frmAboutView", aboutBox);
}

} // namespace tol
