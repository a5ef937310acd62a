// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "forms/windows/Form.h"

#include <string>
#include <vector>

class QPushButton;

namespace tol::forms {
class TextBox;
}

namespace tol::shell {

/// "Site Information Update Screen": the company's name and address. Nothing is checked; any box may stay
/// blank.
class frmAboutEdit : public forms::Form {
  public:
    /// `folder` is that of the database.
    explicit frmAboutEdit(std::string folder);

    /// MAIN.MDB when it is blank, as the About box leaves it.
    std::string sDBName;

  protected:
    void onLoad() override;
    void onUnload() override;

  private:
    void makeBoxes();
    void fill();
    void cmdUpdate_Click();

    std::string m_folder;
    std::vector<forms::TextBox*> m_boxes; ///< in the order of the fields
    QPushButton* cmdExit = nullptr;
    data::OpenTable m_site;
    bool m_loadFinished = false;
};

} // namespace tol::shell
