// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"

#include <cstdint>
#include <functional>

namespace tol::rights {

/// Whose rights are filled, and from which template.
struct TemplateFill {
    std::int32_t userTag = 0;
    std::int32_t urtTag = 0;
};

/// Replaces the user's rights that came from the template by its items as they are now, one row after the
/// other; the user's other rights are not looked at. `rights` is USERRIGHTS and `items` URTITEMS; nobody
/// else may move them meanwhile. Yields after each item, and goes on to the next one if `goesOn` then says
/// so.
///
/// No transaction covers it: an error, or an end in the middle, leaves the old rows gone and the new ones
/// written so far. The same fill, run again, makes that good. Returns how many items were written.
std::int64_t FillFromTemplate(data::Recordset& rights, data::Recordset& items, const TemplateFill& fill,
                              const std::function<bool()>& goesOn);

} // namespace tol::rights
