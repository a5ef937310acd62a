// SPDX-License-Identifier: MIT
#include "screens/RowLabel.h"

#include "forms/Twips.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace tol::screens {

RowLabel::RowLabel(QWidget& parent, const QString& name) : QLabel(&parent) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void RowLabel::setBackColor(QRgb color) {
    m_backColor = color;
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
    return fontMetrics().elidedText(text(), Qt::ElideRight, textRect().width());
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
    painter.drawText(textRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shownText());
}

} // namespace tol::screens
