// SPDX-License-Identifier: MIT
#include "screens/RowLabel.h"

#include "forms/look/Twips.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <utility>

namespace tol::screens {

RowLabel::RowLabel(QWidget& parent, const QString& name, TextCut cut) : QLabel(&parent), m_cut(cut) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_OpaquePaintEvent);
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

QString RowLabel::shownText() const {
    const Qt::TextElideMode ellipsis = m_cut == TextCut::Middle ? Qt::ElideMiddle : Qt::ElideRight;
    return fontMetrics().elidedText(text(), ellipsis, textRect().width());
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
    painter.drawText(textRect(), static_cast<int>(alignment()) | Qt::TextSingleLine, shownText());
}

} // namespace tol::screens
