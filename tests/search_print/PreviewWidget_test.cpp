// SPDX-License-Identifier: MIT
#include "search_print/PreviewWidget.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

namespace tol::test {
namespace {

using namespace search_print;

class PreviewWidgetTest : public testing::Test {
  protected:
    PreviewWidgetTest() {
        owner.resize(640, 480);
        owner.show();
        printer.StartDoc();
        for (int page = 1; page <= 3; ++page) {
            printer.NewPage();
            printer.BrushColor(qRgb(0, 0, static_cast<int>(200 + page)));
            printer.PenStyle(5);
            printer.DrawRectangle(0, 0, 11906, 8419); // the upper half
        }
        printer.EndDoc();
    }

    void wheel(int angle) {
        const QPointF middle = preview.viewport()->rect().center();
        QWheelEvent event(middle, preview.viewport()->mapToGlobal(middle), {}, {0, angle}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(preview.viewport(), &event);
    }
    QScrollBar& bar() { return *preview.verticalScrollBar(); }
    QColor pixel(double x, double y) {
        const QImage image = preview.viewport()->grab().toImage();
        return image.pixelColor(static_cast<int>(x * image.width()), static_cast<int>(y * image.height()));
    }

    QWidget owner;
    VSPrinter printer{paperA4};
    PreviewWidget preview{owner, printer, {0, 0, 9000, 6000}};
};

TEST_F(PreviewWidgetTest, ShowsAWholePageInTheMiddle) {
    preview.show();
    EXPECT_EQ(pixel(0.5, 0.25), QColor(0, 0, 201));
    EXPECT_EQ(pixel(0.5, 0.75), QColor(Qt::white));
    EXPECT_EQ(pixel(0.02, 0.5), preview.palette().color(QPalette::Window));
    EXPECT_EQ(pixel(0.98, 0.5), preview.palette().color(QPalette::Window));
    printer.PreviewPage(3);
    EXPECT_EQ(pixel(0.5, 0.25), QColor(0, 0, 203));
}

TEST_F(PreviewWidgetTest, FitsThePagesWidthAndScrolls) {
    preview.show();
    printer.ZoomMode(zoomPageWidth);
    EXPECT_EQ(pixel(0.03, 0.5), QColor(0, 0, 201));
    EXPECT_EQ(pixel(0.5, 0.95), QColor(0, 0, 201));
    bar().setValue(bar().pageStep() - 1); // the foot of the first page
    EXPECT_EQ(printer.PreviewPage(), 1);
    EXPECT_EQ(pixel(0.5, 0.9), QColor(Qt::white));
    bar().setValue(bar().pageStep());
    EXPECT_EQ(printer.PreviewPage(), 2);
    EXPECT_EQ(pixel(0.5, 0.5), QColor(0, 0, 202));
}

TEST_F(PreviewWidgetTest, TheScrollBarRunsThroughTheDocument) {
    preview.show();
    EXPECT_EQ(bar().maximum(), 2);
    bar().setValue(2);
    EXPECT_EQ(printer.PreviewPage(), 3);
    bar().triggerAction(QAbstractSlider::SliderPageStepSub);
    EXPECT_EQ(printer.PreviewPage(), 2);
    printer.PreviewPage(1);
    EXPECT_EQ(bar().value(), 0);
}

TEST_F(PreviewWidgetTest, TheWheelTurnsAPageAtEachNotch) {
    preview.show();
    wheel(-60);
    EXPECT_EQ(printer.PreviewPage(), 1);
    wheel(-60);
    EXPECT_EQ(printer.PreviewPage(), 2);
    wheel(-240);
    EXPECT_EQ(printer.PreviewPage(), 3);
    wheel(120);
    EXPECT_EQ(printer.PreviewPage(), 2);
}

TEST_F(PreviewWidgetTest, TheWheelScrollsAPageThatDoesNotFit) {
    preview.show();
    printer.ZoomMode(zoomPageWidth);
    wheel(-120);
    EXPECT_EQ(printer.PreviewPage(), 1);
    EXPECT_GT(bar().value(), 0);
    for (int notch = 0; notch < 40; ++notch)
        wheel(-120);
    EXPECT_EQ(printer.PreviewPage(), 3);
    EXPECT_EQ(bar().value(), bar().maximum());
}

TEST_F(PreviewWidgetTest, ScrollsByStepsWithinAPage) {
    preview.show();
    preview.scrollBy(1); // the whole page is on show
    EXPECT_EQ(printer.PreviewPage(), 1);
    printer.ZoomMode(zoomPageWidth);
    preview.scrollBy(2);
    EXPECT_EQ(bar().value(), 80);
    preview.scrollBy(-1);
    EXPECT_EQ(bar().value(), 40);
}

TEST_F(PreviewWidgetTest, ANewPageIsShownFromItsTop) {
    preview.show();
    printer.ZoomMode(zoomPageWidth);
    preview.scrollBy(3);
    printer.PreviewPage(2);
    EXPECT_EQ(bar().value(), bar().pageStep());
    EXPECT_EQ(pixel(0.5, 0.1), QColor(0, 0, 202));
}

TEST_F(PreviewWidgetTest, StaysAsItIsDuringARun) {
    preview.show();
    printer.previewNavigation(navigationRunning);
    wheel(-120);
    preview.scrollBy(1);
    EXPECT_EQ(bar().maximum(), 0);
    EXPECT_EQ(printer.PreviewPage(), 1);
}

TEST_F(PreviewWidgetTest, IsEmptyWithoutAPage) {
    printer.StartDoc();
    printer.EndDoc();
    preview.show();
    EXPECT_EQ(pixel(0.5, 0.5), preview.palette().color(QPalette::Window));
    EXPECT_EQ(preview.accessibleDescription(), "No page");
}

TEST_F(PreviewWidgetTest, IsCrispWhenTheScreenIsScaled) {
    printer.StartDoc();
    printer.NewPage();
    printer.PenStyle(0);
    printer.PenWidth(5);
    printer.FontName("Courier New");
    printer.FontSize(8);
    printer.CurrentX(2000);
    printer.CurrentY(2000);
    printer.Text("crisp");
    printer.EndDoc();
    preview.show();
    QImage once(preview.viewport()->size(), QImage::Format_RGB32);
    preview.viewport()->render(&once);
    QImage twice(preview.viewport()->size() * 2, QImage::Format_RGB32);
    twice.setDevicePixelRatio(2);
    preview.viewport()->render(&twice);
    // Drawn at the finer resolution, not blown up: the picture differs from the enlarged coarse one.
    EXPECT_NE(twice.copy(), once.scaled(twice.size()));
}

} // namespace
} // namespace tol::test
