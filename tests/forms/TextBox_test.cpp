// SPDX-License-Identifier: MIT
#include "forms/TextBox.h"

#include "forms/Form.h"

#include <gmock/gmock.h>

#include <QTest>

namespace tol::forms {
namespace {

using testing::ElementsAre;

class TwoBoxes : public testing::Test {
  protected:
    TwoBoxes() {
        form.setScaleSize(3000, 1500);
        listen(first, "first");
        listen(second, "second");
        form.showModeless();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        events.clear();
    }

    void listen(TextBox& box, const std::string& name) {
        box.Text("some text");
        box.onGotFocus([&box, this, name] {
            events.push_back("Got " + name);
            box.selectAllText();
        });
        box.onLostFocus([this, name] { events.push_back("Lost " + name); });
    }
    void comeBack() {
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    void cover() {
        other.show();
        other.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
    }

    Form form{"frmTest"};
    TextBox& first = TextBox::add(form, "txtFIRST", 9, {0, 0, 1500, 315});
    TextBox& second = TextBox::add(form, "txtSECOND", 9, {0, 450, 1500, 315});
    QWidget other;
    std::vector<std::string> events;
};

TEST_F(TwoBoxes, TheFirstGetsTheFocusWhenTheWindowIsShown) {
    EXPECT_TRUE(first.hasFocus());
    EXPECT_EQ(first.selectedText(), "some text");
}

TEST_F(TwoBoxes, TheOneLeftIsToldFirst) {
    QTest::keyClick(&first, Qt::Key_Tab);
    EXPECT_THAT(events, ElementsAre("Lost first", "Got second"));
}

TEST_F(TwoBoxes, AWindowInFrontTakesNoFocusFromABox) {
    cover();
    comeBack();
    EXPECT_THAT(events, testing::IsEmpty());
}

TEST_F(TwoBoxes, AFocusMovedBehindAnotherWindowIsTold) {
    cover();
    second.setFocus();
    comeBack();
    EXPECT_THAT(events, testing::UnorderedElementsAre("Lost first", "Got second"));
    events.clear();
    first.setFocus();
    EXPECT_THAT(events, ElementsAre("Lost second", "Got first"));
}

TEST_F(TwoBoxes, TheClickThatBringsTheFocusLeavesTheMarkedText) {
    QTest::mouseClick(&second, Qt::LeftButton, {}, {10, 10});
    EXPECT_EQ(second.selectedText(), "some text");
    QTest::mouseClick(&second, Qt::LeftButton, {}, {10, 10});
    EXPECT_FALSE(second.hasSelectedText()) << "the next one puts the cursor";
}

} // namespace
} // namespace tol::forms
