// SPDX-License-Identifier: MIT
// The windows over the network database when it is not as they need it: each tells so at its Load, and
// nothing is left on it but the button that closes it.
#include "NetworkListTest.h"
#include "data/DBEngine.h"
#include "forms/controls/ListBox.h"
#include "forms/windows/LoadedForms.h"
#include "rights/frmTOLMOD01.h"
#include "rights/frmTOLMODSEL.h"
#include "rights/frmTOLUAI01.h"
#include "rights/frmTOLURL01.h"
#include "rights/frmTOLURT01.h"
#include "support/SecondProcess.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <sqlite3.h>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct WindowOverNetwork {
    const char* name;
    std::unique_ptr<forms::Form> (*make)();
    const char* exit; ///< the button that closes it
    /// Tables whose fields are needed at Load, and what their lack is: an index (3015) or a field (3265).
    std::vector<std::pair<const char*, const char*>> filled;
    std::vector<const char*> kept; ///< tables that are opened for later
};

template <typename Window>
std::unique_ptr<forms::Form> make() {
    return std::make_unique<Window>("");
}

const std::vector<WindowOverNetwork> windows = {
    {"frmTOLMOD01", make<rights::frmTOLMOD01>, "cmdExit", {{"MODULES", "3015"}}, {}},
    {"frmTOLMODSEL",
     make<rights::frmTOLMODSEL>,
     "cmdCancel",
     {{"MODULES", "3015"}, {"NETSETTINGS", "3265"}},
     {}},
    {"frmTOLUAI01",
     make<rights::frmTOLUAI01>,
     "cmdExit",
     {{"USERACCESSITEMS", "3265"}, {"MODULES", "3015"}, {"NETSETTINGS", "3265"}},
     {"NETTAGS"}},
    {"frmTOLURT01", make<rights::frmTOLURT01>, "cmdExit", {{"URTEMPLATES", "3015"}}, {"URTITEMS", "NETTAGS"}},
    {"frmTOLURL01", make<rights::frmTOLURL01>, "cmdExit", {{"USERLIST", "3015"}}, {"USERRIGHTS", "NETTAGS"}},
};

void PrintTo(const WindowOverNetwork& window, std::ostream* out) {
    *out << window.name;
}

class NetworkLoad : public NetworkListTest, public testing::WithParamInterface<WindowOverNetwork> {
  protected:
    NetworkLoad() : NetworkListTest({}) {
        net.modules.add({{"PAY", "Payroll"}});
        net.accessItems.add({{1, "PAY", "RUN", "Run the payroll", "FRMRUN"}});
        net.templates.add({{1, "BOSS", "May do all"}});
        net.users.add({{1, "adams", "", true}});
        net.settings.add({{"PAY"}});
    }

    void open() { show(GetParam().make()); }
    static void deleteTable(const char* table) {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        workspace.OpenDatabase(NetworkTables::file).TableDefs().Delete(table);
    }
    void expectLoadError(const std::string& number, const std::string& part) {
        ASSERT_FALSE(person.boxes.empty());
        const SeenBox& box = person.boxes.back();
        EXPECT_EQ(box.title, "Error Displaying Form");
        EXPECT_EQ(box.icon, QMessageBox::Critical);
        EXPECT_THAT(box.text, testing::StartsWith(fmt::format(
                                  "Error Loading Form: {}\n\nError Number: {}\n\nError Description: ",
                                  GetParam().name, number)));
        EXPECT_THAT(box.text, HasSubstr(part));
        for (const QWidget* control : window->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            EXPECT_EQ(control->isVisible(), control->objectName() == GetParam().exit)
                << control->objectName().toStdString();
        const auto boxes = person.boxes.size();
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_A, Qt::Key_D, Qt::Key_E, Qt::Key_End})
            desk->press(key);
        EXPECT_EQ(person.boxes.size(), boxes);
        desk->click(GetParam().exit);
        EXPECT_EQ(forms::LoadedForms::Count(), 0);
        person.boxes.clear();
    }
};

TEST_P(NetworkLoad, TellsThatTheDatabaseIsMissing) {
    std::filesystem::remove(NetworkTables::file);
    open();
    ASSERT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes[0].title, "Cannot Access");
    EXPECT_THAT(person.boxes[0].text, HasSubstr("Cannot Find the Database: "));
    const bool looksItself = std::string(GetParam().name) == "frmTOLURL01";
    expectLoadError(looksItself ? "0" : "3024",
                    looksItself ? "Invalid Network Database Location Detected." : "ERROR");
    EXPECT_FALSE(std::filesystem::exists(NetworkTables::file));
}

TEST_P(NetworkLoad, TellsThatTheDatabaseIsDamaged) {
    folder.write(NetworkTables::file, std::string(9000, 'x'));
    open();
    ASSERT_EQ(person.boxes.size(), 1U);
    expectLoadError("3343", NetworkTables::file);
}

TEST_P(NetworkLoad, TellsThatAnotherProcessHoldsTheDatabase) {
    SecondProcess other([](const SecondProcess::Steps& steps) {
        sqlite3* file = nullptr;
        sqlite3_open(NetworkTables::file, &file);
        sqlite3_exec(file, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
        steps.done();
        steps.wait();
        sqlite3_close(file);
    });
    ASSERT_TRUE(other.await());
    open();
    ASSERT_EQ(person.boxes.size(), 1U);
    expectLoadError("3218", NetworkTables::file);
    other.next();
    EXPECT_EQ(other.finish(), 0);
    open();
    EXPECT_THAT(person.boxes, IsEmpty()) << "it opens as soon as the other one is done";
}

TEST_P(NetworkLoad, TellsWhichTableIsMissing) {
    std::vector<const char*> tables = GetParam().kept;
    for (const auto& [table, lack] : GetParam().filled)
        tables.push_back(table);
    std::filesystem::copy(NetworkTables::file, "whole");
    for (const char* table : tables) {
        SCOPED_TRACE(table);
        std::filesystem::copy("whole", NetworkTables::file,
                              std::filesystem::copy_options::overwrite_existing);
        deleteTable(table);
        open();
        ASSERT_EQ(person.boxes.size(), 1U);
        expectLoadError("3078", fmt::format("'{}'", table));
    }
}

TEST_P(NetworkLoad, TellsThatATableLacksItsFields) {
    std::filesystem::copy(NetworkTables::file, "whole");
    for (const auto& [table, lack] : GetParam().filled) {
        SCOPED_TRACE(table);
        std::filesystem::copy("whole", NetworkTables::file,
                              std::filesystem::copy_options::overwrite_existing);
        deleteTable(table);
        const TestTable strange{NetworkTables::file, table, {{"STRANGE", data::dbText, 9}}};
        strange.add({{"row"}});
        open();
        ASSERT_EQ(person.boxes.size(), 1U);
        expectLoadError(lack, "");
    }
}

// What is only written to is not looked at before.
TEST_P(NetworkLoad, OpensWithoutTheFieldsThatAreNeededLater) {
    for (const char* table : GetParam().kept) {
        deleteTable(table);
        const TestTable strange{NetworkTables::file, table, {{"STRANGE", data::dbText, 9}}};
    }
    open();
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_TRUE(desk->isShown(GetParam().exit));
}

INSTANTIATE_TEST_SUITE_P(Each, NetworkLoad, testing::ValuesIn(windows),
                         [](const auto& window) { return window.param.name; });

// A table that has its index but not what the rows show.

class FieldsMissing : public NetworkListTest {
  protected:
    FieldsMissing() : NetworkListTest({}) { std::filesystem::remove(NetworkTables::file); }

    void expectFieldMissed(std::unique_ptr<forms::Form> made) {
        show(std::move(made));
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_THAT(person.boxes[0].text, HasSubstr("Error Number: 3265"));
        expectOnlyTheExitButton();
    }
};

TEST_F(FieldsMissing, OfAUser) {
    const TestTable users(NetworkTables::file, "USERLIST",
                          {{"USERTAG", data::dbLong}, {"UserName", data::dbText, 20}},
                          {{"USERNAME", {"UserName"}}});
    const TestTable rights(NetworkTables::file, "USERRIGHTS", {{"USERTAG", data::dbLong}});
    const TestTable tags(NetworkTables::file, "NETTAGS", {{"USERTAG", data::dbLong}});
    users.add({{1, "adams"}});
    expectFieldMissed(make<rights::frmTOLURL01>());
}

TEST_F(FieldsMissing, OfATemplate) {
    const TestTable templates(NetworkTables::file, "URTEMPLATES", {{"URTCODE", data::dbText, 8}},
                              {{"URTCODE", {"URTCODE"}}});
    const TestTable items(NetworkTables::file, "URTITEMS", {{"URTTAG", data::dbLong}});
    const TestTable tags(NetworkTables::file, "NETTAGS", {{"URTTAG", data::dbLong}});
    templates.add({{"BOSS"}});
    expectFieldMissed(make<rights::frmTOLURT01>());
}

TEST_F(FieldsMissing, OfAnItemAndOfAModule) {
    const TestTable items(NetworkTables::file, "USERACCESSITEMS",
                          {{"MODULEID", data::dbText, 3}, {"UAICODE", data::dbText, 8}},
                          {{"USERACCESSITEMS", {"MODULEID", "UAICODE"}}});
    const TestTable modules(NetworkTables::file, "MODULES", {{"MODULEID", data::dbText, 3}},
                            {{"MODULES", {"MODULEID"}}});
    const TestTable settings(NetworkTables::file, "NETSETTINGS", {{"MODULEID", data::dbText, 3}});
    const TestTable tags(NetworkTables::file, "NETTAGS", {{"UAITAG", data::dbLong}});
    items.add({{"PAY", "RUN"}});
    settings.add({{"PAY"}});
    expectFieldMissed(make<rights::frmTOLUAI01>());
    modules.add({{"PAY"}});
    person.boxes.clear();
    expectFieldMissed(make<rights::frmTOLUAI01>());
    person.boxes.clear();
    expectFieldMissed(make<rights::frmTOLMOD01>());
}

// Null in every field of every table.

class AllNull : public NetworkListTest {
  protected:
    AllNull() : AllNull(std::vector<QString>{}) {}
    explicit AllNull(std::vector<QString> columns, std::vector<QString> boxes = {})
        : NetworkListTest(std::move(columns), std::move(boxes)) {
        for (const TestTable* table : {&net.modules, &net.accessItems, &net.templates, &net.templateItems,
                                       &net.users, &net.rights, &net.tags, &net.settings, &net.locks})
            table->add({{}});
    }
    /// What a text field of that size says.
    static std::string blanks(std::size_t size) { return std::string(size, ' '); }
};

class NullUsers : public AllNull {
  protected:
    NullUsers() : AllNull({"USERTAG", "USERNAME", "REMARKS", "ADMIN"}, {"USERNAME", "REMARKS", "ADMIN"}) {
        show(make<rights::frmTOLURL01>());
    }
};

TEST_F(NullUsers, AreShownEditedAndDeleted) {
    EXPECT_EQ(desk->text("lblUSERTAG(0)"), "0");
    EXPECT_EQ(desk->text("lblUSERNAME(0)"), blanks(20));
    EXPECT_EQ(desk->text("lblADMIN(0)"), "No");
    EXPECT_EQ(desk->text("lblREMARKS(1)"), "End of List.");
    desk->press(Qt::Key_E);
    desk->type("adams");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(net.users.rows(), ElementsAre("Null|adams|" + blanks(40) + "|False"));
    desk->press(Qt::Key_A);
    desk->type("baker");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(net.users.rows(), testing::Contains("0|baker|" + blanks(40) + "|False")) << "the first tag";
    EXPECT_THAT(net.tags.rows(), ElementsAre("Null|Null|1"));
    EXPECT_THAT(person.boxes, IsEmpty());
    desk->press(Qt::Key_Home);
    desk->press(Qt::Key_D);
    EXPECT_EQ(net.users.rows().size(), 1U);
}

class NullTemplates : public AllNull {
  protected:
    NullTemplates() : AllNull({"URTCODE", "URTNAME"}) { show(make<rights::frmTOLURT01>()); }
};

TEST_F(NullTemplates, AreShownEditedAndDeleted) {
    EXPECT_EQ(desk->text("lblURTNAME(0)"), blanks(50));
    EXPECT_EQ(desk->text("lblURTNAME(1)"), "End of List.");
    desk->press(Qt::Key_E);
    desk->type("boss");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(net.templates.rows(), ElementsAre("Null|BOSS|" + blanks(50)));
    desk->press(Qt::Key_D);
    EXPECT_THAT(net.templates.rows(), IsEmpty());
}

TEST_F(AllNull, NoModuleIsSelectedForTheItems) {
    show(make<rights::frmTOLUAI01>());
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_EQ(desk->text("lblDESC(0)"), "Select A Module First.");
}

TEST_F(AllNull, AModuleIsListedAndEdited) {
    show(make<rights::frmTOLMOD01>());
    EXPECT_EQ(desk->text("lblMODULENAME(0)"), blanks(50));
    desk->press(Qt::Key_E);
    desk->type("pay");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(person.boxes, IsEmpty());
    EXPECT_THAT(net.modules.rows(), ElementsAre("PAY|" + blanks(50)));
}

TEST_F(AllNull, AModuleWithoutACodeIsNotPicked) {
    show(make<rights::frmTOLMODSEL>());
    EXPECT_EQ(desk->control<forms::ListBox>("lstMODULEID").ListCount(), 1);
    desk->click("cmdSelect");
    expectBox("Invalid Module Selected", QMessageBox::Critical, "Invalid Module");
}

class NullItem : public AllNull {
  protected:
    NullItem() : AllNull({"UAICODE", "DESC", "FORMNAME"}) {
        net.accessItems.change("MODULEID", runtime::Null{}, "PAY");
        net.settings.change("MODULEID", runtime::Null{}, "PAY");
        show(make<rights::frmTOLUAI01>());
    }
};

TEST_F(NullItem, IsShownEditedAndDeleted) {
    EXPECT_EQ(desk->text("lblMODULENAME"), "Module Not Found");
    EXPECT_EQ(desk->text("lblDESC(0)"), blanks(50));
    EXPECT_EQ(desk->text("lblDESC(1)"), "End of List.");
    desk->press(Qt::Key_E);
    desk->type("run");
    desk->press(Qt::Key_U, Qt::AltModifier);
    EXPECT_THAT(net.accessItems.rows(), ElementsAre("Null|PAY|RUN|" + blanks(50) + "|" + blanks(16)));
    desk->press(Qt::Key_D);
    EXPECT_THAT(net.accessItems.rows(), IsEmpty());
}

} // namespace
} // namespace tol::test
