// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/DocumentFont.h"

#include <QRgb>
#include <QString>

#include <cstddef>
#include <deque>
#include <variant>
#include <vector>

class QPainter;

namespace tol::search_print {

// What stands on a page. Measures are twips from the page's upper left corner.

struct Line {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    double penWidth = 0;
    bool operator==(const Line&) const = default;
};

inline constexpr double noPen = -1;
inline constexpr QRgb noFill = 0; // fully transparent

/// A rectangle with a border, with an inside, or with both. The border's middle lies on the edges.
struct Box {
    double left = 0, top = 0, right = 0, bottom = 0;
    double penWidth = noPen;
    QRgb fill = noFill;
    bool operator==(const Box&) const = default;
};

/// One line of black text whose upper left corner lies at x, y.
struct Text {
    double x = 0, y = 0;
    std::size_t font = 0; ///< position among the page list's fonts
    QString text;
    bool operator==(const Text&) const = default;
};

using Primitive = std::variant<Line, Box, Text>;

struct Page {
    double width = 0, height = 0;
    std::vector<Primitive> primitives; ///< later ones lie above earlier ones
};

/// A document as it was drawn: the one thing that preview, printer and PDF file render.
class PageList {
  public:
    /// Position of the font among the document's fonts, where it is put if it is new.
    std::size_t fontPosition(const FontSpec& spec);
    [[nodiscard]] const DocumentFont& font(std::size_t position) const { return m_fonts[position]; }

    std::vector<Page> pages;

  private:
    std::deque<DocumentFont> m_fonts; // a few; references to them stay valid
};

/// Draws a page with a painter whose unit is the twip and whose origin is the page's upper left corner. The
/// paper itself is not drawn.
void paintPage(QPainter& painter, const PageList& list, const Page& page);

} // namespace tol::search_print
