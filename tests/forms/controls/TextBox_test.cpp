// SPDX-License-Identifier: MIT
#include "forms/controls/TextBox.h"

#include "forms/events/Keys.h"
#include "forms/windows/Form.h"
#include "forms/windows/MessageBox.h"
#include "support/BoxAnswerer.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QPushButton>
#include <QTest>

#include <cctype>

namespace tol::forms {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TextBoxTest : public testing::Test {
  protected:
    TextBoxTest() {
        log(first, "first");
        log(second, "second");
        form.showModeless();
        static_cast<void>(QTest::qWaitForWindowActive(&form));
        first.setFocus();
        events.clear();
    }

    void log(TextBox& box, const std::string& name) {
        box.onGotFocus([this, name] { events.push_back(name + " got"); });
        box.onLostFocus([this, name] { events.push_back(name + " lost"); });
    }

    static void paste(TextBox& box, const QString& text) {
        QApplication::clipboard()->setText(text);
        box.paste();
    }

    Form form{"frmTest"};
    TextBox& first = TextBox::add(form, "txtFIRST", 4, {150, 150, 1500, 300});
    TextBox& second = TextBox::add(form, "txtSECOND", 0, {150, 600, 1500, 300});
    std::vector<std::string> events;
};

TEST_F(TextBoxTest, IsFoundByNameAndHoldsText) {
    EXPECT_EQ(form.findChild<QLineEdit*>("txtFIRST"), &first);
    first.Text("Jürg");
    EXPECT_EQ(first.Text(), "Jürg");
    EXPECT_EQ(first.MaxLength(), 4);
}

TEST_F(TextBoxTest, TakesNoMoreThanItsMaxLength) {
    QTest::keyClicks(&first, "abcdef");
    EXPECT_EQ(first.Text(), "abcd");
    QTest::keyClick(&first, Qt::Key_Home);
    QTest::keyClicks(&first, "x");
    EXPECT_EQ(first.Text(), "abcd");
    EXPECT_EQ(first.cursorPosition(), 0);
}

TEST_F(TextBoxTest, TellsWhatAPersonMakesOfItsTextAndNotWhatTheProgramDoes) {
    first.Text("ab");
    first.onEdited([&] { events.push_back("edited to " + first.Text()); });
    first.Text("    ");
    QTest::keyClicks(&first, "ab");
    QTest::keyClick(&first, Qt::Key_Backspace);
    paste(first, "xyzuv");
    first.Text("c");
    EXPECT_THAT(events, ElementsAre("edited to a", "edited to ab", "edited to a", "edited to axyz"));
}

TEST_F(TextBoxTest, CountsACharacterOnceThoughItNeedsTwoUnits) {
    paste(first, "a😀😁😂😃");
    EXPECT_EQ(first.Text(), "a😀😁😂");
    first.Text("😀😁😂😃😄");
    EXPECT_EQ(first.Text(), "😀😁😂😃");
}

TEST_F(TextBoxTest, CutsWhatIsPastedBeyondItsMaxLength) {
    first.Text("abc");
    first.setCursorPosition(1);
    paste(first, "xyz");
    EXPECT_EQ(first.Text(), "axbc");
    EXPECT_EQ(first.cursorPosition(), 2);
    paste(first, "q");
    EXPECT_EQ(first.Text(), "axbc");
}

TEST_F(TextBoxTest, PastingReplacesTheMarkedText) {
    first.Text("abcd");
    first.selectAllText();
    paste(first, "0123456");
    EXPECT_EQ(first.Text(), "0123");
}

TEST_F(TextBoxTest, CutsWhatIsSetBeyondItsMaxLength) {
    first.Text("abcdef");
    EXPECT_EQ(first.Text(), "abcd");
    const std::string longText(40000, 'x');
    second.Text(longText.substr(0, 30000));
    EXPECT_EQ(second.Text().size(), 30000U);
}

TEST_F(TextBoxTest, BlanksGiveWayToWhatIsTypedWhereverTheCursorIs) {
    for (const int cursor : {0, 2, 4}) {
        first.Text("    ");
        first.setCursorPosition(cursor);
        QTest::keyClicks(&first, "a bcd");
        EXPECT_EQ(first.Text(), "a bc") << cursor;
    }
}

TEST_F(TextBoxTest, BlanksGiveWayToWhatIsPasted) {
    first.Text("    ");
    first.setCursorPosition(2);
    paste(first, " x");
    EXPECT_EQ(first.Text(), "x");
    EXPECT_EQ(first.cursorPosition(), 1);
}

TEST_F(TextBoxTest, BlanksGoAllAtOnce) {
    first.Text("    ");
    first.setCursorPosition(2);
    QTest::keyClick(&first, Qt::Key_Backspace);
    EXPECT_EQ(first.Text(), "");
    QTest::keyClicks(&first, "ab");
    first.undo();
    first.undo();
    QTest::keyClicks(&first, "c");
    EXPECT_EQ(first.Text(), "c");
}

TEST_F(TextBoxTest, BlanksThatWereTypedStay) {
    QTest::keyClicks(&first, "  ab");
    EXPECT_EQ(first.Text(), "  ab");
}

TEST_F(TextBoxTest, MarkedBlanksAreNotToBeSeen) {
    second.setFocus();
    second.Text(std::string(60, ' '));
    const QImage unmarked = second.grab().toImage();
    second.selectAllText();
    EXPECT_EQ(second.selectedText().size(), 60);
    EXPECT_EQ(second.cursorPosition(), 0);
    const QImage marked = second.grab().toImage();
    const QRect inside = marked.rect().adjusted(4, 4, -4, -4);
    for (int x = inside.left(); x <= inside.right(); ++x)
        EXPECT_NE(marked.pixelColor(x, inside.center().y()), QApplication::palette().highlight().color())
            << x;
    EXPECT_EQ(marked.pixelColor(0, marked.height() / 2), unmarked.pixelColor(0, marked.height() / 2))
        << "the frame";
    second.Text("text");
    second.selectAllText();
    EXPECT_EQ(second.palette().highlight().color(), QApplication::palette().highlight().color());
}

TEST_F(TextBoxTest, TakesNoControlCharacters) {
    paste(second, "C:\\JOBS\t\nNORTH\r\n");
    EXPECT_EQ(second.Text(), "C:\\JOBSNORTH");
}

TEST_F(TextBoxTest, UndoGoesBackToWhatWasThere) {
    first.Text("ab");
    first.setCursorPosition(2);
    paste(first, "cdef");
    EXPECT_EQ(first.Text(), "abcd");
    for (int i = 0; i < 4 && first.isUndoAvailable(); ++i) {
        first.undo();
        EXPECT_LE(first.Text().size(), 4U);
    }
}

TEST_F(TextBoxTest, KeyPressSeesCharactersAndEnter) {
    std::vector<int> keys;
    first.onKeyPress([&](int key) {
        keys.push_back(key);
        return key;
    });
    QTest::keyClicks(&first, "Ab ");
    QTest::keyClick(&first, Qt::Key_Return);
    QTest::keyClick(&first, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_THAT(keys, ElementsAre('A', 'b', ' ', 13, 13));
    EXPECT_EQ(first.Text(), "Ab ");
}

TEST_F(TextBoxTest, KeyPressDoesNotSeeKeysThatTypeNothing) {
    std::vector<int> keys;
    first.onKeyPress([&](int key) {
        keys.push_back(key);
        return 0;
    });
    first.Text("ab");
    QTest::keyClick(&first, Qt::Key_End);
    QTest::keyClick(&first, Qt::Key_Left);
    QTest::keyClick(&first, Qt::Key_Delete);
    QTest::keyClick(&first, Qt::Key_Backspace);
    QTest::keyClick(&first, Qt::Key_A, Qt::ControlModifier);
    EXPECT_THAT(keys, IsEmpty());
    EXPECT_EQ(first.Text(), "");
}

TEST_F(TextBoxTest, KeyPressMayReplaceOrSwallowACharacter) {
    first.onKeyPress([](int key) { return key == 'x' ? 0 : std::toupper(key); });
    QTest::keyClicks(&first, "axbcde");
    EXPECT_EQ(first.Text(), "ABCD");
}

TEST_F(TextBoxTest, KeyPressMayTypeACharacterOfTwoUnits) {
    first.onKeyPress([](int) { return 0x1f600; });
    QTest::keyClicks(&first, "abcde");
    EXPECT_EQ(first.Text(), "😀😀😀😀");
}

TEST_F(TextBoxTest, KeyPressSeesCharactersOfAnInputMethod) {
    first.onKeyPress([](int key) { return key == 'x' ? 0 : key; });
    QInputMethodEvent event;
    event.setCommitString("éx😀");
    QApplication::sendEvent(&first, &event);
    EXPECT_EQ(first.Text(), "é😀");
}

TEST_F(TextBoxTest, KeepsTheFocusUnderABox) {
    test::BoxAnswerer person;
    showMessageBox("text", {}, "title");
    QApplication::setActiveWindow(&form);
    EXPECT_EQ(person.boxes.size(), 1U);
    EXPECT_TRUE(first.hasFocus());
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(TextBoxTest, EnterPressesTheDefaultButtonUnlessKeyPressSwallowsIt) {
    QPushButton button(&form);
    button.show();
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, &button, [&] { ++clicks; });
    form.setDefaultButton(&button);
    QTest::keyClick(&first, Qt::Key_Return);
    EXPECT_EQ(clicks, 1);
    first.onKeyPress([](int key) { return key == keyReturn ? keyNone : key; });
    QTest::keyClick(&first, Qt::Key_Return);
    EXPECT_EQ(clicks, 1);
}

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

TEST_F(TwoBoxes, EveryClickMarksBlanks) {
    first.Text("         ");
    for (int click = 0; click < 3; ++click) {
        QTest::mouseClick(&first, Qt::LeftButton, {}, {30, 10});
        EXPECT_EQ(first.selectedText(), "         ");
    }
    QTest::keyClicks(&first, "a");
    EXPECT_EQ(first.Text(), "a");
}

} // namespace
} // namespace tol::forms
