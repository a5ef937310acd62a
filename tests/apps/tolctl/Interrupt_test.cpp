// SPDX-License-Identifier: MIT
#include "tolctl/Interrupt.h"

#include "support/SecondProcess.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <string>
#include <unistd.h>

namespace tol::test {
namespace {

/// What a process of its own returns whose standard input is a pipe with that content, at its end or not.
int withInput(const std::string& content, bool ended, const std::function<int()>& act) {
    SecondProcess process([&](const SecondProcess::Steps&) {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0 || dup2(ends[0], STDIN_FILENO) < 0 ||
            write(ends[1], content.data(), content.size()) != static_cast<ssize_t>(content.size()))
            _exit(98);
        if (ended)
            close(ends[1]);
        ctl::watchInterrupts();
        _exit(act());
    });
    return process.finish();
}

TEST(ReadLine, GivesLineAfterLineAndTheRest) {
    EXPECT_EQ(withInput("yes\n\nno", true,
                        [] {
                            const bool right = ctl::readLine() == "yes" && ctl::readLine() == "" &&
                                               ctl::readLine() == "no" && !ctl::readLine();
                            return right ? 0 : 1;
                        }),
              0);
}

TEST(ReadLine, DoesNotWaitWhenAStopWasAskedForJustBefore) {
    EXPECT_EQ(withInput("", false,
                        [] {
                            std::raise(SIGINT);
                            return ctl::readLine() || !ctl::interrupted() ? 1 : 0;
                        }),
              0);
}

TEST(ReadLine, IsBrokenOffByAStop) {
    EXPECT_EQ(withInput("half a li", false,
                        [] {
                            std::signal(SIGALRM, [](int) { std::raise(SIGTERM); });
                            alarm(1);
                            return ctl::readLine() || !ctl::interrupted() ? 1 : 0;
                        }),
              0);
}

} // namespace
} // namespace tol::test
