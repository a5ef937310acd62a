// SPDX-License-Identifier: MIT
#pragma once

#include "PlainPage.h"
#include "data/DBEngine.h"
#include "runtime/KeyCodes.h"
#include "screens/browse/BrowseList.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tol::test {

using enum runtime::KeyCode;

/// A list of eight rows over the table ITEMS of a real database file: PARENT (a number), CODE and NAME. The
/// index CODE orders all records, the index ITEMS the children of each parent.
class ListTest : public testing::Test {
  protected:
    ListTest();

    /// Adds records, with a handle of its own as another user has it; NAME is "N" and the code.
    void add(const std::vector<std::string>& codes, std::int32_t parent = 1);
    /// Records "01" to the number.
    void addNumbered(int count, std::int32_t parent = 1);
    void removeByOther(const std::string& code);
    void removeAllByOther();

    static screens::BrowseDescription wholeTable();
    /// The children of `parent`; of nobody when it is 0.
    screens::BrowseDescription subset();
    /// Makes the list over a recordset of its own, without loading it.
    screens::BrowseList& make(screens::BrowseDescription description);
    /// Makes and loads the whole-table list.
    screens::BrowseList& load();

    void press(int key);
    void press(int key, int times);
    [[nodiscard]] std::vector<std::string> drawing() const { return page->drawing(); }
    /// The code of the record at a bookmark, "" for a blank one, "?" for one that is gone.
    std::string codeAt(const std::string& mark);
    [[nodiscard]] std::string current() { return codeAt(list->currentMark()); }
    [[nodiscard]] std::string top() { return codeAt(list->topMark()); }

    TempFolder folder;
    TestHost person;
    data::Workspace workspace = data::DBEngine::CreateWorkspace("test");
    data::Database database = workspace.CreateDatabase("LIST.MDB");
    std::int32_t parent = 1;
    int rows = 8;
    data::Recordset recordset;
    std::function<data::Recordset()> reopen;
    std::optional<PlainPage> page;
    std::unique_ptr<screens::BrowseList> list;
    std::vector<std::string> done; ///< "add", "edit", "delete", "exit"
};

} // namespace tol::test
