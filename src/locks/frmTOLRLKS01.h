// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "forms/events/Timer.h"
#include "forms/windows/Form.h"
#include "locks/model/RecordLock.h"
#include "screens/ListPanel.h"
#include "screens/browse/BrowseList.h"

#include <cstdint>
#include <optional>
#include <string>

class QPushButton;

namespace tol::locks {

/// "Record Locks": the locks that the suite's modules hold, as they are at each second, and the delete of one
/// that a crash has left behind. While the network can't be reached the page stays as it was, the caption
/// says so, and nothing but the exit works. Between two seconds the file is open, but nothing is held that
/// another module would wait for.
class frmTOLRLKS01 : public forms::Form {
  public:
    /// `netPath` is the folder of the network database as the main window knows it.
    explicit frmTOLRLKS01(std::string netPath);

  protected:
    void onLoad() override;
    void onUnload() override;
    void onActivate() override;
    void onKeyDown(forms::KeyPress& key) override;

  private:
    void makeButtons();
    void openAfresh();
    void tmrRLKS_Timer();
    void showPresent();
    template <typename Show>
    void showOrDisconnect(const Show& show);
    void setConnected(bool connected);
    void cmdDelete_Click();
    void deleteCurrent();
    std::optional<RecordLock> currentLock();
    bool remove(const RecordLock& lock);

    std::string sNetPath;
    std::string m_file; ///< the network database, as Load found it
    data::OpenTable m_table;
    screens::ListPanel m_panel;
    screens::BrowseList m_list;
    forms::Timer tmrRLKS;
    QPushButton* cmdDelete = nullptr;
    QPushButton* cmdExit = nullptr;
    std::int32_t LockCount = 0; ///< rows at the last tick
    char LockState = ' ';       ///< 'D' during a delete: the timer and the row clicks do nothing
    bool m_connected = true;
    bool m_loadFinished = false;
    bool m_activated = false;
};

} // namespace tol::locks
