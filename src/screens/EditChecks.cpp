// SPDX-License-Identifier: MIT
#include "screens/EditChecks.h"

#include "shell/vdfunctions/vdTexts.h"

namespace tol::screens {
namespace {

/// Whether another record than the edited one has the text as its key.
bool isTaken(EditedField& edited, const std::string& index) {
    edited.recordset.Index(index);
    edited.recordset.Seek("=", {edited.text});
    if (edited.recordset.NoMatch())
        return false;
    return edited.mode == EditMode::Add || edited.recordset.Bookmark() != edited.currentMark;
}

} // namespace

EditCheck requiredCheck(std::string whenBlank) {
    return [whenBlank = std::move(whenBlank)](EditedField& edited) {
        return shell::vdIsBlank(edited.text) ? whenBlank : std::string();
    };
}

EditCheck uniqueKeyCheck(std::string index, std::string whenBlank, std::string whenDuplicate,
                         std::string (*fold)(std::string_view)) {
    return [index = std::move(index), whenBlank = std::move(whenBlank),
            whenDuplicate = std::move(whenDuplicate), fold](EditedField& edited) {
        if (shell::vdIsBlank(edited.text))
            return whenBlank;
        edited.setText(fold(edited.text));
        return isTaken(edited, index) ? whenDuplicate : std::string();
    };
}

} // namespace tol::screens
