// SPDX-License-Identifier: MIT
#include "screens/RowLabel.h"

#include "forms/look/Twips.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <QtMath>

#include <utility>

namespace tol::screens {

RowLabel::RowLabel(QWidget& parent, const QString& name, TextCut cut) : QLabel(&parent), m_cut(cut) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_layout.setCacheEnabled(true);
    QFont quick;
    quick.setStyleStrategy(QFont::PreferNoShaping); // letters of a list need no kerning
    setFont(quick);
}

void RowLabel::setBackColor(QRgb color) {
    if (std::exchange(m_backColor, color) != color)
        update();
}

void RowLabel::setTransparent() {
    m_transparent = true;
    setAttribute(Qt::WA_OpaquePaintEvent, false);
}

QRect RowLabel::textRect() const {
    const int blank = forms::toPixels(margin);
    return rect().adjusted(blank, 0, -blank, 0);
}

/// The text is shaped but once for each time it changes, which is most of what it costs to paint a list.
QTextLine RowLabel::line() const {
    const int width = textRect().width();
    if (m_laidOut != text() || m_laidOutWidth != width) {
        m_laidOut = text();
        m_laidOutWidth = width;
        layOut(m_laidOut);
        const Qt::TextElideMode ellipsis = m_cut == TextCut::Middle ? Qt::ElideMiddle : Qt::ElideRight;
        if (m_layout.lineAt(0).naturalTextWidth() > width)
            layOut(fontMetrics().elidedText(m_laidOut, ellipsis, width));
    }
    return m_layout.lineAt(0);
}

void RowLabel::layOut(const QString& text) const {
    m_layout.setText(text);
    m_layout.setFont(font());
    m_layout.beginLayout();
    m_layout.createLine();
    m_layout.endLayout();
}

QString RowLabel::shownText() const {
    static_cast<void>(line());
    return m_layout.text();
}

bool RowLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    const bool whole = shownText() == text();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), whole ? QString() : text(), this);
    return true;
}

void RowLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!m_transparent)
        painter.fillRect(rect(), m_backColor);
    painter.setPen(Qt::black);
    const QTextLine text = line();
    const QSize size(qCeil(text.naturalTextWidth()), qCeil(text.height()));
    text.draw(&painter, QStyle::alignedRect(layoutDirection(), alignment(), size, textRect()).topLeft());
}

} // namespace tol::screens
