// SPDX-License-Identifier: MIT
#include "forms/events/ErrorGuard.h"

#include "forms/events/EventProcedure.h"
#include "forms/events/Timer.h"
#include "forms/events/WindowHost.h"
#include "forms/windows/Form.h"
#include "runtime/RuntimeError.h"
#include "support/BoxAnswerer.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QPaintEvent>
#include <QTest>

#include <iostream>

namespace tol::forms {
namespace {

using runtime::RuntimeError;

// Runs something that fails, with a person who reads the error box aloud and presses OK.
void readAloud(const std::function<void()>& failing) {
    const WindowHost windows;
    test::BoxAnswerer person;
    person.onBox = [&](QMessageBox& box) {
        std::cerr << '[' << person.boxes.back().title << '|' << person.boxes.back().text << '|'
                  << (box.icon() == QMessageBox::Critical ? "critical" : "other") << ']';
        box.close();
    };
    failing();
    std::cerr << "still running";
}

const char* const recordBox =
    R"(^\[Tolvane Module\|Run-time error '3021':

No current record\.\|critical\]$)";

[[noreturn]] void raiseNoRecord() {
    throw RuntimeError(3021, "No current record.");
}

TEST(ErrorGuardDeathTest, ARunTimeErrorIsShownAndEndsTheProgram) {
    EXPECT_EXIT(readAloud([] { guarded(raiseNoRecord); }), testing::ExitedWithCode(1), recordBox);
}

TEST(ErrorGuardDeathTest, AnotherExceptionIsShownAsInternal) {
    const auto fail = [] { guarded([] { throw std::logic_error("no host is installed"); }); };
    EXPECT_EXIT(readAloud(fail), testing::ExitedWithCode(1),
                R"(^\[Tolvane Module\|Internal error:

no host is installed\|critical\]$)");
}

TEST(ErrorGuardDeathTest, AnythingElseThrownIsShownAsInternal) {
    EXPECT_EXIT(readAloud([] { guarded([] { throw 7; }); }), testing::ExitedWithCode(1),
                R"(^\[Tolvane Module\|Internal error\.\|critical\]$)");
}

TEST(ErrorGuardDeathTest, GuardsClicks) {
    const auto fail = [] {
        Form form("frmTest");
        onClick(form, raiseNoRecord);
        form.showModeless();
        QTest::mouseClick(&form, Qt::LeftButton);
    };
    EXPECT_EXIT(readAloud(fail), testing::ExitedWithCode(1), recordBox);
}

TEST(ErrorGuardDeathTest, GuardsTimers) {
    const auto fail = [] {
        QWidget form;
        Timer timer(form, "tmrTest", raiseNoRecord);
        timer.setInterval(1);
        timer.setEnabled(true);
        QTest::qWait(5000);
    };
    EXPECT_EXIT(readAloud(fail), testing::ExitedWithCode(1), recordBox);
}

class FailingForm : public Form {
  public:
    FailingForm() : Form("frmTest") {}
    void onKeyDown(KeyPress&) override { raiseNoRecord(); }
    void onUnload() override { raiseNoRecord(); }
    void onActivate() override {
        if (failActivate)
            raiseNoRecord();
    }
    void paintEvent(QPaintEvent*) override {
        if (failPaint)
            raiseNoRecord();
    }
    bool failActivate = false;
    bool failPaint = false;
};

TEST(ErrorGuardDeathTest, GuardsKeys) {
    const auto fail = [] {
        FailingForm form;
        form.showModeless();
        QTest::keyClick(&form, Qt::Key_F10);
    };
    EXPECT_EXIT(readAloud(fail), testing::ExitedWithCode(1), recordBox);
}

TEST(ErrorGuardDeathTest, GuardsClosing) {
    const auto fail = [] {
        FailingForm form;
        form.showModeless();
        form.close();
    };
    EXPECT_EXIT(readAloud(fail), testing::ExitedWithCode(1), recordBox);
}

TEST(ErrorGuardDeathTest, GuardsActivation) {
    const auto fail = [] {
        FailingForm form;
        form.failActivate = true;
        form.showModeless();
        QTest::qWait(5000);
    };
    EXPECT_EXIT(readAloud(fail), testing::ExitedWithCode(1), recordBox);
}

TEST(ErrorGuardDeathTest, GuardsWhateverElseQtDelivers) {
    const auto fail = [] {
        FailingForm form;
        form.failPaint = true;
        form.showModeless();
        QTest::qWait(5000);
    };
    EXPECT_EXIT(readAloud(fail), testing::ExitedWithCode(1), recordBox);
}

TEST(ErrorGuardDeathTest, NoEventProcedureRunsUnderTheErrorBox) {
    const auto fail = [] {
        QWidget form;
        Timer ticking(form, "tmrTest", [] { std::cerr << "ticked"; });
        ticking.setInterval(1);
        test::BoxAnswerer person;
        const WindowHost windows;
        person.onBox = [](QMessageBox& box) {
            QTest::qWait(50);
            std::cerr << "read";
            box.close();
        };
        guarded([&] {
            ticking.setEnabled(true);
            raiseNoRecord();
        });
    };
    EXPECT_EXIT(fail(), testing::ExitedWithCode(1), "^read$");
}

TEST(ErrorGuardDeathTest, AFailingFlusherIsShownOnceAndEndsTheProgram) {
    const auto fail = [] {
        runtime::addFlusher([] { throw RuntimeError(61, "Disk full."); });
        QEventLoop loop;
        QTimer::singleShot(5000, &loop, &QEventLoop::quit);
        loop.exec();
    };
    EXPECT_EXIT(readAloud(fail), testing::ExitedWithCode(1),
                R"(^\[Tolvane Module\|Run-time error '61':

Disk full\.\|critical\]$)");
}

} // namespace
} // namespace tol::forms
