// SPDX-License-Identifier: MIT
#pragma once

#include "data/writes/PendingWrites.h"
#include "runtime/DeferredErrors.h"
#include "runtime/RuntimeError.h"

#include <gmock/gmock.h>

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tol::test {

/// The time of these tests, which goes on when they say so.
inline data::WriteClock::time_point playedNow{};

/// Files whose transactions are told one after the other: "A begin", "B commit".
class WritesTest : public testing::Test {
  protected:
    using Lines = std::vector<std::string>;
    using milliseconds = std::chrono::milliseconds;

    class File : public data::Transactions {
      public:
        File(WritesTest& test, std::string name) : m_test(test), m_name(std::move(name)) {}

        void begin(Lock lock) override {
            tell(lock == Lock::Exclusive ? "begin alone" : "begin");
            m_open = true;
        }
        void commit() override {
            tell("commit");
            playedNow += commitTime;
            if (fullDisk)
                throw runtime::RuntimeError(runtime::errNoDiskSpace, "No room for '" + m_name + "'.");
            m_open = false;
        }
        void rollback() override {
            tell("rollback");
            m_open = false;
        }
        void setSavepoint() override { tell("savepoint"); }
        void releaseSavepoint() override { tell("release"); }
        void rollBackToSavepoint() override { tell("roll back to savepoint"); }
        [[nodiscard]] bool isOpen() const override { return m_open; }
        [[nodiscard]] const std::string& file() const override { return m_name; }
        void began() override {}
        void ended(bool /*committed*/) override {}

        /// A change of one statement.
        void write() {
            writes.write([] {});
        }

        milliseconds commitTime{0};
        bool fullDisk = false;

      private:
        void tell(const std::string& what) { m_test.told.push_back(m_name + " " + what); }

        WritesTest& m_test;
        std::string m_name;
        bool m_open = false;

      public:
        data::PendingWrites writes{*this, m_test.clock};
    };

    WritesTest() { playedNow += std::chrono::hours(1); }
    ~WritesTest() override {
        while (runtime::anyDeferred())
            runtime::takeDeferred();
    }

    /// What was told since the last call.
    Lines take() { return std::exchange(told, {}); }

    data::WriteClock clock{[] { return playedNow; }};
    Lines told;
};

} // namespace tol::test
