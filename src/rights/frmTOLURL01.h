// SPDX-License-Identifier: MIT
#pragma once

#include "screens/ListWindow.h"

#include <string>

namespace tol::rights {

/// "User List (Assign User Rights)": the list of users and their record edit. A user takes the rights along
/// when it is deleted; Record Locks stay.
class frmTOLURL01 : public screens::ListWindow {
  public:
    /// `netPath` is the folder of the network database as the main window knows it.
    explicit frmTOLURL01(std::string netPath);

  protected:
    std::string databaseFile() override;
    void openMore(data::Database& database) override;
    void cmdPrint_Click() override;

  private:
    screens::ListWindowDescription description();
    screens::EditDescription edit();
    void cmdDetail_Click();
    void deleteRights(data::Recordset& user);

    std::string sNetPath;
    data::Recordset m_rights, m_tags;
};

} // namespace tol::rights
