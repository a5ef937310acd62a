// SPDX-License-Identifier: MIT
#include "FileState.h"
#include "data/DBEngine.h"
#include "demo_support/DemoFolder.h"
#include "shell/vdfunctions/vdEmptyTable.h"
#include "support/SecondProcess.h"

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <random>
#include <thread>

namespace tol::test {
namespace {

/// Empties a table as the first thing that a program writes.
void emptyAtOnce(const SecondProcess::Steps& steps) {
    TestHost host;
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
    data::Database database = workspace.OpenDatabase("ZOVDEF.MDB");
    data::Recordset rows = database.OpenRecordset("OLDDEF");
    steps.done();
    shell::vdEmptyTable(" ", "ZOVDEF.MDB", rows);
    steps.wait();
}

// A table that is gone, or has lost its index, would keep every later run from its work.
TEST(KilledEmptying, LeavesTheTableWithItsIndex) {
    const DemoFolder demo;
    const Definitions before = definitionsOf("ZOVDEF.MDB");
    std::mt19937 chance(20'241);
    for (int kill = 0; kill < 100 && !testing::Test::HasFailure(); ++kill) {
        auto other = std::make_unique<SecondProcess>(&emptyAtOnce);
        ASSERT_TRUE(other->await());
        std::this_thread::sleep_for(
            std::chrono::microseconds(std::uniform_int_distribution(0, 4'000)(chance)));
        other.reset();
        EXPECT_THAT(differences(before, definitionsOf("ZOVDEF.MDB")), testing::IsEmpty());
        EXPECT_EQ(damageIn("ZOVDEF.MDB"), "");
    }
}

} // namespace
} // namespace tol::test
