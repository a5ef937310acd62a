// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "forms/windows/Form.h"
#include "network/LocationBox.h"

#include <functional>
#include <string>

class QPushButton;

namespace tol::network {

/// "Location of Wendry Database": changes where the network database lies, and nothing else.
class frmNETPATH : public forms::Form {
  public:
    /// `changed` is called with the new location, without a backslash at its end, when the window has closed
    /// after an Update.
    explicit frmNETPATH(std::function<void(const std::string&)> changed);

  protected:
    void onLoad() override;
    void onUnload() override;

  private:
    void cmdUpdate_Click();

    std::function<void(const std::string&)> m_tellChanged;
    LocationBox m_location;
    QPushButton* cmdCancel;
    data::OpenTable m_netPath;
    std::string m_newPath;
    bool mChanged = false;
    bool m_loadFinished = false;
};

} // namespace tol::network
