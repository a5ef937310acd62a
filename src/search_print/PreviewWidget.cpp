// SPDX-License-Identifier: MIT
#include "search_print/PreviewWidget.h"

#include "search_print/document/PageList.h"

#include <QAccessible>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace tol::search_print {
namespace {

constexpr int spaceAround = 8; // pixels between a page and the edges of the view
constexpr int scrollStep = 40; // pixels
constexpr int wheelNotch = 120;

} // namespace

PreviewWidget::PreviewWidget(QWidget& parent, VSPrinter& printer, forms::Place where)
    : QAbstractScrollArea(&parent), m_printer(printer) {
    setObjectName("VSPrinter");
    setAccessibleName("Report preview");
    setFrameShape(QFrame::NoFrame);
    viewport()->setBackgroundRole(QPalette::Window);
    setFocusPolicy(Qt::NoFocus); // its keys are the window's
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    forms::place(*this, where);
    m_printer.onPreviewChanged = [this] { follow(); };
    follow();
}

PreviewWidget::~PreviewWidget() {
    m_printer.onPreviewChanged = nullptr;
}

void PreviewWidget::scrollBy(int steps) {
    if (navigable() && hiddenHeight() > 0)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + steps * scrollStep);
}

void PreviewWidget::paintEvent(QPaintEvent*) {
    const Page* page = shownPage();
    if (page == nullptr)
        return;
    QPainter painter(viewport());
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const double scale = scaleOf(*page);
    const QSizeF size(page->width * scale, page->height * scale);
    const int hidden = hiddenHeight();
    const double top = hidden > 0 ? spaceAround - verticalScrollBar()->value() % (hidden + 1)
                                  : (viewport()->height() - size.height()) / 2;
    const QPointF corner(std::floor((viewport()->width() - size.width()) / 2), std::floor(top));
    const QRectF paper(corner, size);
    painter.fillRect(paper.translated(3, 3), palette().color(QPalette::Mid));
    painter.fillRect(paper, Qt::white);
    painter.setPen(QPen(palette().color(QPalette::Dark), 0));
    painter.drawRect(paper);
    painter.setClipRect(paper);
    painter.translate(corner);
    painter.scale(scale, scale);
    paintPage(painter, m_printer.document(), *page);
}

void PreviewWidget::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    follow();
}

void PreviewWidget::wheelEvent(QWheelEvent* event) {
    event->accept();
    if (!navigable())
        return;
    if (hiddenHeight() > 0)
        return QAbstractScrollArea::wheelEvent(event);
    m_wheel += event->angleDelta().y();
    const int pages = m_wheel / wheelNotch;
    m_wheel -= pages * wheelNotch;
    verticalScrollBar()->setValue(verticalScrollBar()->value() - pages);
}

void PreviewWidget::scrollContentsBy(int, int) {
    if (m_following)
        return;
    m_following = true;
    m_printer.PreviewPage(verticalScrollBar()->value() / (hiddenHeight() + 1) + 1);
    m_following = false;
    tellPage();
}

void PreviewWidget::follow() {
    if (!m_following) {
        m_following = true;
        const int hidden = hiddenHeight();
        const int span = hidden + 1; // positions of the bar that belong to one page
        QScrollBar& bar = *verticalScrollBar();
        const bool samePage = bar.value() / span + 1 == m_printer.PreviewPage();
        bar.setRange(0, navigable() ? std::max(0, m_printer.PageCount() * span - 1) : 0);
        bar.setSingleStep(hidden > 0 ? scrollStep : 1);
        bar.setPageStep(span);
        if (!samePage)
            bar.setValue((m_printer.PreviewPage() - 1) * span);
        m_following = false;
    }
    tellPage();
}

void PreviewWidget::tellPage() {
    const QString place =
        m_printer.PageCount() == 0
            ? QString("No page")
            : QString("Page %1 of %2").arg(m_printer.PreviewPage()).arg(m_printer.PageCount());
    if (place != accessibleDescription())
        setAccessibleDescription(place);
    viewport()->update();
}

const Page* PreviewWidget::shownPage() const {
    const int number = m_printer.PreviewPage();
    return number == 0 ? nullptr : &m_printer.document().pages[static_cast<std::size_t>(number) - 1];
}

double PreviewWidget::scaleOf(const Page& page) const {
    const double byWidth = (viewport()->width() - 2 * spaceAround) / page.width;
    const double byHeight = (viewport()->height() - 2 * spaceAround) / page.height;
    const double scale = m_printer.ZoomMode() == zoomPageWidth ? byWidth : std::min(byWidth, byHeight);
    return std::max(scale, 0.0);
}

int PreviewWidget::hiddenHeight() const {
    const Page* page = shownPage();
    if (page == nullptr)
        return 0;
    const double height = page->height * scaleOf(*page) + 2 * spaceAround;
    return std::max(0, static_cast<int>(std::ceil(height - 1e-6)) - viewport()->height());
}

bool PreviewWidget::navigable() const {
    return m_printer.previewNavigation() == navigationFree;
}

} // namespace tol::search_print
