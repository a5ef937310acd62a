// SPDX-License-Identifier: MIT
// Runs of the demo in the update window: all sites, every question answered Yes.
#include "Person.h"
#include "definition_update/windows/frmDBUDDU.h"
#include "demo_support/DemoFolder.h"
#include "forms/windows/MdiForm.h"

#include <gmock/gmock.h>

#include <QTest>

namespace tol::test {
namespace {

/// The update window before the demo.
class DemoInWindow : public testing::Test {
  protected:
    DemoInWindow() {
        main.setSize(11985, 9090);
        main.load();
        main.show();
        auto made = std::make_unique<update::frmDBUDDU>();
        window = made.get();
        main.showChild(std::move(made));
    }
    /// The log as it is stored: Job Site, database and action.
    static std::vector<std::string> storedLog() {
        std::vector<std::string> log;
        forEachRow("ZOVDEF.MDB", "ACTIVITYLOG", [&](const data::Recordset& row) {
            log.push_back(text(row, "PATHNAME") + "|" + text(row, "DBNAME") + "|" + text(row, "Action"));
        });
        return log;
    }

    DemoFolder folder;
    forms::MdiForm main{"frmTOLMAIN"};
    update::frmDBUDDU* window = nullptr;
};

TEST_F(DemoInWindow, StoppedInTheMiddleItSaysSo) {
    const Person person(*window);
    person.click("cmdTAGALL");
    folder.host.onYield = [&] {
        if (folder.host.yields == 500)
            person.click("cmdCancel");
    };
    folder.host.yields = 0;
    person.click("cmdCancel");
    EXPECT_EQ(person.text("lblNPPATHNAME"), "STOPPED");
    EXPECT_EQ(person.text("lblNPPATHTEXT"), "WARNING: DATABASE DEFINITION UPDATE INCOMPLETE.");
    const std::vector<std::string> log = storedLog();
    EXPECT_THAT(log, testing::Not(testing::IsEmpty()));
    EXPECT_THAT(log, testing::Each(testing::StartsWith(folder.sites().front().name)));
}

TEST_F(DemoInWindow, FinishesAndShowsTheLogThatItWrote) {
    const Person person(*window);
    person.click("cmdTAGALL");
    person.keepPicture("demo-tagged");
    std::vector<std::string> last;
    folder.host.onYield = [&] {
        const std::string action = person.text("lblACTION(7)");
        if (person.isShown("lblNP3") && action != " " && last.empty()) {
            last = person.rows({"lblALPATHNAME", "lblDBNAME", "lblACTION"});
            person.keepPicture("demo-running");
        }
    };
    person.click("cmdCancel");
    EXPECT_EQ(person.text("lblNPPATHNAME"), "Finished");
    person.keepPicture("demo-finished");

    const std::vector<std::string> log = storedLog();
    EXPECT_GT(log.size(), 100U);
    EXPECT_THAT(log, testing::Not(testing::Contains(testing::HasSubstr("INCOMPLETE"))));
    const std::vector<std::string> shown = person.rows({"lblALPATHNAME", "lblDBNAME"});
    for (int row = 0; row < 8; ++row)
        EXPECT_THAT(log[row], testing::StartsWith(shown[row])) << "from the first row";
    ASSERT_EQ(last.size(), 8U);
    EXPECT_THAT(last, testing::Each(testing::StartsWith(folder.sites().front().name)))
        << "the first site, while rows are converted";
}

} // namespace
} // namespace tol::test
