// SPDX-License-Identifier: MIT
#pragma once

#include "forms/windows/Form.h"

#include <string>

class QLabel;

namespace tol::shell {

/// Tells a user who has locked the record that is asked for, and lets the lock be removed. It deletes
/// nothing itself. Nothing in this program opens it: it is for modules that lock records.
class frmvdNETRLocked : public forms::Form {
  public:
    frmvdNETRLocked();

    void setLock(const std::string& table, const std::string& user, const std::string& timeStamp);

    bool bRemove = false; ///< whether the lock is to be removed

  protected:
    void onLoad() override { bRemove = false; }

  private:
    void finish(bool remove);

    QLabel& m_lblTABLENAME;
    QLabel& m_lblUSERNAME;
    QLabel& m_lblRLTIMESTAMP;
};

} // namespace tol::shell
