// SPDX-License-Identifier: MIT
#include "forms/look/PlainStyle.h"

#include "forms/look/Pictures.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>
#include <iterator>

namespace tol::forms {
namespace {

struct MessageIcon {
    QStyle::StandardPixmap standard;
    QRgb background;
    char sign;
    bool triangle;
};

constexpr MessageIcon messageIcons[] = {
    {QStyle::SP_MessageBoxCritical, 0xffb3261e, 'x', false},
    {QStyle::SP_MessageBoxWarning, 0xffd98a00, '!', true},
    {QStyle::SP_MessageBoxInformation, 0xff1f6f8b, 'i', false},
    {QStyle::SP_MessageBoxQuestion, 0xff1f6f8b, '?', false},
};

constexpr int iconField = 32;

QPainterPath triangle() {
    QPainterPath path;
    path.addPolygon(QPolygonF{{16, 2}, {31, 29}, {1, 29}, {16, 2}});
    return path;
}

void paintQuestionMark(QPainter& painter) {
    QPainterPath hook(QPointF(11.5, 12));
    hook.cubicTo({11.5, 6}, {20.5, 6}, {20.5, 11.5});
    hook.cubicTo({20.5, 15}, {16, 15}, {16, 19});
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(hook);
    painter.drawPoint(QPointF(16, 24.5));
}

void paintSign(QPainter& painter, char sign) {
    painter.setPen(QPen(Qt::white, 3.6, Qt::SolidLine, Qt::RoundCap));
    switch (sign) {
    case 'x':
        painter.drawLine(QLineF(11, 11, 21, 21));
        painter.drawLine(QLineF(21, 11, 11, 21));
        break;
    case '!':
        painter.drawLine(QLineF(16, 12, 16, 19));
        painter.drawPoint(QPointF(16, 25));
        break;
    case 'i':
        painter.drawPoint(QPointF(16, 9));
        painter.drawLine(QLineF(16, 15, 16, 23));
        break;
    default:
        paintQuestionMark(painter);
    }
}

void paintIcon(QPainter& painter, const MessageIcon& icon) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(icon.background));
    if (icon.triangle)
        painter.drawPath(triangle());
    else
        painter.drawEllipse(1, 1, iconField - 2, iconField - 2);
    paintSign(painter, icon.sign);
}

} // namespace

PlainStyle::PlainStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

void PlainStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    // The focus is to be seen wherever it is, not only after it was moved by a key.
    if (widget->isWindow())
        widget->setAttribute(Qt::WA_KeyboardFocusChange);
}

void PlainStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_Frame || !option->state.testFlag(State_HasFocus))
        return;
    painter->save();
    painter->setPen(option->palette.color(QPalette::Highlight));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

void PlainStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element != CE_MenuBarItem || item == nullptr || widget == nullptr || !widget->hasFocus())
        return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionMenuItem lit(*item); // like that of an open menu
    lit.state.setFlag(State_Sunken, lit.state.testFlag(State_Selected));
    QProxyStyle::drawControl(element, &lit, painter, widget);
}

QIcon PlainStyle::standardIcon(StandardPixmap standard, const QStyleOption* option,
                               const QWidget* widget) const {
    const auto* icon = std::ranges::find(messageIcons, standard, &MessageIcon::standard);
    if (icon == std::end(messageIcons))
        return QProxyStyle::standardIcon(standard, option, widget);
    return drawnIcon({iconField, [icon](QPainter& painter, QIcon::Mode) { paintIcon(painter, *icon); }});
}

} // namespace tol::forms
