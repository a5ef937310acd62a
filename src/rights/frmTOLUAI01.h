// SPDX-License-Identifier: MIT
#pragma once

#include "screens/ListWindow.h"

#include <string>

class QLabel;

namespace tol::rights {

/// "User Access Items": the list of one module's items and their record edit. The module is picked by a
/// person and remembered in the database. A code may be given twice; what refers to an item stays when the
/// item is deleted.
class frmTOLUAI01 : public screens::ListWindow {
  public:
    /// `netPath` is the folder of the network database as the main window knows it.
    explicit frmTOLUAI01(std::string netPath);

  protected:
    std::string databaseFile() override;
    void openMore(data::Database& database) override;
    void loadList() override;
    void cmdPrint_Click() override;

  private:
    screens::ListWindowDescription description();
    screens::EditDescription edit();
    [[nodiscard]] shell::KeyPairs ofModule(data::Recordset& items) const;
    [[nodiscard]] bool hasModule() const;
    void LoadModuleList();
    void showModule();
    void cmdSelect_Click();
    void cmdSearch_Click();

    std::string sNetPath;
    std::string mModuleID = " ";
    data::Recordset m_modules, m_settings, m_tags;
    QLabel* lblMODULEID = nullptr;
    QLabel* lblMODULENAME = nullptr;
};

} // namespace tol::rights
