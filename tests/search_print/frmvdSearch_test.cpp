// SPDX-License-Identifier: MIT
#include "SearchTest.h"
#include "forms/windows/LoadedForms.h"
#include "runtime/RuntimeError.h"
#include "support/Beeps.h"
#include "support/TestHost.h"

#include <gmock/gmock.h>

#include <QPushButton>

namespace tol::test {
namespace {

using namespace search_print;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr QRgb lit = qRgb(210, 210, 210), searchable = qRgb(160, 160, 160), plain = qRgb(192, 192, 192);

/// The first part of each row.
std::vector<std::string> codesOf(const std::vector<std::string>& rows) {
    std::vector<std::string> codes;
    for (const std::string& row : rows)
        codes.push_back(row.substr(0, row.find('|')));
    return codes;
}

class frmvdSearchTest : public SearchTest {
  protected:
    [[nodiscard]] std::vector<std::string> codes() const { return codesOf(page()); }
    [[nodiscard]] bool isOpen() const { return forms::LoadedForms::find("frmvdSearch") != nullptr; }
    void expectBox(const std::string& text, QMessageBox::Icon icon, const std::string& title) const {
        ASSERT_THAT(person.boxes, SizeIs(1));
        EXPECT_EQ(person.boxes[0].text, text);
        EXPECT_EQ(person.boxes[0].icon, icon);
        EXPECT_EQ(person.boxes[0].title, title);
    }
};

// ---------------------------------------------------------------- what it shows

TEST_F(frmvdSearchTest, ShowsTheColumnsThatItIsTold) {
    addNumbered(20);
    search(parts(), [&] {
        EXPECT_EQ(desk->control("lblSearch").window()->windowTitle(), "Search Parts");
        EXPECT_EQ(desk->text("lblSearchTitle"), "All Parts");
        EXPECT_EQ(desk->text("lblInstructA"), "1. Type the first few characters you are looking for.");
        EXPECT_EQ(desk->text("lblInstructB"), "2. Click on the desired item and then click Select .");
        EXPECT_EQ(desk->text("lblInstructC"),
                  "To search by the other column click on title bar of that column.");
        EXPECT_TRUE(desk->isShown("lblInstructC"));
        EXPECT_EQ(desk->text("lblSearch"), "");
        EXPECT_EQ(desk->text("CmdSelect"), "&Select");
        EXPECT_EQ(desk->text("CmdCancel"), "&Cancel");
        EXPECT_EQ(desk->text("lblHCOL0"), " Code");
        EXPECT_EQ(desk->text("lblHCOL3"), " Remarks");
        EXPECT_FALSE(desk->isShown("lblHCOL4"));
        EXPECT_FALSE(desk->isShown("lblCOL5(0)"));
        EXPECT_EQ(desk->text("lblCOL0(11)"), " P12");
        EXPECT_EQ(desk->text("lblCol2(0)"), "1.00");
        EXPECT_EQ(page().size(), 12U);
        EXPECT_EQ(page().front(), "P01|NAME 01|1.00|-");
        EXPECT_EQ(highlight(), 0);
        EXPECT_EQ(desk->focus(), "hsbMAIN");
        EXPECT_EQ(titleColor(0), lit);
        EXPECT_EQ(titleColor(1), searchable);
        EXPECT_EQ(titleColor(3), plain);
        desk->keepPicture("search");
    });
}

TEST_F(frmvdSearchTest, AlignsTitlesAndCells) {
    addNumbered(1);
    search(parts(), [&] {
        const Qt::Alignment sides[] = {Qt::AlignHCenter, Qt::AlignLeft, Qt::AlignRight, Qt::AlignLeft};
        const QString labels[] = {"lblCOL0", "lblCOL1", "lblCol2", "lblCol3"};
        for (int column = 0; column < 4; ++column) {
            const auto& title = desk->control<QLabel>(QString("lblHCOL%1").arg(column));
            const auto& cell = desk->control<QLabel>(labels[column] + "(5)");
            EXPECT_EQ(title.alignment() & Qt::AlignHorizontal_Mask, sides[column]);
            EXPECT_EQ(cell.alignment() & Qt::AlignHorizontal_Mask, sides[column]);
            EXPECT_EQ(title.x(), cell.x());
        }
    });
}

TEST_F(frmvdSearchTest, ShowsAZeroAndANullAsBlanks) {
    table.add({{"A", "Z", "ZERO", 0.0, "-"}, {"A", "N", runtime::Null(), runtime::Null(), runtime::Null()}});
    search(parts(), [&] { EXPECT_THAT(page(), ElementsAre("N|||", "Z|ZERO||-")); });
}

TEST_F(frmvdSearchTest, ACallersInstructionReplacesTheFirstLine) {
    SearchDescription description = parts();
    description.Instruction = "Which part is it?";
    search(description, [&] {
        EXPECT_EQ(desk->text("lblInstructA"), "Which part is it?");
        desk->click("lblHCOL2");
        EXPECT_EQ(desk->text("lblInstructA"), "1. Enter the number of the item you are searching for.");
        desk->click("lblHCOL1");
        EXPECT_EQ(desk->text("lblInstructA"), "1. Type the first few characters you are looking for.");
    });
}

TEST_F(frmvdSearchTest, WithOneIndexNothingIsSaidOfOtherColumns) {
    SearchDescription description = parts();
    description.IndexList = "CODE";
    search(description, [&] { EXPECT_FALSE(desk->isShown("lblInstructC")); });
}

TEST_F(frmvdSearchTest, ADefaultColumnOrdersWithTheFirstTitleLit) {
    table.add({{"A", "A", "YELLOW"}, {"A", "B", "RED"}, {"A", "C", "GREEN"}});
    SearchDescription description = parts();
    description.DefaultColumn = 2;
    description.FormatList = "N|C|C|C";
    search(description, [&] {
        EXPECT_THAT(codes(), ElementsAre("C", "B", "A"));
        EXPECT_EQ(titleColor(0), lit);
        EXPECT_EQ(titleColor(1), searchable);
        EXPECT_EQ(desk->text("lblInstructA"), "1. Enter the number of the item you are searching for.");
        press(Qt::Key_Down);
        desk->click("lblHCOL1"); // is the order already
        EXPECT_EQ(highlight(), 1);
        EXPECT_EQ(titleColor(0), lit);
        desk->click("lblHCOL0");
        EXPECT_THAT(codes(), ElementsAre("A", "B", "C"));
        EXPECT_EQ(highlight(), 0);
        desk->click("lblHCOL1");
        EXPECT_EQ(titleColor(0), searchable);
        EXPECT_EQ(titleColor(1), lit);
        type("re");
        EXPECT_THAT(codes(), ElementsAre("B", "A", "End of List"));
    });
    description.FormatList = "C|C|C|C";
    description.DefaultColumn = 4; // has no index
    search(description, [&] { EXPECT_THAT(codes(), ElementsAre("A", "B", "C")); });
}

TEST_F(frmvdSearchTest, AColumnOfWidthZeroIsHiddenButSearchable) {
    table.add({{"A", "A", "YELLOW"}, {"A", "B", "RED"}, {"A", "C", "GREEN"}});
    SearchDescription description = parts();
    description.WidthList = "1000|0|900|0";
    description.DefaultColumn = 2;
    search(description, [&] {
        EXPECT_FALSE(desk->isShown("lblHCOL1"));
        EXPECT_FALSE(desk->isShown("lblCOL1(0)"));
        EXPECT_EQ(desk->control("lblHCOL2").x(), desk->control("lblCol2(0)").x());
        type("re");
        EXPECT_EQ(chosen(), "B|");
        EXPECT_THAT(codes(), ElementsAre("B", "A"));
    });
}

TEST_F(frmvdSearchTest, TheEndOfTheListIsSaidOneColumnToTheLeft) {
    addNumbered(2);
    search(parts(), [&] {
        EXPECT_THAT(page(), ElementsAre("P01|NAME 01|1.00|-", "P02|NAME 02|2.00|-"));
        desk->click("lblHCOL2");
        EXPECT_THAT(page(), ElementsAre("P01|NAME 01|1.00|-", "P02|NAME 02|2.00|-", "|End of List||"));
        desk->click("lblHCOL1");
        EXPECT_EQ(page().back(), "End of List|||");
        desk->click("lblHCOL0");
        EXPECT_EQ(page().size(), 2U);
    });
}

TEST_F(frmvdSearchTest, AnEmptyTableSaysSoOneColumnToTheLeft) {
    search(parts(), [&] {
        EXPECT_THAT(page(), IsEmpty());
        EXPECT_EQ(highlight(), 0);
        EXPECT_FALSE(desk->control("CmdSelect").isEnabled());
        desk->click("lblHCOL2");
        EXPECT_THAT(page(), ElementsAre("|No Items Found||"));
        type("1");
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home,
                                  Qt::Key_End, Qt::Key_Backspace})
            press(key);
        clickRow(0);
        EXPECT_THAT(page(), ElementsAre("|No Items Found||"));
        EXPECT_EQ(highlight(), 0);
        desk->keepPicture("search-nothing-found");
    });
    EXPECT_EQ(search(parts(), [&] { press(Qt::Key_Return); }), " ");
}

// ---------------------------------------------------------------- typing

TEST_F(frmvdSearchTest, FindsByTypingAndHandsBackTheRecord) {
    addNumbered(20);
    const std::string mark = search(parts(), [&] {
        type("P15");
        EXPECT_EQ(desk->text("lblSearch"), "p15");
        EXPECT_THAT(codes(), ElementsAre("P15", "P16", "P17", "P18", "P19", "P20"));
        EXPECT_EQ(highlight(), 0);
        desk->keepPicture("search-typed");
        press(Qt::Key_Return);
        EXPECT_FALSE(isOpen());
    });
    EXPECT_EQ(codeAt(mark), "P15");
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(frmvdSearchTest, TakesCapitalsSignsAndBlanksAsTheyAreTyped) {
    table.add({{"A", "A B?", "X"}, {"A", "A+1", "Y"}, {"A", "A-.", "Z"}});
    search(parts(), [&] {
        desk->press(Qt::Key_A, Qt::ShiftModifier);
        press(Qt::Key_Space);
        press(Qt::Key_B);
        desk->press(Qt::Key_Question, Qt::ShiftModifier);
        EXPECT_EQ(desk->text("lblSearch"), "A b?");
        EXPECT_EQ(chosen(), "A B?|X||");
        press(Qt::Key_Backspace, 3);
        desk->press(Qt::Key_Plus, Qt::ShiftModifier);
        EXPECT_EQ(desk->text("lblSearch"), "A+");
        EXPECT_EQ(chosen(), "A+1|Y||");
        press(Qt::Key_Backspace);
        press(Qt::Key_Insert); // their codes are those of the signs
        press(Qt::Key_Delete);
        EXPECT_EQ(desk->text("lblSearch"), "A-.");
        EXPECT_EQ(chosen(), "A-.|Z||");
        press(Qt::Key_F5);
        EXPECT_EQ(desk->text("lblSearch"), "A-.");
    });
}

TEST_F(frmvdSearchTest, NoMoreIsTypedThanTheColumnHolds) {
    addNumbered(3);
    takeBeeps();
    SearchDescription description = parts();
    description.SizeList = "2|40|6|20";
    search(description, [&] {
        type("p03 ");
        EXPECT_EQ(desk->text("lblSearch"), "p0");
        EXPECT_EQ(chosen(), "P01|NAME 01|1.00|-");
        desk->click("lblHCOL1");
        type("name 02");
        EXPECT_EQ(desk->text("lblSearch"), "name 02");
        EXPECT_EQ(chosen(), "P02|NAME 02|2.00|-");
    });
    EXPECT_EQ(takeBeeps(), 0);
}

TEST_F(frmvdSearchTest, BackspaceOnTheLastCharacterGoesToTheFirstRecord) {
    addNumbered(20);
    search(partsOf("A"), [&] {
        type("p15");
        press(Qt::Key_Backspace);
        EXPECT_EQ(desk->text("lblSearch"), "p1");
        EXPECT_EQ(codes().front(), "P10");
        press(Qt::Key_Backspace, 2);
        EXPECT_EQ(desk->text("lblSearch"), " ");
        EXPECT_EQ(codes().front(), "P01");
        EXPECT_EQ(highlight(), 0);
        press(Qt::Key_Down);
        press(Qt::Key_Backspace); // has nothing to take away
        EXPECT_EQ(highlight(), 1);
    });
}

TEST_F(frmvdSearchTest, ATextBehindAllRecordsLeavesPageAndHighlight) {
    addNumbered(20);
    addNumbered(20, "B");
    for (const SearchDescription& description : {parts(), partsOf("A")}) {
        search(description, [&] {
            press(Qt::Key_Down, 3);
            const std::vector<std::string> before = page();
            type("q");
            EXPECT_EQ(desk->text("lblSearch"), "q");
            EXPECT_EQ(page(), before);
            EXPECT_EQ(highlight(), 3);
            press(Qt::Key_End);
            press(Qt::Key_Down);
            type("r");
            EXPECT_EQ(codes(), (std::vector<std::string>{"P20"})) << "the end of the list has no text here";
            EXPECT_EQ(highlight(), 1);
            press(Qt::Key_Up);
            EXPECT_EQ(highlight(), 0);
        });
    }
}

TEST_F(frmvdSearchTest, ANumberIsTakenByItsLeadingDigits) {
    addNumbered(20);
    search(parts(), [&] {
        desk->click("lblHCOL2");
        EXPECT_EQ(desk->text("lblInstructA"), "1. Enter the number of the item you are searching for.");
        type("12x");
        EXPECT_EQ(desk->text("lblSearch"), "12x");
        EXPECT_EQ(chosen(), "P12|NAME 12|12.00|-");
        press(Qt::Key_Backspace, 3);
        type("1");
        press(Qt::Key_Period);
        type("5"); // rounds to the even number
        EXPECT_EQ(chosen(), "P02|NAME 02|2.00|-");
        press(Qt::Key_Backspace, 3);
        type("99999"); // beyond all but for its first digit
        EXPECT_EQ(codes().front(), "P09");
        press(Qt::Key_Backspace, 5);
        type("1e400");
        EXPECT_EQ(codes().front(), "P01");
    });
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(frmvdSearchTest, ATextThatIsNoKeyOfTheIndexIsNotFound) {
    addNumbered(5);
    SearchDescription description = parts();
    description.DefaultColumn = 3; // a number's index, but the first column's way of typing
    search(description, [&] {
        type("3");
        EXPECT_EQ(chosen(), "P03|NAME 03|3.00|-");
        type("x");
        EXPECT_EQ(chosen(), "P03|NAME 03|3.00|-");
    });
    description.IndexList = "|NAME";
    description.DefaultColumn = 0; // stored order
    search(description, [&] {
        type("p02");
        EXPECT_EQ(chosen(), "P01|NAME 01|1.00|-");
    });
    EXPECT_THAT(person.boxes, IsEmpty());
}

// ---------------------------------------------------------------- columns and keys

TEST_F(frmvdSearchTest, AColumnWithoutIndexIsNotSearched) {
    addNumbered(3);
    search(parts(), [&] {
        type("p02");
        desk->click("lblHCOL3");
        EXPECT_EQ(desk->text("lblSearch"), "p02");
        EXPECT_EQ(chosen(), "P02|NAME 02|2.00|-");
        EXPECT_EQ(titleColor(3), plain);
        EXPECT_EQ(desk->focus(), "hsbMAIN");
    });
    expectBox("There is no Search Available by Column: Remarks", QMessageBox::Information,
              "Search Not Available");
}

TEST_F(frmvdSearchTest, AnotherColumnBeginsANewSearch) {
    table.add({{"A", "A", "YELLOW"}, {"A", "B", "RED"}, {"A", "C", "GREEN"}});
    search(parts(), [&] {
        type("b");
        press(Qt::Key_Down);
        desk->click("lblHCOL1");
        EXPECT_EQ(desk->text("lblSearch"), "");
        EXPECT_THAT(codes(), ElementsAre("C", "B", "A", "End of List"));
        EXPECT_EQ(highlight(), 0);
        EXPECT_EQ(titleColor(0), searchable);
        EXPECT_EQ(titleColor(1), lit);
        EXPECT_EQ(desk->focus(), "hsbMAIN");
        type("r");
        press(Qt::Key_Down);
        desk->click("lblHCOL1"); // the same again
        EXPECT_EQ(desk->text("lblSearch"), "r");
        EXPECT_EQ(highlight(), 1);
    });
}

TEST_F(frmvdSearchTest, ListsAndFindsOnlyTheRowsOfItsKeys) {
    addNumbered(3, "A");
    addNumbered(30, "B");
    addNumbered(4, "C");
    search(partsOf("B"), [&] {
        EXPECT_EQ(page().size(), 12U);
        press(Qt::Key_End);
        EXPECT_THAT(codes(), ElementsAre("P30"));
        press(Qt::Key_PageUp);
        EXPECT_EQ(codes().front(), "P19");
        press(Qt::Key_Home);
        press(Qt::Key_Up);
        EXPECT_EQ(codes().front(), "P01");
        type("p31");
        EXPECT_EQ(codes().front(), "P30") << "the last letter is not found";
        desk->click("lblHCOL1");
        type("name 2");
        EXPECT_EQ(codes().front(), "P20");
    });
    search(partsOf("D"), [&] {
        EXPECT_THAT(page(), IsEmpty());
        EXPECT_FALSE(desk->control("CmdSelect").isEnabled());
        type("p");
        desk->click("lblHCOL1");
        EXPECT_THAT(page(), ElementsAre("No Items Found|||"));
    });
}

TEST_F(frmvdSearchTest, FourKeysListButCanNotBeTypedInto) {
    const TestTable wide("WIDE.MDB", "WIDE",
                         {{"K1", data::dbLong},
                          {"K2", data::dbLong},
                          {"K3", data::dbLong},
                          {"K4", data::dbLong},
                          {"CODE", data::dbText, 8}},
                         {{"KEYS", {"K1", "K2", "K3", "K4", "CODE"}}});
    wide.add({{0, 0, 0, 7, "A"}, {0, 0, 0, 7, "B"}, {0, 0, 0, 7, "C"}, {0, 0, 0, 8, "D"}});
    SearchDescription description{.DBName = "WIDE",
                                  .TableName = "WIDE",
                                  .IndexList = "KEYS",
                                  .FieldList = "CODE",
                                  .FormatList = "C",
                                  .SizeList = "8",
                                  .WidthList = "2000",
                                  .AlignList = "0",
                                  .KeyField1 = "K1",
                                  .KeyField2 = "K2",
                                  .KeyField3 = "K3",
                                  .KeyValue4 = 7,
                                  .KeyField4 = "K4"};
    search(description, [&] {
        EXPECT_THAT(page(), ElementsAre("A", "B", "C"));
        press(Qt::Key_End);
        EXPECT_THAT(page(), ElementsAre("C"));
        type("c");
        EXPECT_EQ(desk->text("lblSearch"), "c");
        EXPECT_THAT(page(), ElementsAre("A", "B", "C")) << "the table's first row is of these keys";
        EXPECT_EQ(highlight(), 0);
    });
    expectBox("Invalid Key Count in vdSearch", QMessageBox::Critical, "Error: vdSearch");
    description.KeyValue4 = 8;
    search(description, [&] {
        EXPECT_THAT(page(), ElementsAre("D"));
        press(Qt::Key_Down);
        type("d");
        EXPECT_EQ(highlight(), 1) << "the table's first row is not of these keys";
    });
    EXPECT_THAT(person.boxes, SizeIs(2));
}

// ---------------------------------------------------------------- moving

TEST_F(frmvdSearchTest, MovesByKeys) {
    addNumbered(40);
    search(parts(), [&] {
        press(Qt::Key_Down, 2);
        press(Qt::Key_Right);
        EXPECT_EQ(chosen(), "P04|NAME 04|4.00|-");
        press(Qt::Key_Up);
        press(Qt::Key_Left);
        EXPECT_EQ(highlight(), 1);
        press(Qt::Key_PageDown);
        EXPECT_EQ(codes().front(), "P12");
        EXPECT_EQ(chosen(), "P13|NAME 13|13.00|-");
        press(Qt::Key_PageUp);
        EXPECT_EQ(codes().front(), "P01");
        EXPECT_EQ(highlight(), 1);
        press(Qt::Key_Down, 11);
        EXPECT_EQ(codes().front(), "P02");
        EXPECT_EQ(highlight(), 11);
        press(Qt::Key_End);
        EXPECT_THAT(codes(), ElementsAre("P40"));
        press(Qt::Key_Down, 2);
        EXPECT_EQ(highlight(), 1);
        press(Qt::Key_PageUp);
        EXPECT_EQ(chosen(), "P29|NAME 29|29.00|-");
        press(Qt::Key_Home);
        EXPECT_EQ(chosen(), "P01|NAME 01|1.00|-");
        EXPECT_EQ(desk->text("lblSearch"), "");
    });
}

TEST_F(frmvdSearchTest, MovesByItsButtonsAndKeepsTheFocusInTheList) {
    addNumbered(40);
    search(parts(), [&] {
        const std::pair<const char*, const char*> clicks[] = {
            {"cmdVDBDNARROW", "P02"}, {"cmdVDBPGDN", "P13"}, {"cmdVDBUPARROW", "P12"},
            {"cmdVDBPGUP", "P01"},    {"cmdVDBEND", "P40"},  {"cmdVDBHOME", "P01"},
        };
        for (const auto& [button, code] : clicks) {
            desk->click(button);
            EXPECT_THAT(chosen(), testing::StartsWith(code)) << button;
            EXPECT_EQ(desk->focus(), "hsbMAIN");
        }
        press(Qt::Key_Tab);
        EXPECT_EQ(desk->focus(), "CmdSelect");
        type("p05"); // goes into the search wherever the focus is
        EXPECT_EQ(codes().front(), "P05");
        clickRow(2);
        EXPECT_EQ(desk->focus(), "hsbMAIN");
    });
}

// ---------------------------------------------------------------- the mouse

TEST_F(frmvdSearchTest, CanBeUsedWithTheMouseAlone) {
    addNumbered(40);
    const std::string mark = search(parts(), [&] {
        desk->click("lblHCOL1");
        desk->click("cmdVDBPGDN");
        clickRow(3, "lblCol3");
        EXPECT_EQ(chosen(), "P15|NAME 15|15.00|-");
        clickRow(3); // a second, slow click does nothing
        EXPECT_TRUE(isOpen());
        desk->click("CmdSelect");
        EXPECT_FALSE(isOpen());
    });
    EXPECT_EQ(codeAt(mark), "P15");
    const std::string action = search(parts(), [&] {
        clickRow(4);
        desk->click("cmdVDBACTION");
        EXPECT_FALSE(isOpen());
    });
    EXPECT_EQ(codeAt(action), "P05");
    EXPECT_EQ(search(parts(), [&] { desk->click("CmdCancel"); }), " ");
}

TEST_F(frmvdSearchTest, ADoubleClickSelectsTheRow) {
    addNumbered(5);
    for (const bool first : {false, true}) {
        const std::string mark = search(parts(), [&] {
            if (first)
                clickRow(3);
            desk->doubleClick("lblCol2(3)");
            EXPECT_FALSE(isOpen());
        });
        EXPECT_EQ(codeAt(mark), "P04");
    }
}

TEST_F(frmvdSearchTest, ClicksBehindTheLastRecordSelectNothing) {
    addNumbered(3);
    search(parts(), [&] {
        for (const char* title :
             {"lblHCOL0", "lblHCOL1", "lblHCOL2"}) { // the text stands elsewhere each time
            desk->click(title);
            press(Qt::Key_Down);
            for (const char* row : {"lblCOL0(3)", "lblCOL1(3)", "lblCOL0(7)"}) {
                desk->click(row);
                EXPECT_EQ(highlight(), 1) << title << row;
                desk->doubleClick(row);
                EXPECT_EQ(highlight(), 1) << title << row;
                ASSERT_TRUE(isOpen());
            }
            press(Qt::Key_End);
            press(Qt::Key_Down);
            desk->doubleClick("lblCOL0(1)"); // on the end of the list itself
            desk->click("cmdVDBACTION");
            ASSERT_TRUE(isOpen());
            EXPECT_EQ(highlight(), 1);
            press(Qt::Key_Up);
            EXPECT_EQ(chosen(), "P03|NAME 03|3.00|-");
        }
    });
}

// ---------------------------------------------------------------- ending

TEST_F(frmvdSearchTest, HandsBackABlankWhenNothingWasChosen) {
    addNumbered(2);
    const std::function<void()> endings[] = {
        [&] { desk->click("CmdCancel"); },
        [&] { press(Qt::Key_Escape); },
        [&] { desk->press(Qt::Key_C, Qt::AltModifier); },
        [&] {
            press(Qt::Key_Down, 2);
            press(Qt::Key_Return);
        },
        [&] {
            press(Qt::Key_Down, 2);
            desk->click("CmdSelect");
        },
    };
    for (const auto& end : endings) {
        EXPECT_EQ(search(parts(),
                         [&] {
                             end();
                             EXPECT_FALSE(isOpen());
                         }),
                  " ");
    }
    EXPECT_EQ(search(parts(), [] {}), " ") << "closed at its frame";
}

TEST_F(frmvdSearchTest, EnterSelectsAndOnAButtonPressesIt) {
    addNumbered(3);
    const auto selected = [&](const std::function<void()>& act) { return search(parts(), act); };
    EXPECT_EQ(codeAt(selected([&] {
                  press(Qt::Key_Down);
                  press(Qt::Key_Enter);
              })),
              "P02");
    EXPECT_EQ(codeAt(selected([&] { desk->press(Qt::Key_S, Qt::AltModifier); })), "P01");
    EXPECT_EQ(selected([&] {
                  press(Qt::Key_Tab, 2);
                  EXPECT_EQ(desk->focus(), "CmdCancel");
                  press(Qt::Key_Return);
              }),
              " ");
}

// ---------------------------------------------------------------- others

TEST_F(frmvdSearchTest, ARecordThatSomebodyHasDeletedIsNotHandedBack) {
    addNumbered(3);
    const std::string mark = search(parts(), [&] {
        press(Qt::Key_Down);
        table.remove("CODE", "P02");
        press(Qt::Key_Return);
        ASSERT_TRUE(isOpen());
        EXPECT_THAT(codes(), ElementsAre("P01", "P03"));
        EXPECT_EQ(highlight(), 0);
        press(Qt::Key_Return);
    });
    EXPECT_EQ(codeAt(mark), "P01");
}

TEST_F(frmvdSearchTest, ShowsItselfAfreshWhenItsRecordsAreGone) {
    addNumbered(3, "A");
    addNumbered(3, "B");
    search(partsOf("A"), [&] {
        desk->click("lblHCOL1");
        press(Qt::Key_Down);
        for (int part = 0; part < 3; ++part)
            table.remove("GRP", "A");
        press(Qt::Key_Down);
        EXPECT_THAT(page(), ElementsAre("No Items Found|||"));
        type("n");
        EXPECT_THAT(page(), ElementsAre("No Items Found|||"));
        addNumbered(2, "A");
        press(Qt::Key_Backspace);
        EXPECT_THAT(codes(), ElementsAre("P01", "P02", "End of List"));
        table.remove("GRP", "A");
        type("x"); // is not found, and neither is the highlighted record
        EXPECT_THAT(codes(), ElementsAre("P02", "End of List"));
    });
}

TEST_F(frmvdSearchTest, RecordsThatOthersAddAreFound) {
    addNumbered(3);
    search(parts(), [&] {
        table.add({{"A", "P021", "NEW", 1.0, "-"}});
        type("p021");
        EXPECT_THAT(codes(), ElementsAre("P021", "P03"));
        table.add({{"A", "P04", "LAST", 1.0, "-"}});
        type("x"); // keeps the highlight, and looks for the end again
        press(Qt::Key_End);
        EXPECT_THAT(codes(), ElementsAre("P04"));
    });
}

// ---------------------------------------------------------------- failures

TEST_F(frmvdSearchTest, ALoadThatFailsLeavesTheCancelButton) {
    addNumbered(3);
    const std::pair<std::string SearchDescription::*, const char*> wrong[] = {
        {&SearchDescription::DBName, "NONE"},
        {&SearchDescription::TableName, "NONE"},
        {&SearchDescription::IndexList, "NONE"},
        {&SearchDescription::FieldList, "NONE"},
        {&SearchDescription::FieldList, "CODE|NAME|NONE"},
        {&SearchDescription::KeyField1, "NONE"},
        {&SearchDescription::TitleList, "1|2|3|4|5|6|7"},
        {&SearchDescription::SizeList, "99999"},
    };
    const char* numbers[] = {"3024", "3078", "3015", "3265", "3265", "3265", "9", "6"};
    for (std::size_t i = 0; i < std::size(wrong); ++i) {
        SearchDescription description = parts();
        description.*wrong[i].first = wrong[i].second;
        person.boxes.clear();
        EXPECT_EQ(search(description,
                         [&] {
                             for (const QWidget* control :
                                  desk->control("CmdCancel")
                                      .parentWidget()
                                      ->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
                                 EXPECT_EQ(control->isVisible(), control->objectName() == "CmdCancel")
                                     << control->objectName().toStdString();
                             type("p");
                             press(Qt::Key_Down);
                             if (i % 2 == 0)
                                 press(Qt::Key_Escape);
                             else
                                 desk->click("CmdCancel");
                             EXPECT_FALSE(isOpen());
                         }),
                  " ");
        ASSERT_THAT(person.boxes, SizeIs(1));
        EXPECT_EQ(person.boxes[0].title, "Error Displaying Form");
        EXPECT_THAT(person.boxes[0].text, HasSubstr("Error Loading Form: frmvdSearch"));
        EXPECT_THAT(person.boxes[0].text, HasSubstr(std::string("Error Number: ") + numbers[i]));
    }
}

TEST_F(frmvdSearchTest, AWindowThatCanNotEvenTellItsErrorIsNotOpened) {
    TestHost silent;
    silent.onBox = [](const Box& box) {
        if (box.title == "Error Displaying Form")
            runtime::raise(runtime::errDiskFull);
    };
    SearchDescription description = parts();
    description.DBName = "NONE";
    EXPECT_EQ(vdSearch(description), " ");
    ASSERT_THAT(silent.boxes, SizeIs(2));
    EXPECT_EQ(silent.boxes[1].text, "Error Opening Window vdSearch");
    EXPECT_EQ(silent.boxes[1].title, "Error: vdSearch");
    EXPECT_EQ(silent.boxes[1].style.icon, runtime::MsgIcon::Critical);
    EXPECT_FALSE(isOpen());
}

} // namespace
} // namespace tol::test
