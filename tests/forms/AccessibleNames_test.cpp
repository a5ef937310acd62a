// SPDX-License-Identifier: MIT
#include "support/AccessibleNames.h"

#include "forms/controls/Controls.h"
#include "forms/controls/FolderControls.h"
#include "forms/controls/ListBox.h"
#include "forms/controls/TextBox.h"
#include "forms/look/Pictures.h"
#include "forms/windows/Form.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

namespace tol::forms {
namespace {

/// Puts one control on a window; tells how many have no name.
std::size_t nameless(const std::function<void(Form&)>& make) {
    Form form("frmTest");
    make(form);
    form.showModeless();
    const std::size_t count = test::controlsWithoutName(form).size();
    form.unload();
    return count;
}

TEST(AccessibleNames, ControlsWithATextOrADescriptionHaveOne) {
    EXPECT_EQ(
        nameless([](Form& form) {
            addLabel(form, "lblTest", "text", {0, 0, 300, 300});
            addLabel(form, "lblBlank", " ", {0, 0, 300, 300});
            addButton(form, "cmdTest", "&Test", {0, 0, 300, 300}, [] {});
            addPictureButton(form, "cmdPicture", picture(Picture::First), "First", {0, 0, 300, 300}, [] {});
            addImage(form, "Image1", picture(Picture::Folder), "A folder", {0, 0, 300, 300});
            addScrollBar(form, "hsbMAIN", "A list", {0, 0, 30, 30});
            setLabelOf(addLabel(form, "lblOf", "Name:", {0, 0, 300, 300}),
                       TextBox::add(form, "txtTest", 9, {0, 0, 300, 300}));
            setLabelOf(addLabel(form, "lblOf", "Drive:", {0, 0, 300, 300}),
                       DriveList::add(form, "Drive1", {0, 0, 300, 300}));
            ListBox& list = ListBox::add(form, "lstTest", {0, 0, 900, 900});
            list.setAccessibleName("A list");
            for (int i = 0; i < 30; ++i)
                list.AddItem("line");
        }),
        0U);
}

TEST(AccessibleNames, OthersAreMissed) {
    EXPECT_EQ(nameless([](Form& form) { TextBox::add(form, "txtTest", 9, {0, 0, 300, 300}); }), 1U);
    EXPECT_EQ(nameless([](Form& form) { ListBox::add(form, "lstTest", {0, 0, 300, 300}); }), 1U);
    EXPECT_EQ(nameless([](Form& form) { addButton(form, "cmdTest", "", {0, 0, 300, 300}, [] {}); }), 1U);
    EXPECT_EQ(nameless([](Form& form) { addScrollBar(form, "hsbMAIN", "", {0, 0, 30, 30}); }), 1U);
    EXPECT_EQ(nameless([](Form& form) {
                  addImage(form, "Image1", picture(Picture::Folder), "", {0, 0, 300, 300});
              }),
              1U);
    EXPECT_EQ(nameless([](Form& form) {
                  TextBox::add(*addFrame(form, "fraTest", {0, 0, 900, 900}).window(), "txtTest", 9,
                               {0, 0, 300, 300})
                      .hide();
              }),
              0U)
        << "out of sight";
}

} // namespace
} // namespace tol::forms
