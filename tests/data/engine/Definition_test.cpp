// SPDX-License-Identifier: MIT
#include "data/engine/Definition.h"
#include "data/engine/Names.h"

#include <gtest/gtest.h>

using namespace tol::data;

TEST(Definition, KnowsTheFieldTypes) {
    for (const int type : {1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12, 15})
        EXPECT_TRUE(isFieldType(type)) << type;
    for (const int type : {-1, 0, 9, 13, 14, 16, 255})
        EXPECT_FALSE(isFieldType(type)) << type;
}

TEST(Definition, OnlyTextReportsADeclaredSize) {
    EXPECT_EQ(reportedSize(dbText, 33), 33);
    EXPECT_EQ(reportedSize(dbMemo, 33), 0);
    EXPECT_EQ(reportedSize(dbLong, 33), 4);
    EXPECT_EQ(reportedSize(static_cast<FieldType>(9), 33), 0);
}

TEST(Definition, FindsNamesWithoutRegardToCase) {
    TableDefinition table;
    for (const char* name : {"Alpha", "ÄNDERUNG", "beta"}) {
        table.fields.emplace_back();
        table.fields.back().name = name;
        table.indexes.push_back({name, {}, false, false});
    }
    EXPECT_EQ(table.findField("Alpha"), 0);
    EXPECT_EQ(table.findField("ALPHA"), 0);
    EXPECT_EQ(table.findField("änderung"), 1);
    EXPECT_EQ(table.findField("BETA"), 2);
    EXPECT_EQ(table.findField("ANDERUNG"), -1);
    EXPECT_EQ(table.findField(""), -1);
    EXPECT_EQ(table.findIndex("bEtA"), 2);
    EXPECT_EQ(table.findIndex("gamma"), -1);
}

TEST(Names, AreTheSameForAllLetters) {
    EXPECT_TRUE(sameName("PathName", "PATHNAME"));
    EXPECT_FALSE(sameName("PATHNAME", "PATHNAMES"));
    EXPECT_FALSE(sameName("A[", "A{")); // these differ by the bit that tells the case of letters
    EXPECT_TRUE(sameName("ñ", "Ñ"));
    EXPECT_FALSE(sameName("n", "Ñ"));
    EXPECT_TRUE(sameName("Straße", "STRAßE"));
    EXPECT_FALSE(sameName("Straße", "STRASSE"));
    EXPECT_FALSE(sameName("M2", "M²"));
}
