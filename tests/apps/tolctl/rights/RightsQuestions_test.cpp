// SPDX-License-Identifier: MIT
#include "RightsCase.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace nlohmann::literals;
using testing::IsEmpty;

class RightsQuestions : public testing::Test {
  protected:
    RightsCase m_case;
};

TEST_F(RightsQuestions, TellWhatAUserMayDo) {
    EXPECT_EQ(m_case.run({"effective", "jdoe"}).out,
              "Module  UAI Code  Description    State     By\n"
              "N       NADD      Add a site     allowed   OFFICE yes\n"
              "N       NDEL      Delete a site  conflict  OFFICE no, YARD yes\n"
              "P       PADD      Add a plan     conflict  YARD yes, by hand no\n");
    EXPECT_EQ(m_case.json({"effective", "jdoe"})[1], R"({
        "UAITAG": 2, "MODULEID": "N", "UAICODE": "NDEL", "Desc": "Delete a site", "state": "conflict",
        "rows": [{"ALLOWED": false, "URTTAG": 1, "URTCODE": "OFFICE"},
                 {"ALLOWED": true, "URTTAG": 2, "URTCODE": "YARD"}]})"_json);
    EXPECT_EQ(m_case.run({"effective", "jdoe", "--csv"}).out,
              "UAITAG,MODULEID,UAICODE,Desc,state,rows\r\n"
              "1,N,NADD,Add a site,allowed,OFFICE yes\r\n"
              "2,N,NDEL,Delete a site,conflict,\"OFFICE no, YARD yes\"\r\n"
              "3,P,PADD,Add a plan,conflict,\"YARD yes, by hand no\"\r\n");
    EXPECT_EQ(m_case.json({"effective", "mroe"}), Json::array());
}

TEST_F(RightsQuestions, RowsThatAgreeAreNoConflict) {
    m_case.network.rights.add({{2, 1, true, 1}, {2, 1, true, 0}, {2, 2, false, 1}, {2, 2, false, 2}});
    const Json rights = m_case.json({"effective", "mroe"});
    EXPECT_EQ(rights[0]["state"], "allowed");
    EXPECT_EQ(rights[0]["rows"].size(), 2U);
    EXPECT_EQ(rights[1]["state"], "denied");
}

TEST_F(RightsQuestions, ARightToAnItemThatIsGoneIsTold) {
    m_case.network.accessItems.remove("UAITAG", 1);
    m_case.network.templates.remove("URTTAG", 1);
    EXPECT_EQ(m_case.json({"effective", "jdoe"})[0], R"({
        "UAITAG": 1, "MODULEID": "", "UAICODE": "????????", "Desc": "??????????????????????????????",
        "state": "allowed", "rows": [{"ALLOWED": true, "URTTAG": 1, "URTCODE": "????????"}]})"_json);
}

TEST_F(RightsQuestions, TellWhoHoldsAnItem) {
    m_case.network.rights.add({{2, 3, true, 2}});
    EXPECT_EQ(m_case.run({"who", "padd"}).out, "Module  UAI Code  Description  User Name  Allowed?  From\n"
                                               "P       PADD      Add a plan   jdoe       Yes       YARD\n"
                                               "P       PADD      Add a plan   jdoe       No        by hand\n"
                                               "P       PADD      Add a plan   mroe       Yes       YARD\n");
    const Json holders = m_case.json({"who", "PADD"});
    EXPECT_EQ(holders[0], R"({"UAITAG": 3, "MODULEID": "P", "UAICODE": "PADD", "Desc": "Add a plan",
        "USERTAG": 1, "UserName": "jdoe", "ALLOWED": true, "URTTAG": 2, "URTCODE": "YARD"})"_json);
    EXPECT_EQ(holders[1]["URTCODE"], "");
    EXPECT_EQ(m_case.run({"who", "PADD", "--csv"}).out.substr(0, 68),
              "UAITAG,MODULEID,UAICODE,Desc,USERTAG,UserName,ALLOWED,URTTAG,URTCODE");
}

TEST_F(RightsQuestions, ACodeInSeveralModulesIsAnsweredForEach) {
    m_case.network.rights.add({{2, 4, false, 0}, {1, 4, true, 0}});
    const Json both = m_case.json({"who", "NADD"});
    ASSERT_EQ(both.size(), 3U);
    EXPECT_EQ(both[0]["MODULEID"], "N");
    EXPECT_EQ(both[1]["MODULEID"], "P");
    EXPECT_EQ(both[1]["UserName"], "jdoe");
    EXPECT_EQ(both[2]["UserName"], "mroe");
    EXPECT_EQ(m_case.json({"who", "NADD", "--module", "p"}).size(), 2U);
}

TEST_F(RightsQuestions, WhoTellsOfUsersOnly) {
    m_case.network.rights.add({{77, 3, true, 0}});
    EXPECT_EQ(m_case.json({"who", "PADD"}).size(), 2U);
}

TEST_F(RightsQuestions, AnItemThatNobodyHoldsIsNoError) {
    EXPECT_EQ(m_case.json({"who", "NADD", "--module", "P"}), Json::array());
}

TEST_F(RightsQuestions, AUserWhoIsAsTheTemplatesAreDoesNotDiffer) {
    EXPECT_EQ(m_case.json({"diff", "jdoe"}), Json::array());
    EXPECT_EQ(m_case.json({"diff", "jdoe", "yard"}), Json::array());
    EXPECT_EQ(m_case.json({"diff", "mroe"}), Json::array()) << "filled from none";
}

TEST_F(RightsQuestions, TellHowAUserDiffers) {
    m_case.network.templateItems.add({{1, 3, true}});
    m_case.network.templateItems.remove("UAITAG", 1);
    m_case.network.templateItems.change("ALLOWED", false, true);
    EXPECT_EQ(m_case.run({"diff", "jdoe"}).out,
              "URT Code  Module  UAI Code  Description    Difference                 Template  User\n"
              "OFFICE    N       NDEL      Delete a site  allowed differently        allowed   denied\n"
              "OFFICE    P       PADD      Add a plan     missing at the user        allowed\n"
              "OFFICE    N       NADD      Add a site     no longer in the template            allowed\n");
    EXPECT_EQ(m_case.run({"diff", "jdoe"}).status, 5);
    const Json differences = m_case.json({"diff", "jdoe"}, 5);
    EXPECT_EQ(differences[0], R"({"URTTAG": 1, "URTCODE": "OFFICE", "UAITAG": 2, "MODULEID": "N",
        "UAICODE": "NDEL", "Desc": "Delete a site", "difference": "allowed-differently",
        "template": "allowed", "user": "denied"})"_json);
    EXPECT_EQ(differences[1]["difference"], "missing");
    EXPECT_EQ(differences[1]["user"], nullptr);
    EXPECT_EQ(differences[2]["difference"], "not-in-template");
    EXPECT_EQ(differences[2]["template"], nullptr);
    EXPECT_EQ(m_case.json({"diff", "jdoe", "OFFICE"}, 5), differences);
    EXPECT_EQ(m_case.json({"diff", "jdoe", "YARD"}), Json::array());
}

TEST_F(RightsQuestions, ATemplateThatIsNamedNeedNotHaveFilledTheUser) {
    const Json differences = m_case.json({"diff", "mroe", "OFFICE"}, 5);
    ASSERT_EQ(differences.size(), 2U);
    EXPECT_EQ(differences[0]["difference"], "missing");
    EXPECT_EQ(differences[1]["difference"], "missing");
}

TEST_F(RightsQuestions, NothingIsInATemplateThatIsGone) {
    m_case.network.templates.remove("URTTAG", 1);
    const Json differences = m_case.json({"diff", "jdoe"}, 5);
    ASSERT_EQ(differences.size(), 2U);
    for (const Json& difference : differences) {
        EXPECT_EQ(difference["URTTAG"], 1);
        EXPECT_EQ(difference["URTCODE"], "????????");
        EXPECT_EQ(difference["difference"], "not-in-template");
    }
}

TEST_F(RightsQuestions, RowsByHandAreNoneOfATemplate) {
    m_case.network.templateItems.add({{1, 4, true}});
    m_case.network.rights.add({{1, 4, true, 0}});
    const Json differences = m_case.json({"diff", "jdoe"}, 5);
    ASSERT_EQ(differences.size(), 1U);
    EXPECT_EQ(differences[0]["difference"], "missing");
}

TEST_F(RightsQuestions, ANameThatIsUnknownIsStatusOne) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"effective", "nobody"}, "tolctl: there is no user \"nobody\".\n"},
        {{"who", "NONE"}, "tolctl: there is no item \"NONE\".\n"},
        {{"who", "NDEL", "--module", "P"}, "tolctl: there is no item \"NDEL\" in module \"P\".\n"},
        {{"diff", "nobody"}, "tolctl: there is no user \"nobody\".\n"},
        {{"diff", "jdoe", "NONE"}, "tolctl: there is no User Rights Template \"NONE\".\n"},
        {{"fill", "nobody", "OFFICE"}, "tolctl: there is no user \"nobody\".\n"},
        {{"fill", "jdoe", "NONE"}, "tolctl: there is no User Rights Template \"NONE\".\n"}};
    for (auto [words, text] : cases)
        for (const bool json : {false, true}) {
            if (json)
                words.emplace_back("--json");
            const Outcome outcome = m_case.run(words);
            EXPECT_EQ(outcome.status, 1);
            EXPECT_THAT(outcome.out, IsEmpty());
            EXPECT_EQ(outcome.err, text);
        }
}

TEST_F(RightsQuestions, AFillBringsATemplateToAUser) {
    m_case.network.rights.add({{2, 4, true, 1}});
    const Outcome fill = m_case.run({"fill", "mroe", "office"});
    EXPECT_EQ(fill.status, 0);
    EXPECT_EQ(fill.out, "UAI Code  Description    Allowed?  URT Code\n"
                        "NADD      Add a site     Yes       OFFICE\n"
                        "NDEL      Delete a site  No        OFFICE\n");
    EXPECT_THAT(fill.err, IsEmpty());
    const std::vector<std::string> rows = m_case.network.rights.rows();
    EXPECT_EQ(m_case.json({"fill", "mroe", "OFFICE"}).size(), 2U);
    EXPECT_EQ(m_case.network.rights.rows(), rows) << "twice is as once";
    EXPECT_EQ(m_case.json({"diff", "mroe"}), Json::array());
}

} // namespace
} // namespace tol::test
