// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "rights/AssignedItems.h"
#include "support/ListWindowTest.h"
#include "support/NetworkTables.h"

#include <memory>
#include <string>
#include <vector>

namespace tol::test {

/// Base of tests of the items of a template or user: a network database with three User Access Items, two
/// templates and two users.
class AssignedItemsTest : public ListWindowTest {
  protected:
    static constexpr std::int32_t accounts = 10, bills = 11, cars = 12; // User Access Items
    static constexpr std::int32_t gone = 99;
    static constexpr std::int32_t clerk = 5, driver = 6; // templates
    static constexpr std::int32_t anna = 1, berta = 2;   // users

    explicit AssignedItemsTest(std::vector<QString> columns) : ListWindowTest(std::move(columns)) {
        net.accessItems.add({{accounts, "ACC", "ACCOUNTS", "All accounts", "frmACC"},
                             {bills, "ACC", "BILLS", "Bills to pay", "frmBIL"},
                             {cars, "CAR", "CARS", "Cars and vans", "frmCAR"}});
        net.templates.add({{clerk, "CLERK", "Clerks of the office"}, {driver, "DRIVER", "Drivers"}});
        net.users.add({{anna, "anna", "Room 3", false}, {berta, "berta", "", true}});
    }

    /// Opens the window for the record of that code or name.
    void openFor(const rights::ItemsOwner& owner, const std::string& code) {
        show(std::make_unique<rights::AssignedItems>(owner, "", markOf(owner, code)));
    }
    static std::string markOf(const rights::ItemsOwner& owner, const std::string& code) {
        data::OpenTable owners("wksTEST", NetworkTables::file, owner.ownerTable);
        owners.rows.Index(&owner == &rights::userRights ? "USERNAME" : "URTCODE");
        owners.rows.Seek("=", {code});
        return owners.rows.Bookmark();
    }
    void expectRefusal(const std::string& text) {
        expectBox(text, QMessageBox::Critical, "Cannot Update Record");
        EXPECT_THAT(person.boxes[0].buttons, testing::ElementsAre("cmdOK"));
        person.boxes.clear();
    }

    NetworkTables net;
};

} // namespace tol::test
