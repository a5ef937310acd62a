// SPDX-License-Identifier: MIT
#pragma once

#include "forms/windows/Form.h"

#include <string>

class QLabel;

namespace tol::shell {

/// Tells a user that a process is not for him.
class frmvdNETNoAccess : public forms::Form {
  public:
    frmvdNETNoAccess();

    void setDenied(const std::string& user, const std::string& process);

  private:
    QLabel& m_lblUSERNAME;
    QLabel& m_lblProcess;
};

} // namespace tol::shell
