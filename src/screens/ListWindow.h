// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "forms/windows/Form.h"
#include "screens/EditCycle.h"
#include "screens/EditDescription.h"
#include "screens/ListPanel.h"
#include "screens/browse/BrowseDescription.h"
#include "screens/browse/BrowseList.h"

#include <string>
#include <vector>

namespace tol::screens {

/// A further button in a list window's row of buttons, in sight in both states.
struct ListCommand {
    std::string name, caption, toolTip = {};
    forms::EventProcedure click;
    bool whileEditing = true; ///< in use while a record is edited
};

/// All that sets one list window apart from another, but for what it does in its own event procedures.
struct ListWindowDescription {
    std::string name, caption;
    std::string workspace = "wksNET";
    std::string table;
    BrowseDescription list;
    EditDescription edit;
    std::vector<ListCommand> commands = {};
    int headerHeight = 0; ///< twips above the list, for what a derived class shows there
};

/// A window that shows a table as a list and edits its records in place. It makes all controls from its
/// description. Its Load opens the database, which stays open until Unload; when that fails, only the exit
/// button is left on the window, and keys and buttons but that one do nothing.
class ListWindow : public forms::Form {
  protected:
    explicit ListWindow(ListWindowDescription description);

    /// The database that Load opens; may show boxes of its own.
    virtual std::string databaseFile() = 0;
    /// What else Load opens or reads, before the list is filled. What it opens is closed with the database.
    virtual void openMore(data::Database&) {}
    /// The first fill.
    virtual void loadList() { m_list.BrowseLoad(); }
    virtual void cmdPrint_Click() = 0;
    /// What cmdExit does before it unloads the window; false when it is not to unload it.
    virtual bool mayExit() { return true; }

    void onLoad() override;
    void onUnload() override;
    void onActivate() override;
    void onKeyDown(forms::KeyPress& key) override;

    [[nodiscard]] BrowseList& list() { return m_list; }
    [[nodiscard]] ListPanel& panel() { return m_panel; }
    [[nodiscard]] EditCycle& editCycle() { return m_edit; }
    [[nodiscard]] data::Recordset& recordset() { return m_table.rows; }

    /// Distance of the controls from the window's edges, in twips.
    static constexpr int margin = 150;

  private:
    QPushButton* makeButton(const std::string& name, const std::string& caption, forms::EventProcedure click);
    void makeButtons();
    void placeButtons(const std::vector<QPushButton*>& row);
    void openDatabase();
    void cmdExit_Click();

    ListWindowDescription m_description;
    data::OpenTable m_table;
    ListPanel m_panel;
    BrowseList m_list;
    EditCycle m_edit;
    EditButtons m_buttons;
    bool m_loadFinished = false;
    bool m_activated = false;
};

} // namespace tol::screens
