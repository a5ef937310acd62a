// SPDX-License-Identifier: MIT
#include "data/json/JsonValue.h"

#include "runtime/Conversions.h"
#include "support/Raises.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace tol::test {
namespace {

using namespace tol::data;
using data::json::JsonReal;
using data::json::JsonScalar;
using data::json::toFieldValue;
using runtime::Value;

std::string written(const Value& value) {
    std::string out;
    data::json::appendValue(out, value);
    return out;
}

JsonScalar whole(std::int64_t number) {
    return number;
}

JsonScalar text(std::string value) {
    return value;
}

JsonScalar real(const std::string& spelled) {
    return JsonReal{std::strtod(spelled.c_str(), nullptr), spelled};
}

TEST(JsonValue, WritesEachTypeInItsForm) {
    EXPECT_EQ(written(runtime::Null{}), "null");
    EXPECT_EQ(written(runtime::Empty{}), "null");
    EXPECT_EQ(written(true), "true");
    EXPECT_EQ(written(std::uint8_t{255}), "255");
    EXPECT_EQ(written(std::int16_t{-32768}), "-32768");
    EXPECT_EQ(written(std::int32_t{-2147483647 - 1}), "-2147483648");
    EXPECT_EQ(written(runtime::Currency{123400}), "\"12.3400\"");
    EXPECT_EQ(written(runtime::Currency{-1}), "\"-0.0001\"");
    EXPECT_EQ(written(runtime::makeDate({2003, 1, 31, 16, 5, 0})), "\"2003-01-31 16:05:00\"");
    EXPECT_EQ(written("a\"b"), "\"a\\\"b\"");
    EXPECT_EQ(written(runtime::Bytes{std::byte{1}, std::byte{2}}), "\"AQI=\"");
}

TEST(JsonValue, RealsAlwaysLookLikeReals) {
    EXPECT_EQ(written(0.0), "0.0");
    EXPECT_EQ(written(-0.0), "-0.0");
    EXPECT_EQ(written(5.0), "5.0");
    EXPECT_EQ(written(0.1), "0.1");
    EXPECT_EQ(written(0.1F), "0.1");
    EXPECT_EQ(written(1e300), "1e+300");
    EXPECT_EQ(written(16777216.0F), "16777216.0");
}

TEST(JsonValue, WritesInfinitiesAsTexts) {
    EXPECT_EQ(written(std::numeric_limits<double>::infinity()), "\"Infinity\"");
    EXPECT_EQ(written(-std::numeric_limits<float>::infinity()), "\"-Infinity\"");
    EXPECT_EQ(written(std::numeric_limits<double>::quiet_NaN()), "\"NaN\"");
    EXPECT_EQ(toFieldValue(dbDouble, text("Infinity")), Value(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(toFieldValue(dbSingle, text("-Infinity")), Value(-std::numeric_limits<float>::infinity()));
    EXPECT_TRUE(std::isnan(toFieldValue(dbDouble, text("NaN")).get<double>()));
}

TEST(JsonValue, DoublesReadBackToTheBit) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const auto number = std::bit_cast<double>(random());
        if (!std::isfinite(number))
            continue;
        const double again = toFieldValue(dbDouble, real(written(number))).get<double>();
        ASSERT_EQ(std::bit_cast<std::uint64_t>(again), std::bit_cast<std::uint64_t>(number));
    }
}

TEST(JsonValue, SinglesReadBackToTheBit) {
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        const auto number = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (!std::isfinite(number))
            continue;
        const float again = toFieldValue(dbSingle, real(written(number))).get<float>();
        ASSERT_EQ(std::bit_cast<std::uint32_t>(again), std::bit_cast<std::uint32_t>(number));
    }
}

// Half a step above 1 and a little more: a Double in between would round it to the middle, and then down.
TEST(JsonValue, SinglesAreRoundedOnce) {
    EXPECT_EQ(toFieldValue(dbSingle, real("1.00000005960464477540")), Value(1.00000012F));
}

TEST(JsonValue, ARealTooLargeForSingleDoesNotFitAndATinyOneIsZero) {
    EXPECT_EQ(errorOf([] { toFieldValue(dbSingle, real("1e39")); }), runtime::errOverflow);
    EXPECT_EQ(descriptionOf([] { toFieldValue(dbSingle, real("1e39")); }), "Overflow: 1e39 does not fit.");
    EXPECT_EQ(toFieldValue(dbSingle, real("1e-60")), Value(0.0F));
}

TEST(JsonValue, WholeNumbersAreTakenAsReals) {
    EXPECT_EQ(toFieldValue(dbSingle, whole(-3)), Value(-3.0F));
    EXPECT_EQ(toFieldValue(dbDouble, whole(7)), Value(7.0));
    EXPECT_EQ(toFieldValue(dbDouble, std::uint64_t{1} << 63U), Value(9223372036854775808.0));
}

TEST(JsonValue, NullFitsEveryType) {
    for (const FieldType type : {dbBoolean, dbByte, dbInteger, dbLong, dbCurrency, dbSingle, dbDouble, dbDate,
                                 dbText, dbLongBinary, dbMemo, dbGUID})
        EXPECT_TRUE(toFieldValue(type, nullptr).isNull()) << type;
}

struct RangeCase {
    FieldType type;
    std::int64_t least, most;
};

class JsonValueRange : public testing::TestWithParam<RangeCase> {};

TEST_P(JsonValueRange, TakesItsRangeAndNoMore) {
    const auto [type, least, most] = GetParam();
    EXPECT_EQ(written(toFieldValue(type, whole(least))), std::to_string(least));
    EXPECT_EQ(written(toFieldValue(type, whole(most))), std::to_string(most));
    EXPECT_EQ(errorOf([&] { toFieldValue(type, whole(least - 1)); }), runtime::errOverflow);
    EXPECT_EQ(descriptionOf([&] { toFieldValue(type, whole(most + 1)); }),
              "Overflow: " + std::to_string(most + 1) + " does not fit.");
    EXPECT_EQ(errorOf([&] { toFieldValue(type, UINT64_MAX); }), runtime::errOverflow);
    EXPECT_EQ(descriptionOf([&] { toFieldValue(type, real("1.0")); }),
              "Type mismatch: a number with decimals where a whole number belongs.");
}

INSTANTIATE_TEST_SUITE_P(WholeTypes, JsonValueRange,
                         testing::Values(RangeCase{dbByte, 0, 255}, RangeCase{dbInteger, -32768, 32767},
                                         RangeCase{dbLong, INT32_MIN, INT32_MAX}));

TEST(JsonValue, AWrongKindIsNamed) {
    const auto complaint = [](FieldType type, JsonScalar scalar) {
        EXPECT_EQ(errorOf([&] { toFieldValue(type, scalar); }), runtime::errTypeMismatch);
        return descriptionOf([&] { toFieldValue(type, scalar); });
    };
    EXPECT_EQ(complaint(dbBoolean, whole(1)), "Type mismatch: a whole number where true or false belongs.");
    EXPECT_EQ(complaint(dbLong, text("5")), "Type mismatch: a text where a whole number belongs.");
    EXPECT_EQ(complaint(dbCurrency, whole(5)),
              "Type mismatch: a whole number where an amount as text belongs.");
    EXPECT_EQ(complaint(dbDouble, text("5")), "Type mismatch: a text where a number belongs.");
    EXPECT_EQ(complaint(dbDate, whole(5)), "Type mismatch: a whole number where a date as text belongs.");
    EXPECT_EQ(complaint(dbText, true), "Type mismatch: true or false where a text belongs.");
    EXPECT_EQ(complaint(dbGUID, real("1.5")), "Type mismatch: a number with decimals where a text belongs.");
    EXPECT_EQ(complaint(dbLongBinary, false), "Type mismatch: true or false where base64 text belongs.");
}

TEST(JsonValue, ReadsAmountsDatesAndBytes) {
    EXPECT_EQ(toFieldValue(dbCurrency, text("-922337203685477.5808")), Value(runtime::Currency{INT64_MIN}));
    EXPECT_EQ(toFieldValue(dbCurrency, text("12")), Value(runtime::Currency{120000}));
    EXPECT_EQ(toFieldValue(dbDate, text("1899-12-30 00:00:00")), Value(runtime::Date{0}));
    EXPECT_EQ(toFieldValue(dbDate, text("2003-01-31")), Value(runtime::makeDate({2003, 1, 31, 0, 0, 0})));
    EXPECT_EQ(toFieldValue(dbLongBinary, text("AP8=")), Value(runtime::Bytes{std::byte{0}, std::byte{255}}));
}

TEST(JsonValue, UnreadableTextsAreQuoted) {
    const auto complaint = [](FieldType type, const std::string& spelled) {
        EXPECT_EQ(errorOf([&] { toFieldValue(type, spelled); }), runtime::errDataConversion);
        return descriptionOf([&] { toFieldValue(type, spelled); });
    };
    EXPECT_EQ(complaint(dbCurrency, "1.23456"),
              "Data type conversion error. \"1.23456\" is not an amount with at most four decimals.");
    EXPECT_EQ(complaint(dbDate, "31.1.2003"),
              "Data type conversion error. \"31.1.2003\" is not a date like \"2003-01-31 16:05:00\".");
    EXPECT_EQ(complaint(dbDate, "2003-02-30"),
              "Data type conversion error. \"2003-02-30\" is not a date like \"2003-01-31 16:05:00\".");
    EXPECT_EQ(complaint(dbLongBinary, "AP8"), "Data type conversion error. \"AP8\" is not base64 text.");
    EXPECT_EQ(complaint(dbLongBinary, std::string(50, '?')),
              "Data type conversion error. \"" + std::string(40, '?') + "...\" is not base64 text.");
    EXPECT_EQ(errorOf([] { toFieldValue(dbCurrency, text("922337203685477.5808")); }), runtime::errOverflow);
}

// The fraction would be dropped; dates hold whole seconds.
TEST(JsonValue, FractionsOfASecondDoNotFit) {
    EXPECT_EQ(errorOf([] { toFieldValue(dbDate, text("2003-01-31 16:05:00.5")); }),
              runtime::errDataConversion);
}

TEST(JsonValue, TextThatIsNoUtf8IsKeptAsBytes) {
    EXPECT_EQ(written("Gr\xF6\xDF"
                      "e"),
              "{\"base64\": \"R3L232U=\"}");
}

} // namespace
} // namespace tol::test
