// SPDX-License-Identifier: MIT
#pragma once

#include "data/DBEngine.h"
#include "search_print/ReportWindow.h"
#include "search_print/vdPrint.h"
#include "support/StartFolder.h"

#include <functional>
#include <string>
#include <vector>

namespace tol::test {

struct ListRow {
    std::string name, place = {};
    double amount = 0;
    bool done = false;
};

/// A current folder with LIST.MDB, whose table LIST (NAME, PLACE, AMOUNT, DONE; index NAME) is to be printed.
class PrintedFolder : public StartFolder {
  public:
    PrintedFolder();

    void add(const std::vector<ListRow>& rows) const;
    /// Rows named ROW 001 and so on.
    void addRows(int count) const;
};

/// A report of names and places.
search_print::PrintRequest namesAndPlaces();

/// Opens the report and does something in its window once it is there; then the window is closed. False when
/// no window came up.
bool withReport(const search_print::PrintRequest& request,
                const std::function<void(search_print::ReportWindow&)>& act);

} // namespace tol::test
