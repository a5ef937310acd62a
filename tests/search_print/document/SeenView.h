// SPDX-License-Identifier: MIT
#pragma once

#include "search_print/document/ReportView.h"

#include <string>
#include <vector>

namespace tol::test {

/// The window of a report, as far as the report sees it.
class SeenView : public search_print::ReportView {
  public:
    void showState(search_print::ReportState state) override { states.push_back(state); }
    void setProcess(const std::string& text) override { processes.push_back(text); }
    bool keepPrinting() override { return ++rows != stopAt; }

    std::vector<search_print::ReportState> states;
    std::vector<std::string> processes;
    int rows = 0, stopAt = -1;
};

} // namespace tol::test
