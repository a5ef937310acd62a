// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "AssignedItemsTest.h"
#include "forms/windows/LoadedForms.h"
#include "rights/frmTOLURL01.h"
#include "rights/frmTOLURT01.h"

namespace tol::test {
namespace {

using testing::ElementsAre;

class DetailButton : public AssignedItemsTest {
  protected:
    DetailButton() : AssignedItemsTest({"URTCODE", "URTNAME"}) {}

    /// What the windows of that name show in a label.
    static std::vector<std::string> open(const QString& name, const QString& label) {
        std::vector<std::string> texts;
        for (int position = 0; position < forms::LoadedForms::Count(); ++position)
            if (QWidget& form = forms::LoadedForms::Item(position); form.objectName() == name)
                texts.push_back(WindowDriver(form).text(label));
        return texts;
    }
};

TEST_F(DetailButton, OpensTheItemsOfTheTemplateUnderTheHighlight) {
    net.templateItems.add({{driver, cars, true}});
    show(std::make_unique<rights::frmTOLURT01>(""));
    EXPECT_EQ(desk->text("cmdDetail"), "&Browse URT Detail");
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_B, Qt::AltModifier);
    EXPECT_THAT(open("frmTOLURT02", "lblURTCODE"), ElementsAre("DRIVER"));
    EXPECT_THAT(open("frmTOLURT02", "lblUAICODE(0)"), ElementsAre("CARS"));
}

TEST_F(DetailButton, OpensTheRightsOfTheUserUnderTheHighlight) {
    show(std::make_unique<rights::frmTOLURL01>(""));
    EXPECT_EQ(desk->text("cmdDetail"), "&Browse User Rights");
    desk->press(Qt::Key_B, Qt::AltModifier);
    EXPECT_THAT(open("frmTOLURL02", "lblUSERNAME"), ElementsAre("anna"));
}

TEST_F(DetailButton, OpensOneWindowForEachTemplate) {
    show(std::make_unique<rights::frmTOLURT01>(""));
    for (int time = 0; time < 2; ++time)
        desk->press(Qt::Key_B, Qt::AltModifier);
    EXPECT_THAT(open("frmTOLURT02", "lblURTCODE"), ElementsAre("CLERK"));
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_B, Qt::AltModifier);
    EXPECT_THAT(open("frmTOLURT02", "lblURTCODE"), ElementsAre("CLERK", "DRIVER"));
}

TEST_F(DetailButton, DoesNothingWithoutARecord) {
    show(std::make_unique<rights::frmTOLURT01>(""));
    net.templates.remove("URTCODE", "CLERK");
    desk->click("cmdDetail");
    EXPECT_THAT(page(), ElementsAre("DRIVER|Drivers", " |End of List.")) << "somebody has deleted it";
    desk->press(Qt::Key_Down);
    desk->click("cmdDetail");
    EXPECT_TRUE(open("frmTOLURT02", "lblURTCODE").empty());
}

} // namespace
} // namespace tol::test
