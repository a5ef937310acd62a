// SPDX-License-Identifier: MIT
// Another program that reads a database and goes on reading.
#include "CaseFolder.h"

#include "support/SecondProcess.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <chrono>
#include <memory>
#include <stdexcept>

namespace tol::test {
namespace {

using namespace std::chrono_literals;
using namespace nlohmann::literals;
using testing::HasSubstr;
using Clock = std::chrono::steady_clock;

constexpr const char* target = "drives/c/NORTH/WORK.MDB";

class LockedOut : public testing::Test {
  protected:
    LockedOut() {
        m_case.addSite("NORTH YARD", "C:\\NORTH");
        m_case.addDatabase("WORK");
        m_case.want("WORK", "CREW", "TAG", 4, 4);
        m_case.want("WORK", "CREW", "ADDED", 4, 4);
        m_case.finish();
        m_case.load(target, databaseOf({tableOf("CREW", R"([["TAG", 4, 4]])"_json, R"([[1], [2]])"_json)}));
    }

    /// Reads the target until the next step.
    [[nodiscard]] std::unique_ptr<SecondProcess> reader() const {
        auto process = std::make_unique<SecondProcess>([this](const SecondProcess::Steps& steps) {
            sqlite3* database = nullptr;
            if (sqlite3_open((m_case.folder / target).c_str(), &database) != SQLITE_OK ||
                sqlite3_exec(database, "BEGIN; SELECT count(*) FROM sqlite_schema", nullptr, nullptr,
                             nullptr) != SQLITE_OK)
                throw std::runtime_error(sqlite3_errmsg(database));
            steps.done();
            steps.wait();
            sqlite3_close(database);
        });
        EXPECT_TRUE(process->await());
        return process;
    }

    CaseFolder m_case;
};

TEST_F(LockedOut, AnUpdateTellsItWhereItHappensAndWaitsOnce) {
    const auto reading = reader();
    const auto start = Clock::now();
    const Outcome outcome = m_case.run({"update", "--json"});
    EXPECT_GE(Clock::now() - start, 5s);
    EXPECT_LT(Clock::now() - start, 20s);
    EXPECT_NE(outcome.status, 0);
    const Json report = outcome.json();
    ASSERT_GE(report["messages"].size(), 3U);
    for (const Json& message : report["messages"]) {
        const auto text = message["text"].get<std::string>();
        EXPECT_THAT(text, HasSubstr("Error: 3218 ModifyTable\n"));
        EXPECT_THAT(text, HasSubstr("Could not update '" + (m_case.folder / target).string() + "'"));
    }

    reading->next();
    EXPECT_EQ(reading->finish(), 0);
    EXPECT_EQ(m_case.run({"update"}).status, 0);
    EXPECT_EQ(m_case.dump(target)["tables"][0]["fields"].size(), 2U);
}

TEST_F(LockedOut, ACompactionWaitsOnce) {
    const auto reading = reader();
    const auto start = Clock::now();
    const Outcome outcome = m_case.run({"compact", target});
    EXPECT_GE(Clock::now() - start, 5s);
    EXPECT_LT(Clock::now() - start, 10s);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("(error 3218)"));
}

} // namespace
} // namespace tol::test
