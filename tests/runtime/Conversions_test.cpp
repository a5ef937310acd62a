// SPDX-License-Identifier: MIT
#include "runtime/Conversions.h"

#include "support/Raises.h"

#include <charconv>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace tol::test {
namespace {

using namespace runtime;

const Bytes someBytes{std::byte{'x'}};
constexpr Currency currency(std::int64_t tenThousandths) {
    return {tenThousandths};
}

TEST(Conversions, WholeNumbersRoundHalfToEven) {
    struct Case {
        Value from;
        int to;
    };
    const Case cases[] = {
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5, -2},
        {2.4999, 2},
        {2.5001, 3},
        {2.5F, 2},
        {3.5F, 4},
        {currency(5000), 0},
        {currency(15000), 2},
        {currency(25000), 2},
        {currency(25001), 3},
        {currency(-5000), 0},
        {currency(-15000), -2},
        {currency(-25001), -3},
        {true, -1},
        {false, 0},
        {std::uint8_t{255}, 255},
        {"12", 12},
        {" -12.5 ", -12},
        {"1,234.5", 1234},
        {"$7", 7},
        {"-$7", -7},
        {"$-7", -7},
        {"1.5E1", 15},
        {"15d-1", 2},
        {"+3", 3},
        {".5", 0},
        {"7.", 7},
        {Value(), 0},
        {Date{2.25}, 2},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(toLong(c.from), c.to) << toText(c.from);
        EXPECT_EQ(toInteger(c.from), c.to) << toText(c.from);
    }
}

TEST(Conversions, LimitsOfWholeNumbers) {
    EXPECT_EQ(toInteger(32767.4), 32767);
    EXPECT_EQ(toInteger(-32768.5), -32768);
    EXPECT_EQ(errorOf([] { toInteger(32767.5); }), 6);
    EXPECT_EQ(errorOf([] { toInteger(std::int32_t{-32769}); }), 6);
    EXPECT_EQ(toLong(2147483647.4), 2147483647);
    EXPECT_EQ(toLong("-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(errorOf([] { toLong(2147483647.5); }), 6);
    EXPECT_EQ(errorOf([] { toLong(currency(21474836475000)); }), 6);
    EXPECT_EQ(toByte(254.5), 254);
    EXPECT_EQ(toByte(true), 255);
    EXPECT_EQ(errorOf([] { toByte(255.5); }), 6);
    EXPECT_EQ(errorOf([] { toByte(-1.0); }), 6);
    for (const double huge :
         {1e30, -1e30, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(errorOf([&] { toLong(huge); }), 6) << huge;
        EXPECT_EQ(errorOf([&] { toCurrency(huge); }), 6) << huge;
        if (huge != 1e30 && huge != -1e30) {
            EXPECT_EQ(errorOf([&] { toSingle(huge); }), 6) << huge;
        }
    }
}

TEST(Conversions, Booleans) {
    EXPECT_TRUE(toBoolean(0.1));
    EXPECT_TRUE(toBoolean(currency(1)));
    EXPECT_TRUE(toBoolean("tRuE "));
    EXPECT_TRUE(toBoolean("-1"));
    EXPECT_TRUE(toBoolean("0.5"));
    EXPECT_FALSE(toBoolean(" false"));
    EXPECT_FALSE(toBoolean("0.00"));
    EXPECT_FALSE(toBoolean(0.0F));
    EXPECT_FALSE(toBoolean(Value()));
    EXPECT_EQ(errorOf([] { toBoolean("yes"); }), 13);
}

TEST(Conversions, CurrencyIsExact) {
    const auto largest = currency(std::numeric_limits<std::int64_t>::max());
    const auto least = currency(std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(toCurrency("922337203685477.5807"), largest);
    EXPECT_EQ(toCurrency("-922,337,203,685,477.5808"), least);
    EXPECT_EQ(errorOf([] { toCurrency("922337203685477.5808"); }), 6);
    EXPECT_EQ(errorOf([] { toCurrency("-922337203685477.5809"); }), 6);
    EXPECT_EQ(errorOf([] { toCurrency("1E15"); }), 6);
    EXPECT_EQ(errorOf([] { toCurrency("1E99"); }), 6);
    EXPECT_EQ(errorOf([] { toCurrency(922337203685478.0); }), 6);
    EXPECT_EQ(errorOf([] { toCurrency(-922337203685478.0); }), 6);
    EXPECT_EQ(toCurrency(-922337203685477.5), currency(-9223372036854775000));
    EXPECT_EQ(toCurrency(922337203685477.5), currency(9223372036854775000));
    EXPECT_EQ(toCurrency("0.00005"), currency(0));
    EXPECT_EQ(toCurrency("0.00015"), currency(2));
    EXPECT_EQ(toCurrency("0.000050000"), currency(0));
    EXPECT_EQ(toCurrency("0.0000500001"), currency(1));
    EXPECT_EQ(toCurrency("0.00000999"), currency(0));
    EXPECT_EQ(toCurrency("-0.00015"), currency(-2));
    EXPECT_EQ(toCurrency(0.5), currency(5000));
    EXPECT_EQ(toCurrency(-1.23456F), currency(-12346));
    EXPECT_EQ(toCurrency(std::int32_t{-2147483647 - 1}), currency(-21474836480000));
    EXPECT_EQ(toCurrency(true), currency(-10000));
    EXPECT_EQ(toCurrency(0.1), currency(1000));
}

TEST(Conversions, SinglesAndDoubles) {
    EXPECT_EQ(toDouble("1e308"), 1e308);
    EXPECT_EQ(errorOf([] { toDouble("1e309"); }), 6);
    EXPECT_EQ(errorOf([] { toDouble("-1e99999999999"); }), 6);
    EXPECT_EQ(toDouble("1e-400"), 0.0);
    EXPECT_EQ(toDouble("1e-99999999999"), 0.0);
    EXPECT_EQ(toDouble("4.9E-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(toDouble("0." + std::string(500, '0') + "1e501"), 1.0);
    EXPECT_EQ(toDouble(std::string(900, '9') + "e-900"), 1.0);
    EXPECT_EQ(toDouble(currency(1234567)), 123.4567);
    EXPECT_EQ(toDouble(0.1F), static_cast<double>(0.1F));
    EXPECT_EQ(toSingle(0.1), 0.1F);
    EXPECT_EQ(toSingle(1e-60), 0.0F);
    EXPECT_EQ(toSingle(3.4028235e38), std::numeric_limits<float>::max());
    EXPECT_EQ(errorOf([] { toSingle(3.4028236e38); }), 6);
    EXPECT_EQ(errorOf([] { toSingle("-1e39"); }), 6);
}

TEST(Conversions, TextsOfDoublesReadBackAsTheNearestDouble) {
    std::mt19937_64 random(19);
    for (int round = 0; round < 20'000; ++round) {
        std::string text =
            std::to_string(random() % (round % 2 == 0 ? 1'000'000 : 1'000'000'000'000'000'000));
        text.insert(random() % (text.size() + 1), ".");
        if (round % 3 == 0)
            text += "e" + std::to_string(static_cast<int>(random() % 640) - 340);
        double expected = 0;
        if (std::from_chars(text.data(), text.data() + text.size(), expected).ec == std::errc()) {
            ASSERT_EQ(toDouble(text), expected) << text;
        }
    }
}

TEST(Conversions, WhatIsNoNumber) {
    for (const char* text : {"", " ", "abc", "12abc", "1e", "1 2", "--1", "$", ".", "-", ",1", "1.2.3", "e5",
                             "\t1", "1.2,3", "- 1", "1/2/2003"}) {
        EXPECT_EQ(errorOf([&] { toLong(text); }), 13) << text;
        EXPECT_EQ(errorOf([&] { toDouble(text); }), 13) << text;
        EXPECT_EQ(errorOf([&] { toCurrency(text); }), 13) << text;
        EXPECT_EQ(errorOf([&] { toBoolean(text); }), 13) << text;
    }
    EXPECT_EQ(errorOf([] { toLong(someBytes); }), 13);
    EXPECT_EQ(errorOf([] { toDate(someBytes); }), 13);
    for (const auto& convert : std::initializer_list<void (*)(const Value&)>{
             [](const Value& v) { toBoolean(v); }, [](const Value& v) { toByte(v); },
             [](const Value& v) { toInteger(v); }, [](const Value& v) { toLong(v); },
             [](const Value& v) { toCurrency(v); }, [](const Value& v) { toSingle(v); },
             [](const Value& v) { toDouble(v); }, [](const Value& v) { toDate(v); },
             [](const Value& v) { toText(v); }})
        EXPECT_EQ(errorOf([&] { convert(Null{}); }), 94);
}

TEST(Conversions, TextOfNumbers) {
    struct Case {
        Value from;
        const char* to;
    };
    const Case cases[] = {
        {Value(), ""},
        {true, "True"},
        {false, "False"},
        {std::uint8_t{200}, "200"},
        {std::int16_t{-32768}, "-32768"},
        {std::int32_t{2147483647}, "2147483647"},
        {0.0, "0"},
        {-0.0, "0"},
        {0.1, "0.1"},
        {-0.5, "-0.5"},
        {1.0 / 3, "0.333333333333333"},
        {1.0 / 30, "3.33333333333333E-02"},
        {0.00001, "0.00001"},
        {0.000000000000001, "0.000000000000001"},
        {0.0000000000000012, "1.2E-15"},
        {123456789012345.0, "123456789012345"},
        {1234567890123456.0, "1.23456789012346E+15"},
        {1e15, "1E+15"},
        {1e14, "100000000000000"},
        {1e20, "1E+20"},
        {-1.5e100, "-1.5E+100"},
        {999999999999999.9, "1E+15"},
        {0.1F, "0.1"},
        {1.0F / 3, "0.3333333"},
        {1.0F / 30, "3.333334E-02"},
        {1234567.0F, "1234567"},
        {12345678.0F, "1.234568E+07"},
        {16777216.0F, "1.677722E+07"},
        {std::numeric_limits<double>::infinity(), "Infinity"},
        {-std::numeric_limits<float>::infinity(), "-Infinity"},
        {std::numeric_limits<double>::quiet_NaN(), "NaN"},
        {currency(0), "0"},
        {currency(123400), "12.34"},
        {currency(-1), "-0.0001"},
        {currency(120000), "12"},
        {currency(std::numeric_limits<std::int64_t>::min()), "-922337203685477.5808"},
        {"as it is ", "as it is "},
        {someBytes, "x"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(toText(c.from), c.to);
}

TEST(Conversions, EqualityOfValues) {
    EXPECT_TRUE(valuesEqual(std::int16_t{5}, std::int32_t{5}));
    EXPECT_TRUE(valuesEqual(std::int32_t{5}, 5.0));
    EXPECT_TRUE(valuesEqual(std::uint8_t{5}, 5.0F));
    EXPECT_TRUE(valuesEqual(currency(1000), 0.1));
    EXPECT_TRUE(valuesEqual(0.1, currency(1000)));
    EXPECT_TRUE(valuesEqual(currency(50000), std::int32_t{5}));
    EXPECT_TRUE(valuesEqual(std::int32_t{5}, currency(50000)));
    EXPECT_TRUE(valuesEqual(true, std::int16_t{-1}));
    EXPECT_FALSE(valuesEqual(true, std::int16_t{1}));
    EXPECT_FALSE(valuesEqual(0.1F, 0.1));
    EXPECT_FALSE(valuesEqual(currency(1), currency(2)));
    EXPECT_TRUE(valuesEqual("North", "NORTH"));
    EXPECT_FALSE(valuesEqual("North", "North "));
    EXPECT_FALSE(valuesEqual("5", std::int32_t{5}));
    EXPECT_TRUE(valuesEqual(Null{}, Null{}));
    EXPECT_FALSE(valuesEqual(Null{}, ""));
    EXPECT_FALSE(valuesEqual(Null{}, Value()));
    EXPECT_TRUE(valuesEqual(Value(), Value()));
    EXPECT_TRUE(valuesEqual(Value(), ""));
    EXPECT_TRUE(valuesEqual("", Value()));
    EXPECT_TRUE(valuesEqual(Value(), std::int32_t{0}));
    EXPECT_TRUE(valuesEqual(false, Value()));
    EXPECT_FALSE(valuesEqual(Value(), 1.0));
    EXPECT_TRUE(valuesEqual(someBytes, someBytes));
    EXPECT_FALSE(valuesEqual(someBytes, "x"));
    EXPECT_TRUE(valuesEqual(Date{37652.5}, Date{37652.500001}));
    EXPECT_FALSE(valuesEqual(Date{37652.5}, Date{37652.50002}));
    EXPECT_TRUE(valuesEqual(Date{37652.5}, 37652.5));
    EXPECT_TRUE(valuesEqual(std::int32_t{37652}, Date{37652}));
}

TEST(Conversions, CurrencyAsText) {
    EXPECT_EQ(fourDecimals(currency(0)), "0.0000");
    EXPECT_EQ(fourDecimals(currency(123400)), "12.3400");
    EXPECT_EQ(fourDecimals(currency(-5)), "-0.0005");
    for (const std::int64_t amount :
         {std::int64_t{0}, std::int64_t{1}, std::int64_t{-9999}, std::int64_t{10000},
          std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()})
        EXPECT_EQ(currencyFromText(fourDecimals(currency(amount))), currency(amount));
    EXPECT_EQ(currencyFromText("12"), currency(120000));
    EXPECT_EQ(currencyFromText("-12.5"), currency(-125000));
    EXPECT_EQ(currencyFromText("0000000000000000000000012"), currency(120000));
    for (const char* text : {"", "-", "1.", ".5", "1.23456", "1e3", "+1", " 1", "1 ", "1,2", "1.2.3", "--1"})
        EXPECT_EQ(errorOf([&] { currencyFromText(text); }), 13) << text;
    EXPECT_EQ(errorOf([] { currencyFromText("922337203685477.5808"); }), 6);
    EXPECT_EQ(errorOf([] { currencyFromText("99999999999999999999999"); }), 6);
}

} // namespace
} // namespace tol::test
