// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "forms/windows/Form.h"

#include <cstdint>
#include <string>

class QLabel;
class QPushButton;

namespace tol::forms {
class TextBox;
}

namespace tol::rights {

/// "Add User Rights Items from a UR Template": the modal window in which a person chooses the template of a
/// fill, by its code or by a search. It changes nothing.
class frmTOLURL05 : public forms::Form {
  public:
    frmTOLURL05();

    std::string sNetPath;           ///< folder of the network database as the main window knows it
    bool mValid = false;            ///< after it was shown: whether a template was chosen
    std::int32_t mChosenURTTag = 0; ///< which one

  protected:
    void onLoad() override;
    void onUnload() override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void makeControls();
    void SearchTemplateCode();
    void CheckTemplateCode();
    std::string failure();
    void cmdOK_Click();
    void cmdCancel_Click();

    data::OpenTable m_templates;
    forms::TextBox* txtURTCODE = nullptr;
    QLabel* lblURTNAME = nullptr;
    QPushButton* cmdCancel = nullptr;
    bool m_loadFinished = false;
};

} // namespace tol::rights
