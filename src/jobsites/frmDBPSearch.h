// SPDX-License-Identifier: MIT
#pragma once

#include "forms/windows/Form.h"

#include <string>

class QLabel;

namespace tol::forms {
class DriveList;
class FileList;
class FolderList;
} // namespace tol::forms

namespace tol::jobsites {

/// Lets a person pick a folder on one of the drives. Shown modally by a window that first puts the location
/// it has into sPath, and reads it again afterwards.
class frmDBPSearch : public forms::Form {
  public:
    frmDBPSearch();

    /// The location: in capitals when one was selected, one blank when the person cancelled, as it was
    /// after Esc.
    std::string sPath;

  protected:
    void onLoad() override;
    void onKeyDown(forms::KeyPress& key) override;

  private:
    void makeLists();
    void makeLocation();
    bool showDrive(const std::string& drive);
    void showLocation(const std::string& location);
    void Drive1_Change();
    void Dir1_Change();
    void Dir1_Click();
    void cmdSelect_Click();
    void cmdCancel_Click();

    forms::DriveList* m_drives;
    forms::FolderList* m_folders;
    forms::FileList* m_files;
    QLabel* m_lblPATHNAME;
    std::string mStartPath; ///< what sPath came with
    std::string mLocation;  ///< that is on show
    std::string mDrive;     ///< the last drive that could be read
};

} // namespace tol::jobsites
