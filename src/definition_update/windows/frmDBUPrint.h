// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "search_print/ReportWindow.h"

namespace tol::update {

/// Previews and prints the activity log of the last run. It holds the log open as long as it is loaded.
class frmDBUPrint : public search_print::ReportWindow {
  public:
    frmDBUPrint();

  protected:
    void onLoad() override;
    void onUnload() override;
    bool onRun() override;

  private:
    data::OpenTable ACTIVITYLOG;
};

} // namespace tol::update
