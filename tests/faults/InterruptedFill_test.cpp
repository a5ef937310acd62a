// SPDX-License-Identifier: MIT
#include "FileState.h"
#include "data/OpenTable.h"
#include "rights/model/FillFromTemplate.h"
#include "support/NetworkTables.h"
#include "support/SecondProcess.h"
#include "support/StartFolder.h"
#include "support/TestHost.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <random>
#include <set>
#include <thread>

namespace tol::test {
namespace {

using testing::IsSupersetOf;
using testing::SizeIs;
using Clock = std::chrono::steady_clock;
using Rows = std::vector<std::string>;

constexpr std::int32_t anna = 1, clerk = 5;
constexpr int items = 5'000;
constexpr int kills = 5;

/// By hand there may be more: so many times as many as TOL_KILLS says.
int killsWanted() {
    const char* const factor = std::getenv("TOL_KILLS");
    return factor == nullptr ? kills : kills * std::atoi(factor);
}

/// A user with rights from other sources, who is filled from a template of 5,000 items.
class InterruptedFill : public testing::Test {
  protected:
    InterruptedFill() {
        std::vector<TestTable::Row> rows;
        rows.reserve(items);
        for (int item = 0; item < items; ++item)
            rows.push_back({clerk, item, item % 3 == 0});
        net.templateItems.add(rows);
        net.rights.add({{anna, 7, true, 0}, {anna, 8, false, 6}, {2, 9, true, clerk}});
    }

    static void fill() {
        TestHost host;
        data::OpenTable rights("wksNET", NetworkTables::file, "USERRIGHTS");
        data::Recordset of = rights.database.OpenRecordset("URTITEMS");
        rights::FillFromTemplate(rights.rows, of, {.userTag = anna, .urtTag = clerk}, [] { return true; });
        rights.Close();
    }
    /// Fills in another process, which is killed at that moment; whether it had come to its end.
    static bool fillKilledAfter(Clock::duration moment) {
        auto other = std::make_unique<SecondProcess>([](const SecondProcess::Steps& steps) {
            steps.done();
            fill();
        });
        EXPECT_TRUE(other->await());
        std::this_thread::sleep_for(moment);
        return other->kill() == 0;
    }
    [[nodiscard]] Rows sorted() const {
        Rows rows = net.rights.rows();
        std::ranges::sort(rows);
        return rows;
    }

    StartFolder folder;
    NetworkTables net;
    const Rows others = {"1|7|True|0", "1|8|False|6", "2|9|True|5"};
};

TEST_F(InterruptedFill, KilledAndRunAgainEndsAsIfNeverKilled) {
    const auto begin = Clock::now();
    fill();
    const auto whole = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin).count();
    const Rows expected = sorted();
    ASSERT_THAT(expected, SizeIs(items + others.size()));
    std::mt19937 chance(20'261);
    std::uniform_int_distribution<std::int64_t> moment(0, whole);
    int inTheMiddle = 0;
    for (int kill = 0; kill < killsWanted() && !HasFailure(); ++kill) {
        fillKilledAfter(std::chrono::microseconds(moment(chance)));
        const Rows left = sorted();
        inTheMiddle += left == expected ? 0 : 1;
        EXPECT_THAT(left, IsSupersetOf(others));
        EXPECT_TRUE(std::ranges::includes(expected, left)) << "each row is a whole one, once";
        EXPECT_EQ(damageIn(NetworkTables::file), "");
        fill();
        EXPECT_EQ(sorted(), expected);
    }
    RecordProperty("killedInTheMiddle", inTheMiddle);
}

// No lock keeps two administrators apart. Who comes second deletes what the first one has written so far, and
// from then on both write: an item is there once or twice, never less, until the next fill.
TEST_F(InterruptedFill, TwoAtOnceLoseNothingAndTheNextOneIsRight) {
    SecondProcess other([](const SecondProcess::Steps& steps) {
        steps.done();
        steps.wait();
        fill();
    });
    ASSERT_TRUE(other.await());
    other.next();
    fill();
    EXPECT_EQ(other.finish(), 0);
    Rows both = sorted();
    EXPECT_EQ(damageIn(NetworkTables::file), "");
    EXPECT_THAT(both, IsSupersetOf(others));
    for (const std::string& row : std::set(both.begin(), both.end()))
        EXPECT_LE(std::ranges::count(both, row), 2) << row;
    RecordProperty("rows", static_cast<int>(both.size()));
    fill();
    const Rows after = sorted();
    EXPECT_THAT(after, SizeIs(items + others.size()));
    EXPECT_EQ(std::set(after.begin(), after.end()).size(), after.size());
    EXPECT_EQ(std::set(both.begin(), both.end()), std::set(after.begin(), after.end()));
}

} // namespace
} // namespace tol::test
