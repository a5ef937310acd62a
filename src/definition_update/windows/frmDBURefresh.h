// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/UpdateView.h"
#include "forms/windows/Form.h"

#include <array>
#include <string>

class QLabel;
class QPushButton;

namespace tol::update {

class DefinitionRefresh;

/// Fills the wanted definition from the reference databases and shows how far it has come. It serves one
/// refresh. While that runs the window can be left only after a Cancel, and goes when the refresh has
/// returned.
class frmDBURefresh : public forms::Form, private RefreshView {
  public:
    frmDBURefresh();

    /// Folder of the network database; to be set before the window is shown.
    std::string NetLocation;

  protected:
    [[nodiscard]] bool mayClose() const override;

  private:
    void makeLabels();
    void cmdCancel_Click();
    void RefreshDefinitions();

    void showLabel(RefreshLabel label, const std::string& text) override;
    void enableCancel() override;

    std::array<QLabel*, 5> m_labels{}; ///< by RefreshLabel
    QPushButton& m_cmdCancel;
    QPushButton& m_cmdExit;
    DefinitionRefresh* m_refresh = nullptr; ///< the one that runs
};

} // namespace tol::update
