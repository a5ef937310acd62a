// SPDX-License-Identifier: MIT
#include "shell/frmAboutEdit.h"

#include "SiteTest.h"
#include "data/DBEngine.h"
#include "forms/controls/TextBox.h"
#include "forms/events/WindowHost.h"
#include "support/BoxAnswerer.h"
#include "support/OnModal.h"

#include <fmt/core.h>
#include <gmock/gmock.h>

#include <QPushButton>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

class SiteInformation : public testing::Test {
  protected:
    void show(const std::function<void(const WindowDriver&)>& acts) {
        shell::frmAboutEdit window(folder.path());
        const OnModal modal("frmAboutEdit", [&](const WindowDriver& desk) {
            EXPECT_EQ(window.windowTitle(), "Site Information Update Screen");
            acts(desk);
        });
        window.showModal(nullptr);
    }

    StartFolder folder;
    forms::WindowHost host;
    BoxAnswerer person;
    TestTable site = siteTable("MAIN.MDB");
};

TEST_F(SiteInformation, IsShownInItsBoxes) {
    site.add({wholeSite});
    const std::tuple<const char*, const char*, int> boxes[] = {{"txtCONAME", "Acme Works", 50},
                                                               {"txtADDRESS1", "1 High Street", 50},
                                                               {"txtADDRESS2", "Rear Yard", 50},
                                                               {"txtCITY", "Springfield", 20},
                                                               {"txtSTATE", "IL", 2},
                                                               {"txtZIP", "62701", 5},
                                                               {"txtPLUS4", "1234", 4},
                                                               {"txtLOCATIONNO", "100", 5}};
    show([&](const WindowDriver& desk) {
        for (const auto& [name, text, length] : boxes) {
            EXPECT_EQ(desk.text(name), text);
            EXPECT_EQ(desk.control<forms::TextBox>(name).MaxLength(), length) << name;
        }
        const std::pair<const char*, const char*> captions[] = {{"CONAME", "Company Name:"},
                                                                {"ADDRESS1", "Address:"},
                                                                {"CITY", "City:"},
                                                                {"State", "State:"},
                                                                {"ZIP", "Zip:"},
                                                                {"PLUS4", "Plus 4:"},
                                                                {"LOCATIONNO", "Location Number:"}};
        for (const auto& [field, caption] : captions)
            EXPECT_EQ(desk.text(QString("lblH") + field), caption);
        EXPECT_EQ(desk.text("cmdUpdate"), "&Update");
        EXPECT_EQ(desk.text("cmdExit"), "E&xit");
        desk.keepPicture("site-information");
        desk.press(Qt::Key_X, Qt::AltModifier);
    });
    EXPECT_THAT(site.rows(), ElementsAre("Acme Works|1 High Street|Rear Yard|Springfield|IL|62701|1234|100"));
}

TEST_F(SiteInformation, IsTypedFromBoxToBoxAndStored) {
    show([](const WindowDriver& desk) {
        for (const char* text : {"New Works", "2 Low Road", "", "Shelbyville", "il", "60001", "9", "-7up"}) {
            desk.press(Qt::Key_Delete); // what is selected
            desk.type(text);
            desk.press(Qt::Key_Return);
        }
        EXPECT_EQ(desk.focus(), "cmdUpdate");
        desk.press(Qt::Key_Return);
    });
    EXPECT_THAT(site.rows(), ElementsAre("New Works|2 Low Road||Shelbyville|il|60001|9|-7"));
}

TEST_F(SiteInformation, MayStayBlank) {
    show([](const WindowDriver& desk) { desk.click("cmdUpdate"); });
    const auto blank = [](std::size_t size) { return std::string(size, ' ') + "|"; };
    EXPECT_THAT(site.rows(), ElementsAre(blank(50) + blank(50) + blank(50) + blank(20) + blank(2) + blank(5) +
                                         blank(4) + "0"));
}

TEST_F(SiteInformation, WithoutALeadingNumberHasNumberZero) {
    site.add({wholeSite});
    show([](const WindowDriver& desk) {
        desk.control("txtLOCATIONNO").setFocus();
        desk.type("no 5");
        desk.press(Qt::Key_U, Qt::AltModifier);
    });
    EXPECT_THAT(site.rows(), ElementsAre(testing::EndsWith("|1234|0")));
}

TEST_F(SiteInformation, IsNotStoredByExitEscOrTheCloseButton) {
    site.add({wholeSite});
    const auto type = [](const WindowDriver& desk) { desk.type("Nonsense"); };
    show([&](const WindowDriver& desk) {
        type(desk);
        desk.click("cmdExit");
    });
    show([&](const WindowDriver& desk) {
        type(desk);
        desk.press(Qt::Key_Escape);
    });
    show(type);
    EXPECT_THAT(site.rows(), ElementsAre(StartsWith("Acme Works|")));
}

TEST_F(SiteInformation, LetsGoOfItsTable) {
    show([](const WindowDriver&) {});
    data::Workspace workspace = data::DBEngine::CreateWorkspace("test");
    workspace.OpenDatabase("MAIN.MDB").TableDefs().Delete("SITEINFO");
}

TEST_F(SiteInformation, OnlyExitIsLeftWithoutTheDatabase) {
    folder.remove("MAIN.MDB");
    show([&](const WindowDriver& desk) {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, "Error Displaying Form");
        EXPECT_THAT(person.boxes[0].text,
                    StartsWith("Error Loading Form: frmAboutEdit\n\nError Number: 3024"));
        EXPECT_FALSE(desk.isShown("txtCONAME"));
        EXPECT_FALSE(desk.isShown("cmdUpdate"));
        EXPECT_EQ(desk.focus(), "cmdExit");
        desk.press(Qt::Key_Return);
    });
    EXPECT_FALSE(std::filesystem::exists("MAIN.MDB"));
}

class SiteInformationDeathTest : public SiteInformation {};

TEST_F(SiteInformationDeathTest, ANumberBeyondTheFieldEndsTheProgram) {
    const auto run = [this] {
        person.onBox = [](QMessageBox& box) {
            fmt::print(stderr, "[{}|{}]", box.windowTitle().toStdString(), box.text().toStdString());
            box.close();
        };
        show([](const WindowDriver& desk) {
            desk.control("txtLOCATIONNO").setFocus();
            desk.type("70000");
            desk.click("cmdUpdate");
            fmt::print(stderr, "still running");
        });
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(1),
                "^\\[Tolvane Module\\|Run-time error '6':\n\nOverflow\\]$");
}

} // namespace
} // namespace tol::test
