// SPDX-License-Identifier: MIT
#include "data/sqlite/rows/FieldStorage.h"

#include "EngineTest.h"
#include "runtime/Conversions.h"

#include <cmath>
#include <limits>

namespace tol::test {
namespace {

using namespace data;
using namespace data::sqlite;
using runtime::Currency;
using runtime::Value;

std::string buffer;

/// What comes back of a value that was stored.
Value kept(const Value& value, FieldType type, Storage storage = Storage::Native) {
    return fromStored(toStored(value, storage, buffer), type, storage);
}

Value date(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return runtime::makeDate({year, month, day, hour, minute, second});
}

TEST(FieldStorage, KeepsEveryTypeToTheBit) {
    EXPECT_EQ(kept(runtime::Null{}, dbLong), Value(runtime::Null{}));
    EXPECT_EQ(kept(true, dbBoolean), Value(true));
    EXPECT_EQ(kept(std::uint8_t{255}, dbByte), Value(std::uint8_t{255}));
    EXPECT_EQ(kept(std::int16_t{-32768}, dbInteger), Value(std::int16_t{-32768}));
    EXPECT_EQ(kept(std::int32_t{-2147483647 - 1}, dbLong), Value(std::int32_t{-2147483647 - 1}));
    EXPECT_EQ(kept(Currency{-9223372036854775807LL}, dbCurrency, Storage::ScaledCurrency),
              Value(Currency{-9223372036854775807LL}));
    EXPECT_EQ(kept(1.1F, dbSingle), Value(1.1F));
    EXPECT_EQ(kept(0.1, dbDouble), Value(0.1));
    EXPECT_EQ(kept(date(2003, 1, 31, 16, 5, 7), dbDate, Storage::IsoDate), date(2003, 1, 31, 16, 5, 7));
    EXPECT_EQ(kept(date(1850, 7, 4, 1, 2, 3), dbDate, Storage::IsoDate), date(1850, 7, 4, 1, 2, 3));
    EXPECT_EQ(kept(std::string("a\0b", 3), dbText), Value(std::string("a\0b", 3)));
    const runtime::Bytes bytes = {std::byte{0}, std::byte{255}};
    EXPECT_EQ(kept(bytes, dbLongBinary), Value(bytes));
}

TEST(FieldStorage, HasANaturalFormInTheFile) {
    EXPECT_EQ(toStored(true, Storage::Native, buffer), StoredValue::ofInteger(1));
    EXPECT_EQ(toStored(Currency{12500}, Storage::ScaledCurrency, buffer), StoredValue::ofInteger(12500));
    EXPECT_EQ(toStored(Currency{12500}, Storage::DecimalCurrency, buffer), StoredValue::ofReal(1.25));
    EXPECT_EQ(toStored(Currency{20000}, Storage::DecimalCurrency, buffer), StoredValue::ofInteger(2));
    EXPECT_EQ(toStored(date(2003, 1, 31), Storage::IsoDate, buffer),
              StoredValue::ofText("2003-01-31 00:00:00"));
    EXPECT_TRUE(toStored(runtime::Empty{}, Storage::Native, buffer).isNull());
    EXPECT_TRUE(toStored(std::numeric_limits<double>::quiet_NaN(), Storage::Native, buffer).isNull());
}

TEST(FieldStorage, ReadsWhatOthersStore) {
    const auto read = [](const StoredValue& stored, FieldType type, Storage storage = Storage::Native) {
        return fromStored(stored, type, storage);
    };
    EXPECT_EQ(read(StoredValue::ofInteger(-1), dbBoolean), Value(true));
    EXPECT_EQ(read(StoredValue::ofText("12"), dbLong), Value(12));
    EXPECT_EQ(read(StoredValue::ofReal(2.5), dbLong), Value(2));
    EXPECT_EQ(read(StoredValue::ofInteger(3), dbDouble), Value(3.0));
    EXPECT_EQ(read(StoredValue::ofInteger(1LL << 40), dbDouble), Value(1099511627776.0));
    EXPECT_EQ(read(StoredValue::ofReal(9.99), dbCurrency, Storage::DecimalCurrency), Value(Currency{99900}));
    EXPECT_EQ(read(StoredValue::ofInteger(7), dbCurrency, Storage::DecimalCurrency), Value(Currency{70000}));
    EXPECT_EQ(read(StoredValue::ofInteger(1LL << 60), dbText), Value("1152921504606846976"));
    EXPECT_EQ(read(StoredValue::ofReal(1.5), dbMemo), Value("1.5"));
    EXPECT_EQ(read(StoredValue::ofBlob("abc"), dbText), Value("abc"));
}

TEST(FieldStorage, ReadsDatesOfThreeKinds) {
    const auto read = [](const StoredValue& stored) { return fromStored(stored, dbDate, Storage::IsoDate); };
    EXPECT_EQ(read(StoredValue::ofText("2009-01-01 00:00:00")), date(2009, 1, 1));
    EXPECT_EQ(read(StoredValue::ofText("2009-01-01")), date(2009, 1, 1));
    EXPECT_EQ(read(StoredValue::ofInteger(1234567890)), date(2009, 2, 13, 23, 31, 30));
    EXPECT_EQ(read(StoredValue::ofReal(2454832.5)), date(2009, 1, 1));
    EXPECT_EQ(read(StoredValue::ofReal(2415018.25)), date(1899, 12, 29, 18));
}

TEST(FieldStorage, RefusesWhatHasNoMeaningInTheFieldsType) {
    const auto number = [](const StoredValue& stored, FieldType type) {
        return errorOf([&] { fromStored(stored, type, Storage::Native); }).number();
    };
    EXPECT_EQ(number(StoredValue::ofText("abc"), dbLong), 3421);
    EXPECT_EQ(number(StoredValue::ofInteger(1LL << 40), dbLong), 3421);
    EXPECT_EQ(number(StoredValue::ofText("soon"), dbDate), 3421);
    EXPECT_EQ(number(StoredValue::ofInteger(300), dbByte), 3421);
}

} // namespace
} // namespace tol::test
