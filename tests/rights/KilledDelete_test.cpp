// SPDX-License-Identifier: MIT
// A user with many rights is deleted by a process that is killed at any moment. Deleted once more, all is as
// if there had been no kill.
#include "data/DBEngine.h"
#include "data/sqlite/SqliteEngine.h"
#include "forms/events/WindowHost.h"
#include "forms/windows/MdiForm.h"
#include "rights/frmTOLURL01.h"
#include "support/BoxAnswerer.h"
#include "support/NetworkTables.h"
#include "support/Program.h"
#include "support/StartFolder.h"
#include "support/WindowDriver.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <QPushButton>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

namespace tol::test {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using testing::ElementsAre;

constexpr std::int32_t adams = 1, baker = 2;
constexpr std::int32_t rightsOfAdams = 5'000;
constexpr const char* question = "OK to Delete User: adams";

/// By hand there may be more kills: so many times as many as TOL_KILLS says.
int kills() {
    constexpr int usually = 12;
    const char* const factor = std::getenv("TOL_KILLS");
    return factor == nullptr ? usually : usually * std::atoi(factor);
}

/// What the process under test does, in the folder in which it was started: deletes the first user.
TEST(UserDeleter, DISABLED_Runs) {
    data::DBEngine::addEngine(std::make_unique<data::sqlite::SqliteEngine>());
    const forms::WindowHost host;
    BoxAnswerer person;
    person.onBox = [](QMessageBox& box) {
        fmt::print(stderr, "{}\n", box.text().toStdString());
        box.findChild<QPushButton*>("cmdOK")->click();
    };
    forms::MdiForm parent("frmParent");
    parent.show();
    auto made = std::make_unique<rights::frmTOLURL01>("");
    forms::Form& users = *made;
    parent.showChild(std::move(made));
    WindowDriver(users).press(Qt::Key_D);
    users.unload();
}

class KilledDelete : public testing::Test {
  protected:
    KilledDelete() {
        std::vector<TestTable::Row> rows;
        for (std::int32_t item = 1; item <= rightsOfAdams; ++item)
            rows.push_back({adams, item, true, item % 3});
        rows.push_back({baker, 1, true, 0});
        net.rights.add(rows);
        net.users.add({{adams, "adams", "", false}, {baker, "baker", "", false}});
        fs::copy(NetworkTables::file, "whole");
    }

    static void putBack() {
        for (const auto& entry : fs::directory_iterator("."))
            if (entry.path().filename().string().starts_with("ZOVNET"))
                fs::remove(entry.path());
        fs::copy("whole", NetworkTables::file);
    }
    /// Starts the delete and waits until it is under way.
    static std::unique_ptr<Program> startDelete() {
        auto process =
            std::make_unique<Program>(fs::read_symlink("/proc/self/exe"),
                                      std::vector<std::string>{"--gtest_also_run_disabled_tests",
                                                               "--gtest_filter=UserDeleter.DISABLED_Runs"},
                                      fs::current_path());
        const auto isAtWork = [&] { return process->err().find(question) != std::string::npos; };
        while (!isAtWork() && !process->waitFor(std::chrono::milliseconds(0)))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        EXPECT_TRUE(isAtWork()) << process->out();
        return process;
    }
    /// Kills it at that moment; false when it ended before.
    static bool killAfter(Clock::duration moment) {
        const auto process = startDelete();
        std::this_thread::sleep_for(moment);
        return process->kill() < 0;
    }
    /// How long an undisturbed delete takes here and now.
    Clock::duration deleteTime() const {
        const auto process = startDelete();
        const auto start = Clock::now();
        EXPECT_EQ(process->wait(), 0) << process->out();
        expectDeleted();
        return Clock::now() - start;
    }
    void expectDeleted() const {
        EXPECT_THAT(net.users.rows(), ElementsAre("2|baker||False"));
        EXPECT_THAT(net.rights.rows(), ElementsAre("2|1|True|0"));
    }

    StartFolder folder;
    NetworkTables net;
};

TEST_F(KilledDelete, EndsAsIfNeverKilledWhenItIsDoneAgain) {
    Clock::duration time = deleteTime();
    std::mt19937 chance(20'241);
    int between = 0;
    for (int i = 0; i < kills() && !HasFailure(); ++i) {
        const double place = (i + std::uniform_real_distribution<>()(chance)) / kills();
        const auto moment = [&] { return std::chrono::duration_cast<Clock::duration>(time * place); };
        putBack();
        // A machine with much else to do runs now slower, now faster: a delete that ended before its moment
        // was not killed.
        while (!killAfter(moment())) {
            time = time * 4 / 5;
            putBack();
        }
        SCOPED_TRACE(fmt::format("kill {} after {} µs", i,
                                 std::chrono::duration_cast<std::chrono::microseconds>(moment()).count()));
        const std::size_t left = net.rights.rows().size() - 1;
        const bool userIsThere = net.users.rows().size() == 2;
        between += left > 0 && left < rightsOfAdams ? 1 : 0;
        EXPECT_TRUE(userIsThere || left == 0) << "no rights without their user";
        if (userIsThere)
            deleteTime();
        expectDeleted();
    }
    RecordProperty("KilledBetweenRows", between);
    fmt::print("{} of {} kills came between two rights\n", between, kills());
}

} // namespace
} // namespace tol::test
