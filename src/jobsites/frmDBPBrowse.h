// SPDX-License-Identifier: MIT
#pragma once

#include "screens/ListWindow.h"

#include <string>

namespace tol::jobsites {

/// Module text of reports that start from the Job Site list, by the letter of the suite's module; "" for an
/// unknown letter.
std::string vdModuleName(const std::string& letter);

/// "Job Sites": the list of the folders that hold a full set of the suite's database files, and their
/// record edit. A folder's files are never touched.
class frmDBPBrowse : public screens::ListWindow {
  public:
    frmDBPBrowse();

    /// The suite's module that shows the window; this one leaves it empty.
    std::string sModule;

  protected:
    std::string databaseFile() override { return "DBPATHS.MDB"; }
    void cmdPrint_Click() override;
    bool mayExit() override;

  private:
    screens::ListWindowDescription description();
    void cmdSelectPath_Click();

    bool mPathChanged = false;
};

} // namespace tol::jobsites
