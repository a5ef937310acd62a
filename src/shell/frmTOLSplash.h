// SPDX-License-Identifier: MIT
#pragma once

#include "forms/windows/Form.h"

class QLabel;

namespace tol::shell {

/// The picture that stands while the program starts. A click anywhere on it, or any key, takes it away.
class frmTOLSplash : public forms::Form {
  public:
    frmTOLSplash();

    void setVersion(const QString& version);

  protected:
    void onLoad() override;
    void onKeyDown(forms::KeyPress& key) override;

  private:
    void unloadOnClick();

    QLabel* m_lblVersion;
};

} // namespace tol::shell
