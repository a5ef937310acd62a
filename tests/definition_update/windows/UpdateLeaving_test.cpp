// SPDX-License-Identifier: MIT
// Leaving the update window or the program while a run is in work, and the windows that it opens.
#include "UpdateWindow.h"

#include "forms/controls/TextBox.h"
#include "forms/events/WindowHost.h"
#include "forms/windows/LoadedForms.h"
#include "shell/frmTOLMAIN.h"
#include "support/BoxAnswerer.h"
#include "tol/Windows.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* running = "&Cancel, choices off, refresh off, print off, exit off, now processing";
constexpr const char* stopPressed =
    "&Cancel off, choices off, refresh off, print off, exit on, now processing";

class Leaving : public UpdateWindow {
  protected:
    [[nodiscard]] QMdiSubWindow& frame() const {
        return *dynamic_cast<QMdiSubWindow*>(window().parentWidget());
    }
};

TEST_F(Leaving, NothingLeavesARunningWindow) {
    addOutdatedSite(5);
    open();
    atYield(1, [&] {
        poke("cmdExit");
        press(Qt::Key_X);
        press(Qt::Key_X, Qt::AltModifier);
        QTest::qWait(150);
        frame().close();
        press(Qt::Key_F4, Qt::ControlModifier);
        main.close();
        EXPECT_EQ(state(), running);
        EXPECT_TRUE(main.isVisible() && window().isVisible());
    });
    click("cmdCancel");
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(text("lblNPPATHNAME"), "Finished");
    frame().close();
    EXPECT_FALSE(isOpen());
    main.close();
    EXPECT_FALSE(main.isVisible());
}

class LeavingAfterCancel : public Leaving, public testing::WithParamInterface<const char*> {
  protected:
    void leave() {
        const std::string way = GetParam();
        if (way == "Click")
            click("cmdExit");
        else if (way == "Key")
            press(Qt::Key_X);
        else
            frame().close();
    }
};

TEST_P(LeavingAfterCancel, TheWindowGoesWhenTheRunHasReturned) {
    addOutdatedSite(5);
    open();
    bool stillThere = false;
    atYield(2, [&] {
        click("cmdCancel");
        leave();
        main.close();
        stillThere = main.isVisible() && window().isVisible() && state() == stopPressed;
    });
    click("cmdCancel");
    EXPECT_TRUE(stillThere);
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(main.isVisible());
    EXPECT_THAT(world.host.boxes, IsEmpty());
    main.close();
    EXPECT_FALSE(main.isVisible());
}

INSTANTIATE_TEST_SUITE_P(EachWay, LeavingAfterCancel, testing::Values("Click", "Key", "CloseButton"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST_F(Leaving, ARunOfALaterWindowRepairsWhatACancelLeft) {
    addOutdatedSite(5);
    open();
    atYield(2, [&] {
        click("cmdCancel");
        click("cmdExit");
    });
    click("cmdCancel");
    world.host.onYield = {};
    QTest::qWait(0);
    ASSERT_FALSE(isOpen());
    for (int run = 0; run < 2; ++run) {
        open();
        click("cmdCancel");
        EXPECT_EQ(text("lblNPPATHNAME"), "Finished");
        click("cmdExit");
        QTest::qWait(0);
    }
    const Json tables = outdated();
    EXPECT_EQ(tables["ORDERS"]["fields"].size(), 2U);
    EXPECT_EQ(tables["ORDERS"]["indexes"].size(), 1U);
    EXPECT_EQ(tables["ORDERS"]["rows"].size(), 5U);
}

// With the program's own host and its real boxes.
TEST_F(Leaving, BothQuestionsInRealBoxes) {
    addOutdatedSite(4, false);
    const forms::WindowHost host;
    BoxAnswerer person;
    person.answers = {"cmdYes", "cmdNo"};
    open();
    click("cmdCancel");
    ASSERT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes[0].title, "Data Will Be Lost");
    EXPECT_EQ(person.boxes[0].icon, QMessageBox::Question);
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdYes", "cmdNo"));
    EXPECT_EQ(person.boxes[1].title, "Continue Warning?");
    EXPECT_EQ(text("lblNPPATHNAME"), "Finished");
}

// A person behind the box can't reach the window below it.
TEST_F(Leaving, AQuestionKeepsTheWindow) {
    addOutdatedSite(4, false);
    const forms::WindowHost host;
    BoxAnswerer person;
    open();
    person.onBox = [&](QMessageBox& box) {
        main.close();
        EXPECT_TRUE(main.isVisible() && isOpen());
        box.findChild<QAbstractButton*>("cmdNo")->click();
    };
    click("cmdCancel");
    EXPECT_EQ(text("lblNPPATHNAME"), "STOPPED");
    EXPECT_EQ(person.boxes.size(), 1U);
}

// A long conversion, with clicks that come from outside at their own time.
TEST_F(Leaving, TheCancelButtonLivesDuringALongConversion) {
    addOutdatedSite(100000);
    const forms::WindowHost host;
    open();
    QTimer person;
    std::string told;
    person.callOnTimeout([&] {
        if (!visible("lblNP3"))
            return;
        told = text("lblNP4");
        person.stop();
        click("cmdCancel");
    });
    person.start(0);
    click("cmdCancel");
    EXPECT_EQ(text("lblNPPATHNAME"), "STOPPED");
    EXPECT_FALSE(told.empty());
    EXPECT_LT(std::stoi(told), 100000);
}

TEST_F(Leaving, TheRefreshIsOfferedOnADevelopersMachineAlone) {
    world.folder.write("drives/c/VBP/ZOV/ZOVORV.vbp", "");
    open();
    EXPECT_TRUE(enabled("cmdRefresh"));
    window().NetLocation = "C:\\NET";
    std::string seen;
    QTimer::singleShot(0, &main, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        seen = modal->objectName().toStdString();
        modal->close();
    });
    click("cmdRefresh");
    EXPECT_EQ(seen, "frmDBURefresh");
    EXPECT_TRUE(isOpen());
}

TEST_F(Leaving, TheLogIsPrintedInAWindowOfItsOwn) {
    open();
    std::string seen;
    QTimer::singleShot(0, &main, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        ASSERT_NE(modal, nullptr);
        ASSERT_TRUE(QTest::qWaitFor([&] { return Person(*modal).focus() == "cmdBegin"; }));
        seen = modal->objectName().toStdString();
        Person(*modal).press(Qt::Key_P);
        seen += ", " + Person(*modal).text("lblProcess");
        modal->close();
    });
    click("cmdPrint");
    EXPECT_EQ(seen, "frmDBUPrint, Report Finished, Press 'P' to Print");
}

// The keyboard goes to the log, but not from somebody who is at work in another window.
TEST_F(Leaving, TheEndOfARunLeavesTheKeyboardToAnotherWindow) {
    addOutdatedSite(5);
    open();
    forms::TextBox* box = nullptr;
    atYield(2, [&] {
        auto other = std::make_unique<forms::Form>("frmOther");
        box = &forms::TextBox::add(*other, "txtOTHER", 9, {150, 150, 1500, 315});
        main.showChild(std::move(other));
        box->setFocus();
        QTest::keyClicks(box, "be");
    });
    click("cmdCancel");
    EXPECT_EQ(text("lblNPPATHNAME"), "Finished");
    ASSERT_NE(box, nullptr);
    ASSERT_TRUE(box->hasFocus());
    QTest::keyClicks(QApplication::focusWidget(), "gun");
    EXPECT_EQ(box->Text(), "begun");
    main.findChild<QMdiArea*>()->setActiveSubWindow(&frame());
    EXPECT_EQ(focus(), "hsbALMAIN");
    EXPECT_TRUE(window().focusWidget()->hasFocus());
}

class UnderAModalWindow : public Leaving, public testing::WithParamInterface<const char*> {};

TEST_P(UnderAModalWindow, TheListGetsTheKeyboardBack) {
    world.folder.write("drives/c/VBP/ZOV/ZOVORV.vbp", "");
    open();
    for (const char* list : {"hsbMAIN", "hsbALMAIN"}) {
        person().control(list).setFocus();
        QTimer untilShown;
        untilShown.callOnTimeout([] {
            if (QWidget* modal = QApplication::activeModalWidget();
                modal != nullptr && modal->isActiveWindow())
                modal->close();
        });
        untilShown.start(1);
        click(GetParam());
        main.activateWindow(); // as a window manager does
        ASSERT_TRUE(QTest::qWaitForWindowActive(&main));
        EXPECT_EQ(focus(), list);
        EXPECT_TRUE(person().control(list).hasFocus());
    }
}

INSTANTIATE_TEST_SUITE_P(Each, UnderAModalWindow, testing::Values("cmdPrint", "cmdRefresh"),
                         [](const auto& instance) { return std::string(instance.param); });

/// The whole program around the window: its main window with its menu.
class Program : public UpdateWindow {
  protected:
    Program() {
        main.hide();
        world.addFile("NETPATH.MDB",
                      Json::parse(R"({"NETPATH": {"fields": [["Path", 10, 50]], "rows": [["C:\\NET"]]}})"));
        world.addFile("drives/c/ZOVUSER/ZOVUSER.MDB", Json::object());
        addWindows(program);
    }
    void openFromMenu() {
        program.load();
        program.findChild<QTimer*>("Timer1")->setInterval(0);
        ASSERT_TRUE(QTest::qWaitFor([&] { return program.isVisible(); }));
        ASSERT_TRUE(QTest::qWaitForWindowActive(&program));
        program.findChild<QAction*>("miDBUDDU")->trigger();
        ASSERT_TRUE(isOpen());
    }

    shell::frmTOLMAIN program;
};

TEST_F(Program, GivesTheWindowWhatItNeeds) {
    openFromMenu();
    EXPECT_EQ(window().ModuleCode, "N");
    EXPECT_EQ(window().NetLocation, "C:\\NET");
    EXPECT_EQ(focus(), "hsbMAIN");
    const QWidget& frame = *window().parentWidget();
    EXPECT_TRUE(frame.parentWidget()->rect().contains(frame.geometry()));
    person().keepPicture("update-in-program");
}

// Alt and a letter belong to the window that has the keyboard before they belong to the menu.
TEST_F(Program, TheWindowsLettersComeBeforeThoseOfTheMenu) {
    addSites(3);
    openFromMenu();
    press(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return marked().size() == 3; }));
}

TEST_F(Program, TheMenuOpensItOnceEvenDuringARun) {
    addOutdatedSite(5);
    openFromMenu();
    atYield(1, [&] {
        const update::frmDBUDDU* before = &window();
        program.findChild<QAction*>("miDBUDDU")->trigger();
        EXPECT_EQ(&window(), before);
        EXPECT_EQ(program.findChildren<QMdiSubWindow*>().size(), 1);
        EXPECT_EQ(state(), running);
    });
    click("cmdCancel");
    EXPECT_EQ(text("lblNPPATHNAME"), "Finished");
}

using ProgramDeathTest = Program;

// The menu's Exit asks nobody, not even a run.
TEST_F(ProgramDeathTest, TheMenusExitEndsTheProgramInTheMiddleOfARun) {
    const auto run = [&] {
        addOutdatedSite(20000);
        const forms::WindowHost host;
        openFromMenu();
        QTimer person;
        person.callOnTimeout([&] { program.findChild<QAction*>("miExit")->trigger(); });
        person.start(0);
        click("cmdCancel");
        std::fputs("the run came to its end\n", stderr);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "^$");
}

} // namespace
} // namespace tol::test
