// SPDX-License-Identifier: MIT
#include "forms/windows/MdiArea.h"

#include <QMdiSubWindow>
#include <QStyle>

#include <algorithm>

namespace tol::forms {
namespace {

void putInto(QMdiSubWindow& child, const QRect& where) {
    child.move(where.topLeft());
    child.resize(where.size().expandedTo(child.minimumSizeHint())); // within its own limits
}

} // namespace

MdiArea::MdiArea(QWidget& parent, EventProcedure onEmptyClick) : QMdiArea(&parent) {
    setObjectName("mdiArea");
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    onClick(*viewport(), std::move(onEmptyClick));
}

QSize MdiArea::frameSize() const {
    const int border = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, this);
    return {2 * border, style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this) + border};
}

void MdiArea::arrange(Arrangement style) {
    const QList<QMdiSubWindow*> children = arrangeable();
    if (children.empty())
        return;
    for (QMdiSubWindow* child : children)
        if (child->isMaximized())
            child->showNormal();
    if (style == Arrangement::Cascade)
        cascade(children);
    else
        tile(children, style == Arrangement::TileHorizontally ? Qt::Vertical : Qt::Horizontal);
}

QList<QMdiSubWindow*> MdiArea::arrangeable() const {
    QList<QMdiSubWindow*> children = subWindowList(QMdiArea::CreationOrder);
    children.removeIf([](const QMdiSubWindow* child) { return child->isHidden() || child->isMinimized(); });
    return children;
}

void MdiArea::tile(const QList<QMdiSubWindow*>& children, Qt::Orientation stacking) {
    const QSize area = viewport()->size();
    const auto count = static_cast<int>(children.size());
    for (int i = 0; i < count; ++i) {
        const auto edge = [&](int number, int length) { return number * length / count; };
        QRect part(QPoint(0, 0), area);
        if (stacking == Qt::Vertical) {
            part.setTop(edge(i, area.height()));
            part.setBottom(edge(i + 1, area.height()) - 1);
        } else {
            part.setLeft(edge(i, area.width()));
            part.setRight(edge(i + 1, area.width()) - 1);
        }
        putInto(*children[i], part);
    }
}

void MdiArea::cascade(const QList<QMdiSubWindow*>& children) {
    const QSize area = viewport()->size();
    const int step = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
    QPoint corner(0, 0);
    for (QMdiSubWindow* child : children) {
        const QSize size = (area * 2 / 3).boundedTo(child->maximumSize()).expandedTo(child->minimumSize());
        const QRect where(corner, size);
        // Windows that would leave the area start a new staircase in its corner.
        if (where.right() >= area.width() || where.bottom() >= area.height())
            corner = QPoint(0, 0);
        putInto(*child, QRect(corner, size));
        child->raise();
        corner += QPoint(step, step);
    }
    setActiveSubWindow(children.back());
}

} // namespace tol::forms
