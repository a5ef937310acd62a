// SPDX-License-Identifier: MIT
#include "network/model/NetworkUser.h"

#include "platform/Paths.h"
#include "platform/System.h"
#include "runtime/Conversions.h"
#include "support/NetworkTables.h"
#include "support/Raises.h"
#include "support/StartFolder.h"
#include "support/TestHost.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using network::addUser;
using network::UserAddition;
using network::userNumber;
using testing::ElementsAre;
using testing::IsEmpty;

class NetworkUser : public testing::Test {
  protected:
    NetworkUser() {
        platform::setClock(
            [] { return runtime::makeDate({.year = 2003, .month = 1, .day = 31, .hour = 16, .minute = 5}); });
    }
    ~NetworkUser() override { platform::setClock({}); }

    void expectBox(runtime::MsgIcon icon, const std::string& title, const std::string& text) const {
        ASSERT_EQ(person.boxes.size(), 1U);
        EXPECT_EQ(person.boxes[0].title, title);
        EXPECT_EQ(person.boxes[0].text, text);
        EXPECT_EQ(person.boxes[0].style, (runtime::MsgStyle{icon, runtime::MsgButtons::Ok}));
    }

    StartFolder folder;
    TestHost person;
    NetworkTables net;
    std::string file = NetworkTables::file;
};

TEST_F(NetworkUser, TheFirstOneEverGetsNumberOne) {
    const network::AddedUser user = addUser(file, "ann");
    EXPECT_EQ(user.outcome, UserAddition::Added);
    EXPECT_EQ(user.number, 1);
    EXPECT_THAT(net.users.rows(), ElementsAre("1|ann|Added on: 1/31/2003|False"));
    EXPECT_THAT(net.tags.rows(), ElementsAre("Null|Null|2"));
    network::tell(user);
    expectBox(runtime::MsgIcon::Information, "User List Updated",
              "The User Name: ann\nhas been added to the list of users.");
}

TEST_F(NetworkUser, TheNextOneGetsTheNumberOfTheCounter) {
    net.tags.add({{10, 20, 30}});
    EXPECT_EQ(addUser(file, "ann").number, 30);
    EXPECT_THAT(net.tags.rows(), ElementsAre("10|20|31"));
    EXPECT_EQ(addUser(file, "bob").number, 31);
}

TEST_F(NetworkUser, IsStoredAndSoughtInLowerCase) {
    EXPECT_EQ(addUser(file, "AnN").name, "ann");
    const network::AddedUser again = addUser(file, "aNn");
    EXPECT_EQ(again.outcome, UserAddition::NameIsTaken);
    EXPECT_THAT(net.users.rows(), ElementsAre("1|ann|Added on: 1/31/2003|False"));
    EXPECT_THAT(net.tags.rows(), ElementsAre("Null|Null|2")) << "a number was taken for nothing";
    network::tell(again);
    expectBox(runtime::MsgIcon::Critical, "Cannot Update Record",
              "Duplicate User Name Detected.\nThe User Name you have entered already exists.");
}

TEST_F(NetworkUser, MayHaveLettersBeyondASCII) {
    EXPECT_EQ(addUser(file, "\u00c4NNE \u0416\u00d8").name, "\u00e4nne \u0436\u00f8");
    EXPECT_EQ(addUser(file, "\u00e4nne \u0416\u00f8").outcome, UserAddition::NameIsTaken);
    EXPECT_EQ(userNumber(file, "\u00c4nne \u0436\u00d8"), 1);
    EXPECT_EQ(addUser(file, std::string(20, 'x')).number, 2);
}

TEST_F(NetworkUser, NeedsAName) {
    for (const char* name : {"", "   "}) {
        const network::AddedUser user = addUser(file, name);
        EXPECT_EQ(user.outcome, UserAddition::NameIsBlank);
        person.boxes.clear();
        network::tell(user);
        expectBox(runtime::MsgIcon::Critical, "Cannot Update Record", "Empty User Name Detected");
    }
    EXPECT_THAT(net.users.rows(), IsEmpty());
}

TEST_F(NetworkUser, WhoseNameDoesNotFitLosesTheNumber) {
    EXPECT_EQ(errorOf([&] { addUser(file, std::string(21, 'x')); }), 3163);
    EXPECT_THAT(net.users.rows(), IsEmpty());
    EXPECT_THAT(net.tags.rows(), ElementsAre("Null|Null|2"));
}

TEST_F(NetworkUser, HasTheNumberOfTheList) {
    net.users.add({{7, "ann", "", false}, {runtime::Null(), "bob", "", true}});
    EXPECT_EQ(userNumber(file, "ANN"), 7);
    EXPECT_EQ(userNumber(file, "bob"), 0);
    EXPECT_EQ(userNumber(file, "cleo"), std::nullopt);
    EXPECT_EQ(userNumber(file, " "), std::nullopt);
}

TEST_F(NetworkUser, IsSoughtInADatabaseThatHasAllTables) {
    const TestTable list{
        "HALF.MDB", "USERLIST", {{"UserName", data::dbText, 20}}, {{"USERNAME", {"UserName"}}}};
    EXPECT_EQ(errorOf([] { userNumber("HALF.MDB", "ann"); }), 3078);
    EXPECT_EQ(errorOf([] { addUser("NONE.MDB", "ann"); }), 3024);
}

TEST_F(NetworkUser, TheDatabaseIsFoundOrItsLackIsTold) {
    EXPECT_EQ(network::networkDatabase(""), platform::currentFolder() + "\\ZOVNET.MDB");
    EXPECT_THAT(person.boxes, IsEmpty());
    folder.remove("ZOVNET.MDB");
    EXPECT_EQ(network::networkDatabase(""), std::nullopt);
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].title, "Cannot Access");
}

} // namespace
} // namespace tol::test
