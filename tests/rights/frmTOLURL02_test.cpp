// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "../search_print/document/Drawn.h"
#include "AssignedItemsTest.h"
#include "data/DBEngine.h"
#include "forms/windows/LoadedForms.h"
#include "runtime/Text.h"
#include "search_print/ReportWindow.h"
#include "support/ModalPerson.h"
#include "support/ReportReader.h"

#include <QTimer>

#include <algorithm>
#include <fmt/ranges.h>

namespace tol::test {
namespace {

using runtime::Null;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using Row = TestTable::Row;

constexpr std::int32_t byHand = 0;
const std::string eight(8, '?');

class UserRights : public AssignedItemsTest {
  protected:
    UserRights() : AssignedItemsTest({"UAICODE", "DESC", "ALLOWED", "URTCODE"}) {
        net.templateItems.add({{clerk, accounts, true}, {clerk, bills, false}, {driver, cars, true}});
    }

    void open(const std::string& name = "anna") { openFor(rights::userRights, name); }
    void openWith(const std::vector<Row>& rights) {
        net.rights.add(rights);
        open();
    }
    [[nodiscard]] std::vector<std::string> stored() const { return net.rights.rows(); }
    /// Presses the button and enters the code in the window that comes up.
    void fillFrom(const QString& code) {
        const ModalPerson dialogs("frmTOLURL05", [&](const WindowDriver& dialog) {
            dialog.type(code);
            dialog.click("cmdOK");
            if (dialog.isShown("cmdCancel"))
                dialog.click("cmdCancel");
        });
        desk->click("cmdURTFill");
        EXPECT_EQ(dialogs.windows, 1);
    }
    const std::vector<Row> ofClerk = {{anna, accounts, true, clerk}, {anna, bills, false, clerk}};
};

// The list, where it differs from that of a template.

TEST_F(UserRights, ShowsTheRightsOfItsUserAndWhereTheyCameFrom) {
    openWith({{anna, bills, false, clerk},
              {anna, accounts, true, byHand},
              {anna, cars, true, Null{}},
              {anna, gone, true, 77},
              {berta, cars, true, driver}});
    EXPECT_EQ(window->windowTitle(), "Assign User Rights ");
    EXPECT_THAT(page(),
                ElementsAre("ACCOUNTS|All accounts|Yes| ", "BILLS|Bills to pay|No|CLERK",
                            "CARS|Cars and vans|Yes| ", eight + "|" + std::string(30, '?') + "|Yes|" + eight,
                            " |End of List.| | "));
    const std::pair<const char*, const char*> labels[] = {
        {"lblHMODULE", "User Name:"}, {"lblUSERNAME", "anna"},     {"lblHREMARKS", "Remarks:"},
        {"lblREMARKS", "Room 3"},     {"lblHUAICODE", "UAI Code"}, {"lblHDESC", " Description"},
        {"lblHALLOWED", "Allowed?"},  {"lblHURTCODE", "URT Code"}};
    for (const auto& [name, text] : labels)
        EXPECT_EQ(desk->text(name), text) << name;
    EXPECT_EQ(desk->text("cmdURTFill"), "&Fill from a URT");
    EXPECT_EQ(desk->control("cmdURTFill").toolTip(), "Add Items by Selecting a User Rights Template");
    desk->keepPicture("user-rights");
}

TEST_F(UserRights, AnAddedRowCountsAsEnteredByHand) {
    open();
    desk->press(Qt::Key_A);
    desk->type("cars");
    desk->click("txtALLOWED");
    desk->type("y");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(stored(), ElementsAre("1|12|True|Null"));
    EXPECT_THAT(page(), ElementsAre("CARS|Cars and vans|Yes| ", " |End of List.| | "));
}

TEST_F(UserRights, AnEditedRowKeepsItsTemplate) {
    openWith({{anna, bills, false, clerk}});
    desk->press(Qt::Key_E);
    desk->type("cars");
    desk->click("txtALLOWED");
    desk->type("y");
    desk->click("cmdUpdate");
    EXPECT_THAT(stored(), ElementsAre("1|12|True|5"));
    EXPECT_THAT(page(), ElementsAre("CARS|Cars and vans|Yes|CLERK", " |End of List.| | "));
}

TEST_F(UserRights, ADeleteAsksAsForATemplateAndStaysWithItsUser) {
    openWith({{anna, bills, false, clerk}, {berta, cars, true, driver}});
    desk->press(Qt::Key_D);
    expectBox("OK to Delete URT Item: BILLS - Bills to pay?", QMessageBox::Question, "Confirm Delete");
    EXPECT_THAT(page(), ElementsAre(" |List is Empty.| | "));
    EXPECT_THAT(stored(), ElementsAre("2|12|True|6"));
}

TEST_F(UserRights, NullsAreBlankValues) {
    net.users.add({{8, "nulls", Null{}, Null{}}});
    net.rights.add({{8, Null{}, Null{}, Null{}}, {Null{}, cars, true, clerk}});
    open("nulls");
    EXPECT_EQ(desk->text("lblREMARKS"), runtime::space(40));
    EXPECT_THAT(page(), ElementsAre(eight + "|" + std::string(30, '?') + "|No| ", " |End of List.| | "));
}

TEST_F(UserRights, PrintOpensTheReport) {
    openWith({{anna, accounts, true, byHand}, {anna, bills, false, clerk}, {berta, cars, true, driver}});
    const ReportReader reader([](search_print::ReportWindow& report) {
        EXPECT_EQ(report.objectName(), "frmTOLURL04");
        EXPECT_THAT(textsOf(report.printer()), IsSupersetOf({"ACCOUNTS", "BILLS", "Yes", "No"}));
        EXPECT_THAT(textsOf(report.printer()), testing::Contains(testing::EndsWith("anna")));
        EXPECT_THAT(textsOf(report.printer()), testing::Contains(testing::EndsWith("Room 3")));
    });
    desk->press(Qt::Key_Down);
    desk->press(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(reader.reports, 1);
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    desk->press(Qt::Key_Down);
    desk->click("cmdPrint");
    EXPECT_EQ(reader.reports, 1) << "not without a current record";
}

// The fill.

TEST_F(UserRights, AFillReplacesTheRowsOfItsTemplateAndNoOthers) {
    openWith({{anna, cars, true, clerk}, {anna, accounts, false, byHand}, {berta, cars, true, clerk}});
    desk->press(Qt::Key_Down);
    fillFrom("clerk");
    EXPECT_THAT(stored(), ElementsAre("1|10|False|0", "1|10|True|5", "1|11|False|5", "2|12|True|5"));
    EXPECT_THAT(page(), ElementsAre("ACCOUNTS|All accounts|No| ", "ACCOUNTS|All accounts|Yes|CLERK",
                                    "BILLS|Bills to pay|No|CLERK", " |End of List.| | "));
    EXPECT_EQ(highlight(), 0) << "the list begins from the start";
    EXPECT_EQ(desk->focus(), "hsbMAIN");
    EXPECT_THAT(person.boxes, IsEmpty()) << "no message follows";
    desk->keepPicture("user-rights-filled");
    fillFrom("clerk");
    EXPECT_THAT(stored(), ElementsAre("1|10|False|0", "1|10|True|5", "1|11|False|5", "2|12|True|5"));
}

TEST_F(UserRights, AFillFromAnEmptyTemplateClearsWhatCameFromIt) {
    net.templates.add({{7, "EMPTY", "Nothing"}});
    openWith({{anna, cars, true, 7}});
    fillFrom("empty");
    EXPECT_THAT(stored(), IsEmpty());
    EXPECT_THAT(page(), ElementsAre(" |List is Empty.| | "));
}

TEST_F(UserRights, ATemplateThatIsGoneCannotBeFilledFrom) {
    openWith({{anna, cars, true, clerk}});
    net.templates.remove("URTCODE", "CLERK");
    fillFrom("clerk");
    expectBox("Cannot Find User Rights Template Code: CLERK", QMessageBox::Critical, "Invalid Item");
    EXPECT_THAT(stored(), ElementsAre("1|12|True|5"));
    EXPECT_THAT(page(), ElementsAre("CARS|Cars and vans|Yes|" + eight, " |End of List.| | "));
}

TEST_F(UserRights, WithoutAChosenTemplateNothingChanges) {
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        openWith({{anna, cars, true, clerk}});
        const ModalPerson dialogs("frmTOLURL05", [&](const WindowDriver& dialog) {
            dialog.type("clerk");
            dialog.control("cmdCancel").setFocus();
            dialog.press(key);
        });
        desk->press(Qt::Key_F, Qt::AltModifier);
        EXPECT_EQ(dialogs.windows, 1);
        EXPECT_THAT(stored(), ElementsAre("1|12|True|5"));
        EXPECT_EQ(highlight(), 0);
        window->unload();
        net.rights.remove("UAITAG", cars);
    }
}

class LongFill : public UserRights {
  protected:
    static constexpr int items = 2'000;

    LongFill() {
        std::vector<Row> rows;
        rows.reserve(items);
        for (int item = 0; item < items; ++item)
            rows.push_back({driver, 1000 + item, true});
        net.templateItems.add(rows);
    }
    /// Fills from the long template while the person acts, once, at the first yield of the fill.
    void fillWhile(const std::function<void()>& acts) {
        QTimer::singleShot(0, [this, &acts] { actInFill(acts); });
        fillFrom("driver");
    }
    /// Rows of the fill so far.
    [[nodiscard]] std::size_t filled() const { return stored().size(); }

  private:
    void actInFill(const std::function<void()>& acts) {
        if (std::ranges::count(stored(), "1|12|True|6") == 0)
            QTimer::singleShot(0, [this, &acts] { actInFill(acts); });
        else
            acts();
    }
};

TEST_F(LongFill, CmdExitOnlyStopsIt) {
    open();
    fillWhile([&] {
        desk->click("cmdExit");
        EXPECT_TRUE(window->isVisible());
    });
    EXPECT_TRUE(window->isVisible());
    EXPECT_GT(filled(), 0U);
    EXPECT_LT(filled(), static_cast<std::size_t>(items)) << "what was written so far stays";
    EXPECT_EQ(page().size(), std::min<std::size_t>(filled() + 1, 7)) << "and is shown";
    fillFrom("driver");
    EXPECT_EQ(filled(), items + 1U) << "and the next one is whole";
    desk->press(Qt::Key_X);
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
}

TEST_F(LongFill, TheCloseButtonOfTheFrameStopsItAndClosesTheWindow) {
    open();
    fillWhile([&] { window->close(); });
    EXPECT_EQ(forms::LoadedForms::Count(), 0);
    EXPECT_GT(filled(), 0U);
    EXPECT_LT(filled(), static_cast<std::size_t>(items));
}

TEST_F(LongFill, CannotBeBegunTwice) {
    open();
    int dialogs = 0;
    fillWhile([&] {
        const ModalPerson second("frmTOLURL05",
                                 [](const WindowDriver& dialog) { dialog.click("cmdCancel"); });
        desk->click("cmdURTFill");
        dialogs = second.windows;
    });
    EXPECT_EQ(dialogs, 0);
    EXPECT_EQ(filled(), items + 1U);
}

TEST_F(LongFill, TheListMayBeUsedMeanwhile) {
    openWith({{anna, 1, true, byHand}, {anna, 2, true, driver}, {anna, 3, true, byHand}});
    fillWhile([&] {
        for (const Qt::Key key : {Qt::Key_End, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_PageDown})
            desk->press(key);
        desk->press(Qt::Key_Home);
        desk->press(Qt::Key_D);
    });
    EXPECT_EQ(filled(), items + 2U) << "one was deleted, one replaced";
    EXPECT_EQ(highlight(), 0);
}

TEST_F(LongFill, ACancelMeanwhileEndsTheEditAndNotTheFill) {
    openWith({{anna, 1, true, byHand}});
    desk->press(Qt::Key_E);
    fillWhile([&] {
        desk->click("cmdExit");
        EXPECT_FALSE(isEditing());
    });
    EXPECT_EQ(filled(), items + 2U);
}

// A fill in an edit.

TEST_F(UserRights, AFillInAnAddRepaintsTheListAndLeavesTheAdd) {
    openWith({{anna, cars, true, byHand}});
    desk->press(Qt::Key_A);
    desk->type("cars");
    fillFrom("clerk");
    EXPECT_TRUE(isEditing());
    EXPECT_EQ(desk->text("txtUAICODE"), "cars");
    EXPECT_THAT(page(), ElementsAre("ACCOUNTS|All accounts|Yes|CLERK", "BILLS|Bills to pay|No|CLERK",
                                    "CARS|Cars and vans|Yes| ", " |End of List.| | "));
    desk->keepPicture("user-rights-filled-in-an-add");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(stored(), ElementsAre("1|10|True|5", "1|11|False|5", "1|12|True|0", "1|12|False|Null"));
}

TEST_F(UserRights, AFillInAnEditLeavesTheRecordThatIsEdited) {
    openWith({{anna, cars, true, byHand}});
    desk->click("lblALLOWED(0)");
    desk->type("n");
    fillFrom("clerk");
    EXPECT_TRUE(isEditing());
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(stored(), ElementsAre("1|10|True|5", "1|11|False|5", "1|12|False|0"));
    EXPECT_THAT(person.boxes, IsEmpty());
}

TEST_F(UserRights, ARecordThatAFillReplacedIsAddedByAnotherUpdate) {
    openWith({{anna, cars, true, clerk}});
    desk->click("lblALLOWED(0)");
    desk->type("n");
    fillFrom("clerk");
    desk->press(Qt::Key_U, Qt::AltModifier);
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_THAT(stored(), ElementsAre("1|10|True|5", "1|11|False|5"));
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(stored(), ElementsAre("1|10|True|5", "1|11|False|5", "1|12|False|Null"));
}

// A unique index, as a delivered database may have one.

class UniqueRights : public UserRights {
  protected:
    UniqueRights() {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database database = workspace.OpenDatabase(NetworkTables::file);
        data::TableDef table = database.TableDefs("USERRIGHTS");
        data::Index once = table.CreateIndex("ONCE");
        once.Unique(true);
        once.Fields().Append(once.CreateField("USERTAG"));
        once.Fields().Append(once.CreateField("UAITAG"));
        table.Indexes().Append(once);
    }
};

TEST_F(UniqueRights, ThatRefusesARowIsNamedAndTheEditGoesOn) {
    openWith({{anna, accounts, true, byHand}});
    desk->press(Qt::Key_A);
    desk->type("accounts");
    desk->press(Qt::Key_U, Qt::AltModifier);
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, "Cannot Update Record");
    EXPECT_THAT(person.boxes[0].text, testing::HasSubstr("'ONCE'"));
    EXPECT_TRUE(isEditing());
    desk->type("cars");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(stored(), ElementsAre("1|10|True|0", "1|12|False|Null"));
}

class UniqueRightsDeathTest : public UniqueRights {};

// What was written before stays, and is stored before the box waits for an answer.
TEST_F(UniqueRightsDeathTest, AFillThatFailsIsToldAndEndsTheProgram) {
    const auto run = [this] {
        openWith({{anna, bills, true, byHand}, {anna, cars, true, clerk}});
        person.onBox = [&](QMessageBox& box) {
            fmt::print(stderr, "[{}|{}] {}", box.windowTitle().toStdString(), box.text().toStdString(),
                       fmt::join(stored(), ", "));
            box.close();
        };
        fillFrom("clerk");
        fmt::print(stderr, "still running");
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(1),
                R"(^\[Tolvane Module\|Run-time error '3022':.*'ONCE'.*\] 1\|10\|True\|5, 1\|11\|True\|0$)");
}

TEST_F(UserRights, UnloadClosesWhatWasOpened) {
    open();
    fillFrom("clerk");
    window->unload();
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase(NetworkTables::file);
    for (const char* table : {"USERRIGHTS", "USERLIST", "URTEMPLATES", "URTITEMS", "USERACCESSITEMS"})
        EXPECT_NO_THROW(database.TableDefs().Delete(table)) << table;
}

} // namespace
} // namespace tol::test
