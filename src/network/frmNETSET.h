// SPDX-License-Identifier: MIT
#pragma once

#include "forms/windows/Form.h"
#include "network/LocationBox.h"

#include <string>

class QLabel;
class QPushButton;

namespace tol::screens {
class RowLabel;
}

namespace tol::network {

/// "Network Settings": who the person is, where the network database lies, and under which number its list of
/// users has the person. The location can be changed, and the person added to the list.
class frmNETSET : public forms::Form {
  public:
    /// `netPath` is the folder of the network database as the main window knows it, `moduleCode` says which
    /// module of the suite shows the window.
    frmNETSET(std::string netPath, std::string moduleCode);

  protected:
    void onLoad() override;

  private:
    QLabel& addRow(const char* name, const char* caption, int row);
    void makeButtons();
    void readSettings();
    void ShowUserNumber();
    void showLocation();
    void setEditing(bool editing);
    void cmdNETPATH_Click();
    void saveLocation();
    void cmdAdd_Click();
    void addThisUser();

    std::string NetPath, ModuleCode;
    std::string DBPathText, UserName;
    bool NetMissing = false;
    bool PathEditing = false;
    QLabel *lblUSERNAME, *lblUSERTAG;
    screens::RowLabel* lblNETPATH;
    LocationBox m_location; ///< over lblNETPATH
    QPushButton *cmdNETPATH, *cmdAdd, *cmdExit;
};

} // namespace tol::network
