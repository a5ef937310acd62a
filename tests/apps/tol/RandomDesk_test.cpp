// SPDX-License-Identifier: MIT
// Keys and clicks at random over all windows. By hand for longer, or with other seeds:
// TOL_RANDOM_SECONDS=3600 TOL_RANDOM_SEED=7 random_desk_test
#include "FileState.h"
#include "demo/Demo.h"
#include "demo_support/DemoFolder.h"
#include "support/Program.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using std::chrono::seconds;
using std::chrono::steady_clock;

constexpr seconds session = 15s;   // then the files are looked at, and another begins with a fresh demo
constexpr seconds mostToEnd = 60s; // that a session takes longer than it was told, on a busy machine

long setting(const char* name, long usual) {
    const char* value = std::getenv(name);
    return value != nullptr ? std::atol(value) : usual;
}

bool isDatabase(const fs::directory_entry& entry) {
    std::string extension = entry.path().extension().string();
    std::ranges::transform(extension, extension.begin(), [](unsigned char c) { return std::toupper(c); });
    return entry.is_regular_file() && extension == ".MDB";
}

void expectSoundFiles(const fs::path& work) {
    int databases = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(work)) {
        if (!isDatabase(entry))
            continue;
        ++databases;
        EXPECT_EQ(damageIn(entry.path()), "") << entry.path();
    }
    EXPECT_GT(databases, 30);
}

/// Runs the program for a while before a person with that seed. What it would write for its user goes to a
/// home of its own.
void runSession(const fs::path& work, const fs::path& home, long seed, seconds time) {
    fs::create_directories(home);
    Program program("/usr/bin/env",
                    {"HOME=" + home.string(), "XDG_RUNTIME_DIR=" + home.string(), TOL_RANDOM_DESK,
                     std::to_string(seed), std::to_string(time.count())},
                    work);
    const bool ended = program.waitFor(time + mostToEnd);
    if (!ended)
        program.kill();
    EXPECT_TRUE(ended) << "it hangs; seed " << seed;
    EXPECT_EQ(program.wait(), 0) << "seed " << seed << "\n" << program.out() << program.err();
}

TEST(RandomDesk, NoErrorNoLostKeyboardNoDamage) {
    useSqlite();
    const TempFolder folder;
    const fs::path demo = folder / "demo";
    demo::makeDemo(demo);
    const auto end = steady_clock::now() + seconds(setting("TOL_RANDOM_SECONDS", 60));
    for (long seed = setting("TOL_RANDOM_SEED", 1); steady_clock::now() < end && !HasFailure(); ++seed) {
        const fs::path work = folder / "work";
        fs::copy(demo, work, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
        const auto left = std::chrono::duration_cast<seconds>(end - steady_clock::now());
        runSession(work, folder / "home", seed, std::clamp(left, 1s, session));
        expectSoundFiles(work);
        fs::remove_all(work);
    }
}

} // namespace
} // namespace tol::test
