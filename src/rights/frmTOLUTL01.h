// SPDX-License-Identifier: MIT
#pragma once

#include "forms/windows/Form.h"

#include <string>

class QPushButton;

namespace tol::rights {

/// "Update User Access Items List": replaces the modules and User Access Items of the network database by the
/// delivered ones. Errors of the copy are not trapped here.
class frmTOLUTL01 : public forms::Form {
  public:
    /// `netPath` is the folder of the network database as the main window knows it.
    explicit frmTOLUTL01(std::string netPath);

  protected:
    void onLoad() override { mRunning = false; }

  private:
    void cmdBegin_Click();
    void cmdExit_Click();

    std::string sNetPath;
    bool mRunning = false; ///< a Cancel while it runs makes it False
    QPushButton* cmdExit = nullptr;
};

} // namespace tol::rights
