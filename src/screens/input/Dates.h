// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tol::screens {

/// A month-first date text ("1/2/03") as the sort key "20030102"; 8 blanks unless it has exactly two
/// separators. The pivot is cleaned in place: its absolute value, 70 for 0 or above 99. A year of fewer than
/// three characters belongs to 19xx when it is above the pivot, else to 20xx. No range check.
std::string vdDateKey(std::string_view text, int& pivot);

/// A date text ("1/2/03", "1.2.2003", "010203") checked and brought into one form: width 6 MMDDYY,
/// 8 MM/DD/YY, any other MM/DD/YYYY; " " for a text that is no date. The pivot is cleaned as above. The form
/// of width 6 has no separators, so a 29 February that its year lacks goes unnoticed there.
std::string vdDateCheck(std::string_view text, int width, int& pivot);

} // namespace tol::screens
