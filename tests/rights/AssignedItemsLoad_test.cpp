// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include "AssignedItemsTest.h"
#include "data/DBEngine.h"
#include "forms/windows/LoadedForms.h"
#include "support/SecondProcess.h"

#include <filesystem>
#include <sqlite3.h>

namespace tol::test {
namespace {

using testing::HasSubstr;

struct Case {
    const rights::ItemsOwner* owner;
    const char* code;
    std::vector<const char*> tables; ///< that Load opens
};

/// What keeps either window from its Load: told in a box, and nothing but the exit button is left.
class AssignedItemsLoad : public AssignedItemsTest, public testing::WithParamInterface<Case> {
  protected:
    AssignedItemsLoad() : AssignedItemsTest({"UAICODE", "DESC", "ALLOWED"}) {
        net.templateItems.add({{clerk, cars, true}});
        net.rights.add({{anna, cars, true, clerk}});
    }

    void openWithMark() { show(std::make_unique<rights::AssignedItems>(*GetParam().owner, "", m_mark)); }
    static void alter(const std::function<void(data::Database&)>& change) {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database database = workspace.OpenDatabase(NetworkTables::file);
        change(database);
    }
    void expectFailure(int number) {
        ASSERT_FALSE(person.boxes.empty());
        EXPECT_EQ(person.boxes.back().title, "Error Displaying Form");
        EXPECT_THAT(person.boxes.back().text,
                    HasSubstr(std::string("Error Loading Form: ") + GetParam().owner->window +
                              "\n\nError Number: " + std::to_string(number) + "\n\n"));
        expectOnlyTheExitButton();
        const std::size_t boxes = person.boxes.size();
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_A, Qt::Key_D, Qt::Key_E, Qt::Key_End})
            desk->press(key);
        EXPECT_EQ(person.boxes.size(), boxes);
        desk->click("cmdExit");
        EXPECT_EQ(forms::LoadedForms::Count(), 0);
    }

    const std::string m_mark = markOf(*GetParam().owner, GetParam().code);
};

TEST_P(AssignedItemsLoad, TheNetworkDatabaseIsMissing) {
    std::filesystem::remove(NetworkTables::file);
    openWithMark();
    EXPECT_EQ(person.boxes.size(), 2U);
    EXPECT_EQ(person.boxes.front().title, "Cannot Access");
    expectFailure(3024);
}

TEST_P(AssignedItemsLoad, TheNetworkDatabaseIsDamaged) {
    folder.write(NetworkTables::file, std::string(9000, 'x'));
    openWithMark();
    expectFailure(3343);
}

TEST_P(AssignedItemsLoad, ATableIsMissing) {
    for (const char* table : GetParam().tables) {
        const std::string aside = std::string(table) + "_ASIDE";
        alter([&](data::Database& database) { database.TableDefs(table).Name(aside); });
        openWithMark();
        expectFailure(3078);
        alter([&](data::Database& database) { database.TableDefs(aside).Name(table); });
    }
}

TEST_P(AssignedItemsLoad, AnotherHoldsTheNetworkDatabase) {
    SecondProcess other([](const SecondProcess::Steps& steps) {
        sqlite3* file = nullptr;
        sqlite3_open(NetworkTables::file, &file);
        sqlite3_exec(file, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
        steps.done();
        steps.wait();
        sqlite3_close(file);
    });
    ASSERT_TRUE(other.await());
    openWithMark();
    expectFailure(3218);
    other.next();
    EXPECT_EQ(other.finish(), 0);
    openWithMark();
    EXPECT_EQ(page().size(), 2U);
}

TEST_P(AssignedItemsLoad, AFieldIsMissing) {
    const std::pair<const char*, const char*> fields[] = {
        {"USERACCESSITEMS", "Desc"},
        {GetParam().owner->table, "ALLOWED"},
        {GetParam().owner->ownerTable, GetParam().owner->lines[1].field}};
    for (const auto& [table, field] : fields) {
        alter([&](data::Database& database) { database.TableDefs(table).Fields(field).Name("ASIDE"); });
        openWithMark();
        expectFailure(3265);
        alter([&](data::Database& database) { database.TableDefs(table).Fields("ASIDE").Name(field); });
    }
}

TEST_P(AssignedItemsLoad, TheOwnerIsGone) {
    alter([&](data::Database& database) {
        data::Recordset owners = database.OpenRecordset(GetParam().owner->ownerTable);
        owners.Bookmark(m_mark);
        owners.Delete();
    });
    openWithMark();
    expectFailure(3167);
}

INSTANTIATE_TEST_SUITE_P(
    Windows, AssignedItemsLoad,
    testing::Values(Case{&rights::templateItems, "CLERK", {"URTITEMS", "URTEMPLATES", "USERACCESSITEMS"}},
                    Case{&rights::userRights,
                         "anna",
                         {"USERRIGHTS", "USERLIST", "USERACCESSITEMS", "URTEMPLATES", "URTITEMS"}}),
    [](const auto& test) { return std::string(test.param.owner->window); });

} // namespace
} // namespace tol::test
