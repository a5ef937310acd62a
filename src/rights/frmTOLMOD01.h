// SPDX-License-Identifier: MIT
#pragma once

#include "screens/ListWindow.h"

#include <string>

namespace tol::rights {

/// "Modules": the list of the suite's modules and their record edit. A module's code may be changed or
/// the module deleted; the User Access Items that name it stay as they are.
class frmTOLMOD01 : public screens::ListWindow {
  public:
    /// `netPath` is the folder of the network database as the main window knows it.
    explicit frmTOLMOD01(std::string netPath);

  protected:
    std::string databaseFile() override;
    void cmdPrint_Click() override;

  private:
    std::string sNetPath;
};

} // namespace tol::rights
