// SPDX-License-Identifier: MIT
#include "search_print/vdSearchPresets.h"

#include "SearchTest.h"
#include "data/OpenTable.h"
#include "forms/look/Twips.h"
#include "runtime/Conversions.h"
#include "support/NetworkTables.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tol::test {
namespace {

using namespace search_print;
using testing::ElementsAre;
using testing::IsEmpty;

class vdSearchPresets : public SearchTest {
  protected:
    vdSearchPresets() {
        network.accessItems.add({{1, "ACC", "OPEN", "Open the ledger", "frmA"},
                                 {2, "ACC", "CLOSE", "Close the ledger", "frmA"},
                                 {3, "INV", "COUNT", "Count the stock", "frmI"},
                                 {4, "INV", "OPEN", "Accept deliveries", "frmI"},
                                 {5, "PAY", "CLEAR", "Clear a cheque", "frmP"}});
        network.templates.add(
            {{1, "CLERK", "Office clerk"}, {2, "ADMIN", "Office manager"}, {3, "BOSS", "All"}});
    }

    /// The field of the record with that bookmark.
    static std::string at(const std::string& mark, const std::string& tableName, const std::string& field) {
        data::OpenTable opened("test", NetworkTables::file, tableName);
        opened.rows.Bookmark(mark);
        return runtime::toText(opened.rows.Fields(field).Value());
    }
    [[nodiscard]] std::string title() const {
        return desk->control("lblSearch").window()->windowTitle().toStdString();
    }
    [[nodiscard]] Qt::Alignment side(const QString& label) const {
        return desk->control<QLabel>(label).alignment() & Qt::AlignHorizontal_Mask;
    }

    NetworkTables network;
    std::string here = std::filesystem::current_path().string();
};

TEST_F(vdSearchPresets, TheItemsOfOneModule) {
    const std::string mark =
        search([&] { return vdSearchUAIInModule(here, "ACC", "Accounting"); },
               [&] {
                   EXPECT_EQ(title(), "Search UAI Codes");
                   EXPECT_EQ(desk->text("lblSearchTitle"), "UAI Codes for Module: Accounting");
                   EXPECT_EQ(desk->text("lblHCOL0"), " UAI Code");
                   EXPECT_EQ(desk->text("lblHCOL1"), " Description");
                   EXPECT_EQ(side("lblHCOL0"), Qt::AlignHCenter);
                   EXPECT_EQ(side("lblHCOL1"), Qt::AlignLeft);
                   EXPECT_EQ(desk->control("lblCOL0(0)").width(), forms::toPixels(1000));
                   EXPECT_EQ(desk->control("lblCOL1(0)").width(), forms::toPixels(6000));
                   EXPECT_EQ(titleColor(0), qRgb(210, 210, 210));
                   EXPECT_THAT(page(), ElementsAre("CLOSE|Close the ledger", "OPEN|Open the ledger"));
                   type("o");
                   EXPECT_EQ(chosen(), "OPEN|Open the ledger");
                   desk->keepPicture("search-items-of-a-module");
                   desk->click("lblHCOL0");
                   type("closexyz");
                   EXPECT_EQ(desk->text("lblSearch"), "closexyz");
                   type("1");
                   EXPECT_EQ(desk->text("lblSearch"), "closexyz") << "a code has eight characters";
                   EXPECT_EQ(chosen(), "OPEN|Open the ledger") << "the next one behind the text";
                   press(Qt::Key_Return);
               });
    EXPECT_EQ(at(mark, "USERACCESSITEMS", "UAITAG"), "1");
}

TEST_F(vdSearchPresets, AModuleWithoutItemsIsEmpty) {
    const std::string mark = search([&] { return vdSearchUAIInModule(here, "NEW", "New"); },
                                    [&] {
                                        EXPECT_THAT(page(), IsEmpty());
                                        EXPECT_FALSE(desk->control("CmdSelect").isEnabled());
                                        EXPECT_TRUE(desk->control("CmdCancel").isEnabled());
                                        press(Qt::Key_Escape);
                                    });
    EXPECT_EQ(mark, " ");
}

TEST_F(vdSearchPresets, TheItemsOfAllModules) {
    const std::string mark =
        search([&] { return vdSearchUAI(here); },
               [&] {
                   EXPECT_EQ(title(), "Search UAI Codes");
                   EXPECT_EQ(desk->text("lblSearchTitle"), " ");
                   EXPECT_EQ(desk->text("lblHCOL0"), " Description");
                   EXPECT_EQ(desk->text("lblHCOL1"), " UAI Code");
                   EXPECT_EQ(side("lblHCOL0"), Qt::AlignLeft);
                   EXPECT_EQ(side("lblHCOL1"), Qt::AlignHCenter);
                   EXPECT_THAT(page(), ElementsAre("Clear a cheque|CLEAR", "Close the ledger|CLOSE",
                                                   "Count the stock|COUNT", "Open the ledger|OPEN",
                                                   "Accept deliveries|OPEN"));
                   type("co");
                   EXPECT_EQ(chosen(), "Count the stock|COUNT");
                   press(Qt::Key_Return);
               });
    EXPECT_EQ(at(mark, "USERACCESSITEMS", "UAITAG"), "3");
}

TEST_F(vdSearchPresets, OverAllModulesADescriptionIsFoundByItsBeginning) {
    search([&] { return vdSearchUAI(here); },
           [&] {
               desk->click("lblHCOL0");
               const std::vector<std::string> all = page(); // by module, then by description
               EXPECT_THAT(all, ElementsAre("Close the ledger|CLOSE", "Open the ledger|OPEN",
                                            "Accept deliveries|OPEN", "Count the stock|COUNT",
                                            "Clear a cheque|CLEAR"));
               type("c"); // begins the first one
               EXPECT_EQ(page(), all);
               type("o");
               EXPECT_EQ(chosen(), "Count the stock|COUNT");
               type("x"); // begins none
               EXPECT_EQ(chosen(), "Count the stock|COUNT");
               press(Qt::Key_Backspace, 2);
               EXPECT_EQ(page(), all) << "looked for from the first row on";
               type("l");
               type("ea");
               EXPECT_EQ(chosen(), "Clear a cheque|CLEAR");
               press(Qt::Key_Backspace, 4);
               type("acc"); // a description's beginning, not the module's code
               EXPECT_EQ(chosen(), "Accept deliveries|OPEN");
           });
}

TEST_F(vdSearchPresets, AnAccentBetweenTwoDescriptionsHidesNone) {
    network.accessItems.add({{6, "QUA", "A1", "Zéro", "frmQ"}, {7, "QUA", "A2", "Zeros", "frmQ"}});
    search([&] { return vdSearchUAI(here); },
           [&] {
               desk->click("lblHCOL0");
               type("zero");
               EXPECT_EQ(chosen(), "Zeros|A2");
           });
}

TEST_F(vdSearchPresets, TheTemplates) {
    const std::string mark =
        search([&] { return vdSearchURT(here); },
               [&] {
                   EXPECT_EQ(title(), "Search URT Codes");
                   EXPECT_EQ(desk->text("lblSearchTitle"), " ");
                   EXPECT_EQ(desk->text("lblHCOL0"), " URT Code");
                   EXPECT_EQ(desk->text("lblHCOL1"), " Description");
                   EXPECT_EQ(side("lblHCOL0"), Qt::AlignLeft);
                   EXPECT_THAT(page(), ElementsAre("BOSS|All", "CLERK|Office clerk", "ADMIN|Office manager"));
                   type("office m");
                   EXPECT_EQ(chosen(), "ADMIN|Office manager");
                   press(Qt::Key_Return);
               });
    EXPECT_EQ(at(mark, "URTEMPLATES", "URTCODE"), "ADMIN");
}

TEST_F(vdSearchPresets, ADatabaseThatIsNotThereIsTold) {
    EXPECT_EQ(search([&] { return vdSearchURT("C:\\NOWHERE"); }, [&] { press(Qt::Key_Escape); }), " ");
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, "Error Displaying Form");
    EXPECT_THAT(person.boxes[0].text, testing::HasSubstr("NOWHERE/ZOVNET.MDB"));
}

} // namespace
} // namespace tol::test
