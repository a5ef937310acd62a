// SPDX-License-Identifier: MIT
#include "forms/events/WindowHost.h"

#include "forms/events/Application.h"
#include "runtime/Host.h"
#include "support/BoxAnswerer.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QTimer>

#include <iostream>

namespace tol::forms {
namespace {

using runtime::host;

TEST(WindowHost, ShowsABoxAndReturnsTheAnswer) {
    const WindowHost windows;
    test::BoxAnswerer person;
    person.answers = {"cmdCancel"};
    const auto answer =
        host().msgBox("Text", {runtime::MsgIcon::Question, runtime::MsgButtons::OkCancel}, "Title");
    EXPECT_EQ(answer, runtime::MsgResult::Cancel);
    EXPECT_EQ(person.boxes.at(0).title, "Title");
    EXPECT_EQ(person.boxes.at(0).text, "Text");
}

TEST(WindowHost, ABoxWithoutTitleHasTheProgramsTitle) {
    const WindowHost windows;
    test::BoxAnswerer person;
    host().msgBox("Text");
    EXPECT_EQ(person.boxes.at(0).title, "Tolvane Module");
}

TEST(WindowHost, DoEventsHandlesWhatWaits) {
    const WindowHost windows;
    bool handled = false;
    QTimer::singleShot(0, [&] { handled = true; });
    host().doEvents();
    EXPECT_TRUE(handled);
}

TEST(WindowHost, AWalkGivesWayAgainAndAgain) {
    const WindowHost windows;
    int turns = 0;
    QTimer everyTurn;
    everyTurn.callOnTimeout([&] { ++turns; });
    everyTurn.start(0);
    while (turns < 3)
        host().doEvents();
}

// Counts how often waiting work was asked to be flushed; a flusher stays for the life of the process.
int& flushedCount() {
    static int count = 0;
    static const bool registered = [] {
        runtime::addFlusher([] { ++count; });
        return true;
    }();
    static_cast<void>(registered);
    return count;
}

TEST(EventLoop, FlushesWaitingWorkBeforeItBlocks) {
    int& flushed = flushedCount();
    flushed = 0;
    QEventLoop loop;
    QTimer::singleShot(20, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_GE(flushed, 1);
}

TEST(EventLoop, AYieldDoesNotFlush) {
    const WindowHost windows;
    int& flushed = flushedCount();
    flushed = 0;
    host().doEvents();
    EXPECT_EQ(flushed, 0);
}

TEST(WindowHostDeathTest, EndLeavesTheProcessAfterFlushing) {
    const auto endProgram = [] {
        const WindowHost windows;
        runtime::addFlusher([] { std::cerr << "flushed\n"; });
        const QObject neverDestroyed;
        QObject::connect(&neverDestroyed, &QObject::destroyed, [] { std::cerr << "destroyed\n"; });
        host().end();
    };
    EXPECT_EXIT(endProgram(), testing::ExitedWithCode(0), "^flushed\n$");
}

TEST(WindowHostDeathTest, EndHasTheStatusThatWasSet) {
    const auto endProgram = [] {
        const WindowHost windows;
        Application::setExitStatus(3);
        host().end();
    };
    EXPECT_EXIT(endProgram(), testing::ExitedWithCode(3), "^$");
}

} // namespace
} // namespace tol::forms
