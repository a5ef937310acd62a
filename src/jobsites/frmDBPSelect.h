// SPDX-License-Identifier: MIT
#pragma once

#include "data/OpenTable.h"
#include "forms/windows/Form.h"
#include "jobsites/model/JobSites.h"

#include <cstdint>

namespace tol::forms {
class ListBox;
}

namespace tol::jobsites {

/// "Job Sites": the pick list by which a person changes to another Job Site, whose settings then are in
/// force. This module opens it nowhere; it belongs to the suite's set of windows.
class frmDBPSelect : public forms::Form {
  public:
    /// `currentTag` is the number of the Job Site for which the settings in force are kept.
    explicit frmDBPSelect(std::int32_t currentTag);

    /// After it was shown: the Job Site that was chosen, and whether its settings are in force now.
    [[nodiscard]] const JobSite& chosen() const { return m_chosen; }
    [[nodiscard]] bool succeeded() const { return m_succeeded; }

  protected:
    void onLoad() override;
    void onUnload() override;

  private:
    void select();

    std::int32_t m_currentTag;
    JobSite m_chosen;
    bool m_succeeded = false;
    data::OpenTable m_sites;
    forms::ListBox* lstPATHNAME;
};

} // namespace tol::jobsites
