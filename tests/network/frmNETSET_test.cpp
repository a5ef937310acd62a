// SPDX-License-Identifier: MIT
#include "network/frmNETSET.h"

#include "data/DBEngine.h"

#include "forms/controls/TextBox.h"
#include "forms/events/WindowHost.h"
#include "platform/Paths.h"
#include "platform/System.h"
#include "runtime/Conversions.h"
#include "runtime/Text.h"
#include "support/BoxAnswerer.h"
#include "support/NetworkTables.h"
#include "support/OnModal.h"
#include "support/StartFolder.h"

#include <fmt/core.h>
#include <gmock/gmock.h>

#include <QPushButton>

namespace tol::test {
namespace {

using runtime::Value;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class NetworkSettings : public testing::Test {
  protected:
    NetworkSettings() {
        platform::setLoginName([this] { return login; });
        platform::setClock([] { return runtime::makeDate({.year = 2003, .month = 1, .day = 31}); });
        owner.resize(900, 700);
        owner.show();
        folder.addPath(platform::currentFolder() + "\\");
    }
    ~NetworkSettings() override {
        platform::setClock({});
        platform::setLoginName({});
    }

    /// Shows the window for a module while a person acts on it.
    void show(const std::function<void(const WindowDriver&)>& acts, const char* module = "NET") {
        network::frmNETSET window(platform::currentFolder(), module);
        const OnModal modal("frmNETSET", [&](const WindowDriver& desk) {
            title = window.windowTitle().toStdString();
            acts(desk);
        });
        window.showModal(&owner);
        EXPECT_FALSE(window.isLoaded());
    }

    void expectBox(const std::string& boxTitle, const std::string& text, QMessageBox::Icon icon) {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, boxTitle);
        EXPECT_EQ(person.boxes[0].text, text);
        EXPECT_EQ(person.boxes[0].icon, icon);
        EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK"));
        person.boxes.clear();
    }
    static void expectViewing(const WindowDriver& desk) {
        EXPECT_EQ(desk.text("cmdNETPATH"), "&Modify Network DB Location");
        EXPECT_EQ(desk.text("cmdAdd"), "&Add This User to List");
        EXPECT_TRUE(desk.isShown("lblNETPATH"));
        EXPECT_FALSE(desk.isShown("txtNETPATH"));
        EXPECT_FALSE(desk.isShown("cmdSelectPath"));
        EXPECT_TRUE(desk.control("cmdExit").isEnabled());
    }
    static void expectEditing(const WindowDriver& desk) {
        EXPECT_EQ(desk.text("cmdNETPATH"), "&Update Location Setting");
        EXPECT_EQ(desk.text("cmdAdd"), "&Cancel");
        EXPECT_FALSE(desk.isShown("lblNETPATH"));
        EXPECT_TRUE(desk.isShown("txtNETPATH"));
        EXPECT_TRUE(desk.isShown("cmdSelectPath"));
        EXPECT_FALSE(desk.control("cmdExit").isEnabled());
        EXPECT_EQ(desk.focus(), "txtNETPATH");
    }

    std::string login = "Ann";
    std::string title; ///< of the window that was shown last
    StartFolder folder;
    NetworkTables net;
    forms::WindowHost host;
    BoxAnswerer person;
    QWidget owner;
};

// What is shown.

TEST_F(NetworkSettings, ShowWhoTheUserIsAndWhereTheDatabaseLies) {
    net.users.add({{31, "ann", "", false}});
    show([&](const WindowDriver& desk) {
        EXPECT_EQ(desk.text("lblHUSERNAME"), "User Name:");
        EXPECT_EQ(desk.text("lblUSERNAME"), "Ann");
        EXPECT_EQ(desk.text("lblHUSERTAG"), "User Number:");
        EXPECT_EQ(desk.text("lblUSERTAG"), "31");
        EXPECT_EQ(desk.text("lblHNETPATH"), "Network Database Location:");
        EXPECT_EQ(desk.text("lblNETPATH"), platform::currentFolder());
        EXPECT_EQ(desk.text("cmdExit"), "E&xit");
        expectViewing(desk);
        desk.press(Qt::Key_X, Qt::AltModifier);
    });
    EXPECT_EQ(title, "Network Settings - Tolvane Module");
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(NetworkSettings, ShowAUserWhoIsNotInTheList) {
    show([&](const WindowDriver& desk) {
        EXPECT_EQ(desk.text("lblUSERTAG"), "<none>");
        desk.press(Qt::Key_Escape);
    });
}

TEST_F(NetworkSettings, AreForAnyModuleOfTheSuite) {
    show([](const WindowDriver&) {}, "BRL");
    EXPECT_EQ(title, "Network Settings - Brimel Module");
    show([](const WindowDriver&) {}, "WHO");
    EXPECT_EQ(title, "Network Settings - ????");
}

TEST_F(NetworkSettings, TakeTheLocationOfASiblingWhereThisProgramHasNone) {
    folder.remove("NETPATH.MDB");
    const TestTable sibling("ORVPATH.MDB", "ORVPATH", {{"Path", data::dbText, 100}});
    sibling.add({{"C:\\ELSEWHERE"}});
    show([&](const WindowDriver& desk) { EXPECT_EQ(desk.text("lblNETPATH"), "C:\\ELSEWHERE"); }, "ORV");
    EXPECT_THAT(folder.paths(), ElementsAre(Value("C:\\ELSEWHERE")));
    EXPECT_EQ(person.boxes.front().title, "Cannot Access");
}

TEST_F(NetworkSettings, GoOnWithoutADatabaseOfTheirOwn) {
    folder.remove("NETPATH.MDB");
    show(
        [&](const WindowDriver& desk) {
            EXPECT_EQ(desk.text("lblNETPATH"), "The Database NETPATH.mdb is Missing.");
            EXPECT_EQ(desk.text("lblUSERTAG"), "<none>") << "found by the caller's folder";
            desk.click("cmdNETPATH");
            expectBox("Cannot Continue", "The Database NETPATH.mdb is Missing.", QMessageBox::Critical);
            expectViewing(desk);
            desk.click("cmdAdd");
            EXPECT_EQ(desk.text("lblUSERTAG"), "1");
        },
        "TRS");
    EXPECT_FALSE(std::filesystem::exists("NETPATH.MDB"));
}

TEST_F(NetworkSettings, ShowNoNumberWhenTheDatabaseCanNotBeReached) {
    folder.remove("ZOVNET.MDB");
    const std::string text =
        "Cannot Find the Database: " + platform::currentFolder() +
        "\\ZOVNET.MDB\n\nFind the correct location for ZOVNET.mdb and update your Network "
        "Database Location setting.";
    show([&](const WindowDriver& desk) {
        expectBox("Cannot Access", text, QMessageBox::Critical);
        EXPECT_EQ(desk.text("lblUSERTAG"), "");
        EXPECT_EQ(desk.text("lblNETPATH"), platform::currentFolder());
        desk.click("cmdAdd");
        expectBox("Cannot Access", text, QMessageBox::Critical);
        EXPECT_EQ(desk.focus(), "cmdExit");
    });
}

TEST_F(NetworkSettings, OnlyExitIsLeftWhenTheLoadFails) {
    folder.remove("NETPATH.MDB");
    show([&](const WindowDriver& desk) {
        expectBox("Error Displaying Form",
                  "Error Loading Form: frmNETSET\n\nError Number: 53\n\nError Description: File not found: "
                  "'NETPATH.MDB'",
                  QMessageBox::Critical);
        for (const char* hidden : {"lblHNETPATH", "lblNETPATH", "txtNETPATH", "cmdNETPATH", "cmdAdd"})
            EXPECT_FALSE(desk.isShown(hidden)) << hidden;
        EXPECT_EQ(desk.focus(), "cmdExit");
        desk.press(Qt::Key_Return);
    });
}

TEST_F(NetworkSettings, ShowALocationOnADrive) {
    net.users.add({{31, "ann", "", false}});
    std::filesystem::create_directories("drives/n/SUITE");
    std::filesystem::rename("ZOVNET.MDB", "drives/n/SUITE/ZOVNET.MDB");
    std::filesystem::remove("NETPATH.MDB");
    const TestTable own("NETPATH.MDB", "NETPATH", {{"Path", data::dbText, 100}});
    own.add({{"N:\\SUITE\\"}});
    show([&](const WindowDriver& desk) {
        EXPECT_EQ(desk.text("lblUSERTAG"), "31");
        EXPECT_EQ(desk.text("lblNETPATH"), "N:\\SUITE");
        desk.keepPicture("network-settings");
        desk.press(Qt::Key_M, Qt::AltModifier);
        EXPECT_EQ(desk.text("txtNETPATH"), "N:\\SUITE");
        desk.keepPicture("network-settings-edit");
    });
}

TEST_F(NetworkSettings, OnlyExitIsLeftWithoutTheListOfUsers) {
    std::filesystem::remove("ZOVNET.MDB");
    const TestTable other("ZOVNET.MDB", "OTHER", {{"A", data::dbLong}});
    show([&](const WindowDriver&) {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_THAT(person.boxes[0].text, StartsWith("Error Loading Form: frmNETSET\n\nError Number: 3078"));
    });
}

// The location.

TEST_F(NetworkSettings, TheLocationIsChangedByKeys) {
    show([&](const WindowDriver& desk) {
        desk.press(Qt::Key_M, Qt::AltModifier);
        expectEditing(desk);
        EXPECT_EQ(desk.text("txtNETPATH"), platform::currentFolder());
        EXPECT_EQ(desk.control<forms::TextBox>("txtNETPATH").MaxLength(), 100);
        desk.type("  s:\\new place\\ ");
        desk.press(Qt::Key_U, Qt::AltModifier);
        expectViewing(desk);
        EXPECT_EQ(desk.text("lblNETPATH"), "s:\\new place\\");
    });
    EXPECT_THAT(folder.paths(), ElementsAre(Value("s:\\new place\\")));
    show([&](const WindowDriver& desk) { EXPECT_EQ(desk.text("lblNETPATH"), "s:\\new place"); });
}

TEST_F(NetworkSettings, TheLocationIsChangedByClicks) {
    std::filesystem::create_directories(folder.driveC() / "Net");
    show([&](const WindowDriver& desk) {
        desk.click("cmdNETPATH");
        EXPECT_EQ(desk.text("cmdSelectPath"), "=");
        EXPECT_EQ(desk.control("cmdSelectPath").toolTip(), "Click for Location Selection Form");
        {
            const OnModal picker("frmDBPSearch", [](const WindowDriver& pick) { pick.click("cmdSelect"); });
            desk.click("cmdSelectPath");
        }
        EXPECT_EQ(desk.text("txtNETPATH"), runtime::upperCase(platform::currentFolder()));
        desk.click("cmdNETPATH");
    });
    EXPECT_THAT(folder.paths(), ElementsAre(Value(runtime::upperCase(platform::currentFolder()))));
}

TEST_F(NetworkSettings, TheLocationStaysWhenThePickerIsCancelled) {
    show([&](const WindowDriver& desk) {
        desk.click("cmdNETPATH");
        desk.type("mine");
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_C}) {
            const OnModal picker("frmDBPSearch", [key](const WindowDriver& pick) {
                pick.press(key, key == Qt::Key_C ? Qt::AltModifier : Qt::NoModifier);
            });
            desk.click("cmdSelectPath");
            EXPECT_EQ(desk.text("txtNETPATH"), "mine");
        }
    });
}

TEST_F(NetworkSettings, AnEditIsGivenUp) {
    const auto before = folder.paths();
    show([&](const WindowDriver& desk) {
        desk.click("cmdNETPATH");
        desk.type("nonsense");
        desk.press(Qt::Key_Escape);
        EXPECT_TRUE(desk.isShown("txtNETPATH")) << "Exit is switched off";
        desk.press(Qt::Key_C, Qt::AltModifier);
        expectViewing(desk);
        EXPECT_EQ(desk.text("lblNETPATH"), platform::currentFolder());
        desk.click("cmdNETPATH");
        EXPECT_EQ(desk.text("txtNETPATH"), platform::currentFolder());
        desk.click("cmdAdd");
    });
    EXPECT_EQ(folder.paths(), before);
    EXPECT_THAT(net.users.rows(), IsEmpty());
}

TEST_F(NetworkSettings, EnterGoesFromTheBoxToTheNextControl) {
    show([&](const WindowDriver& desk) {
        desk.click("cmdNETPATH");
        desk.press(Qt::Key_Return);
        EXPECT_EQ(desk.focus(), "cmdSelectPath");
    });
}

TEST_F(NetworkSettings, AHundredCharactersFitAndNoMore) {
    const std::string longest(100, 'x');
    show([&](const WindowDriver& desk) {
        desk.click("cmdNETPATH");
        desk.type(QString::fromStdString(longest + "yz"));
        EXPECT_EQ(desk.text("txtNETPATH"), longest);
        desk.click("cmdNETPATH");
        EXPECT_EQ(desk.text("lblNETPATH"), longest);
    });
    EXPECT_THAT(folder.paths(), ElementsAre(Value(longest)));
}

TEST_F(NetworkSettings, ALongerLocationIsShownAndKeptWhole) {
    std::filesystem::remove("NETPATH.MDB");
    const std::string longer = std::string(100, 'x') + "/more";
    const TestTable own("NETPATH.MDB", "NETPATH", {{"Path", data::dbText, 200}});
    own.add({{longer}});
    show([&](const WindowDriver& desk) {
        person.boxes.clear();
        EXPECT_EQ(desk.text("lblNETPATH"), longer);
        desk.keepPicture("network-settings-long");
        desk.click("cmdNETPATH");
        EXPECT_EQ(desk.text("txtNETPATH"), std::string(100, 'x'));
        desk.click("cmdNETPATH");
        EXPECT_EQ(desk.text("lblNETPATH"), longer);
    });
    EXPECT_THAT(own.rows(), ElementsAre(longer));
}

TEST_F(NetworkSettings, NoLocationAtAllIsTheCurrentFolderTheNextTime) {
    show([&](const WindowDriver& desk) {
        desk.click("cmdNETPATH");
        desk.press(Qt::Key_Delete);
        desk.click("cmdNETPATH");
        EXPECT_EQ(desk.text("lblNETPATH"), "");
    });
    show([&](const WindowDriver& desk) { EXPECT_EQ(desk.text("lblNETPATH"), platform::currentFolder()); });
}

class NetworkSettingsDeathTest : public NetworkSettings {};

TEST_F(NetworkSettingsDeathTest, ALocationThatCanNotBeStoredEndsTheProgram) {
    const auto run = [this] {
        person.onBox = [](QMessageBox& box) {
            fmt::print(stderr, "[{}|{}]", box.windowTitle().toStdString(), box.text().toStdString());
            box.close();
        };
        show([&](const WindowDriver& desk) {
            desk.click("cmdNETPATH");
            desk.type("new");
            folder.remove("NETPATH.MDB");
            desk.click("cmdNETPATH");
            fmt::print(stderr, "still running");
        });
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(1), R"(^\[Tolvane Module\|Run-time error '3024':)");
}

// The user.

TEST_F(NetworkSettings, TheUserIsAddedOnce) {
    net.tags.add({{1, 2, 31}});
    show([&](const WindowDriver& desk) {
        person.onBox = [&](QMessageBox& box) {
            EXPECT_EQ(desk.text("lblUSERTAG"), "31") << "not shown under the box";
            box.close();
        };
        desk.press(Qt::Key_A, Qt::AltModifier);
        expectBox("User List Updated", "The User Name: ann\nhas been added to the list of users.",
                  QMessageBox::Information);
        EXPECT_EQ(desk.focus(), "cmdExit");
        desk.click("cmdAdd");
        expectBox("Cannot Update Record",
                  "Duplicate User Name Detected.\nThe User Name you have entered already exists.",
                  QMessageBox::Critical);
        EXPECT_EQ(desk.focus(), "cmdExit");
        EXPECT_EQ(desk.text("lblUSERNAME"), "Ann");
    });
    EXPECT_THAT(net.users.rows(), ElementsAre("31|ann|Added on: 1/31/2003|False"));
    EXPECT_THAT(net.tags.rows(), ElementsAre("1|2|32"));
}

TEST_F(NetworkSettings, AUserWithLettersBeyondASCIIIsAdded) {
    login = "\u00c4NNE";
    show([&](const WindowDriver& desk) {
        EXPECT_EQ(desk.text("lblUSERNAME"), login);
        desk.click("cmdAdd");
        expectBox("User List Updated", "The User Name: \u00e4nne\nhas been added to the list of users.",
                  QMessageBox::Information);
    });
    show([&](const WindowDriver& desk) { EXPECT_EQ(desk.text("lblUSERTAG"), "1"); });
}

TEST_F(NetworkSettings, AUserWithoutNameIsNotAdded) {
    login = "  ";
    show([&](const WindowDriver& desk) {
        desk.click("cmdAdd");
        expectBox("Cannot Update Record", "Empty User Name Detected", QMessageBox::Critical);
        EXPECT_EQ(desk.focus(), "cmdExit");
    });
    EXPECT_THAT(net.users.rows(), IsEmpty());
}

TEST_F(NetworkSettings, LetGoOfTheirTables) {
    show([&](const WindowDriver& desk) {
        desk.click("cmdAdd");
        data::Workspace workspace = data::DBEngine::CreateWorkspace("test");
        workspace.OpenDatabase("ZOVNET.MDB").TableDefs().Delete("NETTAGS");
        workspace.OpenDatabase("NETPATH.MDB").TableDefs().Delete("NETPATH");
    });
}

} // namespace
} // namespace tol::test
