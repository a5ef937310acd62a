// SPDX-License-Identifier: MIT
#include "DataTest.h"

using namespace tol::data;
using namespace tol::test;
using Texts = std::vector<std::string>;

namespace {

constexpr const char* missing = "3265 Item not found in this collection.";

class TableDefinitions : public DataTest {
  protected:
    Texts tableNames() {
        Texts names;
        const TableDefs tables = database.TableDefs();
        for (int i = 0; i < tables.Count(); ++i)
            names.push_back(tables(i).Name());
        return names;
    }

    static Texts fieldNames(const TableDef& table) {
        Texts names;
        for (int i = 0; i < table.Fields().Count(); ++i)
            names.push_back(table.Fields(i).Name());
        return names;
    }

    static Texts indexNames(const TableDef& table) {
        Texts names;
        for (int i = 0; i < table.Indexes().Count(); ++i)
            names.push_back(table.Indexes(i).Name());
        return names;
    }
};

} // namespace

TEST_P(TableDefinitions, NewDatabaseHasNoTables) {
    EXPECT_EQ(database.TableDefs().Count(), 0);
    EXPECT_EQ(raised([&] { return database.TableDefs("T"); }), missing);
    EXPECT_EQ(raised([&] { return database.TableDefs()(0); }), missing);
    EXPECT_EQ(raised([&] { return database.OpenRecordset("T"); }), "3078 Cannot find the table 'T'.");
}

TEST_P(TableDefinitions, TableIsMadeWhenItIsAppended) {
    TableDef table = database.CreateTableDef("SITEINFO");
    table.Fields().Append(table.CreateField("NAME", dbText, 40));
    table.Fields("NAME").AllowZeroLength(true);
    table.Fields().Append(table.CreateField("TAG", dbLong, 99));
    Index key = table.CreateIndex("TAG");
    key.Fields().Append(key.CreateField("tag"));
    key.Unique(true);
    table.Indexes().Append(key);
    EXPECT_EQ(tableNames(), Texts{});
    EXPECT_EQ(table.Fields("TAG").Size(), 4);
    EXPECT_EQ(table.Fields("TAG").OrdinalPosition(), 1);
    EXPECT_EQ(raised([&] { return database.OpenRecordset("SITEINFO"); }),
              "3078 Cannot find the table 'SITEINFO'.");

    database.TableDefs().Append(table);
    reopen();
    EXPECT_EQ(tableNames(), Texts{"SITEINFO"});
    const TableDef made = database.TableDefs("siteinfo");
    EXPECT_EQ(made.Name(), "SITEINFO");
    EXPECT_EQ(fieldNames(made), (Texts{"NAME", "TAG"}));
    EXPECT_EQ(made.Fields("name").Type(), dbText);
    EXPECT_EQ(made.Fields("NAME").Size(), 40);
    EXPECT_TRUE(made.Fields("NAME").AllowZeroLength());
    EXPECT_FALSE(made.Fields("TAG").AllowZeroLength());
    EXPECT_EQ(made.Fields("TAG").OrdinalPosition(), 1);
    EXPECT_EQ(indexNames(made), Texts{"TAG"});
    EXPECT_TRUE(made.Indexes("tag").Unique());
    EXPECT_FALSE(made.Indexes("TAG").Primary());
    EXPECT_EQ(made.Indexes(0).Fields().Count(), 1);
    EXPECT_EQ(made.Indexes(0).Fields()(0), "TAG"); // as the field is spelled
    EXPECT_EQ(raised([&] { return made.Indexes(0).Fields()(1); }), missing);
}

TEST_P(TableDefinitions, AppendedDefinitionStandsForTheTable) {
    TableDef table = database.CreateTableDef("T");
    Field first = table.CreateField("A", dbText, 10);
    table.Fields().Append(first);
    first.AllowZeroLength(true); // the field itself, not a copy
    EXPECT_TRUE(table.Fields("A").AllowZeroLength());
    database.TableDefs().Append(table);
    table.Fields().Append(table.CreateField("B", dbLong));
    EXPECT_EQ(fieldNames(database.TableDefs("T")), (Texts{"A", "B"}));
    first.AllowZeroLength(false);
    EXPECT_FALSE(database.TableDefs("T").Fields("A").AllowZeroLength());
    EXPECT_EQ(raised([&] { return database.TableDefs().Append(table); }),
              "3367 Cannot append. An object with the name 'T' already exists in the collection.");
    EXPECT_EQ(raised([&] { return table.Fields().Append(first); }),
              "3367 Cannot append. An object with the name 'A' already exists in the collection.");
}

TEST_P(TableDefinitions, TablesComeByName) {
    for (const char* name : {"NEWDEF", "activitylog", "OLDDEF", "DATABASES"})
        make(name, {field("A", dbLong)});
    EXPECT_EQ(tableNames(), (Texts{"activitylog", "DATABASES", "NEWDEF", "OLDDEF"}));
    EXPECT_EQ(database.TableDefs("ACTIVITYLOG").Name(), "activitylog");
    EXPECT_EQ(raised([&] { return database.TableDefs()(4); }), missing);
    EXPECT_EQ(raised([&] { return database.TableDefs()(-1); }), missing);
}

TEST_P(TableDefinitions, TableNameIsTakenOnce) {
    make("T", {field("A", dbLong)});
    EXPECT_EQ(raised([&] { return make("t", {field("A", dbLong)}); }), "3010 Table 't' already exists.");
    make("U", {field("A", dbLong)});
    TableDef other = database.TableDefs("U");
    EXPECT_EQ(raised([&] { return other.Name("T"); }), "3010 Table 'T' already exists.");
    EXPECT_EQ(other.Name(), "U");
}

TEST_P(TableDefinitions, NamesHaveRules) {
    const std::string longest = "Ä" + std::string(63, 'x');
    make(longest, {field(longest, dbLong)}, {plainIndex(longest, {longest})});
    EXPECT_EQ(database.TableDefs()(0).Indexes(0).Name(), longest);
    TableDef table = database.TableDefs(longest);
    for (const std::string& name :
         {std::string(), std::string(" A"), std::string("A.B"), std::string("A!B"), std::string("A`B"),
          std::string("[A"), std::string("A]"), std::string("A\tB"), std::string("A\0B", 3),
          std::string("A\x7f"), longest + "x"}) {
        const std::string told = name.empty() ? "(no name)" : name;
        const std::string expected = "3125 '" + told + "' is not a valid name.";
        EXPECT_EQ(raised([&] { return make(name, {field("A", dbLong)}); }), expected);
        EXPECT_EQ(raised([&] { return table.Name(name); }), expected);
        EXPECT_EQ(raised([&] { return table.Fields().Append(table.CreateField(name, dbLong)); }), expected);
        EXPECT_EQ(raised([&] { return table.Fields(0).Name(name); }), expected);
        Index key = table.CreateIndex(name);
        key.Fields().Append(key.CreateField(longest));
        EXPECT_EQ(raised([&] { return table.Indexes().Append(key); }), expected);
    }
    EXPECT_EQ(tableNames(), Texts{longest});
}

TEST_P(TableDefinitions, UnusualNamesServe) {
    const Texts names{"Order Details", "select",  "it's",  "a\"b",   "a,b;c",           "Größe",
                      "ТАБЛИЦА",       "表",      "100%",  "-- x",   "rowid",           "x;drop",
                      "A B  C",        "MSysOwn", "table", "a'b\"c", "\xF0\x9F\x98\x80"};
    std::vector<FieldDef> fields;
    for (const std::string& name : names)
        fields.push_back(field(name, dbText, 20));
    for (const std::string& name : names) {
        std::vector<IndexDef> indexes;
        for (const std::string& indexName : names)
            indexes.push_back(plainIndex(indexName, {indexName}));
        make(name, fields, indexes);
    }
    reopen();
    for (const std::string& name : names) {
        TableDef table = database.TableDefs(name);
        EXPECT_EQ(table.Name(), name);
        EXPECT_EQ(fieldNames(table), names);
        EXPECT_EQ(table.Indexes().Count(), static_cast<int>(names.size()));
        Recordset rows = open(name);
        for (const char* value : {"b", "a"})
            add(rows, {{name, value}});
        rows.Index(name);
        EXPECT_EQ(walk(rows, name), (Texts{"a", "b"})) << name;
        rows.Seek("=", {"B"});
        EXPECT_FALSE(rows.NoMatch());
        rows.Close();
        while (table.Indexes().Count() > 0)
            table.Indexes().Delete(table.Indexes(0).Name());
        table.Fields().Delete(name);
        table.Fields().Append(table.CreateField(name, dbLong));
        EXPECT_EQ(table.Fields(name).Type(), dbLong);
    }
    for (const std::string& name : names)
        database.TableDefs().Delete(name);
    EXPECT_EQ(tableNames(), Texts{});
}

TEST_P(TableDefinitions, NamesFoldForAllLetters) {
    make("Größe", {field("Ärger", dbLong)}, {plainIndex("Übel", {"äRGER"})});
    TableDef table = database.TableDefs("GRÖßE");
    EXPECT_EQ(table.Name(), "Größe");
    EXPECT_EQ(table.Fields("ÄRGER").Name(), "Ärger");
    EXPECT_EQ(table.Indexes("ÜBEL").Fields()(0), "Ärger");
    EXPECT_EQ(raised([&] { return table.Fields("ARGER"); }), missing);
    Recordset rows = open("größe");
    rows.Index("übel");
    add(rows, {{"ärger", 1}});
    EXPECT_EQ(rows.RecordCount(), 1);
}

TEST_P(TableDefinitions, TableIsRenamed) {
    make("OLD", {field("A", dbLong)}, {plainIndex("A", {"A"})});
    {
        Recordset rows = open("OLD");
        add(rows, {{"A", 7}});
    }
    TableDef table = database.TableDefs("OLD");
    TableDef same = database.TableDefs("old");
    table.Name("NEW");
    EXPECT_EQ(table.Name(), "NEW");
    EXPECT_EQ(same.Name(), "NEW");
    EXPECT_EQ(tableNames(), Texts{"NEW"});
    table.Name("New"); // only its spelling
    EXPECT_EQ(tableNames(), Texts{"New"});
    reopen();
    Recordset rows = open("NEW");
    rows.Index("A");
    EXPECT_EQ(at(rows, "A"), "7");
    TableDef draft = database.CreateTableDef("X");
    draft.Name("Y");
    EXPECT_EQ(draft.Name(), "Y");
}

TEST_P(TableDefinitions, TableIsDeletedWithItsRows) {
    make("T", {field("A", dbLong)}, {plainIndex("A", {"A"})});
    {
        Recordset rows = open("T");
        add(rows, {{"A", 7}});
    }
    const TableDef old = database.TableDefs("T");
    database.TableDefs().Delete("t");
    EXPECT_EQ(tableNames(), Texts{});
    EXPECT_EQ(raised([&] { return old.Fields().Count(); }), "3420 Object invalid or no longer set.");
    EXPECT_EQ(raised([&] { return database.TableDefs().Delete("T"); }), missing);
    EXPECT_EQ(raised([&] { return database.OpenRecordset("T"); }), "3078 Cannot find the table 'T'.");
    make("T", {field("B", dbText, 5)});
    EXPECT_EQ(open("T").RecordCount(), 0);
}

TEST_P(TableDefinitions, FieldsAreAppended) {
    make("T", {field("A", dbLong)});
    {
        Recordset rows = open("T");
        add(rows, {{"A", 1}});
    }
    TableDef table = database.TableDefs("T");
    TableDef other = database.TableDefs("T");
    table.Fields().Append(table.CreateField("B", dbText, 12));
    EXPECT_EQ(other.Fields("B").Size(), 12); // seen through another handle at once
    EXPECT_EQ(table.Fields("B").OrdinalPosition(), 1);
    Recordset rows = open("T");
    EXPECT_EQ(at(rows, "B"), "Null"); // in the rows that there are
    EXPECT_EQ(at(rows, "A"), "1");
    change(rows, {{"B", "x"}});
    EXPECT_EQ(at(rows, "B"), "x");
}

TEST_P(TableDefinitions, FieldsHaveLimits) {
    TableDef draft = database.CreateTableDef("DRAFT");
    make("T", {field("A", dbLong)});
    TableDef made = database.TableDefs("T");
    draft.Fields().Append(draft.CreateField("A", dbLong));
    for (TableDef* table : {&draft, &made}) {
        const auto append = [&](const std::string& name, int type, int size = 0) {
            return raised([&] { return table->Fields().Append(table->CreateField(name, type, size)); });
        };
        EXPECT_EQ(append("a", dbLong), "3191 Cannot define field 'a' more than once.");
        EXPECT_EQ(append("X", 9), "3259 Invalid data type of field 'X'.");
        EXPECT_EQ(append("X", 0), "3259 Invalid data type of field 'X'.");
        EXPECT_EQ(append("X", 99), "3259 Invalid data type of field 'X'.");
        EXPECT_EQ(append("X", dbText, 256), "3001 Invalid argument.");
        EXPECT_EQ(append("X", dbText, -1), "3001 Invalid argument.");
        EXPECT_EQ(append("MOST", dbText, 255), "");
        EXPECT_EQ(append("DEFAULT", dbText), "");
        EXPECT_EQ(table->Fields("DEFAULT").Size(), 255);
        while (table->Fields().Count() < 255)
            EXPECT_EQ(append("F" + std::to_string(table->Fields().Count()), dbLong), "");
        EXPECT_EQ(append("X", dbLong), "3190 Too many fields defined.");
        EXPECT_EQ(table->Fields().Count(), 255);
    }
    database.TableDefs().Append(draft);
    EXPECT_EQ(database.TableDefs("DRAFT").Fields().Count(), 255);
}

TEST_P(TableDefinitions, FieldsAreDeleted) {
    make("T", {field("A", dbLong), field("B", dbText, 5), field("C", dbLong)},
         {plainIndex("BC", {"B", "C"})});
    {
        Recordset rows = open("T");
        add(rows, {{"A", 1}, {"B", "b"}, {"C", 3}});
    }
    TableDef table = database.TableDefs("T");
    EXPECT_EQ(raised([&] { return table.Fields().Delete("c"); }),
              "3280 Cannot delete field 'C': it is part of an index.");
    EXPECT_EQ(raised([&] { return table.Fields().Delete("X"); }), missing);
    EXPECT_EQ(raised([&] { return table.Fields().Delete(""); }), missing);
    table.Indexes().Delete("BC");
    table.Fields().Delete("b");
    EXPECT_EQ(fieldNames(table), (Texts{"A", "C"}));
    reopen();
    table = database.TableDefs("T");
    EXPECT_EQ(fieldNames(table), (Texts{"A", "C"}));
    table.Fields().Append(table.CreateField("B", dbLong)); // the name is free again, under another type
    {
        Recordset rows = open("T");
        EXPECT_EQ(at(rows, "A") + at(rows, "B") + at(rows, "C"), "1Null3");
        change(rows, {{"B", 2}});
    }
    table.Fields().Delete("A");
    table.Fields().Delete("B");
    table.Fields().Delete("C");
    EXPECT_EQ(table.Fields().Count(), 0);
    EXPECT_EQ(open("T").RecordCount(), 1); // the row is still there
    table.Fields().Append(table.CreateField("A", dbText, 5));
    EXPECT_EQ(at(open("T"), "A"), "Null"); // and none of the old values
}

TEST_P(TableDefinitions, DraftChangesLikeATable) {
    TableDef table = database.CreateTableDef("T");
    table.Fields().Append(table.CreateField("A", dbLong));
    table.Fields().Append(table.CreateField("B", dbLong));
    Index key = table.CreateIndex("KEY");
    key.Fields().Append(key.CreateField("B"));
    table.Indexes().Append(key);
    EXPECT_EQ(raised([&] { return table.Fields().Delete("B"); }).substr(0, 4), "3280");
    table.Fields("B").Name("C");
    EXPECT_EQ(table.Indexes("KEY").Fields()(0), "C");
    table.Fields("C").OrdinalPosition(0);
    table.Fields("A").OrdinalPosition(1);
    EXPECT_EQ(fieldNames(table), (Texts{"C", "A"}));
    table.Fields().Delete("A");
    database.TableDefs().Append(table);
    EXPECT_EQ(fieldNames(database.TableDefs("T")), Texts{"C"});
    EXPECT_EQ(indexNames(database.TableDefs("T")), Texts{"KEY"});
}

TEST_P(TableDefinitions, FieldsAreRenamed) {
    make("T", {field("A", dbLong), field("B", dbLong)}, {plainIndex("A", {"A"})});
    {
        Recordset rows = open("T");
        add(rows, {{"A", 7}});
    }
    TableDef table = database.TableDefs("T");
    Field first = table.Fields("A");
    EXPECT_EQ(raised([&] { return first.Name("b"); }), "3191 Cannot define field 'b' more than once.");
    first.Name("NUMBER");
    EXPECT_EQ(first.Name(), "NUMBER");
    EXPECT_EQ(fieldNames(table), (Texts{"NUMBER", "B"}));
    EXPECT_EQ(table.Indexes("A").Fields()(0), "NUMBER");
    first.Name("Number");
    reopen();
    Recordset rows = open("T");
    rows.Index("A");
    EXPECT_EQ(at(rows, "NUMBER"), "7");
    EXPECT_EQ(rows.Fields(0).Name(), "Number");
}

TEST_P(TableDefinitions, OrdinalPositionIsTheOrderOfFields) {
    make("T", {field("A", dbLong), field("B", dbLong), field("C", dbLong)});
    Recordset held = open("T");
    TableDef table = database.TableDefs("T");
    held.Fields("A").OrdinalPosition(7); // nobody else has it open
    EXPECT_EQ(fieldNames(table), (Texts{"B", "C", "A"}));
    EXPECT_EQ(held.Fields(0).Name(), "A"); // an open recordset keeps its order
    EXPECT_EQ(held.Fields("A").OrdinalPosition(), 7);
    held.Fields("C").OrdinalPosition(0);
    EXPECT_EQ(table.Fields("C").OrdinalPosition(), 0);
    EXPECT_EQ(raised([&] { return table.Fields("A").OrdinalPosition(-1); }), "3001 Invalid argument.");
    EXPECT_EQ(raised([&] { return held.Fields("A").OrdinalPosition(-1); }), "3001 Invalid argument.");
    held.Close();
    table.Fields("A").OrdinalPosition(1); // the same as B's: then in the order in which they were made
    reopen();
    EXPECT_EQ(fieldNames(database.TableDefs("T")), (Texts{"C", "A", "B"}));
    table = database.TableDefs("T");
    table.Fields().Append(table.CreateField("D", dbLong));
    EXPECT_EQ(table.Fields("D").OrdinalPosition(), 2);
    EXPECT_EQ(open("T").Fields(0).Name(), "C");
}

TEST_P(TableDefinitions, IndexesAreAppendedAndDeleted) {
    make("T", {field("A", dbLong), field("B", dbText, 10)});
    {
        Recordset rows = open("T");
        for (const char* text : {"c", "A", "b"})
            add(rows, {{"A", 1}, {"B", text}});
    }
    TableDef table = database.TableDefs("T");
    Index key = table.CreateIndex("KEYS");
    key.Fields().Append(key.CreateField("a"));
    key.Fields().Append(key.CreateField("B"));
    EXPECT_EQ(key.Fields().Count(), 2);
    EXPECT_FALSE(key.Unique());
    table.Indexes().Append(key);
    EXPECT_EQ(database.TableDefs("T").Indexes("keys").Fields()(0), "A");
    {
        Recordset rows = open("T");
        rows.Index("KEYS");
        EXPECT_EQ(walk(rows, "B"), (Texts{"A", "b", "c"}));
    }
    reopen();
    table = database.TableDefs("T");
    EXPECT_EQ(indexNames(table), Texts{"KEYS"});
    table.Indexes().Delete("KEYS");
    EXPECT_EQ(raised([&] { return table.Indexes().Delete("KEYS"); }), missing);
    EXPECT_EQ(raised([&] { return table.Indexes("KEYS"); }), missing);
    EXPECT_EQ(raised([&] { return table.Indexes(0); }), missing);
    EXPECT_EQ(raised([&] { return open("T").Index("KEYS"); }), "3015 'KEYS' is not an index in this table.");
}

TEST_P(TableDefinitions, IndexesHaveRules) {
    TableDef draft = database.CreateTableDef("DRAFT");
    make("T", {field("A", dbLong), field("B", dbLong)});
    TableDef made = database.TableDefs("T");
    draft.Fields().Append(draft.CreateField("A", dbLong));
    draft.Fields().Append(draft.CreateField("B", dbLong));
    for (TableDef* table : {&draft, &made}) {
        const auto append = [&](const IndexDef& definition) {
            return raised([&] { return table->Indexes().Append(Index(definition)); });
        };
        EXPECT_EQ(append(plainIndex("NONE", {})), "3264 No field defined in 'NONE'; cannot append it.");
        EXPECT_EQ(append(plainIndex("X", {"A", "NOT"})),
                  "3409 Invalid field name 'NOT' in definition of index.");
        EXPECT_EQ(append(plainIndex("X", {"A", "a"})), "3191 Cannot define field 'a' more than once.");
        EXPECT_EQ(append(plainIndex("X", {"A"})), "");
        EXPECT_EQ(append(plainIndex("x", {"B"})), "3284 Index 'x' already exists.");
        EXPECT_EQ(append(primaryKey("PK", {"A"})), "");
        EXPECT_EQ(append(primaryKey("PK2", {"B"})), "3283 Primary key already exists.");
        EXPECT_TRUE(table->Indexes("PK").Primary());
        EXPECT_TRUE(table->Indexes("PK").Unique());
        EXPECT_EQ(indexNames(*table).size(), 2U);
    }
    database.TableDefs().Append(draft);
    reopen();
    EXPECT_TRUE(database.TableDefs("DRAFT").Indexes("PK").Primary());
    EXPECT_TRUE(database.TableDefs("T").Indexes("PK").Primary());
}

TEST_P(TableDefinitions, UniqueIndexNeedsFittingRows) {
    make("T", {field("A", dbText, 5), field("B", dbLong)});
    {
        Recordset rows = open("T");
        add(rows, {{"A", "x"}});
        add(rows, {{"A", "X"}});
    }
    TableDef table = database.TableDefs("T");
    EXPECT_EQ(
        raised([&] { return table.Indexes().Append(Index(uniqueIndex("A", {"A"}))); }),
        "3022 The change was not made: it would create duplicate values in the index or primary key 'A'.");
    EXPECT_EQ(raised([&] { return table.Indexes().Append(Index(primaryKey("B", {"B"}))); }),
              "3058 Index or primary key 'B' cannot contain a Null value.");
    EXPECT_EQ(table.Indexes().Count(), 0);
    table.Indexes().Append(Index(plainIndex("A", {"A"})));
    EXPECT_EQ(open("T").RecordCount(), 2);
}

TEST_P(TableDefinitions, TwoHundredTables) {
    for (int i = 0; i < 200; ++i)
        make("TABLE" + std::to_string(1000 + i), {field("A", dbLong), field("B", dbText, 10)},
             {plainIndex("A", {"A"})});
    reopen();
    EXPECT_EQ(database.TableDefs().Count(), 200);
    std::vector<Recordset> opened;
    for (const std::string& name : tableNames()) {
        opened.push_back(open(name));
        add(opened.back(), {{"A", 1}});
    }
    for (Recordset& rows : opened)
        EXPECT_EQ(rows.RecordCount(), 1);
}

TEST_P(TableDefinitions, TableCanBeEmptiedByRebuildingIt) {
    make("T", {field("B", dbText, 10), field("A", dbLong)},
         {uniqueIndex("K", {"A", "B"}), plainIndex("B", {"B"})});
    for (int round = 0; round < 3; ++round) {
        {
            Recordset rows = open("T");
            add(rows, {{"A", 1}, {"B", "b"}});
            EXPECT_EQ(rows.RecordCount(), 1);
        }
        const TableDefinition before = database.TableDefs("T").definition();
        database.TableDefs().Delete("T");
        TableDef table = database.CreateTableDef("T");
        for (const FieldDef& definition : before.fields) {
            table.Fields().Append(table.CreateField(definition.name, definition.type, definition.size));
            if (definition.type == dbText)
                table.Fields(definition.name).AllowZeroLength(true);
        }
        database.TableDefs().Append(table);
        for (const IndexDef& definition : before.indexes) {
            Index key = table.CreateIndex(definition.name);
            for (const std::string& name : definition.fields)
                key.Fields().Append(key.CreateField(name));
            table.Indexes().Append(key);
        }
        EXPECT_EQ(open("T").RecordCount(), 0);
        EXPECT_EQ(fieldNames(database.TableDefs("T")), (Texts{"B", "A"}));
        EXPECT_EQ(indexNames(database.TableDefs("T")).size(), 2U);
        EXPECT_FALSE(database.TableDefs("T").Indexes("K").Unique());
    }
}

TEST_P(TableDefinitions, CompactKeepsEverythingThatIsTold) {
    make("T", {field("A", dbLong), field("GONE", dbMemo)}, {plainIndex("A", {"A"})});
    std::string mark;
    {
        Recordset rows = open("T");
        workspace.BeginTrans();
        for (int i = 0; i < 300; ++i)
            add(rows, {{"A", i}, {"GONE", std::string(5000, 'x')}});
        workspace.CommitTrans();
        mark = rows.LastModified();
    }
    TableDef table = database.TableDefs("T");
    table.Fields().Delete("GONE");
    const auto sizeBefore = std::filesystem::file_size("TEST.MDB");
    EXPECT_EQ(raised([&] { DBEngine::CompactDatabase("TEST.MDB"); }).substr(0, 4), "3045");
    compact();
    table = database.TableDefs("T");
    EXPECT_LT(std::filesystem::file_size("TEST.MDB"), sizeBefore / 4);
    EXPECT_EQ(fieldNames(table), Texts{"A"});
    EXPECT_EQ(indexNames(table), Texts{"A"});
    Recordset rows = open("T");
    EXPECT_EQ(rows.RecordCount(), 300);
    rows.Bookmark(mark);
    EXPECT_EQ(at(rows, "A"), "299");
}

TOL_OVER_ALL_ENGINES(TableDefinitions);
