// SPDX-License-Identifier: MIT
#include "tolctl/rights/RightsDatabase.h"

#include "shell/vdfunctions/vdLocation.h"
#include "tolctl/ExitStatus.h"

namespace tol::ctl {

std::string networkFile() {
    ProgressLine progress(false);
    const TerminalHost host(progress);
    const std::string file = shell::vdNetPath("", false);
    if (file == "ERROR")
        throw Failure{ExitStatus::CouldNotStart, "there is no network database."};
    return file;
}

RightsDatabase::RightsDatabase(Use use)
    : workspace(data::DBEngine::CreateWorkspace("wksNET")),
      database(workspace.OpenDatabase(networkFile(), false, use == Use::Read)) {}

} // namespace tol::ctl
