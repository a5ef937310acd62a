// SPDX-License-Identifier: MIT
#include "RightsCase.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace tol::test {
namespace {

using namespace nlohmann::literals;
using testing::IsEmpty;
using testing::StartsWith;

class RightsLists : public testing::Test {
  protected:
    /// What a command prints that has nothing to complain of.
    [[nodiscard]] std::string out(const std::vector<std::string>& words) const {
        const Outcome outcome = m_case.run(words);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.err, IsEmpty());
        return outcome.out;
    }
    [[nodiscard]] Json json(std::vector<std::string> words) const {
        words.emplace_back("--json");
        return Json::parse(out(words));
    }

    RightsCase m_case;
};

TEST_F(RightsLists, StandInColumnsAsTheWindowsShowThem) {
    EXPECT_EQ(out({"modules"}), "Code  Module Name\n"
                                "N     Network\n"
                                "P     Pellin\n");
    EXPECT_EQ(out({"items"}), "Module  UAI Code  Description    Form Name\n"
                              "N       NADD      Add a site     FRMNADD\n"
                              "N       NDEL      Delete a site  FRMNDEL\n"
                              "P       NADD      Add to a plan\n"
                              "P       PADD      Add a plan\n");
    EXPECT_EQ(out({"templates"}), "URT Code  Template Description\n"
                                  "OFFICE    The office\n"
                                  "YARD      The yard\n");
    EXPECT_EQ(out({"template", "OFFICE"}), "UAI Code  Description    Allowed?\n"
                                           "NADD      Add a site     Yes\n"
                                           "NDEL      Delete a site  No\n");
    EXPECT_EQ(out({"users"}), "User Number  User Name  Remarks      Admin.?\n"
                              "1            jdoe       Foreman      No\n"
                              "2            mroe       Head office  Yes\n");
    EXPECT_EQ(out({"user", "jdoe"}), "UAI Code  Description    Allowed?  URT Code\n"
                                     "NADD      Add a site     Yes       OFFICE\n"
                                     "NDEL      Delete a site  No        OFFICE\n"
                                     "NDEL      Delete a site  Yes       YARD\n"
                                     "PADD      Add a plan     Yes       YARD\n"
                                     "PADD      Add a plan     No\n");
}

TEST_F(RightsLists, AreArraysOfObjectsUnderTheNamesOfTheFields) {
    EXPECT_EQ(
        json({"modules"}),
        R"([{"MODULEID": "N", "MODULENAME": "Network"}, {"MODULEID": "P", "MODULENAME": "Pellin"}])"_json);
    EXPECT_EQ(json({"items", "--module", "P"}),
              R"([{"UAITAG": 4, "MODULEID": "P", "UAICODE": "NADD", "Desc": "Add to a plan", "FORMNAME": ""},
            {"UAITAG": 3, "MODULEID": "P", "UAICODE": "PADD", "Desc": "Add a plan", "FORMNAME": ""}])"_json);
    EXPECT_EQ(json({"templates"}), R"([{"URTTAG": 1, "URTCODE": "OFFICE", "URTNAME": "The office"},
                                       {"URTTAG": 2, "URTCODE": "YARD", "URTNAME": "The yard"}])"_json);
    EXPECT_EQ(json({"template", "OFFICE"}),
              R"([{"UAITAG": 1, "MODULEID": "N", "UAICODE": "NADD", "Desc": "Add a site", "ALLOWED": true},
            {"UAITAG": 2, "MODULEID": "N", "UAICODE": "NDEL", "Desc": "Delete a site", "ALLOWED": false}])"_json);
    EXPECT_EQ(json({"users"})[1],
              R"({"USERTAG": 2, "UserName": "mroe", "REMARKS": "Head office", "ADMIN": true})"_json);
    const Json rights = json({"user", "jdoe"});
    EXPECT_EQ(rights[3], R"({"UAITAG": 3, "MODULEID": "P", "UAICODE": "PADD", "Desc": "Add a plan",
                             "ALLOWED": true, "URTTAG": 2, "URTCODE": "YARD"})"_json);
    EXPECT_EQ(rights[4], R"({"UAITAG": 3, "MODULEID": "P", "UAICODE": "PADD", "Desc": "Add a plan",
                             "ALLOWED": false, "URTTAG": 0, "URTCODE": ""})"_json);
}

TEST_F(RightsLists, AreCommaSeparatedValues) {
    m_case.network.users.add({{3, "a,b", "says \"no\"\r\nand goes", false}});
    EXPECT_EQ(out({"users", "--csv"}), "USERTAG,UserName,REMARKS,ADMIN\r\n"
                                       "3,\"a,b\",\"says \"\"no\"\"\r\nand goes\",N\r\n"
                                       "1,jdoe,Foreman,N\r\n"
                                       "2,mroe,Head office,Y\r\n");
    EXPECT_THAT(out({"user", "jdoe", "--csv"}),
                StartsWith("UAITAG,MODULEID,UAICODE,Desc,ALLOWED,URTTAG,URTCODE\r\n"
                           "1,N,NADD,Add a site,Y,1,OFFICE\r\n"));
}

TEST_F(RightsLists, KeepARowOnItsLineAndColumnsApart) {
    m_case.network.users.add({{3, "müller", "two\r\nlines", false}});
    EXPECT_EQ(out({"users"}), "User Number  User Name  Remarks      Admin.?\n"
                              "1            jdoe       Foreman      No\n"
                              "2            mroe       Head office  Yes\n"
                              "3            müller     two  lines   No\n");
}

TEST_F(RightsLists, FindNamesInCapitalsOrNot) {
    EXPECT_EQ(out({"user", " JDOE "}), out({"user", "jdoe"}));
    EXPECT_EQ(out({"template", "office"}), out({"template", "OFFICE"}));
    EXPECT_EQ(out({"items", "--module", "p"}), out({"items", "--module", "P"}));
}

TEST_F(RightsLists, ShowQuestionMarksForWhatIsGone) {
    m_case.network.accessItems.remove("UAITAG", 2);
    m_case.network.templates.remove("URTTAG", 2);
    EXPECT_EQ(out({"template", "OFFICE"}), "UAI Code  Description                     Allowed?\n"
                                           "NADD      Add a site                      Yes\n"
                                           "????????  ??????????????????????????????  No\n");
    const Json row = json({"user", "jdoe"})[2];
    EXPECT_EQ(row, R"({"UAITAG": 2, "MODULEID": "", "UAICODE": "????????",
                       "Desc": "??????????????????????????????", "ALLOWED": true, "URTTAG": 2,
                       "URTCODE": "????????"})"_json);
}

TEST_F(RightsLists, TheItemsOfAModuleThatIsGoneAreListed) {
    m_case.network.modules.remove("MODULEID", "P");
    EXPECT_EQ(json({"items", "--module", "P"}).size(), 2U);
    m_case.network.modules.add({{"Q", "Without items"}});
    EXPECT_EQ(json({"items", "--module", "Q"}), Json::array());
}

TEST_F(RightsLists, ANameThatIsUnknownIsStatusOne) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"user", "nobody"}, "tolctl: there is no user \"nobody\".\n"},
        {{"template", "NONE"}, "tolctl: there is no User Rights Template \"NONE\".\n"},
        {{"items", "--module", "X"}, "tolctl: there is no module \"X\".\n"}};
    for (auto [words, text] : cases)
        for (const char* form : {"", "--json", "--csv"}) {
            auto all = words;
            if (*form != '\0')
                all.emplace_back(form);
            const Outcome outcome = m_case.run(all);
            EXPECT_EQ(outcome.status, 1);
            EXPECT_THAT(outcome.out, IsEmpty());
            EXPECT_EQ(outcome.err, text);
        }
}

} // namespace
} // namespace tol::test
