// SPDX-License-Identifier: MIT
#include "CaseFolder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A case whose sites hold nothing: each site in a run logs that its one database is missing, once for
/// each pass.
class UpdateSitesTest : public testing::Test {
  protected:
    void addSites(const std::vector<std::string>& names) {
        for (const std::string& name : names)
            m_case.addSite(name, "C:\\" + std::to_string(++m_count));
    }
    void addManySites(int count) {
        for (int i = 1; i <= count; ++i)
            addSites({"SITE " + std::to_string(100 + i)});
    }

    Outcome update(std::vector<std::string> words = {}) {
        if (!m_finished) {
            m_case.addDatabase("WORK");
            m_case.finish();
            m_finished = true;
        }
        words.insert(words.begin(), {"update", "--json"});
        return m_case.run(words);
    }

    static std::vector<std::string> sitesOf(const Outcome& outcome) {
        std::vector<std::string> sites;
        if (outcome.out.empty())
            return sites;
        const Json rows = outcome.json()["rows"];
        for (std::size_t row = 0; row < rows.size(); row += 2)
            sites.push_back(rows[row]["PATHNAME"]);
        return sites;
    }

    CaseFolder m_case;

  private:
    int m_count = 0;
    bool m_finished = false;
};

TEST_F(UpdateSitesTest, AreTakenInTheOrderOfTheList) {
    addSites({"SOUTH", "NORTH", "EAST"});
    const Outcome outcome = update({"--site", "SOUTH", "--site", "EAST"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(sitesOf(outcome), ElementsAre("EAST", "SOUTH"));
}

TEST_F(UpdateSitesTest, AreFoundWithoutRegardToCaseAndBlanks) {
    addSites({"NORTH YARD", "SOUTH"});
    EXPECT_THAT(sitesOf(update({"--site", " north Yard "})), ElementsAre("NORTH YARD"));
    EXPECT_THAT(sitesOf(update({"--site=south"})), ElementsAre("SOUTH"));
}

TEST_F(UpdateSitesTest, ANameStandsForAllThatBearIt) {
    addSites({"NORTH", "SOUTH", "NORTH"});
    EXPECT_THAT(sitesOf(update({"--site", "NORTH", "--site", "north"})), ElementsAre("NORTH", "NORTH"));
}

TEST_F(UpdateSitesTest, AnUnknownNameIsWrongUsage) {
    addSites({"NORTH"});
    const Outcome outcome = update({"--site", "NORTH", "--site", "NROTH", "--site", "WEST"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_EQ(outcome.err, "tolctl: no Job Site is named \"NROTH\", \"WEST\".\n");
}

TEST_F(UpdateSitesTest, TheOnlySiteNeedsNoName) {
    addSites({"NORTH"});
    EXPECT_THAT(sitesOf(update()), ElementsAre("NORTH"));
}

TEST_F(UpdateSitesTest, SeveralSitesNeedAChoice) {
    addSites({"NORTH", "EAST"});
    const Outcome outcome = update();
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_EQ(outcome.err, "tolctl: there are 2 Job Sites: choose with --site NAME or --all. They are "
                           "\"EAST\", \"NORTH\".\n");
}

TEST_F(UpdateSitesTest, AnEmptyListIsFinishedAtOnce) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{}, {"--all"}}) {
        const Outcome outcome = update(words);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.json()["result"], "Finished");
        EXPECT_EQ(outcome.json()["rows"], Json::array());
    }
}

TEST_F(UpdateSitesTest, ARunTakesFiftyOne) {
    addManySites(51);
    const Outcome outcome = update({"--all"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err, IsEmpty());
    EXPECT_EQ(sitesOf(outcome).size(), 51U);
}

TEST_F(UpdateSitesTest, AllNamesTheRestOnStandardError) {
    addManySites(53);
    const Outcome outcome = update({"--all"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "tolctl: a run takes 51 Job Sites; left out: SITE 152\n"
                           "tolctl: a run takes 51 Job Sites; left out: SITE 153\n");
    EXPECT_EQ(sitesOf(outcome).size(), 51U);
    EXPECT_EQ(sitesOf(outcome).back(), "SITE 151");
}

TEST_F(UpdateSitesTest, ASiteWithoutANumberIsLeftOutWithStatusThree) {
    addSites({"NORTH", "SOUTH"});
    m_case.addSiteRow(Json::array({0, "LOST", "C:\\LOST"}));
    const Outcome outcome = update({"--all"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.err, "tolctl: left out, since it has no number: LOST\n");
    EXPECT_THAT(sitesOf(outcome), ElementsAre("NORTH", "SOUTH"));
}

// The rows of the log are those of a missing database.
TEST_F(UpdateSitesTest, AMissingFolderIsToldWithStatusThree) {
    addSites({"NORTH", "SOUTH"});
    m_case.addSiteRow(Json::array({7, "GONE", "Q:\\JOBS\\GONE"}));
    std::filesystem::remove(m_case.folder.driveC() / "2");
    const Outcome outcome = update({"--all"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.err, "tolctl: GONE: there is no folder or drive 'Q:'.\n"
                           "tolctl: SOUTH: there is no folder or drive 'C:\\2'.\n");
    EXPECT_EQ(outcome.json()["missing"], Json::parse(R"([{"site": "GONE", "folder": "Q:"},
                                                         {"site": "SOUTH", "folder": "C:\\2"}])"));
    EXPECT_EQ(outcome.json()["result"], "Finished");
    for (const Json& row : outcome.json()["rows"])
        EXPECT_EQ(row["Action"], "Cannot Find Database.");
    EXPECT_EQ(outcome.json()["rows"].size(), 6U);
}

TEST_F(UpdateSitesTest, AFiftySecondIsRefused) {
    addManySites(52);
    std::vector<std::string> words;
    for (int i = 1; i <= 52; ++i)
        words.insert(words.end(), {"--site", "SITE " + std::to_string(100 + i)});
    const Outcome refused = update(words);
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.out, IsEmpty());
    EXPECT_EQ(refused.err,
              "tolctl: a run takes at most 51 Job Sites, and more than that bear the names given.\n");
    words.resize(words.size() - 2);
    EXPECT_EQ(sitesOf(update(words)).size(), 51U);
}

TEST_F(UpdateSitesTest, AFiftySecondOfOneNameIsRefused) {
    for (int i = 0; i < 52; ++i)
        addSites({"SAME"});
    EXPECT_EQ(update({"--site", "SAME"}).status, 2);
}

} // namespace
} // namespace tol::test
