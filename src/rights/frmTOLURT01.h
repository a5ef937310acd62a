// SPDX-License-Identifier: MIT
#pragma once

#include "screens/ListWindow.h"

#include <string>

namespace tol::rights {

/// "User Rights Templates": the list of templates and their record edit. A template takes its items along
/// when it is deleted; the rights that were filled from it stay with their users.
class frmTOLURT01 : public screens::ListWindow {
  public:
    /// `netPath` is the folder of the network database as the main window knows it.
    explicit frmTOLURT01(std::string netPath);

  protected:
    std::string databaseFile() override;
    void openMore(data::Database& database) override;
    void cmdPrint_Click() override;

  private:
    screens::ListWindowDescription description();
    void cmdDetail_Click();
    void deleteItems(data::Recordset& urTemplate);

    std::string sNetPath;
    data::Recordset m_items, m_tags;
};

} // namespace tol::rights
