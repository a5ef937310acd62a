// SPDX-License-Identifier: MIT
#include "rights/frmTOLURT01.h"

#include "../search_print/document/Drawn.h"
#include "NetworkListTest.h"
#include "forms/controls/TextBox.h"
#include "search_print/ReportWindow.h"
#include "support/ReportReader.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

const std::string duplicateText = "Duplicate User Rights Template Code Detected.\n"
                                  "The User Rights Template Code you have entered already exists.";

class Templates : public NetworkListTest {
  protected:
    Templates() : NetworkListTest({"URTCODE", "URTNAME"}) { net.tags.add({{50, 60, 70}}); }

    void open() { show(std::make_unique<rights::frmTOLURT01>("")); }
    void openWithTwo() {
        net.templates.add({{8, "CLERK", "Office clerk"}, {5, "BOSS", "May do all"}});
        open();
    }
};

TEST_F(Templates, AreListedInOrderOfTheirCodes) {
    openWithTwo();
    EXPECT_EQ(window->windowTitle(), "User Rights Templates");
    EXPECT_EQ(pageSize(), 7U);
    EXPECT_THAT(page(), ElementsAre("BOSS|May do all", "CLERK|Office clerk", " |End of List."));
    EXPECT_EQ(highlight(), 0);
    EXPECT_EQ(desk->text("lblHURTCODE"), "URT Code");
    EXPECT_EQ(desk->text("lblHURTNAME"), " Template Description");
    EXPECT_EQ(desk->control<forms::TextBox>("txtURTCODE").MaxLength(), 8);
    EXPECT_EQ(desk->control<forms::TextBox>("txtURTNAME").MaxLength(), 50);
    desk->keepPicture("templates");
}

TEST_F(Templates, ThereMayBeNone) {
    open();
    EXPECT_THAT(page(), ElementsAre(" |List is Empty."));
    const ReportReader reader([](search_print::ReportWindow&) {});
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_D})
        desk->press(key);
    desk->press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(reader.reports, 0);
    EXPECT_FALSE(isEditing());
    EXPECT_THAT(person.boxes, IsEmpty());
    desk->keepPicture("templates-empty");
}

TEST_F(Templates, PrintOpensTheReport) {
    openWithTwo();
    const ReportReader reader([](search_print::ReportWindow& report) {
        EXPECT_EQ(report.objectName(), "frmTOLURT03");
        EXPECT_THAT(textsOf(report.printer()), IsSupersetOf({"User Rights Templates", "BOSS", "CLERK"}));
    });
    desk->press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(reader.reports, 1);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(Templates, AnAddedOneGetsTheNextTag) {
    openWithTwo();
    desk->press(Qt::Key_A);
    desk->type("cook");
    desk->press(Qt::Key_Tab);
    desk->type("Kitchen");
    desk->keepPicture("templates-add");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_THAT(net.templates.rows(),
                ElementsAre("5|BOSS|May do all", "8|CLERK|Office clerk", "60|COOK|Kitchen"));
    EXPECT_THAT(net.tags.rows(), ElementsAre("50|61|70"));
}

TEST_F(Templates, TheFirstOfAllGetsTagOne) {
    net.tags.remove("URTTAG", 60);
    open();
    desk->press(Qt::Key_A);
    desk->type("cook");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(net.templates.rows(), ElementsAre("1|COOK|" + std::string(50, ' ')));
    EXPECT_THAT(net.tags.rows(), ElementsAre("Null|2|Null"));
}

TEST_F(Templates, AnEditKeepsTheTagAndMayKeepTheCode) {
    openWithTwo();
    desk->press(Qt::Key_E);
    desk->type("boss");
    desk->press(Qt::Key_Tab);
    desk->type("May do much");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_THAT(net.templates.rows(), ElementsAre("5|BOSS|May do much", "8|CLERK|Office clerk"));
    EXPECT_THAT(net.tags.rows(), ElementsAre("50|60|70"));
}

TEST_F(Templates, ABlankCodeIsRefused) {
    open();
    desk->press(Qt::Key_A);
    desk->press(Qt::Key_Tab);
    expectRefusal("Empty User Rights Template Code Detected");
    EXPECT_EQ(desk->focus(), "txtURTCODE");
}

TEST_F(Templates, ABlankDescriptionIsRefused) {
    openWithTwo();
    desk->press(Qt::Key_E);
    desk->press(Qt::Key_Tab);
    desk->type(" ");
    desk->press(Qt::Key_U, Qt::AltModifier);
    expectRefusal("Blank User Rights Template Description Detected.");
    EXPECT_EQ(desk->focus(), "txtURTNAME");
}

TEST_F(Templates, ACodeOfAnotherIsRefused) {
    openWithTwo();
    desk->press(Qt::Key_A);
    desk->type("Boss");
    desk->press(Qt::Key_Tab);
    expectRefusal(duplicateText);
    EXPECT_EQ(desk->text("txtURTCODE"), "BOSS");
    EXPECT_EQ(desk->focus(), "txtURTCODE");
    desk->press(Qt::Key_Escape);
    desk->press(Qt::Key_E);
    desk->type("clerk");
    desk->press(Qt::Key_U, Qt::AltModifier);
    ASSERT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes[1].text, duplicateText);
    EXPECT_THAT(net.templates.rows(), ElementsAre("5|BOSS|May do all", "8|CLERK|Office clerk"));
}

TEST_F(Templates, ADeletedOneTakesItsItemsAlongAndLeavesTheUsersTheirRights) {
    net.templateItems.add({{5, 1, true}, {8, 1, true}, {5, 2, false}});
    net.rights.add({{3, 1, true, 5}});
    openWithTwo();
    desk->press(Qt::Key_D);
    expectBox("OK to Delete User Rights Template: \nBOSS - May do all\n and All Related Detail?",
              QMessageBox::Question, "Confirm Delete");
    EXPECT_THAT(person.boxes[0].buttons, ElementsAre("cmdOK", "cmdCancel"));
    EXPECT_THAT(net.templates.rows(), ElementsAre("8|CLERK|Office clerk"));
    EXPECT_THAT(net.templateItems.rows(), ElementsAre("8|1|True"));
    EXPECT_THAT(net.rights.rows(), ElementsAre("3|1|True|5"));
    EXPECT_EQ(desk->focus(), "hsbMAIN");
}

TEST_F(Templates, ADeleteThatIsNotWantedDeletesNothing) {
    net.templateItems.add({{5, 1, true}});
    openWithTwo();
    person.answers = {"cmdCancel"};
    desk->press(Qt::Key_D);
    EXPECT_EQ(net.templates.rows().size(), 2U);
    EXPECT_EQ(net.templateItems.rows().size(), 1U);
}

TEST_F(Templates, OneWithoutItemsIsDeletedToo) {
    openWithTwo();
    desk->press(Qt::Key_End);
    desk->press(Qt::Key_D);
    EXPECT_THAT(net.templates.rows(), ElementsAre("5|BOSS|May do all"));
    EXPECT_THAT(page(), ElementsAre("BOSS|May do all", " |End of List."));
}

} // namespace
} // namespace tol::test
