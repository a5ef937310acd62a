// SPDX-License-Identifier: MIT
#include "shell/frmAboutView.h"

#include "SiteTest.h"
#include "data/DBEngine.h"
#include "forms/events/WindowHost.h"
#include "support/BoxAnswerer.h"
#include "support/Environment.h"
#include "support/OnModal.h"

#include <gmock/gmock.h>

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <QUrl>

#include <filesystem>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

class About : public testing::Test {
  protected:
    void show(const std::function<void(const WindowDriver&)>& acts, const std::string& notice = {}) {
        shell::frmAboutView window(
            {.folder = folder.path(), .mode = "A", .database = database, .notice = notice});
        window.setWindowTitle("About Tolvane Module");
        window.setModule("Tolvane Module", "Version 1.1.1");
        const OnModal modal("frmAboutView", acts);
        window.showModal(nullptr);
    }
    /// The lines of the company, the site's number behind them.
    static std::vector<std::string> lines(const WindowDriver& desk) {
        std::vector<std::string> shown;
        for (const char* label : {"lblCONAME", "lblADDBLK1", "lblADDBLK2", "lblADDBLK3", "lblLOCATIONNO"})
            shown.push_back(desk.text(label));
        return shown;
    }

    std::string database = "ZOVNET.MDB";
    StartFolder folder;
    forms::WindowHost host;
    BoxAnswerer person;
    TestTable site = siteTable("ZOVNET.MDB");
};

TEST_F(About, ShowsModuleVersionAndCompany) {
    site.add({wholeSite});
    show([](const WindowDriver& desk) {
        EXPECT_EQ(desk.text("lblModuleName"), "Tolvane Module");
        EXPECT_EQ(desk.text("lblVersionNumber"), "Version 1.1.1");
        EXPECT_THAT(desk.text("lblCRNotice"), StartsWith("Copyright (c) 2026"));
        EXPECT_THAT(lines(desk), ElementsAre("Acme Works", "1 High Street", "Rear Yard",
                                             "Springfield, IL 62701-1234", "100"));
        EXPECT_EQ(desk.text("lblHLOCATIONNO"), "Job Site Number:");
        EXPECT_EQ(desk.text("lblHyperLink"), TOL_HOMEPAGE);
        EXPECT_EQ(desk.text("cmdOK"), "OK");
        EXPECT_EQ(desk.text("cmdSysInfo"), "&System Info...");
        desk.keepPicture("about");
        desk.press(Qt::Key_Return);
    });
}

TEST_F(About, ShowsTheNoticeThatItIsGiven) {
    show([](const WindowDriver& desk) { EXPECT_EQ(desk.text("lblCRNotice"), "All mine"); }, "All mine");
    show([](const WindowDriver& desk) { EXPECT_THAT(desk.text("lblCRNotice"), StartsWith("Copyright")); },
         "  ");
}

TEST_F(About, WithoutASecondAddressTheCityMovesUp) {
    TestTable::Row row = wholeSite;
    row[2] = "  ";
    site.add({row});
    show([](const WindowDriver& desk) {
        EXPECT_THAT(lines(desk),
                    ElementsAre("Acme Works", "1 High Street", "Springfield, IL 62701-1234", "", "100"));
    });
}

TEST_F(About, WithoutPlus4TheZipStandsAlone) {
    TestTable::Row row = wholeSite;
    row[6] = runtime::Null();
    site.add({row});
    show([](const WindowDriver& desk) { EXPECT_EQ(desk.text("lblADDBLK3"), "Springfield, IL 62701"); });
}

TEST_F(About, AnEmptyTableGainsOneEmptyRow) {
    for (int i = 0; i < 2; ++i) {
        show([](const WindowDriver& desk) { EXPECT_EQ(desk.text("lblLOCATIONNO"), "0"); });
        EXPECT_THAT(site.rows(), ElementsAre("Null|Null|Null|Null|Null|Null|Null|Null"));
    }
}

TEST_F(About, ReadsMAINWhenNoDatabaseIsNamed) {
    siteTable("MAIN.MDB").add({wholeSite});
    for (const char* none : {"", " "}) {
        database = none;
        show([](const WindowDriver& desk) { EXPECT_EQ(desk.text("lblCONAME"), "Acme Works"); });
    }
    database = " main.mdb ";
    show([](const WindowDriver& desk) { EXPECT_EQ(desk.text("lblCONAME"), "Acme Works"); });
}

// The edit screen works on the folder's MAIN.MDB, whatever the About box reads.
TEST_F(About, ShiftF10EditsTheFoldersMAIN) {
    site.add({wholeSite});
    const TestTable other = siteTable("MAIN.MDB");
    show([&](const WindowDriver& desk) {
        const OnModal edit("frmAboutEdit", [&](const WindowDriver& screen) {
            screen.type("Other Works");
            screen.click("cmdUpdate");
            site.change("CONAME", "Acme Works", "Renamed Works"); // by somebody else
        });
        desk.press(Qt::Key_F10, Qt::ShiftModifier);
        EXPECT_EQ(desk.text("lblCONAME"), "Renamed Works");
    });
    EXPECT_THAT(other.rows(), ElementsAre(StartsWith("Other Works|")));
}

TEST_F(About, ShowsWhatWasChangedInItsOwnDatabase) {
    database = "MAIN.MDB";
    siteTable("MAIN.MDB").add({wholeSite});
    show([&](const WindowDriver& desk) {
        const OnModal edit("frmAboutEdit", [&](const WindowDriver& screen) {
            screen.control("txtADDRESS2").setFocus();
            screen.press(Qt::Key_Delete);
            screen.press(Qt::Key_U, Qt::AltModifier);
        });
        desk.press(Qt::Key_F10, Qt::ShiftModifier);
        EXPECT_THAT(lines(desk),
                    ElementsAre("Acme Works", "1 High Street", "Springfield, IL 62701-1234", "", "100"));
    });
}

TEST_F(About, NoOtherKeyEdits) {
    show([&](const WindowDriver& desk) {
        desk.press(Qt::Key_F10);
        desk.press(Qt::Key_F10, Qt::ControlModifier);
        desk.press(Qt::Key_F10, Qt::ControlModifier | Qt::ShiftModifier);
        desk.press(Qt::Key_F9, Qt::ShiftModifier);
        EXPECT_EQ(QApplication::activeModalWidget()->objectName(), "frmAboutView");
        desk.press(Qt::Key_Escape);
    });
}

TEST_F(About, OnlyOKIsLeftWithoutTheDatabase) {
    folder.remove("ZOVNET.MDB");
    show([&](const WindowDriver& desk) {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_THAT(person.boxes[0].text,
                    StartsWith("Error Loading Form: frmAboutView\n\nError Number: 3024"));
        for (const char* hidden : {"lblModuleName", "lblCONAME", "lblHyperLink", "cmdSysInfo"})
            EXPECT_FALSE(desk.isShown(hidden)) << hidden;
        desk.press(Qt::Key_F10, Qt::ShiftModifier);
        EXPECT_EQ(QApplication::activeModalWidget()->objectName(), "frmAboutView");
        desk.click("cmdOK");
    });
}

TEST_F(About, LetsGoOfItsTable) {
    show([](const WindowDriver& desk) { desk.click("cmdOK"); });
    data::Workspace workspace = data::DBEngine::CreateWorkspace("test");
    workspace.OpenDatabase("ZOVNET.MDB").TableDefs().Delete("SITEINFO");
}

// What lies outside the program.

TEST_F(About, AClickOnTheAddressOpensIt) {
    QTextBrowser browser; // stands in for the person's own
    QDesktopServices::setUrlHandler("https", &browser, "setSource");
    show([&](const WindowDriver& desk) { desk.click("lblHyperLink"); });
    QDesktopServices::unsetUrlHandler("https");
    EXPECT_EQ(browser.source(), QUrl(TOL_HOMEPAGE));
}

class SystemInfo : public About {
  protected:
    SystemInfo() {
        folder.write("drives/c/Info/MSINFO32.EXE", "#!/bin/sh\ntouch '" + mark + "'\n");
        std::filesystem::permissions(folder.driveC() / "Info/MSINFO32.EXE",
                                     std::filesystem::perms::owner_all);
    }

    void press() {
        show([](const WindowDriver& desk) { desk.click("cmdSysInfo"); });
    }
    void write(const std::string& key, const std::string& line) const {
        folder.write("registry", "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\" + key + "]\n" + line + "\n");
    }
    /// The program has been started, and no box shown.
    void expectStarted() const {
        EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(mark); }));
        EXPECT_TRUE(person.boxes.empty());
    }
    void expectUnavailable() {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].text, "System Information Is Unavailable At This Time");
        EXPECT_EQ(person.boxes[0].icon, QMessageBox::NoIcon);
        person.boxes.clear();
        EXPECT_FALSE(std::filesystem::exists(mark));
    }

    Environment registry{"TOL_REGISTRY", "registry"};
    std::string mark = folder.path() / "started";
};

TEST_F(SystemInfo, IsUnavailableOnASystemThatNamesNone) {
    const Environment none("TOL_REGISTRY", nullptr);
    press();
    expectUnavailable();
}

TEST_F(SystemInfo, IsTheProgramUnderPATH) {
    write("Shared Tools\\MSINFO", R"("PATH"="C:\\INFO\\MSINFO32.EXE")");
    press();
    expectStarted();
}

TEST_F(SystemInfo, IsElseTheOneInTheFolderOfSharedTools) {
    write("Shared Tools Location", R"("MSINFO"="C:\\Info")");
    press();
    expectStarted();
}

TEST_F(SystemInfo, IsUnavailableWhenTheProgramIsNotThere) {
    for (const char* path : {R"("C:\\INFO\\NONE.EXE")", R"("Q:\\INFO\\MSINFO32.EXE")",
                             R"("C:\\INFO\\MSINFO32.EXE; true")", R"("")", "hex:61"}) {
        write("Shared Tools\\MSINFO", std::string("\"PATH\"=") + path);
        press();
        expectUnavailable();
    }
    for (const char* path : {R"("C:\\NOWHERE")", R"("Q:\\INFO")"}) {
        write("Shared Tools Location", std::string("\"MSINFO\"=") + path);
        press();
        expectUnavailable();
    }
}

TEST_F(SystemInfo, IsUnavailableWhenTheProgramMayNotRun) {
    folder.write("drives/c/Info/plain.exe", "no program");
    write("Shared Tools\\MSINFO", R"("PATH"="C:\\Info\\plain.exe")");
    press();
    expectUnavailable();
}

} // namespace
} // namespace tol::test
