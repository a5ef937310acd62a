// SPDX-License-Identifier: MIT
#include "search_print/document/VSPrinter.h"

#include "search_print/document/DocumentFont.h"

#include <QFontMetricsF>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace tol::search_print {
namespace {

/// Where a line of that width begins between two edges.
double alignedLeft(int alignment, double left, double right, double width) {
    switch (alignment) {
    case alignCenter:
        return (left + right - width) / 2;
    case alignRight:
        return right - width;
    default:
        return left;
    }
}

constexpr double smallestFont = 4; // points; nobody reads less

} // namespace

void VSPrinter::previewNavigation(int mode) {
    m_navigation = mode;
    previewChanged();
}

void VSPrinter::ZoomMode(int mode) {
    m_zoomMode = mode;
    previewChanged();
}

double VSPrinter::PageWidth() const {
    return m_orientation == orientationLandscape ? m_paper.height : m_paper.width;
}

double VSPrinter::PageHeight() const {
    return m_orientation == orientationLandscape ? m_paper.width : m_paper.height;
}

void VSPrinter::setStyle(const DrawingStyle& style) {
    if (m_style.font != style.font)
        m_font.reset();
    m_style = style;
}

void VSPrinter::FontName(const std::string& name) {
    m_style.font.name = name;
    m_font.reset();
}

void VSPrinter::FontSize(double points) {
    m_style.font.size = points;
    m_font.reset();
}

void VSPrinter::FontBold(bool bold) {
    m_style.font.bold = bold;
    m_font.reset();
}

double VSPrinter::TextWidth(std::string_view text) {
    return font().width(text);
}

double VSPrinter::TextHeight(std::string_view) {
    return font().height();
}

double VSPrinter::wrappedHeight(std::string_view text) {
    return static_cast<double>(wrapped(text).size()) * font().height();
}

void VSPrinter::Text(std::string_view text) {
    const double width = TextWidth(text);
    const double left = m_style.TextAlign == alignLeft ? m_currentX
                                                       : alignedLeft(m_style.TextAlign, m_marginLeft,
                                                                     PageWidth() - m_marginRight, width);
    addText(left, m_currentY, printableText(text));
    m_currentX = left + width;
}

void VSPrinter::wrappedText(std::string_view text) {
    for (QString& line : wrapped(text)) {
        addText(m_marginLeft, m_currentY, std::move(line));
        m_currentY += font().height();
    }
}

void VSPrinter::TextBox(std::string_view text, double x, double y, double width, double height) {
    DrawRectangle(x, y, x + width, y + height);
    const double size = FontSize();
    if (const double needed = TextWidth(text); needed > width)
        FontSize(std::max(smallestFont, size * width / needed));
    addText(alignedLeft(m_style.TextAlign, x, x + width, TextWidth(text)),
            y + (height - TextHeight(text)) / 2, printableText(text));
    FontSize(size);
}

void VSPrinter::DrawRectangle(double x1, double y1, double x2, double y2) {
    if (x1 == x2 || y1 == y2)
        return add(Line{x1, y1, x2, y2, m_style.PenWidth});
    Box box{std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
    if (m_style.PenStyle == penSolid)
        box.penWidth = m_style.PenWidth;
    if (m_style.BrushStyle == brushSolid)
        box.fill = m_style.BrushColor;
    add(box);
}

void VSPrinter::StartDoc() {
    m_list.pages.clear();
    m_started = true;
    m_previewPage = 0;
    previewChanged();
}

void VSPrinter::NewPage() {
    if (!m_started)
        return;
    m_list.pages.push_back({PageWidth(), PageHeight(), {}});
    m_previewPage = std::max(m_previewPage, 1);
    previewChanged();
}

void VSPrinter::EndDoc() {
    m_started = false;
    previewChanged();
}

void VSPrinter::PreviewPage(int number) {
    if (number < 1 || number > PageCount() || number == m_previewPage)
        return;
    m_previewPage = number;
    previewChanged();
}

void VSPrinter::PrintDoc(bool dialog) {
    if (PageCount() > 0 && onPrint)
        onPrint(dialog);
}

void VSPrinter::previewChanged() const {
    if (onPreviewChanged)
        onPreviewChanged();
}

Page* VSPrinter::page() {
    if (m_started && m_list.pages.empty())
        NewPage();
    return m_started ? &m_list.pages.back() : nullptr;
}

void VSPrinter::add(Primitive primitive) {
    if (Page* current = page())
        current->primitives.push_back(std::move(primitive));
}

void VSPrinter::addText(double x, double y, QString text) {
    add(search_print::Text{x, y, fontPosition(), std::move(text)});
}

std::size_t VSPrinter::fontPosition() {
    if (!m_font)
        m_font = m_list.fontPosition(m_style.font);
    return *m_font;
}

std::vector<QString> VSPrinter::wrapped(std::string_view text) {
    const double room = PageWidth() - m_marginLeft - m_marginRight;
    const QFontMetricsF metrics(font().font());
    QStringList words = printableText(text).split(u' ');
    std::vector<QString> lines;
    QString line = words.takeFirst();
    for (const QString& word : words) {
        const QString longer = line + u' ' + word;
        if (!line.trimmed().isEmpty() && metrics.horizontalAdvance(longer) > room)
            lines.push_back(std::exchange(line, word));
        else
            line = longer;
    }
    lines.push_back(line);
    return lines;
}

} // namespace tol::search_print
