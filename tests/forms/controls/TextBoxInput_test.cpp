// SPDX-License-Identifier: MIT
#include "forms/controls/TextBox.h"

#include "forms/events/Keys.h"
#include "forms/windows/Form.h"
#include "support/Beeps.h"
#include "support/WindowDriver.h"

#include <gtest/gtest.h>

namespace tol::forms {
namespace {

class TextBoxInput : public testing::Test {
  protected:
    TextBoxInput() {
        for (TextBox* box : {&first, &second}) {
            box->onKeyPress([this](int key) { return vdEnterKey(key, upper, keepEnter); });
            box->onGotFocus([box] { vdSelectAll(*box); });
        }
        first.Text("one");
        second.Text("two");
        form.showModeless();
        first.setFocus();
    }

    bool upper = false, keepEnter = false;
    Form form{"frmTest"};
    TextBox& first = TextBox::add(form, "txtFIRST", 20, {150, 150, 1500, 300});
    TextBox& second = TextBox::add(form, "txtSECOND", 20, {150, 600, 1500, 300});
    test::WindowDriver desk{form};
};

TEST_F(TextBoxInput, EnterMovesOnToTheNextControl) {
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        first.setFocus();
        desk.press(enter);
        EXPECT_EQ(desk.focus(), "txtSECOND");
    }
    EXPECT_EQ(first.Text(), "one");
}

TEST_F(TextBoxInput, EnterBeepsNoMoreThanTab) {
    const auto beepsOf = [&](Qt::Key key) {
        first.setFocus();
        test::takeBeeps();
        desk.press(key);
        EXPECT_EQ(desk.focus(), "txtSECOND");
        return test::takeBeeps();
    };
    const int ofTab = beepsOf(Qt::Key_Tab);
    EXPECT_EQ(ofTab, 0);
    EXPECT_EQ(beepsOf(Qt::Key_Return), ofTab);
    EXPECT_EQ(beepsOf(Qt::Key_Enter), ofTab);
}

TEST_F(TextBoxInput, AKeptEnterStays) {
    keepEnter = true;
    desk.press(Qt::Key_Return);
    EXPECT_EQ(desk.focus(), "txtFIRST");
}

TEST_F(TextBoxInput, TypingReplacesTheTextOfABoxThatIsEntered) {
    desk.press(Qt::Key_Tab);
    EXPECT_EQ(second.selectedText(), "two");
    desk.type("x");
    EXPECT_EQ(second.Text(), "x");
}

TEST_F(TextBoxInput, AsciiLettersBecomeUpperCaseOnWish) {
    desk.type("aZ1{`");
    EXPECT_EQ(first.Text(), "aZ1{`");
    upper = true;
    first.selectAllText();
    desk.type("azA1{`");
    EXPECT_EQ(first.Text(), "AZA1{`");
}

TEST(EnterKey, ReturnsTheKeyToKeep) {
    EXPECT_EQ(vdEnterKey(13, false, true), 13);
    EXPECT_EQ(vdEnterKey(13, true, false), 0);
    EXPECT_EQ(vdEnterKey('a', false, false), 'a');
    EXPECT_EQ(vdEnterKey(96, true, false), 96);
    EXPECT_EQ(vdEnterKey(97, true, false), 65);
    EXPECT_EQ(vdEnterKey(122, true, false), 90);
    EXPECT_EQ(vdEnterKey(123, true, false), 123);
    EXPECT_EQ(vdEnterKey(0xe9, true, false), 0xe9);
    EXPECT_EQ(vdEnterKey(0, true, false), 0);
}

} // namespace
} // namespace tol::forms
