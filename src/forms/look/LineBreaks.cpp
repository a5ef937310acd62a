// SPDX-License-Identifier: MIT
#include "forms/look/LineBreaks.h"

#include <QFontMetrics>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace tol::forms {
namespace {

bool hasSeparator(const QString& word) {
    return word.contains(u'\\') || word.contains(u'/');
}

/// "C:\", "\\SERVER" or "/srv", with or without a bracket or quotation mark before it.
bool startsPath(const QString& word) {
    static const QRegularExpression start(R"(^['"(]*([A-Za-z]:|\\\\|/))");
    return start.match(word).hasMatch();
}

/// Number of the last word of what begins with that word. A path may hold blanks: it goes on as long as a
/// separator is still to come before another path begins.
qsizetype endOfPath(const QStringList& words, qsizetype first) {
    qsizetype end = first;
    for (qsizetype next = first + 1; next < words.size() && !startsPath(words[next]); ++next)
        if (hasSeparator(words[next]))
            end = next;
    return end;
}

qsizetype endOfQuotation(const QStringList& words, qsizetype first) {
    static const QRegularExpression close(R"(['"][).,:;?!]*$)");
    for (qsizetype end = first; end < words.size(); ++end)
        if (close.match(words[end], end == first ? 1 : 0).hasMatch())
            return end;
    return first;
}

qsizetype endOfUnit(const QStringList& words, qsizetype first) {
    const QString& word = words[first];
    if (word.startsWith(u'\'') || word.startsWith(u'"'))
        return endOfQuotation(words, first);
    return startsPath(word) ? endOfPath(words, first) : first;
}

/// What a line is not broken in, from one blank that it may end at to the next.
QStringList unitsOf(const QString& line) {
    const QStringList words = line.split(u' ');
    QStringList units;
    for (qsizetype first = 0; first < words.size();) {
        const qsizetype end = endOfUnit(words, first);
        units.push_back(words.sliced(first, end - first + 1).join(u' '));
        first = end + 1;
    }
    return units;
}

/// The length of the part that fits, behind a separator where there is one.
qsizetype fittingLength(const QString& unit, const QFontMetrics& font, int widest) {
    qsizetype fitting = 1;
    while (fitting < unit.size() && font.horizontalAdvance(unit.first(fitting + 1)) <= widest)
        ++fitting;
    const QString part = unit.first(fitting);
    const qsizetype separator = std::max(part.lastIndexOf(u'\\'), part.lastIndexOf(u'/'));
    return separator > 0 ? separator + 1 : fitting;
}

void breakUp(QString unit, QStringList& lines, const QFontMetrics& font, int widest) {
    while (font.horizontalAdvance(unit) > widest) {
        const qsizetype length = fittingLength(unit, font, widest);
        lines.push_back(unit.first(length));
        unit.remove(0, length);
    }
    lines.push_back(unit);
}

} // namespace

QString inLines(const QString& text, const QFontMetrics& font, int width, int widest) {
    QStringList lines;
    for (const QString& paragraph : text.split(u'\n')) {
        bool begun = false;
        for (const QString& unit : unitsOf(paragraph)) {
            if (begun && font.horizontalAdvance(lines.back() + u' ' + unit) <= width)
                lines.back() += u' ' + unit;
            else
                breakUp(unit, lines, font, widest);
            begun = true;
        }
    }
    return lines.join(u'\n');
}

} // namespace tol::forms
