// SPDX-License-Identifier: MIT
#pragma once

#include "definition_update/engine/DefinitionUpdate.h"
#include "definition_update/windows/ActivityList.h"
#include "definition_update/windows/JobSiteList.h"
#include "definition_update/windows/NowProcessing.h"
#include "forms/windows/Form.h"

#include <memory>
#include <string>

class QGroupBox;
class QPushButton;

namespace tol::update {

/// The operator's window for a run of the update: Job Sites to be tagged, the log, and how far the run has
/// come. It serves one run. While that runs the window can be left only after a Cancel, and goes when the
/// run has returned.
class frmDBUDDU : public forms::Form, private UpdateView {
  public:
    frmDBUDDU();
    ~frmDBUDDU() override;

    /// Code of the module that opens the window, and folder of the network database; to be set before the
    /// window is shown.
    std::string ModuleCode = "N";
    std::string NetLocation;

  protected:
    void onLoad() override;
    void onActivate() override;
    void onUnload() override;
    void onKeyDown(forms::KeyPress& key) override;
    [[nodiscard]] bool mayClose() const override;

  private:
    /// The list that has the keyboard: job sites or activity.
    enum class List : char { JobSites = 'J', Activity = 'A' };

    void makeInstructions();
    QPushButton& addButton(const char* name, const char* caption, const char* toolTip, int place,
                           void (frmDBUDDU::*click)());
    void noteActiveList();
    void closeDatabases();
    void allowExitOnly();
    void enableChoices(bool enabled);

    void cmdTAGEM_Click();
    void cmdTAGALL_Click();
    void cmdClearTags_Click();
    void cmdCancel_Click();
    void cmdRefresh_Click();
    void cmdPrint_Click();
    void cmdExit_Click();

    void showState(RunState state) override;
    void showTagged(int index) override;
    void showLabel(RunLabel label, const std::string& text) override;
    void showRecordLabels(bool visible) override;
    void resetActivity() override;
    void showActivity(const Activity& activity, const ActivityRow& row) override;
    void fillActivity() override;

    QGroupBox& m_fraInstructions;
    NowProcessing m_nowProcessing;
    JobSiteList m_jobSites;
    QPushButton &m_cmdTAGEM, &m_cmdTAGALL, &m_cmdClearTags, &m_cmdCancel, &m_cmdRefresh, &m_cmdPrint,
        &m_cmdExit;
    ActivityList m_activity;

    std::unique_ptr<DefinitionUpdate> m_update; ///< while the databases are open
    List ActiveList = List::JobSites;
    bool m_inRun = false; ///< longer than the update's ContinueRun, which a No or Cancel clears early
};

} // namespace tol::update
