// SPDX-License-Identifier: MIT
#include "forms/events/Focus.h"

#include "forms/controls/Controls.h"
#include "forms/windows/Form.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

namespace tol::forms {
namespace {

TEST(Focus, TabIsPressedOnceTheEventLoopTurns) {
    Form form("frmTest");
    QLineEdit first(&form), second(&form);
    form.showModeless();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    first.setFocus();
    pressTab();
    EXPECT_TRUE(first.hasFocus());
    QCoreApplication::processEvents();
    EXPECT_TRUE(second.hasFocus());
    EXPECT_EQ(first.text() + second.text(), "");
}

class KeyWatcher : public Form {
  public:
    KeyWatcher() : Form("frmTest") { setKeyPreview(true); }
    std::vector<int> keys;

  protected:
    void onKeyDown(KeyPress& key) override { keys.push_back(key.code); }
};

TEST(Focus, TheFormSeesAPressedTabLikeAnyOther) {
    KeyWatcher form;
    QLineEdit box(&form);
    form.showModeless();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    box.setFocus();
    pressTab();
    QCoreApplication::processEvents();
    EXPECT_THAT(form.keys, testing::ElementsAre(keyTab));
}

TEST(Focus, TabWithoutAFocusIsNoMatter) {
    pressTab();
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
}

TEST(Focus, AnAnnouncementIsTheControlsDescription) {
    Form form("frmTest");
    QScrollBar& holder = addScrollBar(form, "hsbMAIN", "Job Sites", {0, 0, 30, 30});
    const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&holder);
    for (const QString row : {"NORTH, C:\\JOBS", "SOUTH", "SOUTH"}) {
        announce(holder, row);
        EXPECT_EQ(told->text(QAccessible::Description), row);
        EXPECT_EQ(told->text(QAccessible::Name), "Job Sites");
    }
}

} // namespace
} // namespace tol::forms
