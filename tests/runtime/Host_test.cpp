// SPDX-License-Identifier: MIT
#include "runtime/Host.h"

#include "runtime/OwedErrors.h"
#include "support/Raises.h"
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

TEST(Host, ShowsTheBoxAndOwesWhatCouldNotBeStored) {
    static bool fails = true;
    addSettler([] {
        if (fails)
            raise(errDiskFull);
    });
    TestHost person;
    host().msgBox("text");
    fails = false;
    EXPECT_EQ(person.texts(), std::vector<std::string>{"text"});
    EXPECT_EQ(errorOf([] { settle(); }), errDiskFull);
    EXPECT_EQ(errorOf([] { settle(); }), 0);
}

TEST(OwedErrors, AreRaisedOldestFirstAndOnce) {
    const auto failure = [](int number) { return std::make_exception_ptr(RuntimeError(number, "")); };
    owe(failure(1));
    owe(failure(2), "A.MDB");
    owe(failure(3));
    EXPECT_EQ(errorOf([] { raiseOwed("B.MDB"); }), 0);
    EXPECT_EQ(errorOf([] { raiseOwed("A.MDB"); }), 2);
    EXPECT_EQ(errorOf([] { raiseOwed(); }), 1);
    EXPECT_TRUE(anyOwed());
    EXPECT_EQ(errorOf([] { raiseOwed(); }), 3);
    EXPECT_FALSE(anyOwed());
    EXPECT_EQ(takeOwed(), nullptr);
}

} // namespace
} // namespace tol::test
