// SPDX-License-Identifier: MIT
#include "forms/windows/MenuBar.h"

#include "forms/controls/TextBox.h"
#include "forms/windows/Form.h"
#include "forms/windows/MdiForm.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QTest>

namespace tol::forms {
namespace {

class Bar : public testing::Test {
  protected:
    Bar() {
        main.setMenuBar(&bar);
        menu.addAction("E&xit", [this] { ended = true; });
        bar.addMenu("&Help")->addAction("&Contents");
        main.load();
        main.setSize(11250, 9000);
        main.show();
        auto made = std::make_unique<Form>("frmChild");
        box = &TextBox::add(*made, "txtPATH", 20, {150, 150, 3000, 315});
        box->Text("old");
        box->onGotFocus([this] { ++gotFocus; });
        box->onLostFocus([this] { ++lostFocus; });
        main.showChild(std::move(made));
        EXPECT_TRUE(QTest::qWaitForWindowActive(&main));
        box->setFocus();
        box->selectAllText();
    }

    static void pressAlt() {
        QTest::keyPress(QApplication::focusWidget(), Qt::Key_Alt, Qt::AltModifier);
        QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Alt);
    }
    /// Keys of a person, each for whatever has the keyboard then.
    static void type(const QString& keys) {
        for (const QChar key : keys) {
            QWidget* popup = QApplication::activePopupWidget();
            QTest::keyClick(popup != nullptr ? popup : QApplication::focusWidget(), key.toLatin1());
        }
    }
    static void press(Qt::Key key, Qt::KeyboardModifiers held = {}) {
        QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick(popup != nullptr ? popup : QApplication::focusWidget(), key, held);
    }
    [[nodiscard]] bool isLit() const {
        const QRect title = bar.actionGeometry(menu.menuAction());
        const QImage picture = const_cast<MenuBar&>(bar).grab(title).toImage();
        return picture.pixelColor(picture.rect().center().x(), 2) != bar.palette().window().color();
    }

    MdiForm main{"frmMain"};
    MenuBar& bar = *new MenuBar;
    QMenu& menu = *bar.addMenu("&File");
    TextBox* box = nullptr;
    bool ended = false;
    int gotFocus = 0, lostFocus = 0;
};

TEST_F(Bar, ShowsThatItHasTheKeyboard) {
    EXPECT_FALSE(isLit());
    pressAlt();
    ASSERT_TRUE(bar.hasFocus());
    EXPECT_TRUE(isLit());
    press(Qt::Key_Escape);
    EXPECT_FALSE(isLit());
}

TEST_F(Bar, GivesTheKeyboardBackWhenItComesBackFromAnotherWindow) {
    pressAlt();
    ASSERT_TRUE(bar.hasFocus());
    QWidget other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    main.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&main));
    EXPECT_TRUE(QTest::qWaitFor([&] { return box->hasFocus(); }));
}

TEST_F(Bar, EscGivesTheKeyboardBack) {
    pressAlt();
    press(Qt::Key_Escape);
    EXPECT_TRUE(box->hasFocus());
    EXPECT_EQ(box->selectedText(), "old") << "as if it had not been away";
}

TEST_F(Bar, EscClosesAMenuAndTheNextGivesTheKeyboardBack) {
    press(Qt::Key_F, Qt::AltModifier);
    ASSERT_TRUE(menu.isVisible());
    press(Qt::Key_Escape);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_TRUE(isLit());
    press(Qt::Key_Escape);
    EXPECT_FALSE(isLit());
    EXPECT_TRUE(box->hasFocus());
}

TEST_F(Bar, ALetterThatNamesNoTitleGoesWhereTheKeyboardWas) {
    pressAlt();
    type("nox");
    EXPECT_TRUE(box->hasFocus());
    EXPECT_EQ(box->Text(), "nox");
    EXPECT_FALSE(ended);
}

TEST_F(Bar, AKeyThatEditsTextGoesWhereTheKeyboardWas) {
    box->setCursorPosition(3);
    pressAlt();
    press(Qt::Key_Backspace);
    EXPECT_EQ(box->Text(), "ol");
}

TEST_F(Bar, ALetterThatNamesATitleOpensItsMenu) {
    pressAlt();
    type("f");
    EXPECT_TRUE(menu.isVisible());
    type("x");
    EXPECT_TRUE(ended);
    EXPECT_TRUE(box->hasFocus());
}

TEST_F(Bar, TheBoxIsNotLeftForIt) {
    gotFocus = lostFocus = 0;
    pressAlt();
    press(Qt::Key_Escape);
    EXPECT_EQ(gotFocus + lostFocus, 0);
}

/// Uses the letter U for itself.
class Taking : public Form {
  public:
    explicit Taking(int& taken) : Form("frmTaking"), m_taken(taken) { setKeyPreview(true); }

  protected:
    void onKeyDown(KeyPress& key) override {
        if (key.code != 'U')
            return;
        ++m_taken;
        key.code = keyNone;
    }

  private:
    int& m_taken;
};

// Alt often goes up before the letter does.
TEST_F(Bar, AltThatWasHeldForAnotherKeyDoesNotCount) {
    int taken = 0;
    auto made = std::make_unique<Taking>(taken);
    TextBox& inFront = TextBox::add(*made, "txtTEST", 20, {150, 150, 3000, 315});
    main.showChild(std::move(made));
    inFront.setFocus();
    QTest::keyPress(&inFront, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyPress(&inFront, Qt::Key_U, Qt::AltModifier);
    QTest::keyRelease(&inFront, Qt::Key_Alt);
    QTest::keyRelease(&inFront, Qt::Key_U);
    EXPECT_EQ(taken, 1);
    EXPECT_TRUE(inFront.hasFocus());
}

} // namespace
} // namespace tol::forms
