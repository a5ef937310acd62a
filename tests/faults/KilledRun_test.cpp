// SPDX-License-Identifier: MIT
#include "DemoRun.h"
#include "data/DBEngine.h"
#include "support/Program.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// Kills of runs over one Job Site, which the sites share out among themselves, and of runs over all.
constexpr int killsOfSites = 60;
constexpr int killsOfAll = 4;
constexpr unsigned seed = 20'240;

/// Runs that are killed again and again, each time on a fresh copy.
class KilledRun : public DemoRun {
  protected:
    /// Starts a run and kills it at that moment; false when it ended before.
    [[nodiscard]] bool killAfter(Clock::duration moment) const;
    /// How long an undisturbed run takes here and now.
    Clock::duration runTime();
    static void expectReadable();
    /// By hand there may be more: so many times as many as TOL_KILLS says.
    static int kills();
};

int KilledRun::kills() {
    const char* const factor = std::getenv("TOL_KILLS");
    const int all = GetParam() < demoSites ? killsOfSites / demoSites : killsOfAll;
    return factor == nullptr ? all : all * std::atoi(factor);
}

bool KilledRun::killAfter(Clock::duration moment) const {
    const auto until = Clock::now() + moment;
    Program run(TOL_CTL_PROGRAM, arguments(), fs::current_path());
    std::this_thread::sleep_until(until);
    return run.kill() < 0;
}

Clock::duration KilledRun::runTime() {
    Clock::duration shortest = Clock::duration::max();
    for (int i = 0; i < 2; ++i) {
        enterCopy();
        const auto start = Clock::now();
        EXPECT_EQ(update(), 0);
        shortest = std::min(shortest, Clock::now() - start);
    }
    rememberWholeRun();
    return shortest;
}

// What a killed run left half done has to be put right for those as well who only look.
void KilledRun::expectReadable() {
    for (const fs::path& file : databases()) {
        data::Workspace workspace = data::DBEngine::CreateWorkspace("wksTEST");
        EXPECT_NO_THROW(workspace.OpenDatabase(file, false, true)) << file;
    }
}

Clock::duration partOf(Clock::duration time, double part) {
    return std::chrono::duration_cast<Clock::duration>(time * part);
}

std::string trace(int kill, Clock::duration moment, Clock::duration time) {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    return fmt::format("kill {} after {:.2f} ms of {:.0f}", kill, Milliseconds(moment).count(),
                       Milliseconds(time).count());
}

TEST_P(KilledRun, LosesNoValueAndIsRepairedByTwoFurtherRuns) {
    Clock::duration time = runTime();
    std::mt19937 chance(seed + static_cast<unsigned>(GetParam()));
    for (int i = 0; i < kills() && !HasFailure(); ++i) {
        const double place = (i + std::uniform_real_distribution<>()(chance)) / kills();
        enterCopy();
        // A machine with much else to do runs now slower, now faster: a run that ended before its moment
        // was not killed.
        while (!killAfter(partOf(time, place))) {
            time = partOf(time, 0.8);
            enterCopy();
        }
        SCOPED_TRACE(trace(i, partOf(time, place), time));
        expectReadable();
        expectSoundFiles();
        expectWholeFields();
        // An interrupted conversion leaves its temporary field, over which the next run stumbles once before
        // it removes it: that is an error box, and status 3.
        for (int run = 0; run < 2 && !isComplete(); ++run)
            EXPECT_THAT(update(), testing::AnyOf(0, 3));
        expectSoundFiles();
        expectValuesOfAWholeRun();
        expectOthersUntouched();
        time = partOf(time, 1.01);
    }
}

INSTANTIATE_TEST_SUITE_P(JobSites, KilledRun, testing::Range(0, demoSites + 1));

} // namespace
} // namespace tol::test
