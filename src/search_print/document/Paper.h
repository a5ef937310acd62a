// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>

namespace tol::search_print {

/// Size of a sheet held upright, in twips.
struct Paper {
    double width = 0, height = 0;
    bool operator==(const Paper&) const = default;
};

inline constexpr Paper paperA4{11906, 16838};
inline constexpr Paper paperLetter{12240, 15840};

/// The usual paper of a locale's country; A4 where it names none.
Paper paperOf(const QLocale& locale);
/// That of the country that the system is set up for.
Paper defaultPaper();

} // namespace tol::search_print
