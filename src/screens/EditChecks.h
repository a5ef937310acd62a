// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/Text.h"
#include "screens/EditDescription.h"

#include <string>
#include <string_view>

namespace tol::screens {

/// The checks that most boxes need. Each returns a check for EditField::check.

/// The box may not be blank.
EditCheck requiredCheck(std::string whenBlank);
/// The box may not be blank, its text is folded, to upper case unless told otherwise, and no other record of
/// the table may have it as key in that index.
EditCheck uniqueKeyCheck(std::string index, std::string whenBlank, std::string whenDuplicate,
                         std::string (*fold)(std::string_view) = runtime::upperCase);

} // namespace tol::screens
