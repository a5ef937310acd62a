// SPDX-License-Identifier: MIT
#include "screens/ListPanel.h"

#include "forms/windows/Form.h"
#include "screens/RowLabel.h"
#include "screens/browse/BrowseList.h"
#include "support/WindowDriver.h"

#include <gmock/gmock.h>

#include <QHelpEvent>
#include <QLabel>
#include <QTest>
#include <QToolTip>

namespace tol::test {
namespace {

using screens::BrowseDescription;
using screens::ListPanel;
using testing::ElementsAre;

BrowseDescription twoColumns(const std::string& suffix) {
    return {
        .columns =
            {{.label = "lblA" + suffix, .headingLabel = "lblHA" + suffix, .heading = "First", .width = 900},
             {.label = "lblB" + suffix, .headingLabel = "lblHB" + suffix, .heading = " IInd", .width = 1500},
             {.label = "lblTAG" + suffix, .headingLabel = "lblHTAG" + suffix}},
        .rows = 3};
}

/// Two lists on one window, one below the other.
class Panels : public testing::Test {
  protected:
    Panels() {
        form.setScaleSize(6000, 6000);
        form.showModeless();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    /// What a person sees in the tool tip at a label.
    [[nodiscard]] static QString toolTipOf(QLabel& label) {
        const QPoint middle = label.rect().center();
        QHelpEvent event(QEvent::ToolTip, middle, label.mapToGlobal(middle));
        QApplication::sendEvent(&label, &event);
        return QToolTip::text();
    }
    [[nodiscard]] QColor frameColor(const QString& name) {
        const QImage picture = form.grab().toImage();
        return picture.pixelColor(desk.control(name).geometry().topLeft() * picture.devicePixelRatio());
    }

    forms::Form form{"frmTest"};
    ListPanel upper{form, twoColumns(""), {.left = 150, .top = 150, .caption = "Upper"}};
    ListPanel lower{
        form,
        twoColumns("L"),
        {.left = 150, .top = 2400, .focusHolder = "hsbALMAIN", .buttons = "cmdALB", .caption = "Lower"}};
    WindowDriver desk{form};
};

TEST_F(Panels, KeepTheirCaptions) {
    upper.setCaption(1, 0, "one");
    lower.setCaption(1, 0, "other");
    upper.setCaption(2, 2, "17");
    EXPECT_THAT(desk.rows({"lblA", "lblTAG"}), ElementsAre("|", "one|", "|17"));
    EXPECT_EQ(desk.text("lblA(1)"), "one");
    EXPECT_EQ(desk.text("lblAL(1)"), "other");
    EXPECT_FALSE(desk.isShown("lblTAG(2)")) << "a column without width is kept but not shown";
    EXPECT_FALSE(desk.isShown("lblHTAG"));
    EXPECT_EQ(desk.text("lblHA"), "First");
}

TEST_F(Panels, HaveControlsOfTheirOwn) {
    for (const char* name : {"HOME", "END", "PGUP", "PGDN", "UPARROW", "DNARROW", "ACTION"})
        for (const char* prefix : {"cmdVDB", "cmdALB"}) {
            const QWidget& button = desk.control(QString(prefix) + name);
            EXPECT_FALSE(button.focusPolicy() & Qt::TabFocus) << name;
            EXPECT_FALSE(button.accessibleName().isEmpty()) << name;
            EXPECT_FALSE(button.toolTip().isEmpty()) << name;
        }
    EXPECT_EQ(desk.control("hsbMAIN").size(), QSize(2, 2));
    EXPECT_EQ(desk.control("hsbALMAIN").accessibleName(), "Lower");
}

TEST_F(Panels, RowsLieUnderEachOtherWithoutAGap) {
    for (int column = 0; column < 2; ++column)
        for (int row = 1; row < 3; ++row)
            EXPECT_EQ(upper.label(row, column).geometry().top(),
                      upper.label(row - 1, column).geometry().bottom() + 1);
    EXPECT_EQ(upper.label(0, 1).geometry().left(), upper.label(0, 0).geometry().right() + 1);
    const QRect all(forms::toPixels(150), forms::toPixels(150), forms::toPixels(upper.width()),
                    forms::toPixels(upper.height()));
    EXPECT_TRUE(all.contains(desk.control("cmdVDBEND").geometry()));
    EXPECT_TRUE(all.contains(upper.label(2, 1).geometry()));
}

TEST_F(Panels, TheHighlightIsThatOfAWholeRow) {
    upper.setHighlight(1, true);
    EXPECT_THAT(desk.highlighted("lblA"), ElementsAre(1));
    EXPECT_THAT(desk.highlighted("lblB"), ElementsAre(1));
    EXPECT_THAT(desk.highlighted("lblAL"), testing::IsEmpty());
    upper.setHighlight(1, false);
    EXPECT_THAT(desk.highlighted("lblA"), testing::IsEmpty());
}

TEST_F(Panels, ALongTextIsElidedAndToldByTheToolTip) {
    const QString text = "a text that is wider than its column";
    upper.setCaption(0, 0, text.toStdString());
    upper.setCaption(0, 1, "short");
    EXPECT_EQ(upper.label(0, 0).text(), text);
    EXPECT_EQ(toolTipOf(upper.label(0, 1)), "");
    EXPECT_EQ(toolTipOf(upper.label(0, 0)), text);
    const QImage shown = upper.label(0, 0).grab().toImage();
    for (int y = 0; y < shown.height(); ++y)
        EXPECT_EQ(shown.pixelColor(shown.width() - 1, y), QColor(Qt::white)) << "no letter is cut";
}

TEST_F(Panels, TheFrameTellsWhichListHasTheKeyboard) {
    upper.takeFocus();
    EXPECT_TRUE(upper.hasFocus());
    const QColor focused = frameColor("fraMAIN");
    EXPECT_NE(focused, frameColor("fraALMAIN"));
    lower.takeFocus();
    EXPECT_FALSE(upper.hasFocus());
    EXPECT_EQ(frameColor("fraALMAIN"), focused);
    EXPECT_NE(frameColor("fraMAIN"), focused);
}

TEST_F(Panels, OutOfUseItTakesNoFocusAndItsButtonsAreGrey) {
    data::Recordset none;
    screens::BrowseList upperList(upper, twoColumns(""), none, {}, {});
    screens::BrowseList lowerList(lower, twoColumns("L"), none, {}, {});
    upper.connectTo(upperList);
    lower.connectTo(lowerList);
    lower.takeFocus();
    upper.setInUse(false);
    upper.takeFocus();
    EXPECT_TRUE(lower.hasFocus());
    EXPECT_FALSE(upper.isInUse());
    EXPECT_FALSE(desk.control("cmdVDBHOME").isEnabled());
    EXPECT_TRUE(desk.control("cmdALBHOME").isEnabled());
    upper.setInUse(true);
    EXPECT_TRUE(desk.control("cmdVDBHOME").isEnabled());
    upper.disconnect();
    EXPECT_FALSE(desk.control("cmdVDBHOME").isEnabled()) << "there is no list that it would move";
    EXPECT_TRUE(upper.isInUse());
}

TEST_F(Panels, UnconnectedTheyPassClicksOver) {
    desk.click("lblA(1)");
    for (const char* button : {"cmdVDBEND", "cmdALBACTION"})
        EXPECT_FALSE(desk.control(button).isEnabled()) << button;
    EXPECT_THAT(desk.highlighted("lblA"), testing::IsEmpty());
}

TEST_F(Panels, HeadingsStandOverTheirColumns) {
    const auto firstInk = [](const QImage& image, QRgb paper) {
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixel(x, y) != paper)
                    return x;
        return -1;
    };
    upper.setCaption(0, 1, "I");
    QLabel& heading = desk.control<QLabel>("lblHB");
    const auto inkOf = [&](QLabel& label) {
        QImage image = label.grab().toImage();
        return label.x() + firstInk(image, image.pixel(image.width() - 1, 0)) / image.devicePixelRatio();
    };
    EXPECT_NEAR(inkOf(heading), inkOf(upper.label(0, 1)), 1.5) << "its blank in front is not shown";
}

TEST_F(Panels, TheHighlightedRowIsTold) {
    const BrowseDescription description = twoColumns("L");
    screens::BrowseRows rows(lower, description);
    rows.setCaption(1, 0, "NORTH ");
    rows.setCaption(1, 1, " C:\\NORTH");
    rows.setCaption(1, 2, "17");
    rows.BrowseRowOn(1);
    EXPECT_EQ(desk.control("hsbALMAIN").accessibleDescription(), "NORTH, C:\\NORTH");
}

} // namespace
} // namespace tol::test
