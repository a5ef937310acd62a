// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "forms/windows/Form.h"

#include <string>

class QLabel;
class QPushButton;

namespace tol::shell {

/// What the module that shows the About box gives it.
struct AboutData {
    std::string folder;   ///< of the database with the site information
    std::string mode;     ///< a letter of the suite's; each module has its own, and nothing hangs on it
    std::string database; ///< MAIN.MDB when it is blank
    std::string notice;   ///< of copyright; the usual one when it is blank
};

/// The About box: module and version, and the company's name and address, which can be changed with Shift and
/// F10 together.
class frmAboutView : public forms::Form {
  public:
    explicit frmAboutView(AboutData given);

    void setModule(const std::string& name, const std::string& version);

  protected:
    void onLoad() override;
    void onUnload() override;
    void onKeyDown(forms::KeyPress& key) override;

  private:
    void makeModule();
    void makeSite();
    void makeLinks();
    void fill();
    void lblHyperLink_Click();

    AboutData m_given;
    data::OpenTable m_site;
    bool m_loadFinished = false;
    QLabel *lblModuleName, *lblVersionNumber, *lblCRNotice;
    QLabel *lblCONAME, *lblADDBLK1, *lblADDBLK2, *lblADDBLK3, *lblLOCATIONNO;
    QLabel* lblHyperLink;
    QPushButton* cmdOK;
};

} // namespace tol::shell
