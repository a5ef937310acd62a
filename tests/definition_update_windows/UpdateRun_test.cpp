// SPDX-License-Identifier: MIT
// Runs in the update window: its states, its texts, how it is stopped and left.
#include "UpdateWindow.h"

#include "forms/LoadedForms.h"

#include <gmock/gmock.h>

#include <QMdiSubWindow>
#include <QTest>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* ready = "&Begin, choices on, refresh off, print on, exit on";
constexpr const char* running = "&Cancel, choices off, refresh off, print off, exit off, now processing";
constexpr const char* stopPressed =
    "&Cancel off, choices off, refresh off, print off, exit on, now processing";
constexpr const char* ended = "&Cancel off, choices off, refresh off, print on, exit on, now processing";

class UpdateRun_ : public UpdateWindow {};
using Running = UpdateRun_;

TEST_F(Running, GoesThroughItsStates) {
    addOutdatedSite();
    open();
    EXPECT_EQ(state(), ready);
    keepPicture(main, "update-ready");
    atYield(1, [&] {
        EXPECT_EQ(state(), running);
        keepPicture(main, "update-running");
    });
    click("cmdCancel");
    EXPECT_GE(world.host.yields, 1);
    EXPECT_EQ(state(), ended);
    EXPECT_EQ(text("lblNPPATHNAME"), "Finished");
    EXPECT_EQ(text("lblNPPATHTEXT"), "Database Definitions Have Been Updated.");
    EXPECT_EQ(text("lblNPDBNAME"), " ");
    EXPECT_EQ(text("lblNP2"), " ");
    keepPicture(main, "update-finished");
}

} // namespace
} // namespace tol::test
