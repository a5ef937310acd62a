// SPDX-License-Identifier: MIT
#pragma once

#include "forms/look/Twips.h"
#include "search_print/document/VSPrinter.h"

#include <QAbstractScrollArea>

namespace tol::search_print {

/// Shows one page of a printing control's document, fitted by its ZoomMode, and lets a person page with wheel
/// and scroll bar: the bar runs through the whole document. The control is the owner's, and outlives it.
class PreviewWidget : public QAbstractScrollArea {
  public:
    PreviewWidget(QWidget& parent, VSPrinter& printer, forms::Place where);
    ~PreviewWidget() override;

    /// Keeps the lower edge free for what lies over it, in pixels.
    void setFreeBelow(int height) { setViewportMargins(0, 0, 0, height); }
    /// Moves what is shown of a page up or down by steps of a scroll bar.
    void scrollBy(int steps);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    void follow();
    void tellPage();
    [[nodiscard]] const Page* shownPage() const;
    /// Pixels to the twip for that page.
    [[nodiscard]] double scaleOf(const Page& page) const;
    /// Pixels of the page's height, the space around it included, that do not fit in at once.
    [[nodiscard]] int hiddenHeight() const;
    [[nodiscard]] bool navigable() const;

    VSPrinter& m_printer;
    int m_wheel = 0; // eighths of a degree that did not yet make a page
    bool m_following = false;
};

} // namespace tol::search_print
