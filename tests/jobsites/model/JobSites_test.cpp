// SPDX-License-Identifier: MIT
#include "jobsites/model/JobSites.h"

#include "data/OpenTable.h"
#include "support/StartFolder.h"
#include "support/TestHost.h"
#include "support/TestTable.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

using jobsites::findJobSite;

class JobSites : public testing::Test {
  protected:
    /// Number of the site that is found, 0 for none.
    template <typename Key>
    std::int32_t found(const Key& key) {
        data::OpenTable table("wksPATH", "DBPATHS.MDB", "DBPATHS");
        const auto site = findJobSite(table.rows, key);
        return site ? site->tag : 0;
    }

    StartFolder folder;
    TestHost person;
    TestTable sites{
        "DBPATHS.MDB",
        "DBPATHS",
        {{"DBTAG", data::dbLong}, {"PATHNAME", data::dbText, 16}, {"PathText", data::dbText, 100}},
        {{"DBPATHS", {"PATHNAME", "PathText"}}}};
};

TEST_F(JobSites, AreFoundByNameWhateverItsCaseAndBlanks) {
    sites.add({{1, "NORTH", "C:\\NORTH"}, {2, "  South Yard ", "C:\\SOUTH"}});
    EXPECT_EQ(found(std::string("north ")), 1);
    EXPECT_EQ(found(std::string("SOUTH YARD")), 2);
    EXPECT_EQ(found(std::string("SOUTH")), 0);
}

TEST_F(JobSites, OfOneNameAreFoundInTheOrderOfTheIndex) {
    sites.add({{1, "NORTH", "C:\\Z"}, {2, "NORTH", "C:\\A"}});
    EXPECT_EQ(found(std::string("NORTH")), 2);
}

TEST_F(JobSites, AreFoundByNumber) {
    EXPECT_EQ(found(std::int32_t{5}), 0);
    sites.add({{4, "NORTH", "C:\\Z"}, {5, "SOUTH", "C:\\A"}});
    EXPECT_EQ(found(std::int32_t{5}), 5);
    EXPECT_EQ(found(std::int32_t{6}), 0);
}

TEST_F(JobSites, WithoutValuesHaveBlankOnes) {
    sites.add({{runtime::Null(), "NORTH", runtime::Null()}});
    data::OpenTable table("wksPATH", "DBPATHS.MDB", "DBPATHS");
    const auto site = findJobSite(table.rows, "NORTH");
    ASSERT_TRUE(site);
    EXPECT_EQ(site->name, "NORTH");
    EXPECT_EQ(site->folder, std::string(100, ' '));
    EXPECT_EQ(site->tag, 0);
}

} // namespace
} // namespace tol::test
