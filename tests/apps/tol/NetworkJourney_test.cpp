// SPDX-License-Identifier: MIT
#include "Desk.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::HasSubstr;

constexpr const char* siteTable = R"({"tables": [{"name": "SITEINFO", "fields": [
    {"name": "CONAME", "type": 10, "size": 50, "allowZeroLength": true},
    {"name": "ADDRESS1", "type": 10, "size": 50, "allowZeroLength": true},
    {"name": "ADDRESS2", "type": 10, "size": 50, "allowZeroLength": true},
    {"name": "CITY", "type": 10, "size": 20, "allowZeroLength": true},
    {"name": "State", "type": 10, "size": 2, "allowZeroLength": true},
    {"name": "ZIP", "type": 10, "size": 5, "allowZeroLength": true},
    {"name": "PLUS4", "type": 10, "size": 4, "allowZeroLength": true},
    {"name": "LOCATIONNO", "type": 3}]}]})";

/// An administrator's first minutes at a machine, with the demo.
class NetworkJourney : public Desk {
  protected:
    NetworkJourney()
        : Desk([](const std::filesystem::path& below) {
              EXPECT_EQ(Program(TOL_CTL_PROGRAM, {"demo", "work"}, below).wait(), 0);
              return below / "work";
          }) {}

    [[nodiscard]] bool comesLocation(const std::string& location) const {
        return comes("NETPATH.MDB", "NETPATH", [&](const json& stored) { return stored[0][0] == location; });
    }
};

TEST_F(NetworkJourney, TheLocationIsChangedAndBackAndTheUserAdded) {
    display.press({"alt+u", "4"});
    ASSERT_TRUE(display.waitForWindow("Network Settings - Tolvane Module")) << tol->err();
    display.press({"alt+m"});
    display.type("s:\\nowhere");
    display.press({"alt+u"});
    ASSERT_TRUE(comesLocation("s:\\nowhere")) << tol->err();
    display.press({"alt+a"});
    answer("Cannot Access", "Return");
    display.press({"alt+m"});
    display.type("S:\\NET");
    display.press({"alt+u"});
    ASSERT_TRUE(comesLocation("S:\\NET"));
    display.press({"alt+a"});
    answer("User List Updated", "Return");
    EXPECT_THAT(rows("drives/s/NET/ZOVNET.MDB", "USERLIST").dump(), HasSubstr("Added on: "));
    display.press({"Escape"});
    ASSERT_TRUE(display.waitForWindow(mainTitle));

    display.press({"alt+f", "1"});
    ASSERT_TRUE(display.waitForWindow("Location of Wendry Database"));
    display.type("s:\\elsewhere");
    display.press({"alt+u"});
    ASSERT_TRUE(comesLocation("S:\\ELSEWHERE"));
    ASSERT_TRUE(display.waitForWindow(mainTitle));
    leave();
}

TEST_F(NetworkJourney, TheSiteInformationIsChangedFromTheAboutBox) {
    folder.write("work/main.json", siteTable);
    printedBy(TOL_CTL_PROGRAM, {"load", "drives/s/NET/MAIN.MDB", "main.json"});
    display.press({"alt+h", "a"});
    ASSERT_TRUE(display.waitForWindow("About Tolvane Module")) << tol->err();
    display.press({"shift+F10"});
    ASSERT_TRUE(display.waitForWindow("Site Information Update Screen")) << tol->err();
    display.type("New Works");
    display.press({"alt+u"});
    ASSERT_TRUE(display.waitForWindow("About Tolvane Module"));
    EXPECT_THAT(rows("drives/s/NET/MAIN.MDB", "SITEINFO")[0], Contains(json("New Works")));
    display.press({"Return"});
    ASSERT_TRUE(display.waitForWindow(mainTitle));
    leave();
}

} // namespace
} // namespace tol::test
