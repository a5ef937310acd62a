// SPDX-License-Identifier: MIT
#include "runtime/Host.h"

#include "runtime/DeferredErrors.h"
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

TEST(Host, FlushesBeforeABoxAndBeforeTheEnd) {
    static int flushed = 0;
    flushed = 0;
    addFlusher([] { ++flushed; });
    TestHost person;
    person.onBox = [](const Box&) { EXPECT_EQ(flushed, 1); };
    host().msgBox("text");
    EXPECT_EQ(flushed, 1);
    host().doEvents();
    EXPECT_EQ(flushed, 1) << "a yield alone waits for nobody";
    EXPECT_EQ(person.yields, 1);
    EXPECT_THROW(host().end(), ProgramEnded);
    EXPECT_EQ(flushed, 2);
}

TEST(Host, ShowsTheBoxAndOwesWhatCouldNotBeStored) {
    static bool fails = true;
    addFlusher([] {
        if (fails)
            raise(errDiskFull);
    });
    TestHost person;
    host().msgBox("text");
    fails = false;
    EXPECT_EQ(person.texts(), std::vector<std::string>{"text"});
    EXPECT_EQ(errorOf([] { flush(); }), errDiskFull);
    EXPECT_EQ(errorOf([] { flush(); }), 0);
}

TEST(DeferredErrors, AreRaisedOldestFirstAndOnce) {
    const auto failure = [](int number) { return std::make_exception_ptr(RuntimeError(number, "")); };
    deferError(failure(1));
    deferError(failure(2), "A.MDB");
    deferError(failure(3));
    EXPECT_EQ(errorOf([] { raiseDeferred("B.MDB"); }), 0);
    EXPECT_EQ(errorOf([] { raiseDeferred("A.MDB"); }), 2);
    EXPECT_EQ(errorOf([] { raiseDeferred(); }), 1);
    EXPECT_TRUE(anyDeferred());
    EXPECT_EQ(errorOf([] { raiseDeferred(); }), 3);
    EXPECT_FALSE(anyDeferred());
    EXPECT_EQ(takeDeferred(), nullptr);
}

} // namespace
} // namespace tol::test
