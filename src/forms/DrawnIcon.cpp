// SPDX-License-Identifier: MIT
#include "forms/DrawnIcon.h"

#include <QIconEngine>
#include <QPainter>

namespace tol::forms {
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
