// SPDX-License-Identifier: MIT
#include "DataTest.h"

using namespace tol::data;
using namespace tol::test;
using tol::runtime::Null;
using Texts = std::vector<std::string>;

namespace {

constexpr const char* noRecord = "3021 No current record.";
constexpr const char* noBuffer = "3020 Update or CancelUpdate without AddNew or Edit.";

class RecordsetEditing : public DataTest {
  protected:
    RecordsetEditing() {
        make("T", {field("ID", dbLong), field("NAME", dbText, 10), field("NOTE", dbMemo)},
             {uniqueIndex("ID", {"ID"}), plainIndex("NAME", {"NAME"})});
    }
};

} // namespace

TEST_P(RecordsetEditing, AddsARecord) {
    Recordset rows = open("T");
    rows.AddNew();
    EXPECT_TRUE(rows.Fields("NAME").Value().isNull());
    rows.Fields("ID").Value(1);
    rows.Fields("NAME").Value("first");
    rows.Fields("NAME").Value("again"); // the later value counts
    EXPECT_EQ(at(rows, "NAME"), "again");
    EXPECT_EQ(rows.RecordCount(), 0);
    rows.Update();
    EXPECT_EQ(rows.RecordCount(), 1);
    rows.Bookmark(rows.LastModified());
    EXPECT_EQ(at(rows, "ID"), "1");
    EXPECT_EQ(at(rows, "NAME"), "again");
    EXPECT_EQ(at(rows, "NOTE"), "Null");
}

TEST_P(RecordsetEditing, AddsARecordWithNothingAssigned) {
    Recordset rows = open("T");
    rows.AddNew();
    rows.Update();
    EXPECT_EQ(rows.RecordCount(), 1);
    rows.MoveFirst();
    EXPECT_EQ(at(rows, "ID"), "Null");
}

TEST_P(RecordsetEditing, EditsARecord) {
    Recordset rows = open("T");
    add(rows, {{"ID", 1}, {"NAME", "old"}, {"NOTE", "kept"}});
    rows.MoveFirst();
    rows.Edit();
    EXPECT_EQ(at(rows, "NAME"), "old");
    rows.Fields("NAME").Value("new");
    EXPECT_EQ(at(rows, "NAME"), "new");
    EXPECT_EQ(at(rows, "NOTE"), "kept");
    Recordset other = open("T");
    EXPECT_EQ(at(other, "NAME"), "old"); // not yet written
    rows.Update(1, false);
    EXPECT_EQ(at(other, "NAME"), "new");
    EXPECT_EQ(at(rows, "NAME"), "new");
    EXPECT_EQ(at(rows, "NOTE"), "kept");
    EXPECT_EQ(rows.LastModified(), rows.Bookmark());
}

TEST_P(RecordsetEditing, EditWithNothingAssignedChangesNothing) {
    Recordset rows = open("T");
    add(rows, {{"ID", 1}, {"NAME", "x"}});
    rows.MoveFirst();
    change(rows, {});
    EXPECT_EQ(at(rows, "NAME"), "x");
    EXPECT_EQ(rows.LastModified(), rows.Bookmark());
}

TEST_P(RecordsetEditing, NeedsAnOpenBuffer) {
    Recordset rows = open("T");
    EXPECT_EQ(raised([&] { return rows.Fields("ID").Value(1); }), noBuffer);
    EXPECT_EQ(raised([&] { return rows.Update(); }), noBuffer);
    EXPECT_EQ(raised([&] { return rows.CancelUpdate(); }), noBuffer);
    add(rows, {{"ID", 1}});
    EXPECT_EQ(raised([&] { return rows.Update(); }), noBuffer); // written once
}

TEST_P(RecordsetEditing, KnowsOnlyTheRegularUpdate) {
    Recordset rows = open("T");
    rows.AddNew();
    EXPECT_EQ(raised([&] { return rows.Update(2, false); }), "3001 Invalid argument.");
    rows.Update();
    EXPECT_EQ(rows.RecordCount(), 1);
}

TEST_P(RecordsetEditing, EveryMoveDropsTheBuffer) {
    Recordset rows = open("T");
    for (const int id : {1, 2, 3})
        add(rows, {{"ID", id}, {"NAME", "old"}});
    rows.Index("ID");
    const auto mark = [&] {
        rows.MoveFirst();
        rows.MoveNext();
        return rows.Bookmark();
    }();
    const std::function<void()> moves[] = {
        [&] { rows.MoveFirst(); },    [&] { rows.MoveLast(); },     [&] { rows.MoveNext(); },
        [&] { rows.MovePrevious(); }, [&] { rows.Bookmark(mark); }, [&] { rows.Seek("=", {2}); },
        [&] { rows.Seek("=", {9}); }, [&] { rows.Index("NAME"); },  [&] { rows.CancelUpdate(); },
        [&] { rows.Delete(); },
    };
    for (const auto& move : moves) {
        for (const bool adding : {false, true}) {
            rows.Index("ID");
            rows.MoveNext();
            adding ? rows.AddNew() : rows.Edit();
            rows.Fields("NAME").Value("new");
            move();
            EXPECT_EQ(raised([&] { return rows.Update(); }), noBuffer);
            EXPECT_EQ(raised([&] { return rows.Fields("NAME").Value("new"); }), noBuffer);
        }
    }
    EXPECT_EQ(walk(rows, "NAME"), (Texts{"old"})); // two were deleted, none was changed
}

TEST_P(RecordsetEditing, AnotherAddNewOrEditBeginsAfresh) {
    Recordset rows = open("T");
    add(rows, {{"ID", 1}, {"NAME", "old"}});
    rows.MoveFirst();
    rows.Edit();
    rows.Fields("NAME").Value("lost");
    rows.Edit();
    EXPECT_EQ(at(rows, "NAME"), "old");
    rows.Fields("NOTE").Value("n");
    rows.Update();
    EXPECT_EQ(at(rows, "NAME"), "old");
    EXPECT_EQ(at(rows, "NOTE"), "n");
    rows.Edit();
    rows.Fields("NAME").Value("lost");
    rows.AddNew();
    EXPECT_TRUE(rows.Fields("NAME").Value().isNull());
    rows.Update();
    EXPECT_EQ(walk(rows, "NAME"), (Texts{"old", "Null"}));
}

TEST_P(RecordsetEditing, DuplicateKeyIsRefusedAndTheBufferStays) {
    Recordset rows = open("T");
    add(rows, {{"ID", 1}, {"NAME", "one"}});
    add(rows, {{"ID", 2}, {"NAME", "two"}});
    rows.AddNew();
    rows.Fields("ID").Value(1);
    rows.Fields("NAME").Value("three");
    EXPECT_EQ(raised([&] { return rows.Update(); }),
              "3022 The change was not made: it would create duplicate values in the index or primary key "
              "'ID'.");
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(at(rows, "NAME"), "three");
    rows.Fields("ID").Value(3);
    rows.Update();
    EXPECT_EQ(rows.RecordCount(), 3);

    rows.MoveFirst();
    rows.Edit();
    rows.Fields("ID").Value(2);
    rows.Fields("NAME").Value("changed");
    EXPECT_EQ(raised([&] { return rows.Update(); }).substr(0, 4), "3022");
    EXPECT_EQ(at(rows, "ID"), "2"); // the buffer's
    rows.CancelUpdate();
    EXPECT_EQ(at(rows, "ID"), "1");
    EXPECT_EQ(at(rows, "NAME"), "one");
    change(rows, {{"ID", 1}}); // its own key is none
}

TEST_P(RecordsetEditing, UniqueKeysMayBeNullMoreThanOnce) {
    Recordset rows = open("T");
    add(rows, {{"NAME", "a"}});
    add(rows, {{"NAME", "b"}});
    EXPECT_EQ(rows.RecordCount(), 2);
}

TEST_P(RecordsetEditing, UniqueTextKeysDifferByMoreThanCase) {
    make("U", {field("CODE", dbText, 10)}, {uniqueIndex("CODE", {"CODE"})});
    Recordset rows = open("U");
    add(rows, {{"CODE", "Äpfel"}});
    EXPECT_EQ(raised([&] { return add(rows, {{"CODE", "äPFEL"}}); }).substr(0, 4), "3022");
    add(rows, {{"CODE", "apfel"}}); // accents count
    EXPECT_EQ(rows.RecordCount(), 2);
}

TEST_P(RecordsetEditing, PrimaryKeyTakesNoNull) {
    make("P", {field("A", dbLong), field("B", dbLong)}, {primaryKey("PrimaryKey", {"A", "B"})});
    Recordset rows = open("P");
    const std::string expected = "3058 Index or primary key 'PrimaryKey' cannot contain a Null value.";
    EXPECT_EQ(raised([&] { return add(rows, {{"A", 1}}); }), expected);
    rows.Fields("B").Value(2);
    rows.Update();
    rows.MoveFirst();
    EXPECT_EQ(raised([&] { return change(rows, {{"B", Null()}}); }), expected);
    rows.CancelUpdate();
    change(rows, {{"A", 5}});
    EXPECT_EQ(at(rows, "A"), "5");
    EXPECT_EQ(raised([&] { return add(rows, {{"A", 5}, {"B", 2}}); }).substr(0, 4), "3022");
}

TEST_P(RecordsetEditing, RequiredFieldTakesNoNull) {
    FieldDef required = field("MUST", dbText, 5);
    required.required = true;
    make("R", {field("A", dbLong), required});
    Recordset rows = open("R");
    const std::string expected = "3314 The field 'MUST' cannot contain a Null value: a value is required.";
    EXPECT_EQ(raised([&] { return add(rows, {{"A", 1}}); }), expected);
    rows.Fields("MUST").Value("x");
    rows.Update();
    rows.MoveFirst();
    EXPECT_EQ(raised([&] { return change(rows, {{"MUST", Null()}}); }), expected);
    rows.CancelUpdate();
    change(rows, {{"A", 2}});
    EXPECT_EQ(rows.RecordCount(), 1);
    reopen();
    EXPECT_TRUE(database.TableDefs("R").Fields("MUST").definition().required);
}

TEST_P(RecordsetEditing, LastModifiedNeedsAChange) {
    Recordset rows = open("T");
    EXPECT_EQ(raised([&] { return rows.LastModified(); }), noRecord);
    add(rows, {{"ID", 1}});
    const std::string first = rows.LastModified();
    add(rows, {{"ID", 2}});
    EXPECT_NE(rows.LastModified(), first);
    rows.MoveFirst();
    EXPECT_EQ(rows.Bookmark(), first);
}

TEST_P(RecordsetEditing, RecordDeletedByAnotherIsGone) {
    Recordset rows = open("T");
    for (const int id : {1, 2, 3})
        add(rows, {{"ID", id}});
    rows.Index("ID");
    rows.MoveNext();
    const std::string mark = rows.Bookmark();
    Recordset other = open("T");
    other.Bookmark(mark);
    other.Delete();

    const std::string gone = "3167 Record is deleted.";
    EXPECT_EQ(raised([&] { return rows.Fields("ID").Value(); }), gone);
    EXPECT_EQ(raised([&] { return rows.Edit(); }), gone);
    EXPECT_EQ(raised([&] { return rows.Delete(); }), gone);
    rows.MoveNext();
    EXPECT_EQ(at(rows, "ID"), "3");
    EXPECT_EQ(raised([&] { return rows.Bookmark(mark); }), gone);
    EXPECT_EQ(raised([&] { return rows.Fields("ID").Value(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.MoveNext(); }), noRecord);
}

TEST_P(RecordsetEditing, RecordDeletedByAnotherWhileEditedIsNotWritten) {
    Recordset rows = open("T");
    add(rows, {{"ID", 1}});
    rows.MoveFirst();
    Recordset other = open("T");
    rows.Edit();
    rows.Fields("NAME").Value("x");
    other.Delete();
    EXPECT_EQ(raised([&] { return rows.Update(); }), "3167 Record is deleted.");
    EXPECT_EQ(rows.RecordCount(), 0);
}

TEST_P(RecordsetEditing, ReadOnlyDatabaseTakesNoChange) {
    Recordset written = open("T");
    add(written, {{"ID", 1}});
    database.Close();
    Database reader = workspace.OpenDatabase("TEST.MDB", false, true);
    Recordset rows = reader.OpenRecordset("T");
    const std::string expected =
        "3027 Cannot update. Database or object '" + (folder / "TEST.MDB").string() + "' is read-only.";
    EXPECT_EQ(at(rows, "ID"), "1");
    EXPECT_EQ(raised([&] { return rows.AddNew(); }), expected);
    EXPECT_EQ(raised([&] { return rows.Edit(); }), expected);
    EXPECT_EQ(raised([&] { return rows.Delete(); }), expected);
    EXPECT_EQ(raised([&] { return reader.TableDefs().Delete("T"); }), expected);
    EXPECT_EQ(raised([&] { return reader.TableDefs("T").Fields("ID").OrdinalPosition(5); }), expected);
}

TOL_OVER_ALL_ENGINES(RecordsetEditing);
