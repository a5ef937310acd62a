// SPDX-License-Identifier: MIT
#include "data/sqlite/connection/EngineError.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tol::test {
namespace {

using namespace data::sqlite;

struct Case {
    int resultCode;
    int number;
};

class EngineErrorNumber : public testing::TestWithParam<Case> {};

TEST_P(EngineErrorNumber, IsTheKnownOneAndNamesTheFile) {
    const auto error = engineError(GetParam().resultCode, "engine's words", "/srv/ZOVNET.MDB");
    EXPECT_EQ(error.number(), GetParam().number);
    EXPECT_NE(error.description().find("/srv/ZOVNET.MDB"), std::string::npos) << error.description();
    EXPECT_EQ(error.engineText(), "engine's words");
}

INSTANTIATE_TEST_SUITE_P(
    ResultCodes, EngineErrorNumber,
    testing::Values(Case{SQLITE_BUSY, 3218}, Case{SQLITE_BUSY_SNAPSHOT, 3218}, Case{SQLITE_LOCKED, 3218},
                    Case{SQLITE_PROTOCOL, 3218}, Case{SQLITE_FULL, 3026}, Case{SQLITE_READONLY, 3027},
                    Case{SQLITE_READONLY_DIRECTORY, 3027}, Case{SQLITE_CORRUPT, 3049},
                    Case{SQLITE_IOERR_READ, 3043}, Case{SQLITE_CANTOPEN, 3051}, Case{SQLITE_PERM, 3051},
                    Case{SQLITE_NOTADB, 3343}, Case{SQLITE_FORMAT, 3343}, Case{SQLITE_ERROR, 3219},
                    Case{SQLITE_READONLY_ROLLBACK, 3051}, Case{SQLITE_READONLY_DBMOVED, 3420}));

TEST(EngineError, TellsARefusedRemovalFromAFailedOne) {
    EXPECT_EQ(engineError(SQLITE_IOERR_DELETE, "", "/srv/A.MDB", EACCES).number(), 3051);
    EXPECT_EQ(engineError(SQLITE_IOERR_DELETE, "", "/srv/A.MDB", EIO).number(), 3043);
}

TEST(EngineError, NamesTheKeyThatIsThereAlready) {
    EXPECT_EQ(engineError(SQLITE_CONSTRAINT_UNIQUE, "UNIQUE constraint failed: T.A, T.B", "/srv/A.MDB")
                  .description(),
              "The change was not made: it would create duplicate values in the index or primary key "
              "'T.A, T.B'.");
}

TEST(EngineError, TakesAFileSizeLimitForAFullDisk) {
    EXPECT_EQ(engineError(SQLITE_IOERR_WRITE, "", "/srv/A.MDB", EFBIG).number(), 3026);
    EXPECT_EQ(engineError(SQLITE_IOERR_WRITE, "", "/srv/A.MDB", EDQUOT).number(), 3026);
    EXPECT_EQ(engineError(SQLITE_IOERR_WRITE, "", "/srv/A.MDB", EIO).number(), 3043);
}

TEST(EngineError, TellsConstraintsApart) {
    const auto number = [](int code) { return engineError(code, "", "/srv/A.MDB").number(); };
    EXPECT_EQ(number(SQLITE_CONSTRAINT_UNIQUE), 3022);
    EXPECT_EQ(number(SQLITE_CONSTRAINT_PRIMARYKEY), 3022);
    EXPECT_EQ(number(SQLITE_CONSTRAINT_ROWID), 3022);
    EXPECT_EQ(number(SQLITE_CONSTRAINT_CHECK), 3219);
    EXPECT_EQ(number(SQLITE_CONSTRAINT_TRIGGER), 3219);
    EXPECT_EQ(number(SQLITE_ERROR), 3219);
}

TEST(EngineError, NamesTheFieldThatWantsAValue) {
    const auto error =
        engineError(SQLITE_CONSTRAINT_NOTNULL, "NOT NULL constraint failed: Items.Price", "/srv/A.MDB");
    EXPECT_EQ(error.number(), 3314);
    EXPECT_EQ(error.description(), "The field 'Price' cannot contain a Null value: a value is required.");
}

} // namespace
} // namespace tol::test
