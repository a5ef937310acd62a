// SPDX-License-Identifier: MIT
// Updates of a database that another program made, with views, triggers, keys and checks of its own.
#include "UpdateWorld.h"

#include "support/Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace tol::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class ForeignUpdate : public testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directories(world.folder.path() / "drives/c/SHOP");
        UpdateWorld::addRowsOf("DATABASES", Json::parse(R"([["SALES", "DBPATHS", "N", false]])"));
        UpdateWorld::addSites(Json::parse(R"([["SHOP", "C:\\SHOP"]])"));
    }

    /// What SQLite's command line says to it.
    std::string sql(const std::string& text) {
        Program program("/usr/bin/env", {"sqlite3", "-bail", file, text}, world.folder.path());
        EXPECT_EQ(program.wait(), 0) << program.err() << text;
        return program.out();
    }

    void want(const std::string& tables) {
        UpdateWorld::addDefinitions(Json{{"SALES", Json::parse(tables)}});
    }

    std::vector<std::string> update() {
        UpdateRun run;
        run(world);
        EXPECT_TRUE(run.finished);
        notes.clear();
        for (const update::DefinitionNote& note : run.view.notes) {
            EXPECT_EQ(note.PATHNAME, "SHOP");
            EXPECT_EQ(note.DBNAME, "SALES");
            notes.push_back(note.note.table + ": " + data::kindWord(note.note.kind) + " " + note.note.name);
        }
        std::vector<std::string> actions;
        for (const Json& row : UpdateWorld::activityLog())
            actions.push_back(row.at(2).get<std::string>() + " " + row.at(4).get<std::string>() + " " +
                              row.at(5).get<std::string>());
        return actions;
    }

    UpdateWorld world;
    const std::string file = (world.folder.path() / "drives/c/SHOP/SALES.MDB").string();
    std::vector<std::string> notes;
};

const std::string allOk = "    Database Ok. No Changes Made.";

TEST_F(ForeignUpdate, keepsWhatNamesAConvertedField) {
    sql("CREATE TABLE Orders(Id INTEGER PRIMARY KEY AUTOINCREMENT, Customer TEXT(5), Freight INT, Paid INT "
        "CHECK(Paid < 1000), Changed INT, CHECK(Paid >= 0));"
        "CREATE TABLE Lines(OrderId INT REFERENCES Orders(Id) ON DELETE CASCADE, Place INT, Amount INT, "
        "PRIMARY KEY(OrderId, Place));"
        "CREATE TABLE History(What);"
        "CREATE VIEW Invoices AS SELECT o.Id, o.Customer, o.Freight, l.Amount FROM Orders o JOIN Lines l ON "
        "l.OrderId = o.Id;"
        "CREATE TRIGGER Note AFTER UPDATE ON Orders BEGIN INSERT INTO History VALUES(old.Freight || ' to ' "
        "|| "
        "new.Freight); END;"
        "CREATE TRIGGER Stamp AFTER UPDATE OF Customer ON Orders BEGIN UPDATE Orders SET Changed = 9; END;"
        "CREATE INDEX Dear ON Orders(Customer) WHERE Freight > 10; CREATE INDEX Low ON "
        "Orders(lower(Customer));"
        "INSERT INTO Orders(Id, Customer, Freight, Paid, Changed) VALUES(7, 'ada', 12, 1, 1), (90, 'bo', 3, "
        "2, "
        "2); INSERT INTO Lines VALUES(7, 1, 5), (90, 1, 6); DELETE FROM History; DELETE FROM Orders WHERE Id "
        "= "
        "90;");
    const std::string others = "SELECT sql FROM sqlite_schema WHERE type IN ('view', 'trigger') OR name IN "
                               "('Dear', 'Low') ORDER BY name";
    const std::string before = sql(others);
    want(
        R"({"Orders": {"fields": [["Id", 4], ["Customer", 10, 20], ["Freight", 7], ["Paid", 4], ["Changed", 4]],
                        "indexes": {"PrimaryKey": ["Id"]}},
             "Lines": {"fields": [["OrderId", 4], ["Place", 4], ["Amount", 7]],
                       "indexes": {"PrimaryKey": ["OrderId", "Place"]}},
             "History": {"fields": [["What", 12]]}})");
    EXPECT_THAT(update(), testing::IsSupersetOf({std::string("Lines Amount Changed Field Type.  "),
                                                 std::string("Orders Customer Changed Field Size.  "),
                                                 std::string("Orders Freight Changed Field Type.  ")}));
    EXPECT_EQ(sql(others), before);
    EXPECT_EQ(sql("SELECT * FROM Invoices"), "7|ada|12.0|5.0\n");
    EXPECT_EQ(sql("SELECT * FROM History"), "") << "no trigger was set off";
    EXPECT_EQ(sql("SELECT Changed FROM Orders"), "1\n");
    EXPECT_THAT(sql("SELECT sql FROM sqlite_schema WHERE name = 'Orders'"),
                testing::AllOf(HasSubstr("Id INTEGER PRIMARY KEY AUTOINCREMENT"),
                               HasSubstr("CHECK(Paid < 1000)"), HasSubstr("CHECK(Paid >= 0)")));
    EXPECT_EQ(sql("SELECT \"table\", \"to\", on_delete FROM pragma_foreign_key_list('Lines')"),
              "Orders|Id|CASCADE\n");
    EXPECT_THAT(
        notes, UnorderedElementsAre("Orders: still in force PrimaryKey", "Lines: still in force PrimaryKey"));

    EXPECT_EQ(sql("PRAGMA foreign_keys = ON; INSERT INTO Orders(Customer, Paid) VALUES('cy', 3); INSERT INTO "
                  "Lines VALUES(91, 1, 1.5); UPDATE Orders SET Freight = 4 WHERE Id = 7; SELECT max(Id) FROM "
                  "Orders; SELECT * FROM History"),
              "91\n12.0 to 4.0\n");
    EXPECT_THAT(update(), ElementsAre(allOk, allOk));
    EXPECT_THAT(notes, IsEmpty());
}

TEST_F(ForeignUpdate, leavesATableWhoseRowsCantBeOpened) {
    sql("CREATE TABLE Kind(Code TEXT(5) PRIMARY KEY, Size INT) WITHOUT ROWID; INSERT INTO Kind VALUES('a', "
        "3)");
    const std::string before = sql("SELECT sql FROM sqlite_schema WHERE name = 'Kind'");
    want(R"({"Kind": {"fields": [["Code", 10, 5], ["Size", 7]], "indexes": {"PrimaryKey": ["Code"]}}})");
    update();
    EXPECT_THAT(world.host.texts(), testing::Contains(testing::AllOf(
                                        HasSubstr("Error: 3251 ConvertFieldType\n"),
                                        HasSubstr("(" + file + ") The table 'Kind' is WITHOUT ROWID"))));
    EXPECT_EQ(sql("SELECT * FROM Kind"), "a|3\n");
    EXPECT_EQ(sql("SELECT sql FROM sqlite_schema WHERE name = 'Kind'"), before);
}

TEST_F(ForeignUpdate, tellsWhatItCouldNotKeep) {
    sql("CREATE TABLE Owner(Id INTEGER PRIMARY KEY);"
        "CREATE TABLE Item(Code INT UNIQUE, Owner INT NOT NULL DEFAULT 1 REFERENCES Owner, Size INT, Old "
        "INT, "
        "Area AS (Size * Size), CHECK(Code > Size)); CREATE VIEW Olds AS SELECT Old FROM Item;"
        "CREATE TRIGGER Ageing AFTER UPDATE ON Item BEGIN SELECT old.Old; END;"
        "INSERT INTO Owner VALUES(1); INSERT INTO Item VALUES(5, 1, 2, 3)");
    want(R"({"Owner": {"fields": [["Id", 4]], "indexes": {"PrimaryKey": ["Id"]}},
             "Item": {"fields": [["Code", 7], ["Owner", 4], ["Size", 4]], "indexes": {"Code": ["Code"]}}})");
    EXPECT_THAT(update(), testing::IsSupersetOf({std::string("Item Code Changed Field Type.  "),
                                                 std::string("Item Old Removed Old Field.")}));
    EXPECT_THAT(notes, UnorderedElementsAre("Item: still in force Code", "Item: unique Code", "Item: check ",
                                            "Item: generated column Area", "Item: view Olds",
                                            "Item: trigger Ageing"));
    EXPECT_EQ(sql("SELECT Code, Owner, Size FROM Item"), "5.0|1|2\n");
    EXPECT_EQ(sql("SELECT \"from\", \"table\" FROM pragma_foreign_key_list('Item')"), "Owner|Owner\n");
    EXPECT_THAT(update(), ElementsAre(allOk, allOk));
}

TEST_F(ForeignUpdate, leavesFullTextTablesInStep) {
    sql("CREATE TABLE Doc(Id INTEGER PRIMARY KEY, Title TEXT(10), Body TEXT);"
        "CREATE VIRTUAL TABLE Find USING fts5(Title, Body, content='Doc', content_rowid='Id');"
        "CREATE TRIGGER Found AFTER INSERT ON Doc BEGIN INSERT INTO Find(rowid, Title, Body) VALUES(new.Id, "
        "new.Title, new.Body); END;"
        "CREATE TRIGGER Refound AFTER UPDATE ON Doc BEGIN INSERT INTO Find(Find, rowid, Title, Body) "
        "VALUES('delete', old.Id, old.Title, old.Body); INSERT INTO Find(rowid, Title, Body) VALUES(new.Id, "
        "new.Title, new.Body); END; INSERT INTO Doc VALUES(3, 'first', 'a word or two')");
    want(
        R"({"Doc": {"fields": [["Id", 4], ["Title", 10, 30], ["Body", 12]], "indexes": {"PrimaryKey": ["Id"]}}})");
    EXPECT_THAT(update(), testing::Contains("Doc Title Changed Field Size.  "));
    EXPECT_EQ(
        sql("INSERT INTO Doc(Title, Body) VALUES('second', 'more'); UPDATE Doc SET Title = 'third' WHERE "
            "Id = 3; SELECT rowid FROM Find WHERE Find MATCH 'third OR second' ORDER BY rowid; INSERT INTO "
            "Find(Find) VALUES('integrity-check')"),
        "3\n4\n");
}

TEST_F(ForeignUpdate, asksAboutValuesThatAreNoneOfTheirType) {
    sql("CREATE TABLE Pay(Id INTEGER PRIMARY KEY, Born DATE, Count SMALLINT); INSERT INTO Pay VALUES(1, "
        "'soon', "
        "5), (2, '2009-01-31T00:00:00Z', 'many'), (3, '1999-12-31', 70000), (4, NULL, 7)");
    want(
        R"({"Pay": {"fields": [["Id", 4], ["Born", 10, 12], ["Count", 4]], "indexes": {"PrimaryKey": ["Id"]}}})");
    EXPECT_THAT(update(), testing::IsSupersetOf({std::string("Pay Born Changed Field Type.  "),
                                                 std::string("Pay Count Changed Field Type.  ")}));
    std::vector<std::string> titles;
    for (const Box& box : world.host.boxes)
        titles.push_back(box.title);
    EXPECT_THAT(titles, ElementsAre("Data Will Be Lost", "Continue Warning?", "Data Will Be Lost",
                                    "Continue Warning?", "Data Will Be Lost", "Continue Warning?"));
    EXPECT_THAT(world.host.boxes.front().text, HasSubstr("Unable to Convert Data in Field: Born located in "
                                                         "Table: Pay"));
    EXPECT_EQ(sql("SELECT Id, trim(Born), Count FROM Pay"),
              "1||5\n2|1/31/2009|0\n3|12/31/1999|0\n4|1/1/1900|7\n");
}

TEST_F(ForeignUpdate, keepsTheFieldWhereAnUnreadableValueIsNotToBeLost) {
    sql("CREATE TABLE Pay(Id INTEGER PRIMARY KEY, Count SMALLINT); INSERT INTO Pay VALUES(1, 5), (2, "
        "'many')");
    want(R"({"Pay": {"fields": [["Id", 4], ["Count", 4]], "indexes": {"PrimaryKey": ["Id"]}}})");
    world.host.answers = {runtime::MsgResult::No};
    UpdateRun run;
    run(world);
    EXPECT_FALSE(run.finished);
    EXPECT_THAT(world.host.texts(), ElementsAre(HasSubstr("OK to Continue?"), HasSubstr("TEMPFIELD")));
    EXPECT_EQ(sql("SELECT Id, Count FROM Pay"), "1|5\n2|many\n");
}

} // namespace
} // namespace tol::test
