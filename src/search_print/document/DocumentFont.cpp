// SPDX-License-Identifier: MIT
#include "search_print/document/DocumentFont.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace tol::search_print {
namespace {

constexpr double twipsPerPoint = 20;
constexpr char firstPrintable = ' ', lastPrintable = '~';

struct Substitute {
    const char* name;
    const char* family;
};
constexpr std::array<Substitute, 3> substitutes = {{
    {"Arial", "Liberation Sans"},
    {"Times New Roman", "Liberation Serif"},
    {"Courier New", "Liberation Mono"},
}};

QFont fontInTwips(const FontSpec& spec) {
    QFont font(QString::fromStdString(substituteFamily(spec.name)));
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(spec.size * twipsPerPoint))));
    font.setBold(spec.bold);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace

std::string substituteFamily(const std::string& name) {
    const auto found = std::ranges::find(substitutes, name, &Substitute::name);
    return found != substitutes.end() ? found->family : name;
}

DocumentFont::DocumentFont(FontSpec spec) : m_spec(std::move(spec)), m_font(fontInTwips(m_spec)) {
    const QFontMetricsF metrics(m_font);
    m_ascent = metrics.ascent();
    m_height = metrics.height();
    for (char c = firstPrintable; c <= lastPrintable; ++c)
        m_advances[static_cast<unsigned char>(c)] = metrics.horizontalAdvance(QChar::fromLatin1(c));
    // A character that can't be printed is printed as a blank.
    std::fill_n(m_advances.begin(), firstPrintable, m_advances[' ']);
    m_advances.back() = m_advances[' '];
}

double DocumentFont::width(std::string_view text) const {
    double sum = 0;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= m_advances.size())
            return QFontMetricsF(m_font).horizontalAdvance(printableText(text));
        sum += m_advances[code];
    }
    return sum;
}

QString printableText(std::string_view text) {
    QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    std::ranges::replace_if(
        line,
        [](QChar c) {
            return c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
                   c == QChar::ParagraphSeparator;
        },
        QChar(u' '));
    return line;
}

} // namespace tol::search_print
