// SPDX-License-Identifier: MIT
#include "search_print/document/Paper.h"

#include <QLocale>

#include <algorithm>
#include <array>

namespace tol::search_print {

Paper defaultPaper() {
    static constexpr std::array letterCountries = {
        QLocale::Belize,       QLocale::Canada,      QLocale::Chile,      QLocale::Colombia,
        QLocale::CostaRica,    QLocale::Guatemala,   QLocale::Mexico,     QLocale::Nicaragua,
        QLocale::Panama,       QLocale::Philippines, QLocale::PuertoRico, QLocale::ElSalvador,
        QLocale::UnitedStates, QLocale::Venezuela};
    const QLocale system = QLocale::system();
    if (system.language() == QLocale::C)
        return paperA4;
    return std::ranges::find(letterCountries, system.territory()) != letterCountries.end() ? paperLetter
                                                                                           : paperA4;
}

} // namespace tol::search_print
