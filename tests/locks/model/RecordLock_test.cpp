// SPDX-License-Identifier: MIT
#include "locks/model/RecordLock.h"

#include "data/OpenTable.h"
#include "runtime/Conversions.h"
#include "support/NetworkTables.h"
#include "support/StartFolder.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using locks::RecordLock;
using runtime::Null;
using runtime::Value;

RecordLock withStamp(std::string stamp) {
    RecordLock lock;
    lock.RLTIMESTAMP = std::move(stamp);
    return lock;
}

TEST(TakenAt, IsTheDateThatTheStampNames) {
    const auto date = runtime::makeDate({2003, 1, 31, 16, 5, 0});
    for (const char* stamp : {"1/31/2003 4:05:00 PM", " 01-31-2003 16:05 ", "2003-01-31 16:05:00"})
        EXPECT_EQ(runtime::isoText(*locks::takenAt(withStamp(stamp))), runtime::isoText(date)) << stamp;
}

TEST(TakenAt, IsNothingForAStampThatIsNoDate) {
    for (const char* stamp :
         {"", "  ", "yesterday", "31/31/2003", "1/31/2003 25:00", "99999999", "4:05:00 PM", "37652", "12.5"})
        EXPECT_FALSE(locks::takenAt(withStamp(stamp))) << stamp;
}

class LockTable : public testing::Test {
  protected:
    LockTable() { net.locks.add({{7, "JOBS", "ann", runtime::makeDate({2003, 1, 31, 16, 5, 0}), 3, 1}}); }

    StartFolder folder;
    NetworkTables net;
};

TEST_F(LockTable, IsReadFieldByField) {
    const data::OpenTable table("wksNET", NetworkTables::file, "RECORDLOCKS");
    EXPECT_EQ(locks::readLock(table.rows), (RecordLock{7, "JOBS", "ann", "1/31/2003 4:05:00 PM", 3, 1}));
}

TEST_F(LockTable, NullsAreZeroAndNoText) {
    net.locks.remove("TAGNO", 7);
    net.locks.add({{Null{}, Null{}, Null{}, Null{}, Null{}, Null{}}});
    const data::OpenTable table("wksNET", NetworkTables::file, "RECORDLOCKS");
    EXPECT_EQ(locks::readLock(table.rows), RecordLock());
}

TEST_F(LockTable, TheLockItselfIsDeleted) {
    data::OpenTable table("wksNET", NetworkTables::file, "RECORDLOCKS");
    const std::string mark = table.rows.Bookmark();
    EXPECT_TRUE(locks::deleteLock(table.rows, mark, locks::readLock(table.rows)));
    EXPECT_THAT(net.locks.rows(), testing::IsEmpty());
}

TEST_F(LockTable, OneThatIsGoneOrAnotherIsNotDeleted) {
    data::OpenTable table("wksNET", NetworkTables::file, "RECORDLOCKS");
    const std::string mark = table.rows.Bookmark();
    const RecordLock lock = locks::readLock(table.rows);
    net.locks.change("Session", 1, 2);
    EXPECT_FALSE(locks::deleteLock(table.rows, mark, lock));
    EXPECT_THAT(net.locks.rows(), testing::SizeIs(1));
    net.locks.remove("TAGNO", 7);
    EXPECT_FALSE(locks::deleteLock(table.rows, mark, lock));
}

} // namespace
} // namespace tol::test
