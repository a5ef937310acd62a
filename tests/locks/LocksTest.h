// SPDX-License-Identifier: MIT
#pragma once

#include "locks/frmTOLRLKS01.h"
#include "runtime/Conversions.h"
#include "support/ListWindowTest.h"
#include "support/NetworkTables.h"

#include <gmock/gmock.h>

#include <QTimer>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace tol::test {

/// Base of tests of the window of Record Locks. Its clock stands still: a second passes with tick().
class LocksTest : public ListWindowTest {
  protected:
    LocksTest() : ListWindowTest({"TAGNO", "TABLENAME", "RLUSERNAME", "RLTIMESTAMP", "USERTAG", "SESSION"}) {}

    void open() {
        show(std::make_unique<locks::frmTOLRLKS01>(""));
        EXPECT_EQ(timer().interval(), 1000);
        timer().setInterval(std::chrono::hours(24));
    }
    /// Opens the window over locks of that many records of a table: "1" to the number.
    void openWith(int count) {
        addNumbered(1, count);
        open();
        tick();
    }
    void addNumbered(int first, int last) const {
        std::vector<TestTable::Row> rows;
        for (int tag = first; tag <= last; ++tag)
            rows.push_back(lock(tag));
        net.locks.add(rows);
    }
    static TestTable::Row lock(int tag) {
        return {tag, "JOBS", "ann", runtime::makeDate({2003, 1, 31, 16, 5, 0}), 3, 1};
    }
    /// A second goes by for the window.
    void tick() const {
        EXPECT_TRUE(timer().isActive());
        EXPECT_TRUE(QMetaObject::invokeMethod(&timer(), "timeout", Qt::DirectConnection));
    }
    [[nodiscard]] QTimer& timer() const { return *window->findChild<QTimer*>("tmrRLKS"); }

    /// The item tags on the page, "End" and "Empty" for the two texts, with a star behind the highlighted
    /// one.
    [[nodiscard]] std::string tags() const {
        std::string all;
        const std::vector<std::string> rows = page();
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const std::string tag = rows[row].substr(0, rows[row].find('|'));
            const bool ends = rows[row].find("End of List.") != std::string::npos;
            all += (row == 0 ? "" : " ") + (tag != " " ? tag : ends ? "End" : "Empty");
            all += static_cast<int>(row) == highlight() ? "*" : "";
        }
        return all;
    }

    NetworkTables net;
};

} // namespace tol::test
