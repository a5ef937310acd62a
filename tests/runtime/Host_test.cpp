// SPDX-License-Identifier: MIT
#include "runtime/Host.h"

#include "support/TestHost.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace tol::test {
namespace {

using namespace runtime;

TEST(Host, IsTheInnermostInstalled) {
    EXPECT_THROW(host(), std::logic_error);
    TestHost outer;
    {
        const TestHost inner;
        EXPECT_EQ(&host(), &inner);
    }
    EXPECT_EQ(&host(), &outer);
}

TEST(Host, HandsTheBoxOnAndTheAnswerBack) {
    TestHost person;
    person.answers = {MsgResult::Cancel};
    const MsgStyle style{MsgIcon::Critical, MsgButtons::OkCancel};
    EXPECT_EQ(host().msgBox("text", style, "title"), MsgResult::Cancel);
    ASSERT_EQ(person.boxes.size(), 1U);
    EXPECT_EQ(person.boxes[0].text, "text");
    EXPECT_EQ(person.boxes[0].title, "title");
    EXPECT_EQ(person.boxes[0].style, style);
}

TEST(Host, SettlesBeforeABoxAndBeforeTheEnd) {
    static int settled = 0;
    settled = 0;
    addSettler([] { ++settled; });
    TestHost person;
    person.onBox = [](const Box&) { EXPECT_EQ(settled, 1); };
    host().msgBox("text");
    EXPECT_EQ(settled, 1);
    host().doEvents();
    EXPECT_EQ(settled, 1) << "a yield alone waits for nobody";
    EXPECT_EQ(person.yields, 1);
    EXPECT_THROW(host().end(), ProgramEnded);
    EXPECT_EQ(settled, 2);
}

} // namespace
} // namespace tol::test
