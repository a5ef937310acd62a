// SPDX-License-Identifier: MIT
#include "network/frmNETPATH.h"

#include "data/OpenTable.h"
#include "forms/controls/TextBox.h"
#include "forms/events/WindowHost.h"
#include "platform/Paths.h"
#include "runtime/Text.h"
#include "support/BoxAnswerer.h"
#include "support/OnModal.h"
#include "support/StartFolder.h"
#include "support/TestTable.h"

#include <gmock/gmock.h>

#include <QPushButton>

namespace tol::test {
namespace {

using runtime::Value;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class NetworkPath : public testing::Test {
  protected:
    NetworkPath() {
        owner.resize(900, 700);
        owner.show();
    }

    void show(const std::function<void(const WindowDriver&)>& acts) {
        network::frmNETPATH window([this](const std::string& path) { changes.push_back(path); });
        const OnModal modal("frmNETPATH", [&](const WindowDriver& desk) {
            EXPECT_EQ(window.windowTitle(), "Location of Wendry Database");
            acts(desk);
        });
        window.showModal(&owner);
    }

    std::vector<std::string> changes; ///< that the main window is told of
    StartFolder folder;
    forms::WindowHost host;
    BoxAnswerer person;
    QWidget owner;
};

TEST_F(NetworkPath, ShowsTheLocation) {
    folder.addPath(" C:\\Net\\ ");
    show([&](const WindowDriver& desk) {
        EXPECT_EQ(desk.text("lblHNETPATH"), "Database Location:");
        EXPECT_EQ(desk.text("txtNETPATH"), "C:\\Net");
        EXPECT_EQ(desk.control<forms::TextBox>("txtNETPATH").MaxLength(), 60);
        EXPECT_EQ(desk.text("cmdUpdate"), "&Update");
        EXPECT_EQ(desk.text("cmdCancel"), "&Cancel");
        EXPECT_EQ(desk.focus(), "txtNETPATH");
        desk.keepPicture("network-path");
        desk.click("cmdCancel");
    });
    EXPECT_THAT(folder.paths(), ElementsAre(Value(" C:\\Net\\ ")));
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(NetworkPath, IsTheCurrentFolderAtFirst) {
    show([&](const WindowDriver& desk) { EXPECT_EQ(desk.text("txtNETPATH"), platform::currentFolder()); });
    EXPECT_THAT(folder.paths(), ElementsAre(Value(platform::currentFolder())));
}

TEST_F(NetworkPath, IsChangedByKeysInCapitals) {
    folder.addPath("C:\\OLD");
    show([&](const WindowDriver& desk) {
        desk.type("s:\\new\\");
        desk.press(Qt::Key_Return);
        EXPECT_EQ(desk.focus(), "cmdSelectPath");
        EXPECT_EQ(desk.text("txtNETPATH"), "S:\\NEW\\");
        desk.press(Qt::Key_U, Qt::AltModifier);
    });
    EXPECT_THAT(folder.paths(), ElementsAre(Value("S:\\NEW\\")));
    EXPECT_THAT(changes, ElementsAre("S:\\NEW"));
}

TEST_F(NetworkPath, IsInCapitalsWhenUpdateIsPressedFromTheBox) {
    show([&](const WindowDriver& desk) {
        desk.type("new");
        desk.press(Qt::Key_U, Qt::AltModifier);
    });
    EXPECT_THAT(folder.paths(), ElementsAre(Value("NEW")));
}

TEST_F(NetworkPath, IsPickedByClicks) {
    folder.addPath("C:\\OLD");
    show([&](const WindowDriver& desk) {
        {
            const OnModal picker("frmDBPSearch", [](const WindowDriver& pick) { pick.click("cmdCancel"); });
            desk.click("cmdSelectPath");
        }
        EXPECT_EQ(desk.text("txtNETPATH"), "C:\\OLD");
        {
            const OnModal picker("frmDBPSearch", [](const WindowDriver& pick) { pick.click("cmdSelect"); });
            desk.click("cmdSelectPath");
        }
        desk.click("cmdUpdate");
    });
    const std::string picked(runtime::left(runtime::upperCase(platform::currentFolder()), 60));
    EXPECT_THAT(changes, ElementsAre(picked));
    EXPECT_THAT(folder.paths(), ElementsAre(Value(picked)));
}

TEST_F(NetworkPath, StaysWhenItIsCancelled) {
    folder.addPath("C:\\OLD");
    show([&](const WindowDriver& desk) {
        desk.type("new");
        desk.press(Qt::Key_Escape);
    });
    show([&](const WindowDriver& desk) {
        desk.type("new");
        desk.press(Qt::Key_C, Qt::AltModifier);
    });
    show([&](const WindowDriver& desk) { desk.type("new"); });
    EXPECT_THAT(folder.paths(), ElementsAre(Value("C:\\OLD")));
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(NetworkPath, ThatIsTooLongForTheBoxStaysWholeUntilItIsTouched) {
    const std::string longer(100, 'x');
    folder.addPath(longer);
    show([&](const WindowDriver& desk) {
        EXPECT_EQ(desk.text("txtNETPATH"), std::string(60, 'x'));
        desk.click("cmdUpdate");
    });
    EXPECT_THAT(folder.paths(), ElementsAre(Value(longer)));
    EXPECT_THAT(changes, ElementsAre(longer));
    show([&](const WindowDriver& desk) {
        desk.press(Qt::Key_End);
        desk.press(Qt::Key_Backspace);
        desk.click("cmdUpdate");
    });
    EXPECT_THAT(folder.paths(), ElementsAre(Value(std::string(59, 'X'))));
}

TEST_F(NetworkPath, GetsARowThatIsGoneMeanwhile) {
    folder.addPath("C:\\OLD");
    show([&](const WindowDriver& desk) {
        data::OpenTable others("other", "NETPATH.MDB", "NETPATH");
        others.rows.Delete();
        others.Close();
        desk.type("NEW");
        desk.click("cmdUpdate");
    });
    EXPECT_THAT(folder.paths(), ElementsAre(Value("NEW")));
}

TEST_F(NetworkPath, LetsGoOfItsTable) {
    show([](const WindowDriver& desk) { desk.click("cmdUpdate"); });
    data::Workspace workspace = data::DBEngine::CreateWorkspace("test");
    workspace.OpenDatabase("NETPATH.MDB").TableDefs().Delete("NETPATH");
}

TEST_F(NetworkPath, OnlyCancelIsLeftWithoutTheDatabase) {
    folder.remove("NETPATH.MDB");
    show([&](const WindowDriver& desk) {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, "Error Displaying Form");
        EXPECT_THAT(person.boxes[0].text, StartsWith("Error Loading Form: frmNETPATH\n\nError Number: 3024"));
        for (const char* hidden : {"lblHNETPATH", "txtNETPATH", "cmdSelectPath", "cmdUpdate"})
            EXPECT_FALSE(desk.isShown(hidden)) << hidden;
        EXPECT_EQ(desk.focus(), "cmdCancel");
        desk.press(Qt::Key_Return);
    });
    EXPECT_FALSE(std::filesystem::exists("NETPATH.MDB"));
}

} // namespace
} // namespace tol::test
