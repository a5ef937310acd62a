// SPDX-License-Identifier: MIT
#include "tolctl/rights/RightsDatabase.h"

#include "shell/vdfunctions/vdLocation.h"
#include "tolctl/ExitStatus.h"

namespace tol::ctl {

RightsDatabase::RightsDatabase(Use use) : workspace(data::DBEngine::CreateWorkspace("wksNET")) {
    const std::string file = shell::vdNetPath("", false);
    if (file == "ERROR")
        throw Failure{ExitStatus::CouldNotStart, "there is no network database."};
    database = workspace.OpenDatabase(file, false, use == Use::Read);
}

} // namespace tol::ctl
