// SPDX-License-Identifier: MIT
// The update window before a run: what it shows, its two lists, and the tags.
#include "UpdateWindow.h"

#include "data/DBEngine.h"
#include "runtime/Host.h"
#include "screens/RowLabel.h"
#include "shell/vdfunctions/vdEmptyTable.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QLabel>
#include <QTest>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Tags : public UpdateWindow {
  protected:
    /// The Job Sites of the log, each once, in the order in which a run took them.
    std::vector<std::string> processed() {
        UpdateWorld::addRowsOf("DATABASES", Json::parse(R"([["AWAY", "DBPATHS", "N", false]])"));
        click("cmdCancel");
        std::vector<std::string> sites;
        for (const Json& row : UpdateWorld::activityLog())
            if (const auto site = row[0].get<std::string>(); sites.empty() || sites.back() != site)
                sites.push_back(site);
        return sites;
    }
    void goDown(int rows) {
        for (int i = 0; i < rows; ++i)
            press(Qt::Key_Down);
    }
    [[nodiscard]] int highlight() const { return highlighted("lblPATHNAME"); }
};

struct Told {
    const char *control, *text;
};

constexpr Told texts[] = {
    {"lblInstructions1",
     "Tag the Job Sites you wish to update. Click on Begin to update the databases located "
     "in the selected Job Sites. "},
    {"lblInstructions2",
     "To tag a Job Site, Click on the Tag Button or press \"T\". To untag an item move to "
     "the item and re-tag."},
    {"Label2", "If you have only one site then just click on the Begin button."},
    {"lblHNPPATHNAME", "Job Site:"},
    {"lblHNPPATHTEXT", "Location:"},
    {"lblHNPDBNAME", "Database:"},
    {"lblNP1", "Table:"},
    {"lblNP3", "Record:"},
    {"lblNP5", "of"},
    {"lblHJOBSITES", "Job Sites"},
    {"lblHPATHNAME", "Job Site"},
    {"lblHPATHTEXT", " Location of Database Files"},
    {"lblHHActivityLog", "Activity Log"},
    {"lblHALPATHNAME", "Job Site"},
    {"lblHDBNAME", "Database"},
    {"lblHTABLENAME", "Table"},
    {"lblHINDEXNAME", "Index"},
    {"lblHFIELDNAME", "Field"},
    {"Label1", "Action"},
    {"cmdTAGEM", "&Tag"},
    {"cmdTAGALL", "Tag &All"},
    {"cmdClearTags", "&Clear Tags"},
    {"cmdCancel", "&Begin"},
    {"cmdRefresh", "Refresh &Database Definition Table"},
    {"cmdPrint", "&Print Activity Log"},
    {"cmdExit", "E&xit"},
};

constexpr Told toolTips[] = {
    {"cmdTAGEM", "Tag/Untag a Job Site"},     {"cmdTAGALL", "Tag All Items"},
    {"cmdClearTags", "Untag All Items"},      {"cmdPrint", "Print DB Definition Update Activity"},
    {"cmdVDBACTION", "Tag/Untag a Job Site"},
};

TEST_F(Tags, TheWindowSaysWhatItIsFor) {
    addSites(3);
    open();
    EXPECT_EQ(window().windowTitle(), "Database Definition Update Utility");
    for (const Told& told : texts)
        EXPECT_EQ(text(told.control), told.text) << told.control;
    for (const Told& told : toolTips)
        EXPECT_EQ(person().control(told.control).toolTip().toStdString(), told.text) << told.control;
    for (const Told& frame :
         {Told{"fraInstructions", "Instructions"}, Told{"fraNOWPROCESSING", "Now Processing"}})
        EXPECT_EQ(person().control(frame.control).property("title").toString().toStdString(), frame.text);
    EXPECT_EQ(window().ModuleCode, "N");
}

TEST_F(Tags, TheWindowLiesWithinTheMainWindow) {
    open();
    const QWidget& frame = *window().parentWidget();
    EXPECT_TRUE(frame.parentWidget()->rect().contains(frame.geometry()));
    EXPECT_LE(frame.height(), main.height() - 24) << "room for the menu";
}

TEST_F(Tags, TheListsShowSitesAndTheLastLog) {
    addSites(3);
    UpdateWorld::addRowsOf(
        "ACTIVITYLOG",
        Json::parse(R"([["NORTH", "JOBS", "ORDERS", "BYNO", "NO", "Added Field to Index Key.", "x", "y"],
                                           ["NORTH", "JOBS", " ", " ", " ", "Database Ok. No Changes Made.", "x", "y"]])"));
    open();
    EXPECT_THAT(column("lblPATHNAME"), ElementsAre("SITE01", "SITE02", "SITE03", " ", " ", " ", " ", " "));
    EXPECT_THAT(column("lblPATHTEXT"), ElementsAre("C:\\Jobs\\Site01 ", "C:\\Jobs\\Site02 ",
                                                   "C:\\Jobs\\Site03 ", "End of List", " ", " ", " ", " "));
    EXPECT_THAT(column("lblALPATHNAME"), ElementsAre("NORTH", "NORTH", " ", " ", " ", " ", " ", " "));
    EXPECT_EQ(text("lblDBNAME(0)") + text("lblTABLENAME(0)") + text("lblINDEXNAME(0)") +
                  text("lblFIELDNAME(0)"),
              "JOBSORDERSBYNONO");
    EXPECT_THAT(column("lblACTION"), ElementsAre("Added Field to Index Key.", "Database Ok. No Changes Made.",
                                                 "End of List", " ", " ", " ", " ", " "));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(highlighted("lblACTION"), 0);
    EXPECT_EQ(focus(), "hsbMAIN");
    EXPECT_THAT(marked(), IsEmpty());
}

TEST_F(Tags, TheUpdatesOwnTextsFitAndNamesAreCutInTheirMiddle) {
    constexpr const char* actions[] = {"DATABASE DEFINITION UPDATE INCOMPLETE.",
                                       "Changed Field Size. Some Data may be lost.",
                                       "Changed Field Type. DATA MAY BE LOST",
                                       "Cannot Process. Development Databases.",
                                       "Database Ok. No Changes Made.",
                                       "WNDPATH Database is Empty.",
                                       "Added Field to Index Key.",
                                       "Cannot Empty OLDINDEXES Table."};
    Json log = Json::array();
    for (const char* action : actions)
        log.push_back(Json::array({"SITE", "COSTCODE", "SUPPLIERPAYMENTDETAILS1", " ", "F", action, "", ""}));
    UpdateWorld::addRowsOf("ACTIVITYLOG", log);
    open();
    const auto shown = [&](const QString& label) {
        return person().control<screens::RowLabel>(label).shownText();
    };
    for (int row = 0; row < 8; ++row)
        EXPECT_EQ(shown(QString("lblACTION(%1)").arg(row)), actions[row]);
    EXPECT_EQ(shown("lblDBNAME(0)"), "COSTCODE");
    const QString cut = shown("lblTABLENAME(0)");
    EXPECT_TRUE(cut.startsWith("SUPP") && cut.endsWith("S1") && cut.contains(u'\u2026')) << cut.toStdString();
}

TEST_F(Tags, TheHighlightedRowOfTheLogIsOnShowAsAWhole) {
    const std::string table(40, 'W');
    UpdateWorld::addRowsOf(
        "ACTIVITYLOG",
        Json::array(
            {Json::array({"BAYFRONT TOWER", "JOBS", table, "BYNO", "NO", "Added New Field", "", ""}),
             Json::array({"NORTH", "JOBS", " ", " ", " ", "Database Ok. No Changes Made.", "", ""})}));
    open();
    const auto onShow = [&] {
        const auto& label = person().control<QLabel>("lblALROW");
        const QStringList lines = label.text().split('\n');
        EXPECT_LE(lines.size() * label.fontMetrics().height(), label.height());
        for (const QString& line : lines)
            EXPECT_LE(label.fontMetrics().horizontalAdvance(line), label.width());
        EXPECT_EQ(label.accessibleName(), lines.join(' '));
        return lines.join(' ').toStdString();
    };
    EXPECT_EQ(onShow(), "BAYFRONT TOWER, JOBS, " + table + ", BYNO, NO, Added New Field");
    click("lblACTION(1)");
    EXPECT_EQ(onShow(), "NORTH, JOBS, Database Ok. No Changes Made.");
    click("cmdALBEND");
    click("cmdALBDNARROW");
    EXPECT_EQ(onShow(), "End of List");
}

TEST_F(Tags, EmptyListsSaySoAndNothingCanBeTagged) {
    open();
    EXPECT_EQ(text("lblPATHTEXT(0)"), "List is Empty");
    EXPECT_EQ(text("lblACTION(0)"), "List is Empty");
    person().keepPicture("update-empty");
    press(Qt::Key_T);
    for (const char* button :
         {"cmdTAGEM", "cmdTAGALL", "cmdClearTags", "cmdVDBACTION", "cmdVDBHOME", "cmdVDBEND"}) {
        click(button);
        EXPECT_EQ(focus(), "hsbMAIN") << button;
    }
    for (const Qt::Key key :
         {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown,
          Qt::Key_Return, Qt::Key_A, Qt::Key_E, Qt::Key_D, Qt::Key_Delete})
        press(key);
    EXPECT_EQ(text("lblPATHTEXT(0)"), "List is Empty");
    EXPECT_THAT(marked(), IsEmpty());
    EXPECT_THAT(world.host.boxes, IsEmpty());
    EXPECT_TRUE(isOpen());
}

TEST_F(Tags, TheKeyTagsAndGoesOn) {
    addSites(3);
    open();
    press(Qt::Key_T);
    EXPECT_THAT(marked(), ElementsAre(0));
    EXPECT_EQ(highlight(), 1);
    press(Qt::Key_Down);
    press(Qt::Key_T);
    EXPECT_THAT(marked(), ElementsAre(0, 2));
    EXPECT_EQ(highlight(), 3);
    EXPECT_EQ(focus(), "hsbMAIN");
    person().keepPicture("update-tagged");
    EXPECT_THAT(processed(), ElementsAre("SITE01", "SITE03"));
}

TEST_F(Tags, TheButtonsTagAndGoOn) {
    addSites(3);
    open();
    click("lblPATHNAME(1)");
    click("cmdTAGEM");
    EXPECT_EQ(focus(), "hsbMAIN");
    click("cmdVDBACTION");
    EXPECT_EQ(focus(), "hsbMAIN");
    EXPECT_THAT(marked(), ElementsAre(1, 2));
    EXPECT_EQ(highlight(), 3);
    EXPECT_THAT(processed(), ElementsAre("SITE02", "SITE03"));
}

TEST_F(Tags, TheLettersWithAltPressTheButtons) {
    addSites(3);
    open();
    press(Qt::Key_T, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return marked() == std::vector{0}; }));
    press(Qt::Key_A, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return marked() == std::vector({0, 1, 2}); }));
    press(Qt::Key_C, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return marked().empty(); }));
    EXPECT_EQ(highlight(), 1);
}

TEST_F(Tags, TaggingATaggedRowTakesItsTagOffAndStillGoesOn) {
    addSites(3);
    open();
    press(Qt::Key_T);
    press(Qt::Key_T);
    press(Qt::Key_Home);
    press(Qt::Key_T);
    EXPECT_THAT(marked(), ElementsAre(1));
    EXPECT_EQ(highlight(), 1);
    EXPECT_THAT(processed(), ElementsAre("SITE02"));
}

// A run takes the sites by place, and a freed place is the first to be taken.
TEST_F(Tags, AFreedPlaceIsTakenNext) {
    addSites(3);
    open();
    press(Qt::Key_T);
    press(Qt::Key_T);
    press(Qt::Key_Home);
    press(Qt::Key_T);
    press(Qt::Key_Down);
    press(Qt::Key_T);
    EXPECT_THAT(processed(), ElementsAre("SITE03", "SITE02"));
}

TEST_F(Tags, TheMarksScrollWithTheirRows) {
    addSites(12);
    open();
    press(Qt::Key_T);
    press(Qt::Key_Down);
    press(Qt::Key_T);
    EXPECT_THAT(marked(), ElementsAre(0, 2));
    goDown(6);
    EXPECT_EQ(text("lblPATHNAME(0)"), "SITE03");
    EXPECT_THAT(marked(), ElementsAre(0));
    press(Qt::Key_PageDown);
    EXPECT_THAT(marked(), IsEmpty());
    press(Qt::Key_Home);
    EXPECT_THAT(marked(), ElementsAre(0, 2));
}

TEST_F(Tags, TheEndOfTheListCannotBeTagged) {
    addSites(2);
    open();
    goDown(2);
    EXPECT_EQ(highlight(), 2);
    press(Qt::Key_T);
    click("cmdTAGEM");
    EXPECT_EQ(highlight(), 2);
    EXPECT_THAT(marked(), IsEmpty());
    EXPECT_THAT(world.host.boxes, IsEmpty());
}

TEST_F(Tags, AFiftySecondTagIsRefused) {
    addSites(60);
    open();
    for (int tag = 0; tag < 51; ++tag)
        press(Qt::Key_T);
    EXPECT_THAT(world.host.boxes, IsEmpty());
    press(Qt::Key_T);
    ASSERT_EQ(world.host.boxes.size(), 1U);
    EXPECT_EQ(world.host.boxes[0].title, "To Many Tagged Items");
    EXPECT_EQ(world.host.boxes[0].text, "The Maximum Number of Tagged Items has Been Reached. \n"
                                        "Maximum Number of Tagged Items is 50");
    EXPECT_EQ(world.host.boxes[0].style, (runtime::MsgStyle{runtime::MsgIcon::Exclamation}));
    EXPECT_EQ(text(fmt::format("lblPATHNAME({})", highlight()).c_str()), "SITE53");
    EXPECT_EQ(processed().size(), 51U);
}

TEST_F(Tags, AllOfSixtyAreTheFirst51WithoutAWord) {
    addSites(60);
    open();
    press(Qt::Key_End);
    press(Qt::Key_T);
    click("cmdTAGALL");
    EXPECT_EQ(focus(), "hsbMAIN");
    EXPECT_THAT(world.host.boxes, IsEmpty());
    EXPECT_THAT(marked(), IsEmpty()) << "the end of the list is on show";
    press(Qt::Key_Home);
    EXPECT_THAT(marked(), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7));
    for (int page = 0; page < 7; ++page)
        press(Qt::Key_PageDown);
    EXPECT_EQ(text("lblPATHNAME(0)"), "SITE50");
    EXPECT_THAT(marked(), ElementsAre(0, 1));
    const std::vector<std::string> sites = processed();
    ASSERT_EQ(sites.size(), 51U);
    EXPECT_EQ(sites.front(), "SITE01");
    EXPECT_EQ(sites.back(), "SITE51");
}

TEST_F(Tags, AllTagsAreTakenOffAtOnce) {
    addSites(3);
    open();
    click("cmdTAGALL");
    EXPECT_THAT(marked(), ElementsAre(0, 1, 2));
    click("cmdClearTags");
    EXPECT_THAT(marked(), IsEmpty());
    EXPECT_EQ(focus(), "hsbMAIN");
    goDown(1);
    EXPECT_THAT(processed(), ElementsAre("SITE02")) << "the highlighted one";
}

TEST_F(Tags, AClickOnTheHighlightedRowTagsNothing) {
    addSites(3);
    open();
    click("lblPATHNAME(0)");
    click("lblPATHTEXT(0)");
    press(Qt::Key_Return);
    EXPECT_THAT(marked(), IsEmpty());
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(focus(), "hsbMAIN");
}

TEST_F(Tags, EachListHasItsKeys) {
    addSites(3);
    UpdateWorld::addRowsOf("ACTIVITYLOG", Json::parse(R"([["A"], ["B"], ["C"]])"));
    open();
    press(Qt::Key_Right);
    EXPECT_EQ(highlight(), 1);
    EXPECT_EQ(highlighted("lblACTION"), 0);
    click("lblALPATHNAME(1)");
    EXPECT_EQ(focus(), "hsbALMAIN");
    press(Qt::Key_Down);
    EXPECT_EQ(highlighted("lblACTION"), 2);
    press(Qt::Key_T);
    EXPECT_THAT(marked(), IsEmpty());
    press(Qt::Key_Left);
    EXPECT_EQ(highlighted("lblACTION"), 1);
    press(Qt::Key_End);
    EXPECT_EQ(text("lblALPATHNAME(0)"), "C");
    EXPECT_EQ(highlight(), 1);
    click("cmdALBHOME");
    EXPECT_EQ(focus(), "hsbALMAIN");
    EXPECT_EQ(text("lblALPATHNAME(0)"), "A");
    click("cmdVDBUPARROW");
    EXPECT_EQ(focus(), "hsbMAIN");
    EXPECT_EQ(highlight(), 0);
    EXPECT_FALSE(visible("cmdALBACTION"));
}

TEST_F(Tags, ComingToTheFrontTheActiveListHasTheKeyboard) {
    addSites(2);
    open();
    click("lblALPATHNAME(0)");
    person().control("cmdPrint").setFocus();
    main.showChild(std::make_unique<forms::Form>("frmOther"));
    EXPECT_NE(focus(), "hsbALMAIN");
    window().showModeless();
    EXPECT_EQ(focus(), "hsbALMAIN");
}

TEST_F(Tags, TheKeyXLeavesFromEitherList) {
    for (const char* row : {"lblPATHNAME(0)", "lblALPATHNAME(0)"}) {
        open();
        click(row);
        press(Qt::Key_X);
        EXPECT_FALSE(isOpen()) << row;
        QTest::qWait(0);
    }
}

TEST_F(Tags, LeavingLetsGoOfTheDatabases) {
    addSites(2);
    open();
    click("cmdExit");
    ASSERT_FALSE(isOpen());
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    for (const char* name : {"DBPATHS", "ACTIVITYLOG"}) {
        const std::string file = std::string(name) == "DBPATHS" ? "DBPATHS.MDB" : "ZOVDEF.MDB";
        data::Database database = workspace.OpenDatabase(file);
        data::Recordset rows = database.OpenRecordset(name);
        EXPECT_TRUE(shell::vdEmptyTable(" ", file, rows)) << name;
    }
    EXPECT_THAT(world.host.boxes, IsEmpty());
}

TEST_F(Tags, ASiteThatSomebodyDeletedIsNotTagged) {
    addSites(3);
    open();
    deleteFirstSite();
    press(Qt::Key_T);
    EXPECT_THAT(marked(), IsEmpty());
    EXPECT_EQ(text("lblPATHNAME(0)"), "SITE02");
    EXPECT_EQ(highlight(), 0);
    press(Qt::Key_T);
    EXPECT_THAT(marked(), ElementsAre(0));
    EXPECT_THAT(world.host.boxes, IsEmpty());
}

TEST_F(Tags, TabGoesFromListToButtonsToList) {
    addSites(1);
    world.folder.write("drives/c/VBP/ZOV/ZOVORV.vbp", "");
    open();
    std::vector<std::string> stops;
    for (int i = 0; i < 9; ++i) {
        press(Qt::Key_Tab);
        stops.push_back(focus());
    }
    EXPECT_THAT(stops, ElementsAre("cmdTAGEM", "cmdTAGALL", "cmdClearTags", "cmdCancel", "cmdRefresh",
                                   "cmdPrint", "cmdExit", "hsbALMAIN", "hsbMAIN"));
}

TEST_F(Tags, EveryControlHasAnAccessibleName) {
    addSites(1);
    open();
    const auto& sites = person().control("hsbMAIN");
    EXPECT_EQ(sites.accessibleName().toStdString(), "Job Sites");
    EXPECT_EQ(person().control("hsbALMAIN").accessibleName().toStdString(), "Activity Log");
    EXPECT_EQ(sites.accessibleDescription().toStdString(), "SITE01, C:\\Jobs\\Site01");
    press(Qt::Key_T);
    press(Qt::Key_Up);
    EXPECT_EQ(sites.accessibleDescription().toStdString(), "SITE01, C:\\Jobs\\Site01, \u2713");
    for (const QAbstractButton* button : window().findChildren<QAbstractButton*>())
        EXPECT_FALSE(button->isVisible() && button->accessibleName().isEmpty() && button->text().isEmpty())
            << button->objectName().toStdString();
}

} // namespace
} // namespace tol::test
