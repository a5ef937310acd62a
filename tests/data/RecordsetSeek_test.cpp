// SPDX-License-Identifier: MIT
#include "DataTest.h"

#include "runtime/Conversions.h"

using namespace tol::data;
using namespace tol::test;
using tol::runtime::Currency;
using tol::runtime::Null;
using tol::runtime::Value;
using Texts = std::vector<std::string>;

namespace {

class RecordsetSeek : public DataTest {
  protected:
    RecordsetSeek() {
        make(
            "T",
            {field("DB", dbText, 10), field("TBL", dbText, 10), field("N", dbLong), field("ROW", dbText, 10)},
            {plainIndex("KEYS", {"DB", "TBL", "N"}), plainIndex("BYN", {"N"})});
        Recordset rows = open("T");
        const auto row = [&](const char* file, const char* table, int number) {
            add(rows, {{"DB", file},
                       {"TBL", table},
                       {"N", number},
                       {"ROW", std::string(file) + table + std::to_string(number)}});
        };
        row("MAIN", "B", 2);
        row("ZOV", "A", 1);
        row("MAIN", "A", 2);
        row("main", "B", 1);
        row("MAIN", "A", 1);
        row("NET", "C", 7);
    }

    /// The row found, or "-" and no current record.
    static std::string found(Recordset& rows, std::string_view comparison,
                             std::initializer_list<Value> keys) {
        rows.Seek(comparison, keys);
        if (!rows.NoMatch())
            return at(rows, "ROW");
        EXPECT_EQ(raised([&] { return rows.Fields("ROW").Value(); }), "3021 No current record.");
        EXPECT_EQ(raised([&] { return rows.Bookmark(); }), "3021 No current record.");
        EXPECT_EQ(raised([&] { return rows.MoveNext(); }), "3021 No current record.");
        EXPECT_EQ(raised([&] { return rows.MovePrevious(); }), "3021 No current record.");
        EXPECT_FALSE(rows.AtBOF());
        EXPECT_FALSE(rows.AtEOF());
        return "-";
    }
};

} // namespace

TEST_P(RecordsetSeek, FindsTheFirstRecordWithTheKeys) {
    Recordset rows = open("T");
    rows.Index("KEYS");
    EXPECT_FALSE(rows.NoMatch());
    EXPECT_EQ(found(rows, "=", {"MAIN", "B", 2}), "MAINB2");
    EXPECT_EQ(found(rows, "=", {"MAIN", "B", 1}), "mainB1");
    EXPECT_EQ(found(rows, "=", {"MAIN", "B", 3}), "-");
    EXPECT_EQ(found(rows, "=", {"MAIN", "A"}), "MAINA1");
    EXPECT_EQ(found(rows, "=", {"MAIN", "C"}), "-");
    EXPECT_EQ(found(rows, "=", {"MAIN"}), "MAINA1");
    EXPECT_EQ(found(rows, "=", {"main"}), "MAINA1"); // without regard to case
    EXPECT_EQ(found(rows, "=", {"NEVER"}), "-");
    EXPECT_TRUE(rows.NoMatch());
    EXPECT_EQ(found(rows, "=", {"ZOV"}), "ZOVA1");
    EXPECT_FALSE(rows.NoMatch());
}

TEST_P(RecordsetSeek, FindsTheFirstRecordAtOrAfterTheKeys) {
    Recordset rows = open("T");
    rows.Index("KEYS");
    EXPECT_EQ(found(rows, ">=", {"MAIN", "A", 2}), "MAINA2");
    EXPECT_EQ(found(rows, ">=", {"MAIN", "A", 3}), "mainB1");
    EXPECT_EQ(found(rows, ">=", {"MAIN", "B", 3}), "NETC7");
    EXPECT_EQ(found(rows, ">=", {"MAIN", "Z"}), "NETC7");
    EXPECT_EQ(found(rows, ">=", {"MAIN"}), "MAINA1");
    EXPECT_EQ(found(rows, ">=", {"MAINX"}), "NETC7");
    EXPECT_EQ(found(rows, ">=", {""}), "MAINA1");
    EXPECT_EQ(found(rows, ">=", {"ZOV", "A", 2}), "-");
    EXPECT_EQ(found(rows, ">=", {"ZZZ"}), "-");
}

TEST_P(RecordsetSeek, FindsTheLastRecordAtOrBeforeTheKeys) {
    Recordset rows = open("T");
    rows.Index("KEYS");
    EXPECT_EQ(found(rows, "<=", {"MAIN", "A", 2}), "MAINA2");
    EXPECT_EQ(found(rows, "<=", {"MAIN", "A", 3}), "MAINA2");
    EXPECT_EQ(found(rows, "<=", {"MAIN", "A"}), "MAINA2");
    EXPECT_EQ(found(rows, "<=", {"MAIN", "B", 0}), "MAINA2");
    EXPECT_EQ(found(rows, "<=", {"main"}), "MAINB2");
    EXPECT_EQ(found(rows, "<=", {"NET", "B"}), "MAINB2");
    EXPECT_EQ(found(rows, "<=", {"ZZZ"}), "ZOVA1");
    EXPECT_EQ(found(rows, "<=", {"LAST"}), "-");
    EXPECT_TRUE(rows.NoMatch());
    EXPECT_EQ(found(rows, "<=", {"NET"}), "NETC7");
    EXPECT_FALSE(rows.NoMatch());
    rows.MovePrevious();
    EXPECT_EQ(at(rows, "ROW"), "MAINB2");
    rows.MoveNext();
    rows.MoveNext();
    EXPECT_EQ(at(rows, "ROW"), "ZOVA1");
}

TEST_P(RecordsetSeek, WalksOnFromTheRecordFound) {
    Recordset rows = open("T");
    rows.Index("KEYS");
    rows.Seek(">=", {"MAIN", "B"});
    Texts met;
    for (; !rows.AtEOF(); rows.MoveNext())
        met.push_back(at(rows, "ROW"));
    EXPECT_EQ(met, (Texts{"mainB1", "MAINB2", "NETC7", "ZOVA1"}));
    rows.Seek("=", {"MAIN", "B"});
    rows.MovePrevious();
    EXPECT_EQ(at(rows, "ROW"), "MAINA2");
    rows.Seek("=", {"MAIN", "B"});
    rows.MoveNext();
    rows.MoveNext(); // beyond the records with these keys
    EXPECT_EQ(at(rows, "ROW"), "NETC7");
}

TEST_P(RecordsetSeek, NeedsAnIndexAComparisonAndKeys) {
    Recordset rows = open("T");
    EXPECT_EQ(raised([&] { return rows.Seek("=", {"MAIN"}); }),
              "3019 Operation invalid without a current index.");
    rows.Index("BYN");
    rows.MoveLast();
    for (const char* comparison : {"<", ">", "<>", "==", ""})
        EXPECT_EQ(raised([&] { return rows.Seek(comparison, {1}); }), "3001 Invalid argument.") << comparison;
    EXPECT_EQ(raised([&] { return rows.Seek("=", {}); }), "3001 Invalid argument.");
    EXPECT_EQ(raised([&] { return rows.Seek("=", {1, 2}); }), "3001 Invalid argument.");
    EXPECT_EQ(raised([&] { return rows.Seek("=", {"a number"}); }), "3421 Data type conversion error.");
    EXPECT_EQ(at(rows, "N"), "7"); // none of them moved it
}

TEST_P(RecordsetSeek, ConvertsItsKeysToTheFieldsTypes) {
    Recordset rows = open("T");
    rows.Index("BYN");
    EXPECT_EQ(found(rows, "=", {"7"}), "NETC7");
    EXPECT_EQ(found(rows, "=", {std::int16_t{7}}), "NETC7");
    EXPECT_EQ(found(rows, "=", {7.0}), "NETC7");
    EXPECT_EQ(found(rows, "=", {Currency{70000}}), "NETC7");
}

TEST_P(RecordsetSeek, MissInAnEmptyTableIsAtBothEnds) {
    make("EMPTY", {field("N", dbLong)}, {plainIndex("N", {"N"})});
    Recordset rows = open("EMPTY");
    rows.Index("N");
    rows.Seek(">=", {1});
    EXPECT_TRUE(rows.NoMatch());
    EXPECT_TRUE(rows.AtBOF());
    EXPECT_TRUE(rows.AtEOF());
}

TEST_P(RecordsetSeek, FindsNull) {
    make("NULLS", {field("A", dbLong), field("B", dbText, 5)}, {plainIndex("AB", {"A", "B"})});
    Recordset rows = open("NULLS");
    add(rows, {{"A", 1}, {"B", "x"}});
    add(rows, {{"A", 1}});
    add(rows, {{"B", "only"}});
    rows.Index("AB");
    const auto found = [&](std::string_view comparison, std::initializer_list<Value> keys) {
        rows.Seek(comparison, keys);
        return rows.NoMatch() ? "-" : at(rows, "A") + at(rows, "B");
    };
    EXPECT_EQ(found("=", {Null()}), "Nullonly");
    EXPECT_EQ(found("=", {Null(), Null()}), "-");
    EXPECT_EQ(found("=", {1, Null()}), "1Null");
    EXPECT_EQ(found(">=", {Null()}), "Nullonly");
    EXPECT_EQ(found(">=", {Null(), "z"}), "1Null");
    EXPECT_EQ(found(">=", {1, Null()}), "1Null");
    EXPECT_EQ(found(">=", {1, ""}), "1x");
    EXPECT_EQ(found(">=", {2}), "-");
    EXPECT_EQ(found("<=", {Null()}), "Nullonly");
    EXPECT_EQ(found("<=", {Null(), Null()}), "-");
    EXPECT_EQ(found("<=", {1, ""}), "1Null");
    EXPECT_EQ(found("<=", {1, Null()}), "1Null");
    EXPECT_EQ(found("<=", {0}), "Nullonly");
    EXPECT_EQ(found("<=", {1}), "1x");
}

TEST_P(RecordsetSeek, OrdersTextsWithoutRegardToCase) {
    make("W", {field("WORD", dbText, 20)}, {plainIndex("WORD", {"WORD"})});
    Recordset rows = open("W");
    for (const char* word : {"b", "Éclair", "a", "C", "eclair", "A", "Zebra", "ähnlich", "B", "ß", "中", "é"})
        add(rows, {{"WORD", word}});
    rows.Index("WORD");
    EXPECT_EQ(walk(rows, "WORD"),
              (Texts{"a", "A", "ähnlich", "b", "B", "C", "é", "eclair", "Éclair", "ß", "Zebra", "中"}));
    rows.Seek("=", {"ÉCLAIR"});
    EXPECT_EQ(at(rows, "WORD"), "Éclair");
    rows.Seek("=", {"ECLAIR"});
    EXPECT_EQ(at(rows, "WORD"), "eclair");
    rows.Seek(">=", {"ECLAIRS"});
    EXPECT_EQ(at(rows, "WORD"), "ß");
}

TEST_P(RecordsetSeek, FindsKeysOfEveryType) {
    struct Case {
        FieldType type;
        std::vector<Value> ascending;
    };
    using tol::runtime::Bytes;
    using tol::runtime::Date;
    const Case cases[] = {
        {dbBoolean, {true, false}}, // True is -1
        {dbByte, {std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{255}}},
        {dbInteger, {std::int16_t{-32768}, std::int16_t{0}, std::int16_t{32767}}},
        {dbLong, {std::int32_t{-2147483647 - 1}, 0, std::int32_t{2147483647}}},
        {dbCurrency,
         {Currency{INT64_MIN}, Currency{-1}, Currency{0}, Currency{1}, Currency{9007199254740993},
          Currency{9007199254740994}, Currency{INT64_MAX}}},
        {dbSingle, {-3.4e38F, -0.1F, 0.0F, 1e-30F, 0.1F, 3.4e38F}},
        {dbDouble, {-1.7e308, -0.1, 0.0, 1e-300, 0.1, 1.7e308}},
        {dbDate, {Date{-657434}, Date{-1.25}, Date{0}, Date{0.5}, Date{36526.25}, Date{2958465}}},
        {dbText, {"", "a", "b"}},
        {dbMemo, {"", "a", "b"}},
        {dbLongBinary,
         {Bytes{}, Bytes{std::byte{0}}, Bytes{std::byte{0}, std::byte{1}}, Bytes{std::byte{200}}}},
        {dbGUID,
         {"{00000000-0000-0000-0000-000000000001}", "{10000000-0000-0000-0000-000000000000}",
          "{A0000000-0000-0000-0000-000000000000}"}},
    };
    for (const Case& testCase : cases) {
        const std::string table = "TYPE" + std::to_string(testCase.type);
        FieldDef key = field("K", testCase.type, 10);
        key.allowZeroLength = true;
        make(table, {key, field("PLACE", dbLong)}, {plainIndex("K", {"K"})});
        Recordset rows = open(table);
        for (std::size_t i = testCase.ascending.size(); i-- > 0;)
            add(rows, {{"K", testCase.ascending[i]}, {"PLACE", static_cast<std::int32_t>(i)}});
        rows.Index("K");
        for (std::size_t i = 0; i < testCase.ascending.size(); ++i) {
            rows.Seek("=", {testCase.ascending[i]});
            ASSERT_FALSE(rows.NoMatch()) << table << " " << i;
            EXPECT_EQ(rows.Fields("PLACE").Value(), Value(static_cast<std::int32_t>(i))) << table;
            EXPECT_EQ(rows.Fields("K").Value(), testCase.ascending[i]) << table << " " << i;
        }
        if (testCase.type == dbBoolean)
            continue;
        rows.MoveFirst();
        for (std::size_t i = 0; i < testCase.ascending.size(); ++i, rows.MoveNext())
            EXPECT_EQ(rows.Fields("PLACE").Value(), Value(static_cast<std::int32_t>(i))) << table;
    }
}

TEST_P(RecordsetSeek, WorksOnAnIndexOfTwelveFields) {
    std::vector<FieldDef> fields;
    std::vector<std::string> keys;
    for (int i = 0; i < 12; ++i) {
        keys.push_back("K" + std::to_string(i));
        fields.push_back(field(keys.back(), dbLong));
    }
    make("WIDE", fields, {plainIndex("ALL", keys)});
    Recordset rows = open("WIDE");
    for (const int last : {3, 1, 2}) {
        rows.AddNew();
        for (int i = 0; i < 12; ++i)
            rows.Fields(i).Value(i < 11 ? i : last);
        rows.Update();
    }
    rows.Index("ALL");
    EXPECT_EQ(walk(rows, "K11"), (Texts{"1", "2", "3"}));
    std::vector<Value> sought;
    sought.reserve(keys.size());
    for (int i = 0; i < 11; ++i)
        sought.emplace_back(std::int32_t{i});
    rows.Seek("=", sought);
    EXPECT_EQ(at(rows, "K11"), "1");
    sought.emplace_back(std::int32_t{3});
    rows.Seek("=", sought);
    EXPECT_EQ(at(rows, "K11"), "3");
    sought.back() = std::int32_t{4};
    rows.Seek(">=", sought);
    EXPECT_TRUE(rows.NoMatch());
    EXPECT_EQ(database.TableDefs("WIDE").Indexes("ALL").Fields().Count(), 12);
}

TOL_OVER_ALL_ENGINES(RecordsetSeek);
