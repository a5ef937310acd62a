// SPDX-License-Identifier: MIT
#include "WorkCase.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class LogTest : public testing::Test {
  protected:
    LogTest() { m_case.finish(); }

    WorkCase m_case;
};

TEST_F(LogTest, PrintsColumnsInStoredOrder) {
    ASSERT_EQ(m_case.run({"update"}).status, 0);
    const Outcome log = m_case.run({"log"});
    EXPECT_EQ(log.status, 0);
    EXPECT_THAT(log.err, IsEmpty());
    EXPECT_THAT(log.out,
                StartsWith("Job Site          Database    Table             Index             Field    "
                           "         Action                                    Date        Time\n"
                           "NORTH YARD        WORK        CREW                                NAME     "
                           "         Changed Field Size."));
    const auto first = log.out.find("Changed Field Size.");
    const auto second = log.out.find("Added New Field");
    EXPECT_LT(first, second);
    EXPECT_LT(second, log.out.find("Database Ok. No Changes Made."));
}

TEST_F(LogTest, PrintsTheRowsOfTheUpdateAsJson) {
    const Json report = m_case.run({"update", "--json"}).json();
    const Outcome log = m_case.run({"log", "--json"});
    EXPECT_EQ(log.status, 0);
    EXPECT_EQ(log.json(), report["rows"]);
    EXPECT_EQ(log.json().size(), 3U);
}

TEST_F(LogTest, AnEmptyLogIsAHeadingOrAnEmptyArray) {
    EXPECT_EQ(m_case.run({"log", "--json"}).out, "[]\n");
    const Outcome log = m_case.run({"log"});
    EXPECT_EQ(log.status, 0);
    EXPECT_EQ(std::count(log.out.begin(), log.out.end(), '\n'), 1);
}

TEST_F(LogTest, ADatabaseWithoutALogIsStatusOne) {
    std::filesystem::remove(m_case.folder / "ZOVDEF.MDB");
    m_case.load("ZOVDEF.MDB", databaseOf({}));
    const Outcome log = m_case.run({"log"});
    EXPECT_EQ(log.status, 1);
    EXPECT_THAT(log.out, IsEmpty());
    EXPECT_THAT(log.err, HasSubstr("ACTIVITYLOG"));
    EXPECT_THAT(log.err, HasSubstr("(error 3078)"));
}

} // namespace
} // namespace tol::test
