// SPDX-License-Identifier: MIT
#include "shell/vdwindows/vdFormLoadError.h"

#include "forms/controls/Controls.h"
#include "forms/controls/TextBox.h"
#include "forms/events/Timer.h"
#include "forms/events/WindowHost.h"
#include "forms/windows/Form.h"
#include "support/BoxAnswerer.h"
#include "support/WindowDriver.h"

#include <gmock/gmock.h>

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace tol::test {
namespace {

using testing::ElementsAre;

/// A window whose Load fails.
class Failing : public forms::Form {
  public:
    Failing() : Form("frmTest") {
        forms::addLabel(*this, "lblTest", "x", {150, 150, 300, 300});
        forms::TextBox::add(*this, "txtTest", 10, {150, 600, 900, 300});
        QFrame& frame = forms::addFrame(*this, "fraTest", {150, 1050, 3000, 900});
        forms::addLabel(frame, "lblInFrame", "x", {150, 150, 300, 300});
        forms::addButton(*this, "cmdOther", "&Other", {1500, 150, 900, 300}, [] {});
        QWidget& parent = exitInFrame ? frame : static_cast<QWidget&>(*this);
        m_exit = &forms::addButton(parent, "cmdExit", "E&xit", {1500, 450, 900, 300}, [this] { unload(); });
        m_exit->setVisible(false);
    }

    static inline bool exitInFrame = false;
    int ticks = 0;

  protected:
    void onLoad() override {
        m_tmrTest.setInterval(1);
        m_tmrTest.setEnabled(true);
        shell::vdFormLoadError(*this, *m_exit, "frmTest", "3024", "Could not find file 'X.MDB'.");
    }

  private:
    QPushButton* m_exit = nullptr;
    forms::Timer m_tmrTest{*this, "tmrTest", [this] { ++ticks; }};
};

class FormLoadError : public testing::Test {
  protected:
    FormLoadError() { Failing::exitInFrame = false; }

    static std::vector<std::string> controlsInSight(const QWidget& window) {
        std::vector<std::string> names;
        for (const QWidget* control : window.findChildren<QWidget*>())
            if (control->isVisible() && !control->objectName().isEmpty())
                names.push_back(control->objectName().toStdString());
        return names;
    }

    forms::WindowHost host;
    BoxAnswerer person;
};

TEST_F(FormLoadError, IsToldInABox) {
    Failing window;
    window.load();
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, "Error Displaying Form");
    EXPECT_EQ(person.boxes[0].text, "Error Loading Form: frmTest\n\nError Number: 3024\n\n"
                                    "Error Description: Could not find file 'X.MDB'.");
    EXPECT_EQ(person.boxes[0].icon, QMessageBox::Critical);
}

TEST_F(FormLoadError, LeavesOnlyTheExitButtonInSight) {
    Failing window;
    window.showModeless();
    EXPECT_THAT(controlsInSight(window), ElementsAre("cmdExit"));
    EXPECT_TRUE(window.isLoaded());
    const WindowDriver desk(window);
    desk.press(Qt::Key_X, Qt::AltModifier);
    EXPECT_FALSE(window.isLoaded());
}

TEST_F(FormLoadError, TheExitButtonHasTheFocus) {
    Failing window;
    window.showModeless();
    const WindowDriver desk(window);
    desk.press(Qt::Key_Return);
    EXPECT_FALSE(window.isLoaded());
}

TEST_F(FormLoadError, ShowsTheFrameThatTheExitButtonIsIn) {
    Failing::exitInFrame = true;
    Failing window;
    window.showModeless();
    EXPECT_THAT(controlsInSight(window), ElementsAre("fraTest", "cmdExit"));
    const WindowDriver desk(window);
    desk.click("cmdExit");
    EXPECT_FALSE(window.isLoaded());
}

TEST_F(FormLoadError, TimersGoOn) {
    Failing window;
    window.showModeless();
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.ticks > 1; }));
}

} // namespace
} // namespace tol::test
