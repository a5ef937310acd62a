// SPDX-License-Identifier: MIT
#include "runtime/RuntimeError.h"

#include <gtest/gtest.h>

namespace tol::test {
namespace {

using runtime::describe;
using runtime::RuntimeError;

TEST(RuntimeError, KnowsTheUsualDescriptions) {
    EXPECT_EQ(describe(runtime::errOverflow), "Overflow");
    EXPECT_EQ(describe(runtime::errTypeMismatch), "Type mismatch");
    EXPECT_EQ(describe(runtime::errNoCurrentRecord), "No current record.");
    EXPECT_EQ(describe(runtime::errItemNotFound), "Item not found in this collection.");
}

TEST(RuntimeError, PutsNamesInTheirPlaces) {
    EXPECT_EQ(describe(runtime::errDatabaseNotFound, {"C:\\X.MDB"}), "Could not find file 'C:\\X.MDB'.");
    EXPECT_EQ(describe(runtime::errTableExists, {"{}"}), "Table '{}' already exists.");
}

TEST(RuntimeError, LeavesAPlaceEmptyWithoutANameAndDropsANameWithoutAPlace) {
    EXPECT_EQ(describe(runtime::errTableExists), "Table '(no name)' already exists.");
    EXPECT_EQ(describe(runtime::errTableInUse, {"  "}),
              "Could not lock table '(no name)'; it is in use by another user or process.");
    EXPECT_EQ(describe(runtime::errNoCurrentRecord, {"X"}), "No current record.");
}

TEST(RuntimeError, RaiseCarriesNumberDescriptionAndEngineText) {
    try {
        runtime::raise(runtime::errDuplicateKey, {"PK"}, "UNIQUE constraint failed");
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), 3022);
        EXPECT_EQ(error.description(), describe(runtime::errDuplicateKey, {"PK"}));
        EXPECT_STREQ(error.what(), error.description().c_str());
        EXPECT_EQ(error.engineText(), "UNIQUE constraint failed");
    }
}

TEST(RuntimeError, EveryNumberHasADescriptionOfItsOwn) {
    const std::string none = describe(static_cast<runtime::ErrorNumber>(4711));
    EXPECT_EQ(none, "Application-defined or object-defined error");
    for (const int number :
         {5,    6,    9,    13,   53,   61,   70,   75,   76,   91,   94,   3001, 3010, 3015,
          3019, 3020, 3021, 3022, 3024, 3026, 3027, 3034, 3043, 3044, 3045, 3049, 3051, 3058,
          3078, 3125, 3159, 3163, 3167, 3190, 3191, 3204, 3211, 3218, 3219, 3251, 3259, 3260,
          3264, 3265, 3270, 3280, 3283, 3284, 3314, 3315, 3343, 3367, 3409, 3420, 3421})
        EXPECT_NE(describe(static_cast<runtime::ErrorNumber>(number)), none) << number;
}

} // namespace
} // namespace tol::test
