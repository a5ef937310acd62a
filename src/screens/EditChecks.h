// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Text.h"
#include "screens/EditDescription.h"

#include <string>
#include <string_view>

namespace tol::screens {

/// The checks that most boxes need. Each returns a check for EditField::check.

using Fold = std::string (*)(std::string_view);

/// The box may not be blank; its text is folded where that is wanted.
EditCheck requiredCheck(std::string whenBlank, Fold fold = nullptr);
/// The box may hold any text, which is folded.
EditCheck foldingCheck(Fold fold);
/// The box may not be blank, its text is folded, to upper case unless told otherwise, and no other record of
/// the table may have it as key in that index.
EditCheck uniqueKeyCheck(std::string index, std::string whenBlank, std::string whenDuplicate,
                         Fold fold = runtime::upperCase);
/// The box has to hold "Y" or "N", in either case; it is folded to upper case.
EditCheck yesNoCheck(std::string whenBlank, std::string whenOther);

} // namespace tol::screens
