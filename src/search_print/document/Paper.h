// SPDX-License-Identifier: MIT
#pragma once

namespace tol::search_print {

/// Size of a sheet held upright, in twips.
struct Paper {
    double width = 0, height = 0;
    bool operator==(const Paper&) const = default;
};

inline constexpr Paper paperA4{11906, 16838};
inline constexpr Paper paperLetter{12240, 15840};

/// The usual paper of the country that the system is set up for; A4 where that is not told.
Paper defaultPaper();

} // namespace tol::search_print
