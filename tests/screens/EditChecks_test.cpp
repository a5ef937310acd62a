// SPDX-License-Identifier: MIT
#include "screens/EditChecks.h"

#include "data/DBEngine.h"
#include "support/StartFolder.h"
#include "support/TestTable.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

using screens::EditedField;
using screens::EditMode;

class UniqueKey : public testing::Test {
  protected:
    UniqueKey() { table.add({{"ASS"}}); }

    /// Checks a code in a box of three characters; what it holds then, and what is wrong with it.
    std::pair<std::string, std::string> check(const std::string& typed,
                                              std::string (*fold)(std::string_view)) {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database database = workspace.OpenDatabase("STORE.MDB");
        data::Recordset rows = database.OpenRecordset("CODES", data::dbOpenTable);
        const std::string mark = " ";
        EditedField edited{typed, 3, rows, EditMode::Add, mark};
        const std::string failure = screens::uniqueKeyCheck("CODES", "blank", "taken", fold)(edited);
        return {edited.text, failure};
    }

    StartFolder folder;
    TestTable table{"STORE.MDB", "CODES", {{"CODE", data::dbText, 3}}, {{"CODES", {"CODE"}, true}}};
};

// Whatever a fold does to the length, the record gets what fits into the box.
TEST_F(UniqueKey, IsSoughtAsItWillBeStored) {
    const auto growing = [](std::string_view text) { return std::string(text) + "SSS"; };
    EXPECT_EQ(check("a", growing), std::make_pair(std::string("aSS"), std::string("taken")));
    EXPECT_EQ(check("b", growing), std::make_pair(std::string("bSS"), std::string()));
}

TEST_F(UniqueKey, IsFoldedToUpperCaseAsLongAsItIsNotBlank) {
    EXPECT_EQ(check("ass", runtime::upperCase), std::make_pair(std::string("ASS"), std::string("taken")));
    EXPECT_EQ(check("  ", runtime::upperCase), std::make_pair(std::string("  "), std::string("blank")));
}

} // namespace
} // namespace tol::test
