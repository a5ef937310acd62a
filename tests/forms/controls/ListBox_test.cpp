// SPDX-License-Identifier: MIT
#include "forms/controls/ListBox.h"

#include "forms/windows/Form.h"

#include <gmock/gmock.h>

#include <QImage>
#include <QPushButton>
#include <QTest>

namespace tol::forms {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ListBoxTest : public testing::Test {
  protected:
    ListBoxTest() {
        list.onClick([this] { events.push_back("click " + list.Text()); });
        list.onDblClick([this] { events.push_back("double " + list.Text()); });
        for (const char* line : {"first", "second", "third"})
            list.AddItem(line);
        form.showModeless();
        static_cast<void>(QTest::qWaitForWindowActive(&form));
        list.setFocus();
    }

    QPoint lineAt(int position) { return list.visualItemRect(list.item(position)).center(); }

    Form form{"frmTest"};
    ListBox& list = ListBox::add(form, "lstTest", {150, 150, 3000, 1500});
    std::vector<std::string> events;
};

TEST_F(ListBoxTest, HoldsLinesOfWhichNoneIsSelectedAtFirst) {
    EXPECT_EQ(form.findChild<QListWidget*>("lstTest"), &list);
    EXPECT_EQ(list.ListCount(), 3);
    EXPECT_EQ(list.List(1), "second");
    EXPECT_EQ(list.List(3), "");
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.Text(), "");
}

TEST_F(ListBoxTest, AProgramSelectsALineInSilence) {
    list.ListIndex(2);
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(list.Text(), "third");
    list.ListIndex(-1);
    EXPECT_EQ(list.Text(), "");
    list.ListIndex(0);
    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ListBoxTest, APersonSelectsALineWithAClick) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, lineAt(1));
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_THAT(events, ElementsAre("click second"));
}

TEST_F(ListBoxTest, TheFirstArrowKeySelectsTheFirstLine) {
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_THAT(events, ElementsAre("click first", "click second", "click third"));
}

TEST_F(ListBoxTest, ALetterSelectsTheLineThatBeginsWithIt) {
    QTest::keyClick(&list, Qt::Key_T);
    EXPECT_THAT(events, ElementsAre("click third"));
}

TEST_F(ListBoxTest, ArrowKeysInAnEmptyListDoNothing) {
    list.Clear();
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Up);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ListBoxTest, ADoubleClickOnALineIsToldAfterItsSelection) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, lineAt(2));
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, lineAt(2));
    EXPECT_THAT(events, ElementsAre("click third", "double third"));
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.viewport()->rect().bottomLeft());
    EXPECT_EQ(events.size(), 2U);
}

TEST_F(ListBoxTest, EnterIsTheWindowsUnlessTheListHasAUseForIt) {
    QPushButton button(&form);
    button.show();
    QObject::connect(&button, &QPushButton::clicked, &button, [&] { events.emplace_back("button"); });
    form.setDefaultButton(&button);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_THAT(events, ElementsAre("button"));
    list.onEnter([&] { events.emplace_back("enter"); });
    QTest::keyClick(&list, Qt::Key_Enter);
    EXPECT_THAT(events, ElementsAre("button", "enter"));
}

TEST_F(ListBoxTest, TheFocusIsSeenThoughNoLineIsSelected) {
    const QImage with = list.grab().toImage();
    list.clearFocus();
    const QImage without = list.grab().toImage();
    EXPECT_NE(with.pixel(0, 50), without.pixel(0, 50));
    EXPECT_EQ(with.pixelColor(0, 50), list.palette().color(QPalette::Highlight));
}

TEST_F(ListBoxTest, TabLeavesTheList) {
    QPushButton button(&form);
    button.show();
    QTest::keyClick(&list, Qt::Key_Tab);
    EXPECT_TRUE(button.hasFocus());
}

} // namespace
} // namespace tol::forms
