// SPDX-License-Identifier: MIT
#include "rights/model/CopyUAIList.h"

#include "data/OpenTable.h"
#include "support/DeliveredLists.h"
#include "support/NetworkTables.h"
#include "support/Raises.h"
#include "support/SecondProcess.h"
#include "support/StartFolder.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <optional>
#include <random>
#include <thread>

namespace tol::test {
namespace {

using runtime::Null;
using testing::ElementsAre;
using testing::IsEmpty;

class CopyUAIList : public testing::Test {
  protected:
    rights::CopiedList copy() { return rights::CopyUAIList(NetworkTables::file); }

    StartFolder folder;
    NetworkTables net;
    DeliveredLists delivered;
};

TEST_F(CopyUAIList, ReplacesBothListsAndKeepsTheDeliveredTags) {
    delivered.modules.add({{"PAY", "Payroll"}, {"ACC", "Accounts"}});
    delivered.items.add({{17, "PAY", "RUN", "Run it", "FRMRUN"}, {12, "ACC", "POST", "Post it", Null{}}});
    net.modules.add({{"OLD", "Gone"}, {"PAY", "Pay"}});
    net.accessItems.add({{12, "OLD", "HAND", "By hand", "FRMHAND"}, {90, "PAY", "RUN", "Run", ""}});
    const rights::CopiedList copied = copy();
    EXPECT_EQ(copied.modules, 2);
    EXPECT_EQ(copied.items, 2);
    EXPECT_THAT(net.modules.rows(), ElementsAre("ACC|Accounts", "PAY|Payroll"));
    EXPECT_THAT(net.accessItems.rows(), ElementsAre("12|ACC|POST|Post it|Null", "17|PAY|RUN|Run it|FRMRUN"));
}

TEST_F(CopyUAIList, CopiesInTheOrderOfTheDeliveredIndexes) {
    delivered.modules.add({{"PAY", "Payroll"}, {"ACC", "Accounts"}});
    copy();
    data::OpenTable stored("wksNET", NetworkTables::file, "MODULES");
    EXPECT_EQ(stored.rows.Fields("MODULEID").Value().get<std::string>(), "ACC");
}

TEST_F(CopyUAIList, TouchesNoOtherTable) {
    delivered.items.add({{17, "PAY", "RUN", "Run it", "FRMRUN"}});
    const std::pair<const TestTable*, TestTable::Row> others[] = {
        {&net.templates, {1, "T", "Template"}},
        {&net.templateItems, {1, 90, true}},
        {&net.users, {3, "ann", "", true}},
        {&net.rights, {3, 90, true, 1}},
        {&net.tags, {5, 2, 4}},
        {&net.settings, {"OLD"}},
        {&net.locks, {7, "JOBS", "ann", Null{}, 3, 1}}};
    std::vector<std::vector<std::string>> before;
    for (const auto& [table, row] : others) {
        table->add({row});
        before.push_back(table->rows());
    }
    copy();
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_EQ(others[i].first->rows(), before[i]);
}

TEST_F(CopyUAIList, AnEmptyDeliveryLeavesEmptyLists) {
    net.modules.add({{"OLD", "Gone"}});
    net.accessItems.add({{90, "OLD", "RUN", "Run", ""}});
    const rights::CopiedList copied = copy();
    EXPECT_EQ(copied.modules, 0);
    EXPECT_EQ(copied.items, 0);
    EXPECT_THAT(net.modules.rows(), IsEmpty());
    EXPECT_THAT(net.accessItems.rows(), IsEmpty());
}

TEST_F(CopyUAIList, TwiceLeavesTheSameAsOnce) {
    delivered.modules.add({{"PAY", "Payroll"}});
    delivered.items.add({{17, "PAY", "RUN", "Run it", "FRMRUN"}});
    copy();
    copy();
    EXPECT_THAT(net.modules.rows(), ElementsAre("PAY|Payroll"));
    EXPECT_THAT(net.accessItems.rows(), ElementsAre("17|PAY|RUN|Run it|FRMRUN"));
}

TEST_F(CopyUAIList, AMissingDeliveryDeletesNothing) {
    net.modules.add({{"OLD", "Gone"}});
    folder.remove("ZOVDEF.MDB");
    EXPECT_EQ(errorOf([&] { copy(); }), runtime::errDatabaseNotFound);
    EXPECT_THAT(net.modules.rows(), ElementsAre("OLD|Gone"));
}

TEST_F(CopyUAIList, ADeliveryWithoutItemsTableDeletesNothing) {
    net.modules.add({{"OLD", "Gone"}});
    {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        workspace.OpenDatabase("ZOVDEF.MDB").TableDefs().Delete("USERACCESSITEMS");
    }
    EXPECT_EQ(errorOf([&] { copy(); }), runtime::errTableNotFound);
    EXPECT_THAT(net.modules.rows(), ElementsAre("OLD|Gone"));
}

TEST_F(CopyUAIList, AFailureInTheMiddleLeavesWhatWasCopiedAndTheNextMakesItGood) {
    delivered.modules.add({{"ACC", "Accounts"}, {"PAY", "Payroll"}});
    delivered.items.add({{1, "ACC", "A", "First", ""}, {2, "ACC", "TOOLONG99", "Second", ""}});
    net.accessItems.add({{90, "OLD", "RUN", "Run", ""}});
    EXPECT_EQ(errorOf([&] { copy(); }), runtime::errFieldTooSmall);
    EXPECT_THAT(net.modules.rows(), ElementsAre("ACC|Accounts", "PAY|Payroll"));
    EXPECT_THAT(net.accessItems.rows(), ElementsAre("1|ACC|A|First|"));
    delivered.items.change("UAICODE", "TOOLONG99", "B");
    copy();
    EXPECT_THAT(net.accessItems.rows(), ElementsAre("1|ACC|A|First|", "2|ACC|B|Second|"));
}

// Killed at any moment it leaves a network database that the next copy makes good.
TEST_F(CopyUAIList, KilledAtRandomMomentsTheNextMakesItGood) {
    std::vector<TestTable::Row> rows;
    for (int tag = 1; tag <= 3000; ++tag)
        rows.push_back({tag, "PAY", fmt::format("C{:06}", tag), "Item", "FRM"});
    delivered.modules.add({{"PAY", "Payroll"}});
    delivered.items.add(rows);
    net.users.add({{3, "ann", "", true}});
    const std::vector<std::string> deliveredItems = delivered.items.rows();
    using clock = std::chrono::steady_clock;
    const auto start = clock::now();
    copy();
    const auto whole = std::chrono::duration_cast<std::chrono::microseconds>(clock::now() - start);

    const char* asked = std::getenv("TOL_KILLS");
    const int kills = asked != nullptr ? std::atoi(asked) : 8;
    std::mt19937 random(8); // NOLINT: the same each time
    int caughtInTheMiddle = 0;
    for (int kill = 0; kill < kills; ++kill) {
        {
            const SecondProcess copying([](const SecondProcess::Steps& steps) {
                steps.done();
                rights::CopyUAIList(NetworkTables::file);
                steps.wait();
            });
            ASSERT_TRUE(copying.await());
            std::this_thread::sleep_for(whole * static_cast<int>(random() % 100) / 100);
        }
        caughtInTheMiddle += net.accessItems.rows() == deliveredItems ? 0 : 1;
        ASSERT_EQ(copy().items, 3000) << kill;
        ASSERT_EQ(net.accessItems.rows(), deliveredItems) << kill;
        ASSERT_THAT(net.modules.rows(), ElementsAre("PAY|Payroll")) << kill;
        ASSERT_THAT(net.users.rows(), ElementsAre("3|ann||True")) << kill;
    }
    RecordProperty("CaughtInTheMiddle", caughtInTheMiddle);
}

} // namespace
} // namespace tol::test
