// SPDX-License-Identifier: MIT
#include "shell/frmTOLMAIN.h"

#include "StartedProgram.h"
#include "forms/events/WindowHost.h"
#include "forms/windows/LoadedForms.h"
#include "runtime/RuntimeError.h"

#include <gmock/gmock.h>

#include <QTest>

#include <iostream>

namespace tol::test {
namespace {

using shell::frmTOLMAIN;
using testing::ElementsAre;

TEST_F(Started, HasItsCaptionSizeAndIcon) {
    EXPECT_EQ(main.windowTitle(), "Zovarin Series - Tolvane Module");
    EXPECT_EQ(main.frameGeometry().size(), QSize(799, 606));
    EXPECT_FALSE(main.windowIcon().isNull());
    EXPECT_EQ(main.windowIcon().actualSize({32, 32}), QSize(32, 32));
    EXPECT_EQ(main.sVersion, "Version 1.1.1");
}

TEST_F(Started, IsAmongTheLoadedForms) {
    EXPECT_EQ(forms::LoadedForms::Count(), 1);
    EXPECT_EQ(forms::LoadedForms::find("frmTOLMAIN"), &main);
}

// A main window whose coming up fails once.
class Stubborn : public frmTOLMAIN {
  public:
    int attempts = 0;

  protected:
    void appear() override {
        if (++attempts == 1)
            throw runtime::RuntimeError(7, "Out of memory.");
        frmTOLMAIN::appear();
    }
};

TEST_F(Start, AnErrorInTheTimerIsToldAndTheMainWindowComesUpAllTheSame) {
    Stubborn main;
    main.load();
    person.onBox = [&](const Box&) { EXPECT_FALSE(main.isVisible()); };
    tick(main, 2);
    EXPECT_THAT(person.texts(), ElementsAre("Timer Error\n7\nOut of memory."));
    EXPECT_EQ(person.boxes.at(0).title, "");
    EXPECT_EQ(person.boxes[0].style, runtime::MsgStyle{});
    EXPECT_EQ(main.attempts, 2);
    EXPECT_TRUE(main.isVisible());
    EXPECT_EQ(splash(), nullptr);
    EXPECT_FALSE(main.findChild<QTimer*>("Timer1")->isActive());
}

class Telling : public forms::Form {
  public:
    Telling() : Form("frmTelling") {}

  protected:
    void onUnload() override { std::cerr << "unloaded"; }
};

TEST_F(Started, TheCloseButtonUnloadsTheChildrenAndEndsTheEventLoop) {
    main.showChild(std::make_unique<Telling>());
    QTimer::singleShot(0, &main, [this] { main.close(); });
    testing::internal::CaptureStderr();
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "unloaded");
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST_F(Start, ExitEndsTheProgramAtOnce) {
    const auto run = [] {
        const forms::WindowHost windows;
        frmTOLMAIN main;
        main.load();
        tick(main, 2);
        main.showChild(std::make_unique<Telling>());
        main.findChild<QAction*>("miExit")->trigger();
        std::cerr << "still there";
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "^$");
}

} // namespace
} // namespace tol::test
