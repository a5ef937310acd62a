// SPDX-License-Identifier: MIT
#pragma once

#include "rights/ItemsOwner.h"
#include "screens/ListWindow.h"

#include <cstdint>
#include <string>
#include <vector>

class QLabel;

namespace tol::rights {

/// The User Access Items of one template ("User Rights Template Detail") or of one user ("Assign User Rights
/// "), and their record edit. A code is typed or searched; the record keeps the item's tag. Nothing forbids
/// to name an item twice. A user's items can be filled from a template; the fill yields, and the exit button
/// stops it.
class AssignedItems : public screens::ListWindow {
  public:
    /// `netPath` is the folder of the network database as the main window knows it, `mark` the owner's
    /// bookmark in its table.
    AssignedItems(const ItemsOwner& owner, std::string netPath, std::string mark);

    /// What the detail button of a list of owners does: shows the items of that one in a window beside the
    /// list, in the one that does so already if there is one.
    static void showFor(QWidget& list, const ItemsOwner& owner, const std::string& netPath,
                        const std::string& mark);

  protected:
    std::string databaseFile() override;
    void openMore(data::Database& database) override;
    void cmdPrint_Click() override;
    bool mayExit() override;

  private:
    screens::ListWindowDescription description(const ItemsOwner& owner);
    std::vector<screens::BrowseColumn> columns(const ItemsOwner& owner);
    screens::EditDescription edit();
    void makeOwnerLines();
    void readOwner(data::Database& database);
    [[nodiscard]] QLabel& label(const char* name) const;
    shell::KeyPairs ownerKey(data::Recordset& rows) const;

    bool findItem(data::Recordset& row);
    std::string ofItem(data::Recordset& row, const char* field, std::int16_t marks);
    std::string templateCode(data::Recordset& right);
    std::string question(data::Recordset& row);

    std::string beginEdit(data::Recordset& row);
    std::string CheckItemCode(screens::EditedField& edited);
    void takeItem();
    void writeItem(data::Recordset& row);
    void SearchItemCode();

    void cmdURTFill_Click();
    void fillFrom(std::int32_t urtTag);

    const ItemsOwner& m_owner;
    std::string sNetPath;
    std::string m_mark;
    std::int32_t mOwnerTag = 0;
    std::int32_t mItemUAITag = 0; ///< of the item that the edit boxes name
    data::Recordset m_accessItems;
    data::Recordset m_templates, m_templateItems, m_rights; ///< of a user, for the fill
    bool mFillRunning = false;
};

} // namespace tol::rights
