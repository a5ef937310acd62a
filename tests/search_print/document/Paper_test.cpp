// SPDX-License-Identifier: MIT
#include "search_print/document/Paper.h"

#include <gtest/gtest.h>

namespace tol::search_print {
namespace {

TEST(Paper, IsThatOfTheCountry) {
    EXPECT_EQ(paperOf(QLocale("en_US")), paperLetter);
    EXPECT_EQ(paperOf(QLocale("fr_CA")), paperLetter);
    EXPECT_EQ(paperOf(QLocale("es_MX")), paperLetter);
    EXPECT_EQ(paperOf(QLocale("en_GB")), paperA4);
    EXPECT_EQ(paperOf(QLocale("de_DE")), paperA4);
}

TEST(Paper, IsA4WhereNoCountryIsTold) {
    EXPECT_EQ(paperOf(QLocale("C")), paperA4);
    const Paper own = defaultPaper();
    EXPECT_TRUE(own == paperA4 || own == paperLetter);
}

} // namespace
} // namespace tol::search_print
