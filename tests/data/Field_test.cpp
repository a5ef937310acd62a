// SPDX-License-Identifier: MIT
#include "DataTest.h"

#include "runtime/Conversions.h"

#include <cmath>
#include <limits>

using namespace tol::data;
using namespace tol::test;
using namespace std::string_literals;
using tol::runtime::Bytes;
using tol::runtime::Currency;
using tol::runtime::Date;
using tol::runtime::Empty;
using tol::runtime::Null;
using tol::runtime::Value;

namespace {

constexpr const char* conversion = "3421 Data type conversion error.";
constexpr const char* overflow = "6 Overflow";
constexpr const char* invalidOperation = "3219 Invalid operation.";

constexpr FieldType allTypes[] = {dbBoolean, dbByte, dbInteger, dbLong,       dbCurrency, dbSingle,
                                  dbDouble,  dbDate, dbText,    dbLongBinary, dbMemo,     dbGUID};

std::string nameOf(FieldType type) {
    return "F" + std::to_string(type);
}

/// A table with a field of every type.
class FieldValues : public DataTest {
  protected:
    FieldValues() {
        std::vector<FieldDef> fields;
        for (const FieldType type : allTypes) {
            fields.push_back(field(nameOf(type), type, 10));
            fields.back().allowZeroLength = true;
        }
        make("T", fields);
        rows = open("T");
    }

    /// Writes the value into a new record and reads it back through another recordset.
    Value stored(FieldType type, const Value& value) {
        add(rows, {{nameOf(type), value}});
        Recordset other = open("T");
        other.Bookmark(rows.LastModified());
        rows.Bookmark(rows.LastModified());
        EXPECT_EQ(rows.Fields(nameOf(type)).Value(), other.Fields(nameOf(type)).Value());
        return other.Fields(nameOf(type)).Value();
    }

    std::string refused(FieldType type, const Value& value) {
        rows.AddNew();
        return raised([&] { return rows.Fields(nameOf(type)).Value(value); });
    }

    Recordset rows;
};

} // namespace

TEST_P(FieldValues, KeepEveryValueOfTheirType) {
    const std::pair<FieldType, std::vector<Value>> cases[] = {
        {dbBoolean, {true, false}},
        {dbByte, {std::uint8_t{0}, std::uint8_t{255}}},
        {dbInteger, {std::int16_t{-32768}, std::int16_t{32767}}},
        {dbLong, {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}},
        {dbCurrency, {Currency{INT64_MIN}, Currency{INT64_MAX}, Currency{1}, Currency{-9007199254740993}}},
        {dbSingle,
         {std::numeric_limits<float>::max(), std::numeric_limits<float>::lowest(),
          std::numeric_limits<float>::denorm_min(), 0.1F}},
        {dbDouble,
         {std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest(),
          std::numeric_limits<double>::denorm_min(), 0.1}},
        {dbDate, {Date{-657434}, Date{-1.25}, Date{0}, Date{36526.75}, Date{2958465}}},
        {dbText, {"", " ", "it's \"so\"", "a\0b"s, "\xF0\x9F\x98\x80\xF0\x9F\x98\x80", "ÄÖÜäöüß中文"}},
        {dbMemo, {"", std::string(100000, 'x'), "line\r\nline", "nul\0inside"s}},
        {dbLongBinary, {Bytes{}, Bytes{std::byte{0}, std::byte{255}}, Bytes(70000, std::byte{7})}},
        {dbGUID, {"{01234567-89AB-CDEF-0123-456789abcdef}", "01234567-89AB-CDEF-0123-456789abcdef", " "}},
    };
    for (const auto& [type, values] : cases) {
        for (const Value& value : values)
            EXPECT_EQ(stored(type, value), value) << nameOf(type) << " " << textOf(value).substr(0, 40);
    }
    rows.Close();
    reopen();
    rows = open("T");
    for (const auto& [type, values] : cases) {
        for (const Value& value : values) {
            EXPECT_EQ(rows.Fields(nameOf(type)).Value(), value) << nameOf(type);
            rows.MoveNext();
        }
    }
}

TEST_P(FieldValues, MayBeNullWhateverTheType) {
    for (const FieldType type : allTypes) {
        EXPECT_TRUE(stored(type, Null()).isNull());
        EXPECT_TRUE(rows.Fields(nameOf(type)).Value().isNull());
    }
    stored(dbLong, 5);
    change(rows, {{nameOf(dbLong), Null()}});
    EXPECT_TRUE(rows.Fields(nameOf(dbLong)).Value().isNull());
}

TEST_P(FieldValues, AreConvertedToTheFieldsType) {
    EXPECT_EQ(stored(dbBoolean, 5), Value(true));
    EXPECT_EQ(stored(dbBoolean, 0), Value(false));
    EXPECT_EQ(stored(dbByte, 2.5), Value(std::uint8_t{2})); // half to even
    EXPECT_EQ(stored(dbInteger, "12"), Value(std::int16_t{12}));
    EXPECT_EQ(stored(dbInteger, true), Value(std::int16_t{-1}));
    EXPECT_EQ(stored(dbLong, 3.5), Value(4));
    EXPECT_EQ(stored(dbLong, Empty()), Value(0));
    EXPECT_EQ(stored(dbCurrency, 1.23455), Value(Currency{12346}));
    EXPECT_EQ(stored(dbCurrency, "0.1"), Value(Currency{1000}));
    EXPECT_EQ(stored(dbSingle, 0.1), Value(0.1F));
    EXPECT_EQ(stored(dbDouble, 7), Value(7.0));
    EXPECT_EQ(stored(dbDate, "1/31/2003"), Value(Date{37652}));
    EXPECT_EQ(stored(dbDate, 37652), Value(Date{37652}));
    EXPECT_EQ(stored(dbText, 12.5), Value("12.5"));
    EXPECT_EQ(stored(dbText, true), Value("True"));
    EXPECT_EQ(stored(dbText, Currency{12300}), Value("1.23"));
    EXPECT_EQ(stored(dbMemo, Date{37652}), Value("1/31/2003"));
    EXPECT_EQ(stored(dbLongBinary, " "), Value(Bytes{std::byte{' '}}));
    EXPECT_EQ(stored(dbText, Bytes{std::byte{'x'}}), Value("x"));
}

TEST_P(FieldValues, BeyondTheirRangeOverflow) {
    EXPECT_EQ(refused(dbByte, 256), overflow);
    EXPECT_EQ(refused(dbByte, -1), overflow);
    EXPECT_EQ(refused(dbInteger, 32768), overflow);
    EXPECT_EQ(refused(dbInteger, 32767.5), overflow);
    EXPECT_EQ(refused(dbLong, 2147483648.0), overflow);
    EXPECT_EQ(refused(dbCurrency, 1e15), overflow);
    EXPECT_EQ(refused(dbSingle, 1e39), overflow);
    EXPECT_EQ(refused(dbDouble, std::numeric_limits<double>::infinity()), overflow);
    EXPECT_EQ(refused(dbSingle, std::numeric_limits<float>::quiet_NaN()), overflow);
}

TEST_P(FieldValues, ThatCantBecomeTheTypeAreRefused) {
    for (const FieldType type :
         {dbBoolean, dbByte, dbInteger, dbLong, dbCurrency, dbSingle, dbDouble, dbDate}) {
        EXPECT_EQ(refused(type, "no such thing"), conversion) << nameOf(type);
        EXPECT_EQ(refused(type, ""), conversion) << nameOf(type);
        EXPECT_EQ(refused(type, Bytes{std::byte{1}}), conversion) << nameOf(type);
    }
    for (const char* text : {"01234567", "{01234567-89AB-CDEF-0123-456789abcdeX}", "x"})
        EXPECT_EQ(refused(dbGUID, text), conversion) << text;
}

TEST_P(FieldValues, RefusedLeaveTheBufferAsItWas) {
    rows.AddNew();
    rows.Fields("F4").Value(7);
    EXPECT_EQ(raised([&] { return rows.Fields("F4").Value("x"); }), conversion);
    EXPECT_EQ(raised([&] { return rows.Fields("F3").Value(40000); }), overflow);
    rows.Update();
    rows.MoveLast();
    EXPECT_EQ(at(rows, "F4"), "7");
    EXPECT_EQ(at(rows, "F3"), "Null");
}

TEST_P(FieldValues, TextIsMeasuredInCharacters) {
    const std::string full = "ÄÖÜ中文\xF0\x9F\x98\x80"
                             "abcd"; // ten characters
    EXPECT_EQ(stored(dbText, full), Value(full));
    EXPECT_EQ(refused(dbText, full + "e"), "3163 The field 'F10' is too small to accept the amount of data.");
    EXPECT_EQ(refused(dbText, 12345678901.0),
              "3163 The field 'F10' is too small to accept the amount of data.");
    EXPECT_EQ(stored(dbMemo, full + "e"), Value(full + "e"));
}

TEST_P(FieldValues, ZeroLengthHasToBeAllowed) {
    make("Z", {field("TXT", dbText, 5), field("MEMO", dbMemo)});
    Recordset texts = open("Z");
    texts.AddNew();
    EXPECT_EQ(raised([&] { return texts.Fields("TXT").Value(""); }),
              "3315 Field 'TXT' cannot be a zero-length string.");
    EXPECT_EQ(raised([&] { return texts.Fields("MEMO").Value(""); }),
              "3315 Field 'MEMO' cannot be a zero-length string.");
    EXPECT_FALSE(texts.Fields("TXT").AllowZeroLength());
    texts.Fields("TXT").AllowZeroLength(true);
    EXPECT_TRUE(texts.Fields("TXT").AllowZeroLength());
    texts.Fields("TXT").Value("");
    texts.Update();
    texts.MoveFirst();
    EXPECT_EQ(texts.Fields("TXT").Value(), Value(""));
    EXPECT_TRUE(texts.Fields("MEMO").Value().isNull());
    texts.Fields("TXT").AllowZeroLength(false);
    texts.Edit();
    EXPECT_EQ(raised([&] { return texts.Fields("TXT").Value(""); }).substr(0, 4), "3315");
    EXPECT_FALSE(database.TableDefs("Z").Fields("TXT").AllowZeroLength());
}

TEST_P(FieldValues, HaveKnownSizes) {
    const std::pair<FieldType, int> sizes[] = {
        {dbBoolean, 1}, {dbByte, 1}, {dbInteger, 2}, {dbLong, 4},       {dbCurrency, 8}, {dbSingle, 4},
        {dbDouble, 8},  {dbDate, 8}, {dbText, 10},   {dbLongBinary, 0}, {dbMemo, 0},     {dbGUID, 16},
    };
    reopen();
    const TableDef table = database.TableDefs("T");
    rows = open("T");
    EXPECT_EQ(rows.Fields().Count(), 12);
    int position = 0;
    for (const auto& [type, size] : sizes) {
        for (const Field& tested :
             {rows.Fields(nameOf(type)), table.Fields(nameOf(type)), rows.Fields(position)}) {
            EXPECT_EQ(tested.Name(), nameOf(type));
            EXPECT_EQ(tested.Type(), type);
            EXPECT_EQ(tested.Size(), size) << nameOf(type);
            EXPECT_EQ(tested.OrdinalPosition(), position);
            EXPECT_TRUE(tested.AllowZeroLength());
        }
        ++position;
    }
}

TEST_P(FieldValues, AreFoundByNameOrPosition) {
    EXPECT_EQ(rows.Fields("f4").Name(), "F4");
    EXPECT_EQ(rows.Fields(0).Name(), "F1");
    const std::string missing = "3265 Item not found in this collection.";
    EXPECT_EQ(raised([&] { return rows.Fields("NONE"); }), missing);
    EXPECT_EQ(raised([&] { return rows.Fields(12); }), missing);
    EXPECT_EQ(raised([&] { return rows.Fields(-1); }), missing);
}

TEST_P(FieldValues, BelongToARecordset) {
    Field defined = database.TableDefs("T").Fields("F4");
    EXPECT_EQ(raised([&] { return defined.Value(); }), invalidOperation);
    EXPECT_EQ(raised([&] { return defined.Value(1); }), invalidOperation);
    EXPECT_EQ(raised([&] { return rows.Fields("F4").Name("OTHER"); }), invalidOperation);
}

TEST_P(FieldValues, FollowTheCurrentRecordThroughOneHandle) {
    const Field number = rows.Fields("F4");
    for (const int n : {1, 2, 3})
        add(rows, {{"F4", n}});
    std::string met;
    for (rows.MoveFirst(); !rows.AtEOF(); rows.MoveNext())
        met += textOf(number.Value());
    EXPECT_EQ(met, "123");
    rows.Close();
    EXPECT_EQ(raised([&] { return number.Value(); }), "3420 Object invalid or no longer set.");
    EXPECT_EQ(raised([&] { return number.Name(); }), "3420 Object invalid or no longer set.");
}

TEST_P(FieldValues, OfManyFieldsAreAllReached) {
    std::vector<FieldDef> fields;
    fields.reserve(255);
    for (int i = 0; i < 255; ++i)
        fields.push_back(field("FIELD" + std::to_string(i), i % 2 == 0 ? dbLong : dbText, 20));
    make("WIDE", fields);
    Recordset wide = open("WIDE");
    wide.AddNew();
    for (int i = 0; i < 255; ++i)
        wide.Fields(i).Value(i);
    wide.Fields(254).Value(-1);
    wide.Update();
    wide.MoveFirst();
    for (int i = 0; i < 254; ++i)
        EXPECT_EQ(at(wide, "FIELD" + std::to_string(i)), std::to_string(i));
    EXPECT_EQ(at(wide, "FIELD254"), "-1");
}

TOL_OVER_ALL_ENGINES(FieldValues);

TEST(DetachedField, StandsForItselfUntilItIsAppended) {
    Field own(field("NAME", dbText, 30));
    EXPECT_EQ(own.Size(), 30);
    EXPECT_EQ(own.OrdinalPosition(), 0);
    own.OrdinalPosition(4);
    own.AllowZeroLength(true);
    own.Name("OTHER");
    EXPECT_EQ(own.Name(), "OTHER");
    EXPECT_EQ(own.OrdinalPosition(), 4);
    EXPECT_TRUE(own.AllowZeroLength());
    EXPECT_EQ(raised([&] { return own.Value(); }), invalidOperation);
}
