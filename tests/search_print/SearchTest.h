// SPDX-License-Identifier: MIT
#pragma once

#include "forms/events/WindowHost.h"
#include "search_print/vdSearch.h"
#include "support/BoxAnswerer.h"
#include "support/StartFolder.h"
#include "support/TestTable.h"
#include "support/WindowDriver.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tol::test {

/// Base of tests of the search window: a window to open it before, a person who answers the boxes, and a
/// table PARTS in PARTS.MDB with the indexes CODE, NAME, PRICE, and GROUPCODE and GROUPNAME, which begin with
/// GRP.
class SearchTest : public testing::Test {
  protected:
    SearchTest();

    /// Searches PARTS by code, name and price; nothing is sought in its remarks.
    static search_print::SearchDescription parts();
    /// Those of one group, by code and name.
    static search_print::SearchDescription partsOf(const std::string& group);
    /// Parts P01 to that number with the names NAME 01 and so on, prices of 1 and on, in that group.
    void addNumbered(int count, const std::string& group = "A") const;

    /// Opens the search, has a person do something before it, and closes it if that has left it open.
    std::string search(const search_print::SearchDescription& description, const std::function<void()>& act);
    std::string search(const std::function<std::string()>& open, const std::function<void()>& act);

    /// The rows up to the last one that is not blank, the captions of the columns in sight trimmed and joined
    /// by bars.
    [[nodiscard]] std::vector<std::string> page() const;
    /// The highlighted row; all its columns in sight have to be highlighted, and no other row's.
    [[nodiscard]] int highlight() const;
    /// What that row says.
    [[nodiscard]] std::string chosen() const;
    /// The code of the part with that bookmark.
    [[nodiscard]] static std::string codeAt(const std::string& mark);
    [[nodiscard]] QRgb titleColor(int column) const;
    void press(Qt::Key key, int times = 1) const;
    void type(const QString& letters) const;
    void clickRow(int row, const QString& label = "lblCOL1") const;

    StartFolder folder;
    TestTable table;
    forms::WindowHost host;
    BoxAnswerer person;
    QWidget owner;
    std::unique_ptr<WindowDriver> desk;

  private:
    [[nodiscard]] std::vector<QString> shownLabels() const;
};

} // namespace tol::test
