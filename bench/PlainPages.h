// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/PageList.h"

#include <QPainter>
#include <QPdfWriter>

#include <vector>

namespace tol::bench {

/// What the report consists of, as plain lists for the painter.
struct PlainBox {
    QRectF rectangle;
    QPen pen;
    QBrush brush;
};
struct PlainText {
    QPointF baseline;
    QString text;
    const QFont* font;
};
struct PlainPage {
    std::vector<PlainBox> boxes;
    std::vector<PlainText> texts;
};

inline std::vector<PlainPage> plainPages(const search_print::PageList& list) {
    std::vector<PlainPage> pages;
    for (const search_print::Page& page : list.pages) {
        PlainPage plain;
        for (const search_print::Primitive& primitive : page.primitives) {
            if (const auto* box = std::get_if<search_print::Box>(&primitive))
                plain.boxes.push_back(
                    {QRectF(QPointF(box->left, box->top), QPointF(box->right, box->bottom)),
                     QPen(Qt::black, box->penWidth),
                     box->fill == search_print::noFill ? QBrush(Qt::NoBrush) : QBrush(QColor(box->fill))});
            if (const auto* text = std::get_if<search_print::Text>(&primitive)) {
                const auto& font = list.font(text->font);
                plain.texts.push_back({QPointF(text->x, text->y + font.ascent()), text->text, &font.font()});
            }
        }
        pages.push_back(std::move(plain));
    }
    return pages;
}

inline void paintPlainly(const std::vector<PlainPage>& pages, const QString& file) {
    QPdfWriter writer(file);
    writer.setResolution(1440);
    writer.setPageMargins({});
    QPainter painter(&writer);
    for (const PlainPage& page : pages) {
        if (&page != &pages.front())
            writer.newPage();
        for (const PlainBox& box : page.boxes) {
            painter.setPen(box.pen);
            painter.setBrush(box.brush);
            painter.drawRect(box.rectangle);
        }
        const QFont* font = nullptr;
        for (const PlainText& text : page.texts) {
            if (font != text.font)
                painter.setFont(*text.font);
            font = text.font;
            painter.drawText(text.baseline, text.text);
        }
    }
}

} // namespace tol::bench
