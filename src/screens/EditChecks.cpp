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

EditCheck requiredCheck(std::string whenBlank, Fold fold) {
    return [whenBlank = std::move(whenBlank), fold](EditedField& edited) {
        if (shell::vdIsBlank(edited.text))
            return whenBlank;
        if (fold != nullptr)
            edited.setText(fold(edited.text));
        return std::string();
    };
}

EditCheck foldingCheck(Fold fold) {
    return [fold](EditedField& edited) {
        edited.setText(fold(edited.text));
        return std::string();
    };
}

EditCheck uniqueKeyCheck(std::string index, std::string whenBlank, std::string whenDuplicate, Fold fold) {
    return [required = requiredCheck(std::move(whenBlank), fold), index = std::move(index),
            whenDuplicate = std::move(whenDuplicate)](EditedField& edited) {
        std::string failure = required(edited);
        return failure.empty() && isTaken(edited, index) ? whenDuplicate : failure;
    };
}

EditCheck yesNoCheck(std::string whenBlank, std::string whenOther) {
    return [required = requiredCheck(std::move(whenBlank), runtime::upperCase),
            whenOther = std::move(whenOther)](EditedField& edited) {
        std::string failure = required(edited);
        const bool isOther = failure.empty() && edited.text != "Y" && edited.text != "N";
        return isOther ? whenOther : failure;
    };
}

} // namespace tol::screens
