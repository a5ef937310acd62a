// SPDX-License-Identifier: MIT
#include "search_print/InputPause.h"

#include "support/BoxAnswerer.h"

#include "forms/windows/MessageBox.h"
#include "runtime/Host.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>

#include <optional>

namespace tol::test {
namespace {

class InputPauseTest : public testing::Test {
  protected:
    InputPauseTest() {
        window.resize(200, 100);
        QObject::connect(&button, &QPushButton::clicked, [this] { ++clicks; });
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QWidget window;
    QPushButton button{"Click", &window};
    int clicks = 0;
};

TEST_F(InputPauseTest, KeepsMouseAndKeysOff) {
    std::optional<search_print::InputPause> pause(std::in_place);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    pause.reset();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(InputPauseTest, KeepsTheWindowOpen) {
    const search_print::InputPause pause;
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(InputPauseTest, LetsAMessageBoxBeAnswered) {
    BoxAnswerer person;
    const search_print::InputPause pause;
    person.onBox = [](QMessageBox& box) {
        QTest::keyClick(box.findChild<QPushButton*>("cmdCancel"), Qt::Key_Space);
    };
    EXPECT_EQ(forms::showMessageBox("Text", {runtime::MsgIcon::Question, runtime::MsgButtons::OkCancel}, "T"),
              runtime::MsgResult::Cancel);
    EXPECT_EQ(person.boxes.size(), 1U);
}

} // namespace
} // namespace tol::test
