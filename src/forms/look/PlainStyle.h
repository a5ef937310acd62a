// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace tol::forms {

/// How the program looks, the same on every desktop: a plain light style with message icons of its own,
/// that shows where the focus is.
class PlainStyle : public QProxyStyle {
  public:
    PlainStyle();

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;

    /// Gives lists that have the focus a frame of another color.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    /// Lights the chosen title of a menu bar that has the keyboard.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap standard, const QStyleOption* option,
                       const QWidget* widget) const override;
};

} // namespace tol::forms
