// SPDX-License-Identifier: MIT
#include "shell/vdwindows/frmvdMsgBox.h"
#include "shell/vdwindows/frmvdNETNoAccess.h"
#include "shell/vdwindows/frmvdNETRLocked.h"
#include "shell/vdwindows/frmvdWarning.h"
#include "support/WindowDriver.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace tol::test {
namespace {

using namespace shell;

TEST(MsgBoxWindow, HasOneButtonInTheMiddleUnlessToldOtherwise) {
    frmvdMsgBox window;
    window.setMessage("The report is empty.");
    window.sButton2 = " ";
    window.showModeless();
    const WindowDriver desk(window);
    EXPECT_EQ(window.windowTitle(), "Message Box");
    EXPECT_EQ(desk.text("lblMessageText"), "The report is empty.");
    EXPECT_EQ(desk.text("cmdButton1"), "&OK");
    EXPECT_FALSE(desk.isShown("cmdButton2"));
    EXPECT_EQ(desk.control("cmdButton1").x(), 1065 / 15);
    EXPECT_EQ(desk.control("cmdButton1").geometry().center().x(), window.rect().center().x());
    desk.click("cmdButton1");
    EXPECT_FALSE(window.isLoaded());
    EXPECT_EQ(window.iResult, 1);
}

TEST(MsgBoxWindow, TakesTheCaptionsItIsGiven) {
    frmvdMsgBox window;
    window.setMessage("The report is empty.");
    window.sButton1 = "&Retry";
    window.sButton2 = "&Skip";
    window.showModeless();
    const WindowDriver desk(window);
    EXPECT_EQ(desk.text("cmdButton1"), "&Retry");
    EXPECT_EQ(desk.text("cmdButton2"), "&Skip");
    desk.keepPicture("message");
    EXPECT_LT(desk.control("cmdButton1").geometry().right(), desk.control("cmdButton2").x());
    EXPECT_EQ(window.iResult, 0);
    desk.press(Qt::Key_S, Qt::AltModifier);
    EXPECT_FALSE(window.isLoaded());
    EXPECT_EQ(window.iResult, 2);
}

TEST(NoAccessWindow, TellsWhoIsDeniedWhat) {
    frmvdNETNoAccess window;
    window.setDenied("JSMITH", "Modules");
    window.showModeless();
    const WindowDriver desk(window);
    EXPECT_EQ(window.windowTitle(), "Access Denied");
    EXPECT_EQ(desk.text("lblAccessDenied"), "Access Denied");
    EXPECT_EQ(desk.text("lblHUserName"), "User Name: ");
    EXPECT_EQ(desk.text("lblUSERNAME"), "JSMITH");
    EXPECT_EQ(desk.text("lblHProcess"), "Process: ");
    EXPECT_EQ(desk.text("lblProcess"), "Modules");
    EXPECT_EQ(desk.text("lblExplain"),
              "The above User is denied access to the above process.  For permission to access the above "
              "process contact your network administrator.");
    EXPECT_EQ(desk.text("cmdOK"), "OK");
    desk.keepPicture("access-denied");
    desk.click("cmdOK");
    EXPECT_FALSE(window.isLoaded());
}

TEST(NoAccessWindow, IsLeftWithEscOrEnter) {
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        frmvdNETNoAccess window;
        window.showModeless();
        WindowDriver(window).press(key);
        EXPECT_FALSE(window.isLoaded());
    }
}

class LockedWindow : public testing::Test {
  protected:
    LockedWindow() {
        window.setLock("JOBS", "ann", "1/31/2003 4:05:00 PM");
        window.showModeless();
    }

    frmvdNETRLocked window;
    WindowDriver desk{window};
};

TEST_F(LockedWindow, TellsWhoHasLockedWhatSinceWhen) {
    EXPECT_EQ(window.windowTitle(), "Record Locked");
    EXPECT_EQ(desk.text("lblTABLENAME"), "JOBS");
    EXPECT_EQ(desk.text("lblUSERNAME"), "ann");
    EXPECT_EQ(desk.text("lblRLTIMESTAMP"), "1/31/2003 4:05:00 PM");
    EXPECT_EQ(desk.text("lblExplain"), "The Record you are attemping to access is locked by the above user.");
    EXPECT_EQ(desk.text("cmdOK"), "OK");
    EXPECT_EQ(desk.text("cmdREMOVE"), "Remove Lock");
    desk.keepPicture("record-locked");
}

TEST_F(LockedWindow, OnlyRemoveLockAsksForTheRemoval) {
    window.bRemove = true;
    desk.click("cmdOK");
    EXPECT_FALSE(window.isLoaded());
    EXPECT_FALSE(window.bRemove);
    window.showModeless();
    desk.click("cmdREMOVE");
    EXPECT_FALSE(window.isLoaded());
    EXPECT_TRUE(window.bRemove);
}

TEST_F(LockedWindow, EscEnterAndTheFrameLeaveTheLock) {
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        window.showModeless();
        desk.press(key);
        EXPECT_FALSE(window.isLoaded());
        EXPECT_FALSE(window.bRemove);
    }
    window.bRemove = true; // of an earlier showing
    window.showModeless();
    window.close();
    EXPECT_FALSE(window.bRemove);
}

class WarningWindow : public testing::Test {
  protected:
    WarningWindow() {
        window.setWarning("A row was left out.");
        window.showModeless();
    }

    frmvdWarning window;
    WindowDriver desk{window};
};

TEST_F(WarningWindow, ShowsTheWarning) {
    EXPECT_EQ(window.windowTitle(), "Warning Form with Option");
    EXPECT_EQ(desk.text("lblWarning"), "A row was left out.");
    EXPECT_FALSE(desk.control<QLabel>("picRedX").pixmap().isNull());
    EXPECT_EQ(desk.text("ckbWarnOption"), "Do Not Warn Again During this Report Run.");
    EXPECT_FALSE(desk.control<QCheckBox>("ckbWarnOption").isChecked());
    desk.keepPicture("warning");
}

TEST_F(WarningWindow, WarnsAgainUnlessTheBoxIsTicked) {
    window.bWarnAgain = false;
    desk.click("cmdOK");
    EXPECT_FALSE(window.isLoaded());
    EXPECT_TRUE(window.bWarnAgain);
}

TEST_F(WarningWindow, DoesNotWarnAgainWhenTheBoxIsTicked) {
    desk.control("ckbWarnOption").setFocus();
    desk.press(Qt::Key_Space);
    desk.press(Qt::Key_Return);
    EXPECT_FALSE(window.isLoaded());
    EXPECT_FALSE(window.bWarnAgain);
}

} // namespace
} // namespace tol::test
