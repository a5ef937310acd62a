// SPDX-License-Identifier: MIT
#pragma once

#include "forms/windows/Form.h"

#include <string>

class QCheckBox;
class QLabel;

namespace tol::shell {

/// A warning that a person may turn off for the rest of a report.
class frmvdWarning : public forms::Form {
  public:
    frmvdWarning();

    void setWarning(const std::string& text);

    bool bWarnAgain = true; ///< whether the next warning is to be shown

  private:
    void cmdOK_Click();

    QLabel& m_lblWarning;
    QCheckBox& m_ckbWarnOption;
};

} // namespace tol::shell
