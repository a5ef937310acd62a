// SPDX-License-Identifier: MIT
#include "locks/model/LockList.h"

#include "data/DBEngine.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "support/NetworkTables.h"
#include "support/Raises.h"
#include "support/SecondProcess.h"
#include "support/StartFolder.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using locks::ListedLock;
using locks::LockFilter;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int hour = 3600;

class LockList : public testing::Test {
  protected:
    LockList() {
        net.users.add({{3, "ann", "", false}, {4, "Berta", "", false}});
        net.locks.add({{7, "JOBS", "ann", today(10, 0), 3, 1},
                       {8, "JOBS", "BERTA ", today(14, 0), 4, 1},
                       {7, "ORDERS", "carl", today(8, 0), 5, 2}});
    }
    static runtime::Date today(int at, int minute) { return runtime::makeDate({2003, 1, 31, at, minute, 0}); }

    std::vector<ListedLock> list(const LockFilter& filter = {}) {
        data::Database network = workspace.OpenDatabase(NetworkTables::file);
        return locks::listLocks(network, filter, now);
    }
    /// Tables and tags of the locks that are meant.
    std::vector<std::string> names(const LockFilter& filter) {
        std::vector<std::string> all;
        for (const ListedLock& listed : list(filter))
            all.push_back(listed.lock.TABLENAME + std::to_string(listed.lock.TAGNO));
        return all;
    }
    std::vector<ListedLock> remove(const std::vector<ListedLock>& listed) {
        data::Database network = workspace.OpenDatabase(NetworkTables::file);
        return locks::deleteLocks(workspace, network, listed);
    }

    StartFolder folder;
    NetworkTables net;
    data::Workspace workspace = data::DBEngine::CreateWorkspace("wksNET");
    runtime::Date now = today(14, 30);
};

TEST_F(LockList, TellsAgesAndWhoIsKnown) {
    const auto listed = list();
    ASSERT_THAT(listed, SizeIs(3));
    EXPECT_EQ(listed[0].lock.TABLENAME, "JOBS");
    EXPECT_EQ(listed[0].age, 4 * hour + hour / 2);
    EXPECT_TRUE(listed[0].userIsKnown);
    EXPECT_TRUE(listed[1].userIsKnown) << "whatever its capitals and blanks";
    EXPECT_FALSE(listed[2].userIsKnown);
}

TEST_F(LockList, ALockOfTomorrowHasANegativeAge) {
    now = today(13, 0);
    EXPECT_EQ(list()[1].age, -hour);
    EXPECT_THAT(names({.user = "berta", .olderThan = 0}), IsEmpty());
}

TEST_F(LockList, FiltersByAllThatIsGiven) {
    EXPECT_THAT(names({.user = " Berta"}), ElementsAre("JOBS8"));
    EXPECT_THAT(names({.table = "jobs"}), ElementsAre("JOBS7", "JOBS8"));
    EXPECT_THAT(names({.tag = 7}), ElementsAre("JOBS7", "ORDERS7"));
    EXPECT_THAT(names({.session = 2}), ElementsAre("ORDERS7"));
    EXPECT_THAT(names({.olderThan = hour}), ElementsAre("JOBS7", "ORDERS7"));
    EXPECT_THAT(names({.table = "JOBS", .olderThan = hour}), ElementsAre("JOBS7"));
    EXPECT_THAT(names({.table = "JOBS", .tag = 7, .session = 1}), ElementsAre("JOBS7"));
    EXPECT_THAT(names({.table = "JOBS", .tag = 7, .session = 2}), IsEmpty());
    EXPECT_THAT(names({.olderThan = hour / 2}), ElementsAre("JOBS7", "ORDERS7")) << "not one of that age";
}

TEST_F(LockList, AFilterSaysWhetherItIsOne) {
    EXPECT_FALSE(LockFilter().isAny());
    EXPECT_TRUE((LockFilter{.tag = 0}).isAny());
    EXPECT_TRUE((LockFilter{.olderThan = 0}).isAny());
}

TEST_F(LockList, DeletesWhatWasListed) {
    EXPECT_THAT(remove(list({.table = "JOBS"})), SizeIs(2));
    EXPECT_THAT(net.locks.rows(), ElementsAre(testing::StartsWith("7|ORDERS|")));
}

TEST_F(LockList, LeavesWhatHasChangedMeanwhile) {
    const auto listed = list();
    net.locks.remove("TAGNO", 8);
    net.locks.change("Session", 2, 9);
    const auto deleted = remove(listed);
    ASSERT_THAT(deleted, SizeIs(1));
    EXPECT_EQ(deleted[0].lock.RLUSERNAME, "ann");
    EXPECT_THAT(net.locks.rows(), ElementsAre(testing::StartsWith("7|ORDERS|carl")));
}

TEST_F(LockList, DeletesAllOrNone) {
    const auto listed = list();
    const SecondProcess other([](const SecondProcess::Steps& steps) {
        data::Workspace others = data::DBEngine::CreateWorkspace("wksOTHER");
        const data::Database database = others.OpenDatabase(NetworkTables::file);
        others.BeginTrans();
        steps.done();
        steps.wait();
    });
    ASSERT_TRUE(other.await());
    EXPECT_EQ(errorOf([&] { remove(listed); }), runtime::errRowLocked);
    EXPECT_THAT(net.locks.rows(), SizeIs(3));
}

TEST_F(LockList, AFailureInTheMiddleUndoesAll) {
    auto listed = list();
    listed.back().mark = "no mark at all";
    EXPECT_EQ(errorOf([&] { remove(listed); }), runtime::errInvalidBookmark);
    EXPECT_THAT(net.locks.rows(), SizeIs(3));
    listed.pop_back();
    EXPECT_THAT(remove(listed), SizeIs(2)) << "nothing is left of the transaction";
}

} // namespace
} // namespace tol::test
