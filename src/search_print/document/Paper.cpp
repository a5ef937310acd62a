// SPDX-License-Identifier: MIT
#include "search_print/document/Paper.h"

#include <algorithm>
#include <array>

namespace tol::search_print {

Paper paperOf(const QLocale& locale) {
    static constexpr std::array letterCountries = {
        QLocale::Belize,       QLocale::Canada,      QLocale::Chile,      QLocale::Colombia,
        QLocale::CostaRica,    QLocale::Guatemala,   QLocale::Mexico,     QLocale::Nicaragua,
        QLocale::Panama,       QLocale::Philippines, QLocale::PuertoRico, QLocale::ElSalvador,
        QLocale::UnitedStates, QLocale::Venezuela};
    if (locale.language() == QLocale::C)
        return paperA4;
    return std::ranges::find(letterCountries, locale.territory()) != letterCountries.end() ? paperLetter
                                                                                           : paperA4;
}

Paper defaultPaper() {
    return paperOf(QLocale::system());
}

} // namespace tol::search_print
