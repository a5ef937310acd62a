// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QFontMetrics;

namespace tol::forms {

/// The text with line ends put in, so that no line is wider than `width` pixels. A line ends only at a blank,
/// and not at one within a path or between quotation marks: a path that is wider stands on a line of
/// its own. What is wider than `widest` is broken behind the last separator of folders that fits.
QString inLines(const QString& text, const QFontMetrics& font, int width, int widest);

} // namespace tol::forms
