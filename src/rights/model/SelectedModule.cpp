// SPDX-License-Identifier: MIT
#include "rights/model/SelectedModule.h"

#include "shell/vdfunctions/vdNullCheck.h"

namespace tol::rights {

std::string selectedModule(data::Recordset& settings) {
    if (settings.RecordCount() == 0) {
        settings.AddNew();
        settings.Fields("MODULEID").Value("   ");
        settings.Update();
    }
    settings.MoveFirst();
    return shell::vdNullCheckText(settings.Fields("MODULEID"));
}

void selectModule(data::Recordset& settings, const std::string& moduleId) {
    selectedModule(settings); // there is a row
    settings.Edit();
    settings.Fields("MODULEID").Value(moduleId);
    settings.Update();
}

} // namespace tol::rights
