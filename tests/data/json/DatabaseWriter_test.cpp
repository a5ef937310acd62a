// SPDX-License-Identifier: MIT
#include "JsonTest.h"

#include <nlohmann/json.hpp>

namespace tol::test {
namespace {

using namespace tol::data;

class DatabaseWriterTest : public JsonTest {};

constexpr const char* small = R"({"tables": [
 {"name": "CREW",
  "fields": [
   {"name": "TAG", "type": 4, "size": 4, "ordinal": 0, "allowZeroLength": false},
   {"name": "Größe", "type": 10, "size": 16, "ordinal": 1, "allowZeroLength": true}],
  "indexes": [
   {"name": "CREW", "fields": ["TAG"], "unique": true, "primary": true},
   {"name": "BYSIZE", "fields": ["Größe", "TAG"], "unique": false, "primary": false}],
  "rows": [
   [7, "a"],
   [3, null]]},
 {"name": "EMPTY",
  "fields": [],
  "indexes": [],
  "rows": []}]}
)";

TEST_F(DatabaseWriterTest, WritesOneRowALine) {
    make(small);
    EXPECT_EQ(dump(), small);
}

TEST_F(DatabaseWriterTest, LeavesRowsOutOfTheSchema) {
    make(small);
    const std::string text = dump("X.MDB", true);
    const auto json = nlohmann::json::parse(text);
    EXPECT_FALSE(json["tables"][0].contains("rows"));
    EXPECT_EQ(json["tables"][0]["fields"].size(), 2U);
    make(text, "Y.MDB");
    EXPECT_EQ(dump("Y.MDB", true), text);
}

TEST_F(DatabaseWriterTest, WritesADatabaseWithoutTables) {
    make(R"({"tables": []})");
    EXPECT_EQ(dump(), "{\"tables\": []}\n");
}

TEST_F(DatabaseWriterTest, KeepsTextThatIsNoUtf8) {
    make(R"({"tables": [{"name": "T", "fields": [{"name": "A", "type": 10, "size": 9}],
             "rows": [[{"base64": "R3L232U="}]]}]})");
    Recordset rows = open().OpenRecordset("T");
    EXPECT_EQ(rows.Fields("A").Value(), runtime::Value("Gr\xF6\xDF"
                                                       "e"));
    rows.Close();
    EXPECT_NE(dump().find(R"([{"base64": "R3L232U="}])"), std::string::npos);
}

TEST_F(DatabaseWriterTest, TellsItsWatcherOfEachRow) {
    make(small);
    std::string seen;
    std::ostringstream out;
    json::writeDatabase(open(), out, {false, [&](const json::RowProgress& at) {
                                          seen += at.table + std::to_string(at.row) + "/" +
                                                  std::to_string(at.count) + " ";
                                      }});
    EXPECT_EQ(seen, "CREW1/2 CREW2/2 ");
}

class FullDisk : public std::streambuf {};

TEST_F(DatabaseWriterTest, AFullDiskIsAnError) {
    make(small);
    FullDisk disk;
    std::ostream out(&disk);
    EXPECT_EQ(descriptionOf([&] { json::writeDatabase(open(), out); }), "The JSON text can't be written.");
}

TEST_F(DatabaseWriterTest, StopsHalfWayWhenItsWatcherThrows) {
    make(small);
    std::ostringstream out;
    EXPECT_THROW(json::writeDatabase(open(), out, {false, [](const json::RowProgress&) { throw 1; }}), int);
}

} // namespace
} // namespace tol::test
