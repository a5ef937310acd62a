// SPDX-License-Identifier: MIT
#include "Desk.h"

#include <gmock/gmock.h>

#include <thread>

namespace tol::test {
namespace {

using namespace std::chrono_literals;
using nlohmann::json;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::Not;

const char* const printTitle = "Print Database Definition Update Activity Log";

/// Makes the demo below the folder and returns where it is.
std::filesystem::path demoIn(const std::filesystem::path& folder) {
    EXPECT_EQ(Program(TOL_CTL_PROGRAM, {"demo", "work"}, folder).wait(), 0);
    return folder / "work";
}

/// An administrator's day before the demo folder.
class Journey : public Desk {
  protected:
    Journey() : Desk(demoIn) {}

    /// The print button can be pressed as soon as the run has ended.
    void openLog() const {
        ASSERT_TRUE(waitFor([&] {
            display.press({"alt+p"});
            std::this_thread::sleep_for(300ms);
            return display.hasWindow(printTitle);
        })) << tol->err();
        ASSERT_TRUE(display.waitForWindow(printTitle));
    }
};

auto siteNamed(const std::string& name) {
    return [name](const json& sites) {
        return std::ranges::any_of(sites, [&](const json& site) { return site.at(1) == name; });
    };
}

TEST_F(Journey, JobSitesAreKeptAndPrinted) {
    open({"alt+f", "2"});
    display.press({"a"});
    display.type("new yard");
    display.press({"Tab"});
    display.type("s:\\sites\\new\\");
    display.press({"alt+u"});
    ASSERT_TRUE(comes("DBPATHS.MDB", "DBPATHS", siteNamed("NEW YARD"))) << tol->err();
    EXPECT_THAT(rows("DBPATHS.MDB", "DBPATHS"), Contains(Contains(json("S:\\SITES\\NEW"))));

    display.press({"e"});
    display.type("newer yard");
    display.press({"alt+u"});
    ASSERT_TRUE(comes("DBPATHS.MDB", "DBPATHS", siteNamed("NEWER YARD")));

    display.press({"e"});
    display.type("nonsense");
    display.press({"Escape", "d"});
    answer("Confirm Delete", "Return");
    ASSERT_TRUE(
        comes("DBPATHS.MDB", "DBPATHS", [](const json& sites) { return !siteNamed("NEWER YARD")(sites); }));
    const json sites = rows("DBPATHS.MDB", "DBPATHS");
    EXPECT_EQ(sites.size(), 6U);
    EXPECT_FALSE(siteNamed("NONSENSE")(sites));

    display.press({"alt+p"});
    ASSERT_TRUE(display.waitForWindow("Print the List of Job Sites")) << tol->err();
    saveAsPdf("sites.pdf");
    const std::string text = textOf("sites.pdf");
    EXPECT_THAT(text, HasSubstr("List of Job Sites"));
    for (const json& site : sites)
        EXPECT_THAT(text, HasSubstr(site.at(1).get<std::string>()));
    display.press({"Escape"});
    ASSERT_TRUE(display.waitForWindow(mainTitle));
    display.press({"x"});
    answer("Reminder", "Return");
    leave();
}

TEST_F(Journey, AnUpdateIsRunWithItsQuestionsAndPrinted) {
    open({"alt+u", "1"});
    display.press({"t", "alt+b"});
    answer("Data Will Be Lost", "Return");
    answer("Continue Warning?", "n");
    answer("Data Will Be Lost", "n"); // the next field's question; no stops the run
    openLog();
    display.press({"alt+b"});
    saveAsPdf("log.pdf");
    const std::string text = textOf("log.pdf");
    EXPECT_THAT(text, HasSubstr("Database Definition Update Utility - Activity Log"));
    EXPECT_THAT(text, HasSubstr("Changed Field Type."));
    display.press({"Escape"});
    ASSERT_TRUE(display.waitForWindow(mainTitle));
    leave();
    const json log = rows("ZOVDEF.MDB", "ACTIVITYLOG");
    EXPECT_THAT(log, Each(Contains(json("BAYFRONT TOWER"))));
    EXPECT_THAT(log, Contains(Contains(json("Changed Field Type.  "))));
}

TEST_F(Journey, AnUpdateIsCancelledInTheMiddle) {
    // A first run, so that the next one has no questions.
    printedBy(TOL_CTL_PROGRAM, {"update", "--all", "--on-unconvertible", "quiet"});
    open({"alt+u", "1"});
    display.press({"alt+a", "alt+b alt+c"}); // the second one waits until the run looks up
    openLog();
    display.press({"Escape"});
    ASSERT_TRUE(display.waitForWindow(mainTitle));
    leave();
    const json log = rows("ZOVDEF.MDB", "ACTIVITYLOG");
    EXPECT_THAT(log, Contains(Contains(json("BAYFRONT TOWER")))) << "the run did not begin";
    EXPECT_THAT(log, Not(Contains(Contains(json("QUARRY ROAD"))))) << "the last site was reached";
}

TEST_F(Journey, AModuleIsKept) {
    open({"alt+a", "2"});
    display.press({"a"});
    display.type("zz");
    display.press({"Tab"});
    display.type("Yard Planning");
    display.press({"alt+u"});
    const auto isThere = [](const json& modules) {
        return std::ranges::any_of(
            modules, [](const json& row) { return row.at(0) == "ZZ" && row.at(1) == "Yard Planning"; });
    };
    ASSERT_TRUE(comes("drives/s/NET/ZOVNET.MDB", "MODULES", isThere)) << tol->err();
    display.press({"d"});
    answer("Confirm Delete", "Escape");
    EXPECT_TRUE(isThere(rows("drives/s/NET/ZOVNET.MDB", "MODULES")));
    display.press({"x"});
    leave();
}

TEST_F(Journey, LocksAreDeletedByTwo) {
    const char* network = "drives/s/NET/ZOVNET.MDB";
    const std::size_t before = rows(network, "RECORDLOCKS").size();
    ASSERT_GT(before, 1U) << "the demo has some";
    open({"alt+u", "3"});
    display.press({"Down", "d"});
    answer("Confirm Delete", "Escape");
    EXPECT_EQ(rows(network, "RECORDLOCKS").size(), before);
    display.press({"d"});
    answer("Confirm Delete", "Return");
    ASSERT_TRUE(comes(network, "RECORDLOCKS", [&](const json& locks) { return locks.size() == before - 1; }))
        << tol->err();
    // Another administrator's delete, under the open window.
    printedBy(TOL_CTL_PROGRAM, {"locks", "delete", "--older-than", "0s", "--yes"});
    const std::size_t left = rows(network, "RECORDLOCKS").size();
    EXPECT_LT(left, before - 1);
    display.press({"x"});
    leave();
    EXPECT_EQ(rows(network, "RECORDLOCKS").size(), left);
}

TEST_F(Journey, TheItemsListIsUpdated) {
    const char* network = "drives/s/NET/ZOVNET.MDB";
    open({"alt+u", "2"});
    display.press({"alt+b"});
    answer("Finished", "Return");
    display.press({"Escape"});
    leave();
    EXPECT_EQ(rows(network, "USERACCESSITEMS").size(), rows("ZOVDEF.MDB", "USERACCESSITEMS").size());
    EXPECT_EQ(rows(network, "MODULES").size(), rows("ZOVDEF.MDB", "MODULES").size());
}

} // namespace
} // namespace tol::test
