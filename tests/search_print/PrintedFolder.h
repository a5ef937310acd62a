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
    std::string name, place = "NOWHERE";
    double amount = 0;
    bool done = false;
};

/// A current folder with LIST.MDB, whose table LIST (NAME, PLACE, AMOUNT, DONE; index NAME, and NAMEPLACE on
/// two fields) is to be printed.
class PrintedFolder : public StartFolder {
  public:
    PrintedFolder();

    void add(const std::vector<ListRow>& rows) const;
    /// Rows named ROW 001 and so on.
    void addRows(int count) const;
};

/// A report of names and places, 57 rows to the page of A4 paper.
search_print::PrintRequest namesAndPlaces();

/// Shows the window modally in front of another, does something in it once it is there, and closes it. False
/// when it did not come up.
bool withWindow(search_print::ReportWindow& window, const std::function<void()>& act);
/// The same with the window that the print routine opens.
bool withReport(const search_print::PrintRequest& request,
                const std::function<void(search_print::ReportWindow&)>& act);

} // namespace tol::test
