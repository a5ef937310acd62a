// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace tol::forms {

/// How the program looks, the same on every desktop: a plain light style whose message icons are drawn, so
/// that they are crisp at any scale.
class PlainStyle : public QProxyStyle {
  public:
    PlainStyle();

    QIcon standardIcon(StandardPixmap standard, const QStyleOption* option,
                       const QWidget* widget) const override;
};

} // namespace tol::forms
