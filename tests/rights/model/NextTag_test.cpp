// SPDX-License-Identifier: MIT
#include "rights/model/NextTag.h"

#include "data/OpenTable.h"
#include "support/NetworkTables.h"
#include "support/Raises.h"
#include "support/StartFolder.h"
#include "support/TestHost.h"

#include <gmock/gmock.h>

#include <limits>

namespace tol::test {
namespace {

using testing::ElementsAre;

class NextTag : public testing::Test {
  protected:
    std::int32_t next(const std::string& counter) {
        data::OpenTable tags("wksNET", NetworkTables::file, "NETTAGS");
        return rights::NextTag(tags.rows, counter);
    }

    StartFolder folder;
    TestHost person;
    NetworkTables net;
};

TEST_F(NextTag, AnEmptyTableGivesOneAndHoldsTwo) {
    EXPECT_EQ(next("URTTAG"), 1);
    EXPECT_THAT(net.tags.rows(), ElementsAre("Null|2|Null"));
    EXPECT_EQ(next("URTTAG"), 2);
    EXPECT_THAT(net.tags.rows(), ElementsAre("Null|3|Null"));
}

TEST_F(NextTag, EachCounterCountsAlone) {
    net.tags.add({{40, 50, 60}});
    EXPECT_EQ(next("UAITAG"), 40);
    EXPECT_EQ(next("USERTAG"), 60);
    EXPECT_EQ(next("URTTAG"), 50);
    EXPECT_THAT(net.tags.rows(), ElementsAre("41|51|61"));
}

TEST_F(NextTag, ACounterThatIsNullGivesZero) {
    net.tags.add({{runtime::Null{}, 5, 5}});
    EXPECT_EQ(next("UAITAG"), 0);
    EXPECT_EQ(next("UAITAG"), 1);
}

TEST_F(NextTag, SeesWhatOthersHaveTaken) {
    net.tags.add({{7, 7, 7}});
    data::OpenTable tags("wksNET", NetworkTables::file, "NETTAGS");
    EXPECT_EQ(rights::NextTag(tags.rows, "UAITAG"), 7);
    EXPECT_EQ(next("UAITAG"), 8);
    EXPECT_EQ(rights::NextTag(tags.rows, "UAITAG"), 9);
}

TEST_F(NextTag, ACounterAtItsEndGivesNothingOut) {
    net.tags.add({{std::numeric_limits<std::int32_t>::max(), 1, 1}});
    EXPECT_EQ(errorOf([&] { next("UAITAG"); }), runtime::errOverflow);
    EXPECT_THAT(net.tags.rows(), ElementsAre("2147483647|1|1"));
}

} // namespace
} // namespace tol::test
