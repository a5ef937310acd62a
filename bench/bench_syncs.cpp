// SPDX-License-Identifier: MIT
// How often an update waits for the disk: the calls of fdatasync and fsync in a run over a fresh demo (77
// databases of Job Sites), and in one more with nothing to do. Usage: bench_syncs [milliseconds that each
// call is to take longer]

#include "Quiet.h"
#include "Ratio.h"
#include "WideTable.h"
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "demo/Demo.h"
#include "tolctl/Program.h"

#include <sys/syscall.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace {

int calls = 0;
std::chrono::milliseconds slowness{0};

int waitForDisk(long call, int file) {
    ++calls;
    std::this_thread::sleep_for(slowness);
    return static_cast<int>(syscall(call, file));
}

} // namespace

// The storage engine, in a library of its own, meets these before the system's.
extern "C" int fdatasync(int file) {
    return waitForDisk(SYS_fdatasync, file);
}

extern "C" int fsync(int file) {
    return waitForDisk(SYS_fsync, file);
}

using namespace tol;
using namespace tol::bench;

namespace {

void update() {
    const std::array<const char*, 5> words{"tolctl", "update", "--all", "--on-unconvertible", "continue"};
    const Quiet quiet;
    ctl::Program().run(static_cast<int>(words.size()), words.data());
}

void count(const char* run) {
    calls = 0;
    const double time = seconds(update);
    fmt::print("{:<28} {:>6} calls {:>8.2f} s\n", run, calls, time);
}

} // namespace

int main(int arguments, char** values) {
    const BenchFolder folder;
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    demo::makeDemo("demo");
    std::filesystem::current_path("demo");
    slowness = std::chrono::milliseconds(arguments > 1 ? std::atoi(values[1]) : 0);
    count("first run over the demo");
    count("a run with nothing to do");
    std::filesystem::current_path("..");
    return EXIT_SUCCESS;
}
