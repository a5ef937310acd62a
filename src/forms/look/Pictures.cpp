// SPDX-License-Identifier: MIT
#include "forms/look/Pictures.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace tol::forms {
namespace {

constexpr QRgb ink = 0xff2f4858, paleInk = 0xffa9b2b8, folderColor = 0xffe3b341, paper = 0xffffffff;

QPainterPath shape(std::initializer_list<QPolygonF> outlines) {
    QPainterPath path;
    for (const QPolygonF& outline : outlines) {
        path.addPolygon(outline);
        path.closeSubpath();
    }
    return path;
}

QPolygonF upArrow(double top, double height) {
    return {{8, top}, {13, top + height}, {3, top + height}};
}

/// The arrows point up here; their counterparts are the same, upside down.
QPainterPath arrows(Picture which) {
    static const QPolygonF bar{{3, 2}, {13, 2}, {13, 4}, {3, 4}};
    switch (which) {
    case Picture::First:
    case Picture::Last:
        return shape({bar, upArrow(6, 7)});
    case Picture::PageUp:
    case Picture::PageDown:
        return shape({upArrow(2, 6), upArrow(8, 6)});
    default:
        return shape({upArrow(5, 6)});
    }
}

bool pointsDown(Picture which) {
    return which == Picture::Last || which == Picture::PageDown || which == Picture::LineDown;
}

void paintArrows(QPainter& painter, Picture which, QRgb color) {
    if (pointsDown(which)) {
        painter.translate(0, 16);
        painter.scale(1, -1);
    }
    painter.fillPath(arrows(which), QColor::fromRgb(color));
}

void paintAction(QPainter& painter, QRgb color) {
    painter.fillPath(shape({{{5, 3}, {12, 8}, {5, 13}}}), QColor::fromRgb(color));
}

void paintFolder(QPainter& painter, QRgb color, bool open) {
    painter.setPen(QPen(QColor::fromRgb(color), 1));
    painter.setBrush(QColor::fromRgb(folderColor));
    painter.drawPath(shape({{{1.5, 13.5}, {1.5, 3.5}, {6.5, 3.5}, {8.5, 5.5}, {13.5, 5.5}, {13.5, 13.5}}}));
    if (open) {
        painter.setBrush(QColor::fromRgb(folderColor).lighter(125));
        painter.drawPath(shape({{{1.5, 13.5}, {4.5, 8.5}, {15.5, 8.5}, {13.5, 13.5}}}));
    }
}

void paintDrive(QPainter& painter, QRgb color) {
    painter.setPen(QPen(QColor::fromRgb(color), 1));
    painter.setBrush(QColor::fromRgb(color).lighter(300));
    painter.drawRoundedRect(QRectF(1.5, 5.5, 13, 6), 1, 1);
    painter.fillRect(QRectF(11, 8, 2, 1), QColor::fromRgb(color));
}

void paintFile(QPainter& painter, QRgb color) {
    painter.setPen(QPen(QColor::fromRgb(color), 1));
    painter.setBrush(QColor::fromRgb(paper));
    painter.drawPath(shape({{{3.5, 1.5}, {9.5, 1.5}, {12.5, 4.5}, {12.5, 14.5}, {3.5, 14.5}}}));
    for (const double y : {6.5, 8.5, 10.5})
        painter.drawLine(QLineF(5.5, y, 10.5, y));
}

void paint(Picture which, QPainter& painter, QRgb color) {
    switch (which) {
    case Picture::Action:
        return paintAction(painter, color);
    case Picture::Folder:
    case Picture::OpenFolder:
        return paintFolder(painter, color, which == Picture::OpenFolder);
    case Picture::Drive:
        return paintDrive(painter, color);
    case Picture::File:
        return paintFile(painter, color);
    default:
        return paintArrows(painter, which, color);
    }
}

} // namespace

QIcon picture(Picture which) {
    return drawnIcon({16, [which](QPainter& painter, QIcon::Mode mode) {
                          paint(which, painter, mode == QIcon::Disabled ? paleInk : ink);
                      }});
}

namespace {

class DrawnIconEngine : public QIconEngine {
  public:
    explicit DrawnIconEngine(Drawing drawing) : m_drawing(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& where, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(where.topLeft());
        painter->scale(double(where.width()) / m_drawing.field, double(where.height()) / m_drawing.field);
        m_drawing.paint(*painter, mode);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return picture;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new DrawnIconEngine(m_drawing); }

  private:
    Drawing m_drawing;
};

} // namespace

QIcon drawnIcon(Drawing drawing) {
    return QIcon(new DrawnIconEngine(std::move(drawing)));
}

} // namespace tol::forms
