// SPDX-License-Identifier: MIT
#pragma once

#include "data/Recordset.h"

#include <cstdint>
#include <string>

namespace tol::rights {

/// The next number of a counter of NETTAGS ("UAITAG", "URTTAG" or "USERTAG"), which then stands one higher: 1
/// where the table has no row yet, 0 where the counter is Null. A number is never given out again, even when
/// the record for which it was taken is not saved. 6 when the counter is at its end.
std::int32_t NextTag(data::Recordset& tags, const std::string& counter);

} // namespace tol::rights
