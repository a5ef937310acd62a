// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <algorithm>
#include <string_view>

namespace tol::search_print {

/// The text as it goes on paper: one line, in which line breaks and other controls are blanks.
inline QString printableText(std::string_view text) {
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
