// SPDX-License-Identifier: MIT
#include "VirtualDisplay.h"

#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <thread>

namespace tol::test {
namespace {

using namespace std::chrono_literals;
using nlohmann::json;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::Not;

const char* const mainTitle = "Zovarin Series - Tolvane Module";
const char* const printTitle = "Print Database Definition Update Activity Log";

/// Makes the demo below the folder and returns where it is.
std::filesystem::path demoIn(const std::filesystem::path& folder) {
    EXPECT_EQ(Program(TOL_CTL_PROGRAM, {"demo", "work"}, folder).wait(), 0);
    return folder / "work";
}

/// An administrator's day before the demo folder: all by keys, from the main menu on. What came of it is
/// read from the files with the terminal program.
class Journey : public testing::Test {
  protected:
    void SetUp() override {
        tol = display.start(TOL_PROGRAM);
        ASSERT_TRUE(display.waitForWindow(mainTitle)) << tol->err();
    }

    std::string printedBy(const std::filesystem::path& program,
                          const std::vector<std::string>& arguments) const {
        Program process(program, arguments, work);
        process.wait();
        return process.out();
    }

    /// The rows of a table as they are in the file right now.
    [[nodiscard]] json rows(const std::string& file, const std::string& table) const {
        const json database = json::parse(printedBy(TOL_CTL_PROGRAM, {"dump", file}));
        for (const json& candidate : database.at("tables"))
            if (candidate.at("name") == table)
                return candidate.at("rows");
        return {};
    }

    [[nodiscard]] bool comes(const std::string& file, const std::string& table,
                             const std::function<bool(const json&)>& isThere) const {
        return waitFor([&] { return isThere(rows(file, table)); });
    }

    /// A window inside the main window has no title that the display knows of.
    void open(const std::string& menu, const std::string& item) const {
        display.press({menu, item});
        std::this_thread::sleep_for(500ms);
    }

    void answer(const std::string& box, const std::string& key) const {
        ASSERT_TRUE(display.waitForWindow(box)) << tol->err();
        display.press({key});
        ASSERT_TRUE(waitFor([&] { return !display.hasWindow(box); }));
    }

    /// The print button can be pressed as soon as the run has ended.
    void openLog() const {
        ASSERT_TRUE(waitFor([&] {
            display.press({"alt+p"});
            std::this_thread::sleep_for(300ms);
            return display.hasWindow(printTitle);
        })) << tol->err();
        ASSERT_TRUE(display.waitForWindow(printTitle));
    }

    void saveAsPdf(const std::string& file) const {
        display.press({"p"});
        ASSERT_TRUE(display.waitForWindow("Print"));
        display.press({"alt+f"});
        display.type((work / file).string());
        display.press({"Return"});
        ASSERT_TRUE(waitFor([&] { return std::filesystem::exists(work / file); }));
    }

    [[nodiscard]] std::string textOf(const std::string& pdf) const {
        return printedBy("/usr/bin/pdftotext", {"-layout", pdf, "-"});
    }

    void leave() const {
        display.press({"alt+f", "x"});
        EXPECT_TRUE(tol->waitFor(20s)) << tol->err();
    }

    TempFolder folder;
    const std::filesystem::path work = demoIn(folder.path());
    VirtualDisplay display{work};
    std::unique_ptr<Program> tol;
};

auto siteNamed(const std::string& name) {
    return [name](const json& sites) {
        return std::ranges::any_of(sites, [&](const json& site) { return site.at(1) == name; });
    };
}

TEST_F(Journey, JobSitesAreKeptAndPrinted) {
    open("alt+f", "2");
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
    open("alt+u", "1");
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
    open("alt+u", "1");
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
    open("alt+a", "2");
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

} // namespace
} // namespace tol::test
