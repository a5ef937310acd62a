// SPDX-License-Identifier: MIT
#include "rights/frmTOLURL05.h"

#include "data/DBEngine.h"
#include "forms/controls/TextBox.h"
#include "forms/events/WindowHost.h"
#include "runtime/Text.h"
#include "support/BoxAnswerer.h"
#include "support/ModalPerson.h"
#include "support/NetworkTables.h"
#include "support/StartFolder.h"

#include <gmock/gmock.h>

#include <QPushButton>

#include <filesystem>
#include <optional>

namespace tol::test {
namespace {

using runtime::Null;
using testing::ElementsAre;
using testing::IsEmpty;

class ChooseTemplate : public testing::Test {
  protected:
    ChooseTemplate() { net.templates.add({{5, "CLERK", "Clerks of the office"}, {6, "DRIVER", "Drivers"}}); }

    /// Shows the window while the person acts.
    void choose(const std::function<void(const WindowDriver&)>& acts) {
        const ModalPerson dialogs("frmTOLURL05", acts);
        window.emplace();
        window->showModal(nullptr);
        EXPECT_EQ(dialogs.windows, 1);
        EXPECT_FALSE(window->isLoaded());
    }
    void expectRefusal(const std::string& text) {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, "Invalid Item");
        EXPECT_EQ(person.boxes[0].text, text);
        EXPECT_EQ(person.boxes[0].icon, QMessageBox::Critical);
        EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK"));
        person.boxes.clear();
    }

    StartFolder folder;
    forms::WindowHost host;
    BoxAnswerer person;
    NetworkTables net;
    std::optional<rights::frmTOLURL05> window;
};

TEST_F(ChooseTemplate, TellsWhatAFillDoes) {
    choose([&](const WindowDriver& desk) {
        EXPECT_EQ(window->windowTitle(), "Add User Rights Items from a UR Template");
        EXPECT_EQ(desk.text("lblNotice"),
                  "By selecting a User Rights Template you will automatically add User Access Items to the "
                  "User's list. This process will also 'refresh' the list of items related to a URT Code.  "
                  "That is, if any changes have been made to the list of items under the URT Code, those "
                  "changes will overwrite any items currently attached to this user for the URT Code you "
                  "select.");
        EXPECT_EQ(desk.text("lblHMODULE"), "URT Code:");
        EXPECT_EQ(desk.text("txtURTCODE"), runtime::space(8));
        EXPECT_EQ(desk.control<forms::TextBox>("txtURTCODE").MaxLength(), 8);
        EXPECT_EQ(desk.text("cmdURTSearch"), "=");
        EXPECT_EQ(desk.control("cmdURTSearch").toolTip(), "Click to Display Search Window");
        EXPECT_EQ(desk.text("cmdOK"), "&OK");
        EXPECT_EQ(desk.text("cmdCancel"), "&Cancel");
        EXPECT_EQ(desk.focus(), "txtURTCODE");
        EXPECT_FALSE(window->mValid);
        desk.keepPicture("user-rights-template");
        desk.click("cmdCancel");
    });
}

TEST_F(ChooseTemplate, TakesACodeByTheMouse) {
    choose([](const WindowDriver& desk) {
        desk.type("driver");
        desk.click("cmdOK");
    });
    EXPECT_TRUE(window->mValid);
    EXPECT_EQ(window->mChosenURTTag, 6);
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(ChooseTemplate, TakesACodeByKeysAlone) {
    choose([](const WindowDriver& desk) {
        desk.type("clerk");
        desk.press(Qt::Key_Return);
        EXPECT_EQ(desk.focus(), "cmdURTSearch");
        desk.press(Qt::Key_Tab);
        EXPECT_EQ(desk.focus(), "cmdOK");
        EXPECT_EQ(desk.text("txtURTCODE"), "CLERK") << "checked when the focus came to OK";
        desk.press(Qt::Key_Return);
    });
    EXPECT_TRUE(window->mValid);
    EXPECT_EQ(window->mChosenURTTag, 5);
}

TEST_F(ChooseTemplate, ABlankCodeIsRefusedAndTheWindowStays) {
    choose([&](const WindowDriver& desk) {
        desk.click("cmdOK");
        expectRefusal("User Rights Template Code is Empty.");
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(desk.focus(), "txtURTCODE");
        desk.press(Qt::Key_O, Qt::AltModifier);
        expectRefusal("User Rights Template Code is Empty.");
        EXPECT_TRUE(window->isVisible());
        EXPECT_FALSE(window->mValid);
        desk.press(Qt::Key_Escape);
    });
    EXPECT_FALSE(window->mValid);
}

TEST_F(ChooseTemplate, AnUnknownCodeIsRefused) {
    choose([&](const WindowDriver& desk) {
        desk.type("boss ");
        desk.click("cmdOK");
        expectRefusal("Cannot Find User Rights Template Code: BOSS");
        EXPECT_EQ(desk.text("txtURTCODE"), "BOSS ");
        EXPECT_EQ(desk.focus(), "txtURTCODE");
        desk.type("clerk");
        desk.click("cmdOK");
    });
    EXPECT_TRUE(window->mValid);
    EXPECT_EQ(window->mChosenURTTag, 5);
}

TEST_F(ChooseTemplate, ACodeThatIsChangedAfterTheCheckIsCheckedAgain) {
    choose([&](const WindowDriver& desk) {
        desk.type("clerk");
        desk.control("cmdOK").setFocus();
        EXPECT_TRUE(window->mValid);
        desk.click("txtURTCODE");
        desk.type("boss");
        desk.click("cmdOK");
        expectRefusal("Cannot Find User Rights Template Code: BOSS");
        EXPECT_TRUE(window->isVisible());
        desk.click("cmdCancel");
    });
    EXPECT_FALSE(window->mValid);
}

TEST_F(ChooseTemplate, CancelEscAndTheCloseButtonChooseNothing) {
    const std::function<void(const WindowDriver&)> ends[] = {
        [](const WindowDriver& desk) { desk.click("cmdCancel"); },
        [](const WindowDriver& desk) { desk.press(Qt::Key_Escape); },
        [&](const WindowDriver&) { window->close(); }};
    for (const auto& end : ends) {
        choose([&](const WindowDriver& desk) {
            desk.type("clerk");
            desk.control("cmdOK").setFocus();
            EXPECT_TRUE(window->mValid);
            end(desk);
        });
        EXPECT_FALSE(window->mValid);
    }
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(ChooseTemplate, ATemplateWithoutNumberCannotBeFilledFrom) {
    net.templates.add({{Null{}, "NONE", Null{}}});
    choose([&](const WindowDriver& desk) {
        desk.type("none");
        desk.click("cmdOK");
        expectRefusal("Cannot Find User Rights Template Code: NONE");
        desk.click("cmdCancel");
    });
}

TEST_F(ChooseTemplate, LetsGoOfTheTableWhenItCloses) {
    choose([](const WindowDriver& desk) { desk.click("cmdCancel"); });
    data::Workspace workspace = data::DBEngine::CreateWorkspace("test");
    data::Database database = workspace.OpenDatabase(NetworkTables::file);
    database.TableDefs().Delete("URTEMPLATES");
}

TEST_F(ChooseTemplate, OnlyCancelIsLeftWhenItCannotBeLoaded) {
    std::filesystem::remove(NetworkTables::file);
    choose([&](const WindowDriver& desk) {
        ASSERT_EQ(person.boxes.size(), 2U);
        EXPECT_EQ(person.boxes[0].title, "Cannot Access");
        EXPECT_THAT(person.boxes[1].text,
                    testing::StartsWith("Error Loading Form: frmTOLURL05\n\nError Number: 3024"));
        for (const char* hidden : {"txtURTCODE", "cmdURTSearch", "cmdOK", "lblNotice"})
            EXPECT_FALSE(desk.isShown(hidden)) << hidden;
        EXPECT_EQ(desk.focus(), "cmdCancel");
        desk.press(Qt::Key_Return);
    });
    EXPECT_FALSE(window->mValid);
}

} // namespace
} // namespace tol::test
