// SPDX-License-Identifier: MIT
#pragma once

#include "forms/events/EventProcedure.h"

#include <QList>
#include <QMdiArea>

namespace tol::forms {

enum class Arrangement { Cascade = 0, TileHorizontally = 1, TileVertically = 2 };

/// The inside of the main window, where its children lie.
class MdiArea : public QMdiArea {
  public:
    MdiArea(QWidget& parent, EventProcedure onEmptyClick);

    /// Arranges the children that are visible and not minimised, in the order in which they were opened; a
    /// maximised one is restored first. Horizontally tiled windows lie one below the other, vertically
    /// tiled ones side by side. A window of fixed size is moved only.
    void arrange(Arrangement style);
    /// What the frame of a child adds to the size of its inside.
    [[nodiscard]] QSize frameSize() const;

  private:
    [[nodiscard]] QList<QMdiSubWindow*> arrangeable() const;
    void tile(const QList<QMdiSubWindow*>& children, Qt::Orientation stacking);
    void cascade(const QList<QMdiSubWindow*>& children);
};

} // namespace tol::forms
