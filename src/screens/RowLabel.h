// SPDX-License-Identifier: MIT
#pragma once

#include "screens/browse/BrowseDescription.h"

#include <QLabel>
#include <QTextLayout>

#include <algorithm>

namespace tol::screens {

/// A colour of full red, green and blue 255; what lies beyond a channel's ends is brought to the nearer one.
constexpr QRgb rgb(int red, int green, int blue) {
    return qRgb(std::clamp(red, 0, 255), std::clamp(green, 0, 255), std::clamp(blue, 0, 255));
}

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
    [[nodiscard]] QTextLine line() const;
    void layOut(const QString& text) const;

    QRgb m_backColor = rgb(256, 256, 256);
    TextCut m_cut;
    bool m_transparent = false;
    mutable QTextLayout m_layout; ///< of the text as it is shown
    mutable QString m_laidOut;    ///< the whole text
    mutable int m_laidOutWidth = -1;
};

} // namespace tol::screens
