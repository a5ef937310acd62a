// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "forms/windows/Form.h"

#include <string>

class QPushButton;

namespace tol::forms {
class ListBox;
}

namespace tol::rights {

/// "Select a Module": the modal pick list of the suite's modules. It comes up on the module that was chosen
/// last.
class frmTOLMODSEL : public forms::Form {
  public:
    /// `netPath` is the folder of the network database as the main window knows it.
    explicit frmTOLMODSEL(std::string netPath);

    /// After it was shown: the code of the module that was chosen, its first three characters, or one blank
    /// when the person cancelled.
    [[nodiscard]] const std::string& chosenModule() const { return m_chosen; }

  protected:
    void onLoad() override;
    void onUnload() override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void openTables();
    void fillList();
    void cmdSelect_Click();
    void cmdCancel_Click();

    std::string sNetPath;
    std::string m_chosen = " ";
    data::OpenTable m_modules;
    data::Recordset m_settings;
    forms::ListBox* lstMODULEID = nullptr;
    QPushButton* cmdCancel = nullptr;
    bool m_loadFinished = false;
};

} // namespace tol::rights
