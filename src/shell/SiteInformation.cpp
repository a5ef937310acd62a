// SPDX-License-Identifier: MIT
#include "shell/SiteInformation.h"

#include "platform/Paths.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdTexts.h"

namespace tol::shell {

data::OpenTable openSiteInformation(const std::string& folder, const std::string& database) {
    const std::string name = vdIsBlank(database) ? "MAIN.MDB" : runtime::upperCase(runtime::trim(database));
    return {"wksMAIN", platform::below(folder, name), "SITEINFO"};
}

void moveToSiteInformation(data::Recordset& SITEINFO) {
    if (SITEINFO.RecordCount() == 0) {
        SITEINFO.AddNew();
        SITEINFO.Update();
    }
    SITEINFO.MoveFirst();
}

} // namespace tol::shell
