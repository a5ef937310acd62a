// SPDX-License-Identifier: MIT
#include "RightsCase.h"

#include <gmock/gmock.h>

#include <functional>

namespace tol::test {
namespace {

using namespace nlohmann::literals;
using testing::IsEmpty;

TEST(RightsCheck, ASoundFileHasNoFindings) {
    const RightsCase rights;
    const Outcome outcome = rights.run({"check"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "Kind  Table  Finding\n");
    EXPECT_THAT(outcome.err, IsEmpty());
    EXPECT_EQ(rights.json({"check"}), Json::array());
}

TEST(RightsCheck, TheDemoIsSound) {
    const CaseFolder folder;
    ASSERT_EQ(folder.run({"demo", "site"}).status, 0);
    const Outcome outcome = folder.run({"--dir", "site", "rights", "check", "--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "[]\n");
}

const runtime::Null none;

/// What is done to a sound file, and the only finding of that.
struct Unsound {
    const char* kind;
    std::function<void(const NetworkTables&)> damage;
    Json finding; ///< without its kind
};

void PrintTo(const Unsound& unsound, std::ostream* out) {
    *out << unsound.kind;
}

class RightsCheckKinds : public testing::TestWithParam<Unsound> {};

TEST_P(RightsCheckKinds, IsFound) {
    const RightsCase rights;
    GetParam().damage(rights.network);
    Json finding = GetParam().finding;
    finding["kind"] = GetParam().kind;
    EXPECT_EQ(rights.json({"check"}, 5), Json::array({finding}));
    const Outcome shown = rights.run({"check"});
    EXPECT_EQ(shown.status, 5);
    const std::string table = finding["table"], text = finding["text"];
    EXPECT_EQ(shown.out.substr(shown.out.find('\n') + 1),
              std::string(GetParam().kind) + "  " + table + "  " + text + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, RightsCheckKinds,
    testing::Values(
        Unsound{"right-without-item",
                [](const auto& net) {
                    net.rights.add({{2, 3, true, none}, {2, 0, true, 1}});
                },
                R"({"table": "USERRIGHTS", "key": {"USERTAG": 2, "UAITAG": 0, "URTTAG": 1},
                    "text": "User mroe (2) has a right to item 0, which does not exist."})"_json},
        Unsound{"right-without-user",
                [](const auto& net) {
                    net.rights.add({{0, 1, true, 1}});
                },
                R"({"table": "USERRIGHTS", "key": {"USERTAG": 0, "UAITAG": 1, "URTTAG": 1},
                    "text": "A right to item NADD (1) is kept for user 0, who does not exist."})"_json},
        Unsound{"right-with-dead-template",
                [](const auto& net) {
                    net.rights.add({{2, 1, true, -4}});
                },
                R"({"table": "USERRIGHTS", "key": {"USERTAG": 2, "UAITAG": 1, "URTTAG": -4}, "text":
                "User mroe (2) has a right to item NADD (1) from template -4, which does not exist."})"_json},
        Unsound{"template-item-without-item",
                [](const auto& net) {
                    net.templateItems.add({{2, none, true}});
                },
                R"({"table": "URTITEMS", "key": {"URTTAG": 2, "UAITAG": 0},
                    "text": "Template YARD (2) names item 0, which does not exist."})"_json},
        Unsound{"template-item-without-template",
                [](const auto& net) {
                    net.templateItems.add({{0, 2, true}});
                },
                R"({"table": "URTITEMS", "key": {"URTTAG": 0, "UAITAG": 2},
                    "text": "Item NDEL (2) is kept for template 0, which does not exist."})"_json},
        Unsound{"item-without-module",
                [](const auto& net) {
                    net.modules.change("MODULEID", "P", "Q");
                    net.accessItems.remove("UAITAG", 4);
                },
                R"({"table": "USERACCESSITEMS", "key": {"UAITAG": 3, "MODULEID": "P", "UAICODE": "PADD"},
                    "text": "Item PADD (3) belongs to module \"P\", which does not exist."})"_json},
        Unsound{"doubled-right",
                [](const auto& net) {
                    net.rights.add({{1, 3, true, 0}, {1, 3, true, none}});
                },
                R"({"table": "USERRIGHTS", "key": {"USERTAG": 1, "UAITAG": 3, "URTTAG": 0},
                    "text": "User jdoe (1) has a right to item PADD (3) 3 times by hand."})"_json},
        Unsound{"doubled-template-item",
                [](const auto& net) {
                    net.templateItems.add({{1, 1, false}});
                },
                R"({"table": "URTITEMS", "key": {"URTTAG": 1, "UAITAG": 1},
                    "text": "Template OFFICE (1) names item NADD (1) 2 times."})"_json},
        Unsound{"counter-too-low", [](const auto& net) { net.tags.change("UAITAG", 5, 4); },
                R"({"table": "NETTAGS", "key": {"UAITAG": 4},
                    "text": "The next UAITAG to be given out is 4, but 4 is in use already."})"_json},
        Unsound{"unknown-module-selected", [](const auto& net) { net.settings.change("MODULEID", "N", "X"); },
                R"({"table": "NETSETTINGS", "key": {"MODULEID": "X"},
                    "text": "Module \"X\" is selected, but does not exist."})"_json}),
    [](const auto& test) {
        std::string name = test.param.kind;
        std::erase(name, '-');
        return name;
    });

TEST(RightsCheck, ARightTwiceFromATemplateIsTold) {
    const RightsCase rights;
    rights.network.rights.add({{1, 1, false, 1}});
    EXPECT_EQ(rights.json({"check"}, 5)[0]["text"],
              "User jdoe (1) has a right to item NADD (1) 2 times from template OFFICE (1).");
}

TEST(RightsCheck, ARightByHandAndFromATemplateIsNotDoubled) {
    const RightsCase rights;
    rights.network.rights.add({{1, 1, false, 0}, {1, 2, true, none}});
    EXPECT_EQ(rights.json({"check"}), Json::array());
}

TEST(RightsCheck, EveryRowIsAFindingOfItsOwn) {
    const RightsCase rights;
    rights.network.users.remove("USERTAG", 1);
    const Json findings = rights.json({"check"}, 5);
    EXPECT_EQ(findings.size(), 5U);
    for (const Json& finding : findings)
        EXPECT_EQ(finding["kind"], "right-without-user");
}

TEST(RightsCheck, ARowMayBeAmissInSeveralWays) {
    const RightsCase rights;
    rights.network.rights.add({{90, 91, true, 92}});
    std::vector<std::string> kinds;
    for (const Json& finding : rights.json({"check"}, 5))
        kinds.push_back(finding["kind"]);
    EXPECT_THAT(kinds,
                testing::ElementsAre("right-without-item", "right-without-user", "right-with-dead-template",
                                     "counter-too-low", "counter-too-low", "counter-too-low"));
}

// A tag is in use wherever something refers to it.
TEST(RightsCheck, CountersAreHeldAgainstEveryReference) {
    const std::vector<std::pair<std::function<void(const NetworkTables&)>, Json>> uses = {
        {[](const auto& net) {
             net.accessItems.add({{8, "N", "NEW", "", ""}});
         },
         {{"UAITAG", 5}}},
        {[](const auto& net) {
             net.templateItems.add({{1, 8, true}});
         },
         {{"UAITAG", 5}}},
        {[](const auto& net) {
             net.rights.add({{1, 8, true, 1}});
         },
         {{"UAITAG", 5}}},
        {[](const auto& net) {
             net.templates.add({{8, "NEW", ""}});
         },
         {{"URTTAG", 3}}},
        {[](const auto& net) {
             net.templateItems.add({{8, 1, true}});
         },
         {{"URTTAG", 3}}},
        {[](const auto& net) {
             net.rights.add({{1, 1, true, 8}});
         },
         {{"URTTAG", 3}}},
        {[](const auto& net) {
             net.users.add({{8, "new", "", false}});
         },
         {{"USERTAG", 3}}},
        {[](const auto& net) {
             net.rights.add({{8, 1, true, 1}});
         },
         {{"USERTAG", 3}}},
        {[](const auto& net) {
             net.locks.add({{1, "MODULES", "gone", none, 8, 1}});
         },
         {{"USERTAG", 3}}}};
    for (const auto& [use, key] : uses) {
        const RightsCase rights;
        use(rights.network);
        const Json last = rights.json({"check"}, 5).back();
        EXPECT_EQ(last["kind"], "counter-too-low");
        EXPECT_EQ(last["key"], key);
    }
}

TEST(RightsCheck, ATableOfCountersWithoutARowGivesOutOneFirst) {
    const RightsCase rights;
    rights.network.tags.remove("UAITAG", 5);
    const Json findings = rights.json({"check"}, 5);
    ASSERT_EQ(findings.size(), 3U);
    EXPECT_EQ(findings[0]["text"], "The next UAITAG to be given out is 1, but 4 is in use already.");
}

TEST(RightsCheck, ACounterWithoutAValueGivesOutZeroFirst) {
    const RightsCase rights;
    rights.network.tags.change("URTTAG", 3, none);
    EXPECT_EQ(rights.json({"check"}, 5)[0]["key"], R"({"URTTAG": 0})"_json);
}

TEST(RightsCheck, ABlankSelectionIsNone) {
    for (const runtime::Value& blank : {runtime::Value("   "), runtime::Value(none)}) {
        const RightsCase rights;
        rights.network.settings.change("MODULEID", "N", blank);
        EXPECT_EQ(rights.json({"check"}), Json::array());
    }
    const RightsCase rights;
    rights.network.settings.remove("MODULEID", "N");
    EXPECT_EQ(rights.json({"check"}), Json::array());
}

TEST(RightsCheck, ModulesAreFoundInCapitalsOrNot) {
    const RightsCase rights;
    rights.network.modules.change("MODULEID", "P", "p");
    rights.network.settings.change("MODULEID", "N", "n");
    EXPECT_EQ(rights.json({"check"}), Json::array());
}

TEST(RightsCheck, AnItemWithoutAModuleCodeBelongsToNone) {
    const RightsCase rights;
    rights.network.modules.add({{none, "Without a code"}});
    rights.network.accessItems.change("MODULEID", "N", none);
    EXPECT_EQ(rights.json({"check"}, 5)[0]["key"],
              R"({"UAITAG": 1, "MODULEID": "", "UAICODE": "NADD"})"_json);
}

TEST(RightsCheck, TheKeyIsATextInCommaSeparatedValues) {
    const RightsCase rights;
    rights.network.templateItems.add({{2, 99, true}});
    EXPECT_EQ(rights.run({"check", "--csv"}).out,
              "kind,table,key,text\r\n"
              "template-item-without-item,URTITEMS,\"URTTAG 2, UAITAG 99\","
              "\"Template YARD (2) names item 99, which does not exist.\"\r\n"
              "counter-too-low,NETTAGS,UAITAG 5,"
              "\"The next UAITAG to be given out is 5, but 99 is in use already.\"\r\n");
}

// The shortest file that can be: nothing is asked of indexes.
TEST(RightsCheck, NeedsNoIndex) {
    const RightsCase rights;
    {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        data::Database database = workspace.OpenDatabase(NetworkTables::file);
        for (int table = 0; table < database.TableDefs().Count(); ++table)
            while (database.TableDefs()(table).Indexes().Count() > 0)
                database.TableDefs()(table).Indexes().Delete(database.TableDefs()(table).Indexes()(0).Name());
    }
    EXPECT_EQ(rights.json({"check"}), Json::array());
}

} // namespace
} // namespace tol::test
