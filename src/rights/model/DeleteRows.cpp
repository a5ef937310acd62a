// SPDX-License-Identifier: MIT
#include "rights/model/DeleteRows.h"

#include "runtime/Host.h"
#include "shell/vdfunctions/vdTexts.h"

namespace tol::rights {

// Each search begins anew: at a yield others may delete rows, or add some.
void deleteRows(data::Recordset& rows, const std::string& index, const shell::KeyPairs& keys) {
    while (shell::vdNotBlank(shell::vdFindFirst(rows, index, keys))) {
        rows.Delete();
        runtime::host().doEvents();
    }
}

} // namespace tol::rights
