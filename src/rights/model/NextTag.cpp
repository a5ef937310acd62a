// SPDX-License-Identifier: MIT
#include "rights/model/NextTag.h"

#include "runtime/Conversions.h"
#include "shell/vdfunctions/vdNullCheck.h"

namespace tol::rights {

std::int32_t NextTag(data::Recordset& tags, const std::string& counter) {
    std::int32_t tag = 1;
    if (tags.RecordCount() != 0) {
        tags.MoveFirst();
        tag = runtime::toLong(shell::vdNullCheck(tags.Fields(counter)));
        tags.Edit();
    } else {
        tags.AddNew();
    }
    tags.Fields(counter).Value(runtime::toLong(tag + 1.0));
    tags.Update();
    return tag;
}

} // namespace tol::rights
