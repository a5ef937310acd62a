// SPDX-License-Identifier: MIT
#include "VirtualDisplay.h"

#include "platform/Paths.h"
#include "support/StartFolder.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace tol::test {
namespace {

using namespace std::chrono_literals;
using runtime::Value;
using testing::ElementsAre;

const char* const splashTitle = "Tolvane Module";
const char* const mainTitle = "Zovarin Series - Tolvane Module";

// The keys that choose each item behind which no window stands.
const std::vector<std::vector<std::string>> waitingItems = {
    {"alt+h", "c"}, {"alt+h", "i"}, {"alt+h", "s"}, {"alt", "Left", "Down", "Return"}, // without any letter
};

class Tol : public testing::Test {
  protected:
    void start(const std::vector<std::string>& arguments = {}) {
        program = display.start(TOL_PROGRAM, arguments);
    }

    // What the program printed, for the one who reads of a failure.
    [[nodiscard]] std::string messages() const { return program->err(); }

    void expectEnd(int status) {
        ASSERT_TRUE(program->waitFor(20s)) << messages();
        EXPECT_EQ(program->wait(), status) << messages();
    }

    // A picture for the documents, or for the test alone when nobody asked for pictures.
    void expectPicture(const std::string& name) {
        const char* pictures = std::getenv("TOL_SCREENSHOTS");
        const std::filesystem::path file =
            (pictures != nullptr ? std::filesystem::path(pictures) : folder.path()) / (name + ".png");
        // A window can have the keyboard before it is painted; a black display makes a tiny file.
        EXPECT_TRUE(waitFor([&] {
            display.takePicture(file);
            return std::filesystem::file_size(file) > 1000;
        }));
    }

    StartFolder folder;
    VirtualDisplay display{folder.path()};
    std::unique_ptr<Program> program;
};

TEST_F(Tol, IsWalkedThroughByKeysAndLeftByExit) {
    start();
    ASSERT_TRUE(display.waitForWindow(mainTitle)) << messages();
    EXPECT_FALSE(display.hasWindow(splashTitle));
    expectPicture("desktop-main-window");
    for (const auto& keys : waitingItems) {
        display.press(keys);
        ASSERT_TRUE(display.waitForWindow("Option Not Ready")) << keys.front() << ' ' << keys.back();
        display.press({"Return"});
        ASSERT_TRUE(display.waitForWindow(mainTitle));
    }
    display.press({"alt+w", "h", "alt+w", "v", "alt+w", "c"});
    EXPECT_FALSE(program->waitFor(0s));
    display.press({"alt+f", "x"});
    expectEnd(0);
    EXPECT_THAT(folder.paths(), ElementsAre(Value(platform::currentFolder())));
}

TEST_F(Tol, ShowsASplashThatAKeyTakesAway) {
    start();
    ASSERT_TRUE(display.waitForWindow(splashTitle)) << messages();
    expectPicture("desktop-splash");
    display.press({"space"});
    ASSERT_TRUE(display.waitForWindow(mainTitle)) << messages();
    EXPECT_FALSE(display.hasWindow(splashTitle));
}

TEST_F(Tol, IsLeftByTheCloseButton) {
    start();
    ASSERT_TRUE(display.waitForWindow(mainTitle)) << messages();
    display.press({"alt+F4"}); // the window manager's own key for it
    expectEnd(0);
}

TEST_F(Tol, ReadsNoCommandLine) {
    start({"--help", "-platform", "nonsense", "-style", "nonsense"});
    EXPECT_TRUE(display.waitForWindow(mainTitle)) << messages();
}

TEST_F(Tol, EndsAfterSayingWhichDatabaseIsMissing) {
    folder.remove("NETPATH.MDB");
    start();
    ASSERT_TRUE(display.waitForWindow("Startup Error")) << messages();
    EXPECT_FALSE(display.hasWindow(splashTitle));
    expectPicture("desktop-startup-error");
    display.press({"Return"});
    expectEnd(1);
}

TEST_F(Tol, EndsWithoutTheUsersDatabase) {
    folder.remove("drives/c/ZOVUSER/ZOVUSER.MDB");
    start();
    ASSERT_TRUE(display.waitForWindow("A Required Database is Missing.")) << messages();
    display.press({"Escape"});
    expectEnd(1);
}

TEST_F(Tol, StaysUpWithADamagedDatabase) {
    folder.write("NETPATH.MDB", "this is no database");
    start();
    ASSERT_TRUE(display.waitForWindow("Error Loading Tolvane Module")) << messages();
    EXPECT_FALSE(display.hasWindow(mainTitle));
    display.press({"Return"});
    ASSERT_TRUE(display.waitForWindow(mainTitle));
    display.press({"alt+f", "x"});
    expectEnd(0);
    EXPECT_EQ(folder.read("NETPATH.MDB"), "this is no database");
}

} // namespace
} // namespace tol::test
