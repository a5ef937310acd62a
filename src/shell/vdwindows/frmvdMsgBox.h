// SPDX-License-Identifier: MIT
#pragma once

#include "forms/windows/Form.h"

#include <string>

class QLabel;
class QPushButton;

namespace tol::shell {

/// A message with one or two buttons whose captions the caller chooses before the window is loaded.
class frmvdMsgBox : public forms::Form {
  public:
    frmvdMsgBox();

    void setMessage(const std::string& text);

    std::string sButton1; ///< caption of the first button; blank for "&OK"
    std::string sButton2; ///< of the second one, which is missing when this is blank
    int iResult = 0;      ///< 1 or 2, the button that was pressed; 0 while none was

  protected:
    void onLoad() override;

  private:
    void finish(int result);

    QLabel& m_lblMessageText;
    QPushButton& m_cmdButton1;
    QPushButton& m_cmdButton2;
};

} // namespace tol::shell
