// SPDX-License-Identifier: MIT
#include "JsonTest.h"

#include "runtime/Conversions.h"

#include <gmock/gmock.h>

namespace tol::test {
namespace {

using namespace tol::data;
using testing::HasSubstr;

class DatabaseReaderTest : public JsonTest {
  protected:
    /// A table T with a Long field A and a text field B of 3 characters, whose rows begin in line 2.
    std::string withRows(std::string_view rows, std::string_view indexes = "") {
        return R"({"tables": [{"name": "T", "fields": [{"name": "A", "type": 4}, )"
               R"({"name": "B", "type": 10, "size": 3}], "indexes": [)" +
               std::string(indexes) + "], \"rows\": [\n" + std::string(rows) + "]}]}";
    }
    std::string withFields(std::string_view fields) {
        return "{\"tables\": [{\"name\": \"T\", \"fields\": [\n" + std::string(fields) + "]}]}";
    }
};

TEST_F(DatabaseReaderTest, ReadsEveryType) {
    make(R"({"tables": [{"name": "ALL", "fields": [
        {"name": "F1", "type": 1}, {"name": "F2", "type": 2}, {"name": "F3", "type": 3},
        {"name": "F4", "type": 4}, {"name": "F5", "type": 5}, {"name": "F6", "type": 6},
        {"name": "F7", "type": 7}, {"name": "F8", "type": 8},
        {"name": "F10", "type": 10, "size": 20, "allowZeroLength": true},
        {"name": "F11", "type": 11}, {"name": "F12", "type": 12}, {"name": "F15", "type": 15}],
      "rows": [[true, 255, -32768, 2147483647, "-12.3456", 0.1, 1e-300, "1999-12-31 23:59:59",
                "\u0000 \"q\" \ud83d\ude42", "AAEC/w==", "long\ntext",
                "{01234567-89AB-CDEF-0123-456789ABCDEF}"]]}]})");
    Recordset rows = open().OpenRecordset("ALL");
    EXPECT_EQ(rows.Fields("F1").Value(), runtime::Value(true));
    EXPECT_EQ(rows.Fields("F2").Value(), runtime::Value(std::uint8_t{255}));
    EXPECT_EQ(rows.Fields("F3").Value(), runtime::Value(std::int16_t{-32768}));
    EXPECT_EQ(rows.Fields("F4").Value(), runtime::Value(std::int32_t{2147483647}));
    EXPECT_EQ(rows.Fields("F5").Value(), runtime::Value(runtime::Currency{-123456}));
    EXPECT_EQ(rows.Fields("F6").Value(), runtime::Value(0.1F));
    EXPECT_EQ(rows.Fields("F7").Value(), runtime::Value(1e-300));
    EXPECT_EQ(rows.Fields("F8").Value(), runtime::Value(runtime::makeDate({1999, 12, 31, 23, 59, 59})));
    EXPECT_EQ(rows.Fields("F10").Value(), runtime::Value(std::string("\0 \"q\" 🙂", 10)));
    EXPECT_EQ(rows.Fields("F11").Value().get<runtime::Bytes>().size(), 4U);
    EXPECT_EQ(rows.Fields("F12").Value(), runtime::Value("long\ntext"));
    EXPECT_EQ(rows.Fields("F15").Value(), runtime::Value("{01234567-89AB-CDEF-0123-456789ABCDEF}"));
    EXPECT_EQ(rows.Fields("F15").Size(), 16);
    rows.Close();
    const std::string text = dump();
    make(text, "Y.MDB");
    EXPECT_EQ(dump("Y.MDB"), text);
}

TEST_F(DatabaseReaderTest, KeysMayStandInAnotherOrder) {
    make(R"({"tables": [{"indexes": [{"fields": ["A"], "unique": true, "name": "I"}],
             "fields": [{"type": 4, "name": "A"}], "name": "T"}]})");
    const TableDefinition table = open().TableDefs("T").definition();
    EXPECT_EQ(table.fields.size(), 1U);
    ASSERT_EQ(table.indexes.size(), 1U);
    EXPECT_TRUE(table.indexes[0].unique);
    EXPECT_FALSE(table.indexes[0].primary);
}

TEST_F(DatabaseReaderTest, IndexesMayStandBehindTheRows) {
    make(R"({"tables": [{"name": "T", "fields": [{"name": "A", "type": 4}], "rows": [[2], [1]],
             "indexes": [{"name": "I", "fields": ["A"], "unique": true}]}]})");
    Recordset rows = open().OpenRecordset("T");
    rows.Index("I");
    EXPECT_EQ(rows.Fields("A").Value(), runtime::Value(std::int32_t{1}));
}

TEST_F(DatabaseReaderTest, RowsFollowTheFieldsOfTheTextWhateverTheirPositions) {
    make(R"({"tables": [{"name": "T", "fields": [{"name": "LAST", "type": 4, "ordinal": 5},
             {"name": "FIRST", "type": 4, "ordinal": 2}], "rows": [[1, 2]]}]})");
    Recordset rows = open().OpenRecordset("T");
    EXPECT_EQ(rows.Fields("LAST").Value(), runtime::Value(std::int32_t{1}));
    EXPECT_EQ(rows.Fields("FIRST").OrdinalPosition(), 2);
    EXPECT_EQ(rows.Fields(0).Name(), "FIRST");
}

TEST_F(DatabaseReaderTest, ATableMayHaveRowsAndNoField) {
    make(R"({"tables": [{"name": "T", "fields": [], "rows": [[], []]}]})");
    EXPECT_EQ(open().OpenRecordset("T").RecordCount(), 2);
}

TEST_F(DatabaseReaderTest, AddsTablesToAnOpenDatabase) {
    make(R"({"tables": [{"name": "OLD", "fields": []}]})");
    Database& database = open();
    std::istringstream in(R"({"tables": [{"name": "NEW", "fields": []}]})");
    json::readDatabase(in, database);
    EXPECT_EQ(database.TableDefs().Count(), 2);
    std::istringstream again(R"({"tables": [{"name": "OLD", "fields": []}]})");
    EXPECT_EQ(errorOf([&] { json::readDatabase(again, database); }), runtime::errTableExists);
}

TEST_F(DatabaseReaderTest, TellsItsWatcherOfEachRow) {
    make(R"({"tables": []})");
    std::string seen;
    std::istringstream in(withRows("[1, \"a\"], [2, null]"));
    json::readDatabase(in, open(), [&](const json::RowProgress& at) {
        seen += at.table + std::to_string(at.row) + "/" + std::to_string(at.count) + " ";
    });
    EXPECT_EQ(seen, "T1/0 T2/0 ");
}

// ---- what is no database ----

struct BadText {
    const char* name;
    const char* json;
    int number;
    const char* description;
};

class BadTextTest : public JsonTest, public testing::WithParamInterface<BadText> {};

TEST_P(BadTextTest, IsRefusedWithItsLine) {
    const BadText& bad = GetParam();
    EXPECT_EQ(errorOf([&] { make(bad.json); }), bad.number);
    EXPECT_THAT(complaint(bad.json), testing::StartsWith(bad.description));
    EXPECT_FALSE(std::filesystem::exists(m_folder / "X.MDB"));
    for (const auto& entry : std::filesystem::directory_iterator(m_folder.path()))
        EXPECT_EQ(entry.path().filename(), "drives");
}

INSTANTIATE_TEST_SUITE_P(
    Malformed, BadTextTest,
    testing::Values(BadText{"Nothing", "", 3343,
                            "Line 1: Not valid JSON: syntax error while parsing value - unexpected end"},
                    BadText{"BlankLines", "\n\n", 3343, "Line 3: Not valid JSON: "},
                    BadText{"NoJson", "hello", 3343,
                            "Line 1: Not valid JSON: syntax error while parsing value - invalid"},
                    BadText{"NeverClosed", "{\"tables\":\n[", 3343, "Line 2: Not valid JSON: "},
                    BadText{"ClosedTwice", "{\"tables\": []}\n}", 3343, "Line 2: Not valid JSON: "},
                    BadText{"TrailingComma", "{\"tables\":\n\n[],}", 3343, "Line 3: Not valid JSON: "},
                    BadText{"BadEscape", "{\"\\q\": 1}", 3343, "Line 1: Not valid JSON: "},
                    BadText{"LoneSurrogate", "{\"\\ud800\": 1}", 3343, "Line 1: Not valid JSON: "},
                    BadText{"NoUtf8", "{\"\xE4\": 1}", 3343, "Line 1: Not valid JSON: "},
                    BadText{"HugeNumber", "{\"tables\": [{\"name\": 1e999}]}", 3343,
                            "Line 1: Not valid JSON: "}),
    [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(
    OtherShape, BadTextTest,
    testing::Values(
        BadText{"AnArray", "[]", 13, "Line 1: Type mismatch: an array does not belong here."},
        BadText{"AText", "\n\"x\"", 13, "Line 2: Type mismatch: a text does not belong here."},
        BadText{"NoTables", "{}", 3001, "Line 1: A database lacks \"tables\"."},
        BadText{"UnknownKey", "{\"tables\": [],\n\"views\": []}", 3001,
                "Line 2: A database has no \"views\"."},
        BadText{"TablesTwice", "{\"tables\": [],\n\"tables\": []}", 3001,
                "Line 2: A database has twice \"tables\"."},
        BadText{"TablesAsObject", "{\"tables\": {}}", 13,
                "Line 1: Type mismatch: an object does not belong here."},
        BadText{"TableAsText", "{\"tables\": [\n\"T\"]}", 13,
                "Line 2: Type mismatch: a text does not belong here."},
        BadText{"NoName", "{\"tables\": [{\"fields\": []}]}", 3001, "Line 1: A table lacks \"name\"."},
        BadText{"NoFields", "{\"tables\": [{\"name\": \"T\"}]}", 3001, "Line 1: A table lacks \"fields\"."},
        BadText{"NameAsNumber", "{\"tables\": [{\"name\": 5}]}", 13,
                "Line 1: Type mismatch: a whole number does not belong here."},
        BadText{"FieldsAsText", "{\"tables\": [{\"fields\": \"A\"}]}", 13,
                "Line 1: Type mismatch: a text does not belong here."},
        BadText{"NameAsArray", "{\"tables\": [{\"name\": []}]}", 13,
                "Line 1: Type mismatch: an array does not belong here."},
        BadText{"RowsFirst", "{\"tables\": [{\"name\": \"T\",\n\"rows\": [], \"fields\": []}]}", 3001,
                "Line 2: \"rows\" must stand behind \"name\" and \"fields\" of its table."},
        BadText{"FieldsBehindRows", "{\"tables\": [{\"fields\": [],\n\"rows\": [], \"name\": \"T\"}]}", 3001,
                "Line 2: \"rows\" must stand behind \"name\" and \"fields\" of its table."},
        BadText{"RowAsText", "{\"tables\": [{\"name\": \"T\", \"fields\": [], \"rows\": [\n5]}]}", 13,
                "Line 2: Type mismatch: a whole number does not belong here."},
        BadText{"SameTable",
                "{\"tables\": [{\"name\": \"T\", \"fields\": []},\n{\"name\": \"t\", \"fields\": []}]}", 3010,
                "Line 2: table \"t\": Table 't' already exists."},
        BadText{"BlankTable", "{\"tables\": [{\"name\": \"\", \"fields\": []}]}", 3125,
                "Line 1: table \"\": "}),
    [](const auto& test) { return test.param.name; });

TEST_F(DatabaseReaderTest, RefusesFieldsThatCannotBe) {
    EXPECT_EQ(complaint(withFields(R"({"type": 4})")), "Line 2: A field lacks \"name\".");
    EXPECT_EQ(complaint(withFields(R"({"name": "A"})")), "Line 2: A field lacks \"type\".");
    EXPECT_EQ(complaint(withFields(R"({"name": "A", "type": 9})")), "Line 2: There is no field type 9.");
    EXPECT_EQ(complaint(withFields(R"({"name": "A", "type": null})")), "Line 2: Invalid use of Null");
    EXPECT_EQ(complaint(withFields(R"({"name": "A", "type": "Long"})")),
              "Line 2: Type mismatch: a text where a whole number belongs.");
    EXPECT_EQ(complaint(withFields(R"({"name": "A", "type": 4, "size": 99999999999})")),
              "Line 2: Overflow: 99999999999 does not fit.");
    EXPECT_EQ(complaint(withFields(R"({"name": "A", "type": 4, "width": 4})")),
              "Line 2: A field has no \"width\".");
    EXPECT_EQ(complaint(withFields(R"({"name": "A", "type": 10})")),
              "Line 2: Field \"A\": a text has a size of 1 to 255 characters.");
    EXPECT_EQ(complaint(withFields(R"({"name": "A", "type": 10, "size": 256})")),
              "Line 2: Field \"A\": a text has a size of 1 to 255 characters.");
    EXPECT_EQ(complaint(withFields(R"({"name": "A", "type": 4, "allowZeroLength": "no"})")),
              "Line 2: Type mismatch: a text where true or false belongs.");
    EXPECT_EQ(complaint(withFields("{\"name\": \"A\", \"type\": 4},\n{\"name\": \"a\", \"type\": 4}")),
              "Line 3: table \"T\": Cannot define field 'a' more than once.");
}

TEST_F(DatabaseReaderTest, RefusesMoreFieldsThanATableTakes) {
    std::string fields;
    for (int i = 0; i < 256; ++i)
        fields +=
            (i == 0 ? "" : ",") + std::string(R"({"name": "F)") + std::to_string(i) + R"(", "type": 3})";
    EXPECT_EQ(errorOf([&] { make(withFields(fields)); }), runtime::errTooManyFields);
}

TEST_F(DatabaseReaderTest, RefusesIndexesThatCannotBe) {
    EXPECT_EQ(complaint(withRows("", R"({"name": "I"})")), "Line 1: An index lacks \"fields\".");
    EXPECT_EQ(complaint(withRows("", R"({"fields": ["A"]})")), "Line 1: An index lacks \"name\".");
    EXPECT_EQ(complaint(withRows("", R"({"name": "I", "fields": "A"})")),
              "Line 1: Type mismatch: a text does not belong here.");
    EXPECT_EQ(complaint(withRows("", R"({"name": ["I"]})")),
              "Line 1: Type mismatch: an array does not belong here.");
    EXPECT_EQ(complaint(withRows("", R"({"name": "I", "fields": [1]})")),
              "Line 1: Type mismatch: a whole number where a text belongs.");
    EXPECT_THAT(complaint(withRows("", R"({"name": "I", "fields": ["C"]})")), HasSubstr("\"T\""));
    EXPECT_EQ(errorOf([&] { make(withRows("", R"({"name": "I", "fields": ["C"]})")); }),
              runtime::errIndexFieldNotFound);
    EXPECT_EQ(errorOf([&] { make(withRows("", R"({"name": "I", "fields": []})")); }),
              runtime::errNoFieldDefined);
}

TEST_F(DatabaseReaderTest, TellsRowAndFieldOfAValueThatDoesNotFit) {
    EXPECT_EQ(
        complaint(withRows("[1, \"abc\"],\n[2, \"abcd\"]")),
        "Line 3: table \"T\", row 2, field \"B\": The field 'B' is too small to accept the amount of data.");
    EXPECT_EQ(errorOf([&] { make(withRows("[1, \"abcd\"]")); }), runtime::errFieldTooSmall);
    EXPECT_EQ(complaint(withRows("[2147483648, null]")),
              "Line 2: table \"T\", row 1, field \"A\": Overflow: 2147483648 does not fit.");
    EXPECT_EQ(complaint(withRows("[\"1\", null]")),
              "Line 2: table \"T\", row 1, field \"A\": Type mismatch: a text where a whole number belongs.");
    EXPECT_EQ(complaint(withRows("[1, \"\"]")),
              "Line 2: table \"T\", row 1, field \"B\": Field 'B' cannot be a zero-length string.");
    EXPECT_EQ(complaint(withRows("[1, [2]]")), "Line 2: Type mismatch: an array does not belong here.");
}

TEST_F(DatabaseReaderTest, CountsSizeInCharacters) {
    make(withRows("[1, \"äö🙂\"]"));
    EXPECT_EQ(errorOf([&] { make(withRows("[1, \"äö🙂!\"]"), "Y.MDB"); }), runtime::errFieldTooSmall);
}

TEST_F(DatabaseReaderTest, TellsARowOfAnotherLength) {
    EXPECT_EQ(complaint(withRows("[1, null],\n[1]")),
              "Line 3: table \"T\", row 2: there are 1 values, but the table has 2 fields.");
    EXPECT_EQ(complaint(withRows("[1, null, 3]")),
              "Line 2: table \"T\", row 1: there are more values than the 2 fields of the table.");
    EXPECT_EQ(complaint(withRows("[]")),
              "Line 2: table \"T\", row 1: there are 0 values, but the table has 2 fields.");
}

TEST_F(DatabaseReaderTest, RawBytesAreForTextsAlone) {
    EXPECT_EQ(
        complaint(withRows(R"([{"base64": "AAAA"}, null])")),
        "Line 2: table \"T\", row 1, field \"A\": Type mismatch: only a field of texts takes an object.");
    EXPECT_EQ(complaint(withRows(R"([1, {"base64": "A"}])")),
              "Line 2: Data type conversion error. \"A\" is not base64 text.");
    EXPECT_EQ(complaint(withRows(R"([1, {"base64": null}])")), "Line 2: Invalid use of Null");
    EXPECT_EQ(complaint(withRows(R"([1, {}])")), "Line 2: A text that is no UTF-8 lacks \"base64\".");
    EXPECT_EQ(complaint(withRows(R"([1, {"hex": "00"}])")),
              "Line 2: A text that is no UTF-8 has no \"hex\".");
    EXPECT_EQ(errorOf([&] { make(withRows(R"([1, {"base64": "//////8="}])")); }), runtime::errFieldTooSmall);
}

TEST_F(DatabaseReaderTest, TellsTheRowOfADuplicateKey) {
    constexpr const char* index = R"({"name": "X", "fields": ["B"]},
        {"name": "I", "fields": ["A"], "unique": true}, {"name": "Y", "fields": ["A", "B"]})";
    const std::string json = withRows("[1, null], [2, null],\n[1, null]", index);
    EXPECT_EQ(errorOf([&] { make(json); }), runtime::errDuplicateKey);
    EXPECT_THAT(complaint(json), HasSubstr("Line 4: table \"T\", row 3: "));
}

TEST_F(DatabaseReaderTest, KeepsTheOrderOfIndexes) {
    make(withRows("[1, null]", R"({"name": "X", "fields": ["B"]},
        {"name": "I", "fields": ["A"], "unique": true}, {"name": "H", "fields": ["A", "B"]})"));
    const std::string text = dump();
    make(text, "Y.MDB");
    EXPECT_EQ(dump("Y.MDB"), text);
    EXPECT_EQ(open().TableDefs("T").definition().indexes.size(), 3U);
}

TEST_F(DatabaseReaderTest, ANullInAPrimaryKeyIsRefusedWithItsRow) {
    const std::string json =
        withRows("[null, null]", R"({"name": "I", "fields": ["A"], "unique": true, "primary": true})");
    EXPECT_THAT(complaint(json), HasSubstr("Line 2: table \"T\", row 1: "));
}

TEST_F(DatabaseReaderTest, CutsALongTokenInItsComplaint) {
    const std::string text = complaint("{\"tables\": [\"" + std::string(100000, 'x') + "\n");
    EXPECT_THAT(text, testing::StartsWith("Line 1: Not valid JSON: "));
    EXPECT_LT(text.size(), 300U);
}

} // namespace
} // namespace tol::test
