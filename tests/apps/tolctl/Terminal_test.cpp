// SPDX-License-Identifier: MIT
#include "Pty.h"
#include "WorkCase.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class TerminalTest : public testing::Test {
  protected:
    WorkCase m_case;
};

TEST_F(TerminalTest, ShowsALineOfProgressAndTakesItAway) {
    m_case.finish();
    Pty update(TOL_CTL_PROGRAM, {"update", "--json"});
    EXPECT_EQ(update.wait(), 0);
    EXPECT_THAT(update.shown(), HasSubstr("\r\033[K"));
    EXPECT_THAT(update.shown(), HasSubstr("NORTH YARD"));
    EXPECT_THAT(update.shown(), HasSubstr("\r\033[K{\"result\": \"Finished\""));
}

TEST_F(TerminalTest, ADumpIntoAFileTellsItsRecord) {
    Json rows = Json::array();
    for (int row = 0; row < 2000; ++row)
        rows.push_back(Json::array({row}));
    m_case.load("BULK.MDB", databaseOf({tableOf("BULK", Json::parse(R"([["TAG", 4, 4]])"), rows)}));
    Pty dump("/bin/sh", {"-c", TOL_CTL_PROGRAM " dump BULK.MDB > BULK.json"});
    EXPECT_EQ(dump.wait(), 0);
    EXPECT_THAT(dump.shown(), HasSubstr("\r\033[KBULK  record 1 of 2000"));
    EXPECT_THAT(dump.shown(), testing::EndsWith("\r\033[K"));
}

TEST_F(TerminalTest, ADumpOverTheTerminalIsNotDisturbed) {
    m_case.load("BULK.MDB", databaseOf({tableOf("BULK", Json::array(), Json::array({Json::array()}))}));
    Pty dump(TOL_CTL_PROGRAM, {"dump", "BULK.MDB"});
    EXPECT_EQ(dump.wait(), 0);
    EXPECT_THAT(dump.shown(), Not(HasSubstr("\033")));
}

TEST_F(TerminalTest, TheLineFitsTheTerminal) {
    const std::string name(64, 'X');
    m_case.folder.write("long.json",
                        databaseOf({tableOf(name, Json::array(), Json::array({Json::array()}))}).dump());
    Pty load(TOL_CTL_PROGRAM, {"load", "LONG.MDB", "long.json"});
    EXPECT_EQ(load.wait(), 0);
    EXPECT_EQ(load.shown(), "\r\033[K" + name.substr(0, Pty::width - 1) + "\r\033[K");
}

TEST_F(TerminalTest, AsksThePersonWithoutBeingTold) {
    m_case.addField("PAY", 10, {"1", "2", "3"}, 5, 8);
    m_case.finish();
    Pty update(TOL_CTL_PROGRAM, {"update"});
    ASSERT_TRUE(update.readUntil("Yes or No? "));
    EXPECT_THAT(update.shown(), HasSubstr("Unable to Convert Data in Field: PAY located in Table: CREW"));
    update.type("yes\n");
    ASSERT_TRUE(update.readUntil("Yes or No? ", 2));
    EXPECT_THAT(update.shown(), HasSubstr("Warn Again if Unable to Convert Data?"));
    update.type("no\n");
    EXPECT_EQ(update.wait(), 0);
    EXPECT_THAT(update.shown(), HasSubstr("Finished."));
}

TEST_F(TerminalTest, ControlCAtAQuestionStops) {
    m_case.addField("PAY", 10, {"1", "2", "3"}, 5, 8);
    m_case.finish();
    Pty update(TOL_CTL_PROGRAM, {"update"});
    ASSERT_TRUE(update.readUntil("Yes or No? "));
    update.type("\003");
    EXPECT_EQ(update.wait(), 4);
    EXPECT_THAT(update.shown(), HasSubstr("STOPPED."));
}

} // namespace
} // namespace tol::test
