// SPDX-License-Identifier: MIT
#include "SharedRoutineTest.h"

#include "data/DBEngine.h"
#include "data/json/DatabaseJson.h"
#include "runtime/Host.h"
#include "shell/vdfunctions/vdEmptyTable.h"
#include "support/FullDisk.h"

#include <fmt/format.h>

namespace tol::test {
namespace {

using namespace shell;
using runtime::MsgIcon;

class EmptyTable : public SharedRoutineTest {
  protected:
    static constexpr const char* fields =
        R"([{"name": "LOG TEXT", "type": 10, "size": 12, "ordinal": 0, "allowZeroLength": false},
            {"name": "NOTE", "type": 12, "size": 0, "ordinal": 0, "allowZeroLength": true},
            {"name": "TAG", "type": 4, "size": 4, "ordinal": 0, "allowZeroLength": false}])";
    static constexpr const char* indexes =
        R"([{"name": "TAG", "fields": ["TAG"], "unique": true, "primary": true},
            {"name": "BYTEXT", "fields": ["LOG TEXT", "TAG"], "unique": true, "primary": false}])";
    static constexpr const char* rowsText = R"([["a", "b", 1], ["c", null, 2]])";

    void makeIn(const std::string& file) { make(file, "ACTIVITYLOG", fields, indexes, rowsText); }
    void open(const std::string& file, const std::string& table = "ACTIVITYLOG") {
        database = workspace.OpenDatabase(file);
        rows = database.OpenRecordset(table);
    }
    void expectBoxFor(const std::string& table) const {
        expectBox(MsgIcon::Critical, "Error",
                  "Cannot Obtain Exclusive use of the Table: " + table + "\nCannot Empty Table.");
    }

    data::Database database;
    data::Recordset rows;
};

TEST_F(EmptyTable, KeepsNamesSizesTypesAndKeysAndNothingElse) {
    makeIn("ZOVDEF.MDB");
    open("ZOVDEF.MDB");
    EXPECT_TRUE(vdEmptyTable(" ", "ZOVDEF.MDB", rows));
    EXPECT_FALSE(rows.isOpen());
    EXPECT_TRUE(person.boxes.empty());

    const data::TableDefinition made = database.TableDefs("ACTIVITYLOG").definition();
    ASSERT_EQ(made.fields.size(), 3U);
    EXPECT_EQ(made.fields[0].name, "LOG TEXT");
    EXPECT_EQ(made.fields[0].type, data::dbText);
    EXPECT_EQ(made.fields[0].size, 12);
    EXPECT_TRUE(made.fields[0].allowZeroLength) << "every text field gets it";
    EXPECT_EQ(made.fields[1].type, data::dbMemo);
    EXPECT_FALSE(made.fields[1].allowZeroLength) << "no other field keeps it";
    EXPECT_EQ(made.fields[2].type, data::dbLong);
    ASSERT_EQ(made.indexes.size(), 2U);
    for (const data::IndexDef& index : made.indexes) {
        EXPECT_FALSE(index.unique) << index.name;
        EXPECT_FALSE(index.primary) << index.name;
    }
    const int byText = made.findIndex("BYTEXT");
    ASSERT_GE(byText, 0);
    EXPECT_EQ(made.indexes[static_cast<std::size_t>(byText)].fields,
              (std::vector<std::string>{"LOG TEXT", "TAG"}));
    rows = database.OpenRecordset("ACTIVITYLOG");
    EXPECT_EQ(rows.RecordCount(), 0);
}

TEST_F(EmptyTable, FindsTheDatabaseByFolderAndName) {
    std::filesystem::create_directories(folder.driveC() / "jobs");
    makeIn("C:\\JOBS\\MAIN.MDB");
    makeIn("MAIN.MDB");
    open("C:\\JOBS\\MAIN.MDB");
    EXPECT_TRUE(vdEmptyTable(" C:\\JOBS ", "", rows));
    EXPECT_EQ(database.OpenRecordset("ACTIVITYLOG").RecordCount(), 0);
    open("MAIN.MDB");
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_TRUE(vdEmptyTable("", "", rows));
    EXPECT_EQ(database.OpenRecordset("ACTIVITYLOG").RecordCount(), 0);
}

TEST_F(EmptyTable, FailsWhileAnotherHasTheTableOpen) {
    makeIn("ZOVDEF.MDB");
    open("ZOVDEF.MDB");
    const std::string before = content("ZOVDEF.MDB");
    {
        data::Workspace other = data::DBEngine::CreateWorkspace("other");
        data::Database otherDatabase = other.OpenDatabase("ZOVDEF.MDB");
        const data::Recordset otherRows = otherDatabase.OpenRecordset("ACTIVITYLOG");
        EXPECT_FALSE(vdEmptyTable("", "ZOVDEF.MDB", rows));
    }
    expectBoxFor("ACTIVITYLOG");
    EXPECT_FALSE(rows.isOpen());
    EXPECT_EQ(content("ZOVDEF.MDB"), before);
}

TEST_F(EmptyTable, TellsOfAFullDisk) {
    makeIn("ZOVDEF.MDB");
    open("ZOVDEF.MDB");
    {
        const FullDisk full(std::filesystem::file_size("ZOVDEF.MDB") / 2);
        EXPECT_FALSE(vdEmptyTable("", "ZOVDEF.MDB", rows));
    }
    ASSERT_EQ(person.texts().size(), 2U);
    EXPECT_EQ(person.texts()[0], "Error Encountered In Form: vdEmptyTable\nError: 3026\n"
                                 "Not enough space on disk for '" +
                                     (folder.path() / "ZOVDEF.MDB").string() + "'.");
    EXPECT_EQ(person.texts()[1],
              "Cannot Obtain Exclusive use of the Table: ACTIVITYLOG\nCannot Empty Table.");
    EXPECT_EQ(database.OpenRecordset("ACTIVITYLOG").RecordCount(), 2);
}

TEST_F(EmptyTable, FailsWithoutTheDatabaseOrTheTable) {
    makeIn("ZOVDEF.MDB");
    open("ZOVDEF.MDB");
    EXPECT_FALSE(vdEmptyTable("Q:\\NONE", "ZOVDEF.MDB", rows));
    expectBoxFor("ACTIVITYLOG");
    EXPECT_FALSE(rows.isOpen());
    person.boxes.clear();
    make("OTHER.MDB", "T", R"([{"name": "A", "type": 4}])");
    rows = database.OpenRecordset("ACTIVITYLOG");
    EXPECT_FALSE(vdEmptyTable("", "OTHER.MDB", rows));
    expectBoxFor("ACTIVITYLOG");
    person.boxes.clear();
    EXPECT_FALSE(vdEmptyTable("", "ZOVDEF.MDB", rows));
    expectBoxFor("");
}

/// A JSON list of so many fields F0, F1...
std::string manyFields(int count) {
    std::string list = "[";
    for (int i = 0; i < count; ++i)
        list += fmt::format(R"({}{{"name": "F{}", "type": 3}})", i == 0 ? "" : ", ", i);
    return list + "]";
}

TEST_F(EmptyTable, TakesATableOf201FieldsButNoLargerOne) {
    make("A.MDB", "T", manyFields(201));
    open("A.MDB", "T");
    EXPECT_TRUE(vdEmptyTable("", "A.MDB", rows));
    EXPECT_EQ(database.TableDefs("T").Fields().Count(), 201);

    make("B.MDB", "T", manyFields(202), "[]", "[]");
    open("B.MDB", "T");
    EXPECT_FALSE(vdEmptyTable("", "B.MDB", rows));
    expectBoxFor("T");
    EXPECT_EQ(database.TableDefs("T").Fields().Count(), 202) << "the old table is still there";
}

TEST_F(EmptyTable, CountsTheColumnsOfAllIndexes) {
    constexpr int columns = 10;
    for (const bool tooMany : {false, true}) {
        std::string list = "[";
        for (int i = 0; i < 20 + (tooMany ? 1 : 0); ++i) {
            list += fmt::format(R"({}{{"name": "I{}", "unique": false, "primary": false, "fields": [)",
                                i == 0 ? "" : ", ", i);
            for (int field = 0; field < columns; ++field)
                list += fmt::format(R"({}"F{}")", field == 0 ? "" : ", ", (field + i) % columns);
            list += "]}";
        }
        list += "]";
        const std::string file = tooMany ? "B.MDB" : "A.MDB";
        make(file, "T", manyFields(columns), list);
        open(file, "T");
        EXPECT_EQ(vdEmptyTable("", file, rows), !tooMany);
    }
    expectBoxFor("T");
}

} // namespace
} // namespace tol::test
