// SPDX-License-Identifier: MIT
#include "search_print/document/PageList.h"

#include <QPainter>

#include <algorithm>

namespace tol::search_print {
namespace {

QPen solidPen(double width) {
    QPen pen(Qt::black, width);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

/// Draws primitives one by one; pen, brush and font are set only where they change, since a row of cells
/// has them all alike.
class PrimitivePainter {
  public:
    PrimitivePainter(QPainter& painter, const PageList& list) : m_painter(painter), m_list(list) {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(Qt::NoBrush);
    }

    void operator()(const Line& line) {
        usePen(line.penWidth);
        m_painter.drawLine(QLineF(line.x1, line.y1, line.x2, line.y2));
    }

    void operator()(const Box& box) {
        usePen(box.penWidth);
        useFill(box.fill);
        m_painter.drawRect(QRectF(QPointF(box.left, box.top), QPointF(box.right, box.bottom)));
    }

    void operator()(const Text& text) {
        const DocumentFont& font = m_list.font(text.font);
        if (m_font != &font)
            m_painter.setFont(font.font());
        m_font = &font;
        if (m_pen == noPen) // of any width: texts are filled, not stroked
            usePen(0);
        m_painter.drawText(QPointF(text.x, text.y + font.ascent()), text.text);
    }

  private:
    void usePen(double width) {
        if (m_pen == width)
            return;
        m_painter.setPen(width == noPen ? QPen(Qt::NoPen) : solidPen(width));
        m_pen = width;
    }

    void useFill(QRgb fill) {
        if (m_fill == fill)
            return;
        m_painter.setBrush(fill == noFill ? QBrush(Qt::NoBrush) : QBrush(QColor(fill)));
        m_fill = fill;
    }

    QPainter& m_painter;
    const PageList& m_list;
    double m_pen = noPen;
    QRgb m_fill = noFill;
    const DocumentFont* m_font = nullptr;
};

} // namespace

std::size_t PageList::fontPosition(const FontSpec& spec) {
    const auto known = std::ranges::find(m_fonts, spec, &DocumentFont::spec);
    if (known != m_fonts.end())
        return static_cast<std::size_t>(known - m_fonts.begin());
    m_fonts.emplace_back(spec);
    return m_fonts.size() - 1;
}

void paintPage(QPainter& painter, const PageList& list, const Page& page) {
    PrimitivePainter paint(painter, list);
    for (const Primitive& primitive : page.primitives)
        std::visit(paint, primitive);
}

} // namespace tol::search_print
