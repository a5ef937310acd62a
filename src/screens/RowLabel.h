// SPDX-License-Identifier: MIT
#pragma once

#include "screens/BrowseDescription.h"

#include <QLabel>

namespace tol::screens {

/// One element of a list's label array. A text that is wider than the label is shown with an ellipsis, at its
/// end or in its middle, and as a whole in the tool tip; text() is always the whole one.
class RowLabel : public QLabel {
  public:
    RowLabel(QWidget& parent, const QString& name, TextCut cut = TextCut::End);

    void setBackColor(QRgb color);
    /// Has no back colour: what lies below shows through.
    void setTransparent();
    [[nodiscard]] QString shownText() const;

    /// Blank space to the left and right of the text, in twips.
    static constexpr int margin = 60;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QRect textRect() const;

    QRgb m_backColor = qRgb(255, 255, 255);
    TextCut m_cut;
    bool m_transparent = false;
};

} // namespace tol::screens
