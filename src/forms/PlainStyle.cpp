// SPDX-License-Identifier: MIT
#include "forms/PlainStyle.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QStyleFactory>

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

// Draws on a field of 32 by 32, whatever the size asked for.
class MessageIconEngine : public QIconEngine {
  public:
    explicit MessageIconEngine(const MessageIcon& icon) : m_icon(icon) {}

    void paint(QPainter* painter, const QRect& where, QIcon::Mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setWindow(0, 0, 32, 32);
        painter->setViewport(where);
        painter->setPen(Qt::NoPen);
        painter->setBrush(QColor::fromRgb(m_icon.background));
        if (m_icon.triangle)
            painter->drawPath(triangle());
        else
            painter->drawEllipse(1, 1, 30, 30);
        paintSign(*painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new MessageIconEngine(m_icon); }

  private:
    static QPainterPath triangle() {
        QPainterPath path;
        path.addPolygon(QPolygonF{{16, 2}, {31, 29}, {1, 29}, {16, 2}});
        return path;
    }

    void paintSign(QPainter& painter) const {
        const QPen pen(Qt::white, 3.6, Qt::SolidLine, Qt::RoundCap);
        painter.setPen(pen);
        switch (m_icon.sign) {
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

    static void paintQuestionMark(QPainter& painter) {
        QPainterPath hook(QPointF(11.5, 12));
        hook.cubicTo({11.5, 6}, {20.5, 6}, {20.5, 11.5});
        hook.cubicTo({20.5, 15}, {16, 15}, {16, 19});
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(hook);
        painter.drawPoint(QPointF(16, 24.5));
    }

    const MessageIcon& m_icon;
};

} // namespace

PlainStyle::PlainStyle() : QProxyStyle(QStyleFactory::create("Fusion")) {}

QIcon PlainStyle::standardIcon(StandardPixmap standard, const QStyleOption* option,
                               const QWidget* widget) const {
    const auto icon = std::ranges::find(messageIcons, standard, &MessageIcon::standard);
    return icon == std::end(messageIcons) ? QProxyStyle::standardIcon(standard, option, widget)
                                          : QIcon(new MessageIconEngine(*icon));
}

} // namespace tol::forms
