// SPDX-License-Identifier: MIT
#include "SharedRoutineTest.h"

#include "runtime/Conversions.h"
#include "runtime/Host.h"
#include "shell/vdfunctions/vdNullCheck.h"

namespace tol::test {
namespace {

using namespace shell;
using runtime::Value;

struct TypeCase {
    const char* field;
    Value blank;      ///< for Null
    Value afterError; ///< when the value can't be read
};

const TypeCase types[] = {
    {"FLAG", false, false},
    {"SMALL", std::int16_t{0}, std::int16_t{0}},
    {"WHOLE", std::int16_t{0}, std::int16_t{0}},
    {"LARGE", std::int32_t{0}, std::int32_t{0}},
    {"MONEY", runtime::Currency{}, runtime::Currency{}},
    {"SHORTREAL", 0.0F, 0.0F},
    {"REAL", 0.0, 0.0},
    {"DAY", runtime::Date{2}, "  /  /  "},
    {"NAME", "          ", "          "},
    {"BYTES", " ", " "},
    {"NOTE", " ", " "},
    {"ID", " ", " "},
};

class NullCheck : public SharedRoutineTest {
  protected:
    NullCheck() {
        make("A.MDB", "T",
             R"([{"name": "FLAG", "type": 1}, {"name": "SMALL", "type": 2}, {"name": "WHOLE", "type": 3},
                 {"name": "LARGE", "type": 4}, {"name": "MONEY", "type": 5}, {"name": "SHORTREAL", "type": 6},
                 {"name": "REAL", "type": 7}, {"name": "DAY", "type": 8},
                 {"name": "NAME", "type": 10, "size": 10}, {"name": "BYTES", "type": 11},
                 {"name": "NOTE", "type": 12}, {"name": "ID", "type": 15}])");
        database = workspace.OpenDatabase("A.MDB");
        rows = database.OpenRecordset("T");
    }

    void addRow() {
        rows.AddNew();
        rows.Update();
        rows.MoveFirst();
    }

    data::Database database;
    data::Recordset rows;
};

TEST_F(NullCheck, NullGivesTheBlankValueOfTheType) {
    addRow();
    for (const TypeCase& type : types)
        EXPECT_EQ(vdNullCheck(rows.Fields(type.field)), type.blank) << type.field;
    EXPECT_EQ(vdNullCheckText(rows.Fields("NAME")), "          ");
    EXPECT_EQ(vdNullCheckText(rows.Fields("DAY")), "1/1/1900");
    EXPECT_TRUE(person.boxes.empty());
}

TEST_F(NullCheck, AnyOtherValueComesBackAsItIs) {
    addRow();
    rows.Edit();
    rows.Fields("SMALL").Value(std::int32_t{7});
    rows.Fields("NAME").Value(" ab ");
    rows.Update();
    EXPECT_EQ(vdNullCheck(rows.Fields("SMALL")), Value(std::uint8_t{7}));
    EXPECT_EQ(vdNullCheck(rows.Fields("NAME")), Value(" ab "));
    EXPECT_EQ(vdNullCheckText(rows.Fields("SMALL")), "7");
}

TEST_F(NullCheck, WithoutACurrentRecordABoxAndTheBlanks) {
    for (const TypeCase& type : types) {
        person.boxes.clear();
        EXPECT_EQ(vdNullCheck(rows.Fields(type.field)), type.afterError) << type.field;
        expectBox(runtime::MsgIcon::Critical, "vd NullCheck Error",
                  std::string("Error Encountered In Function: vdNullCheck() Field: ") + type.field +
                      "\nError Number: 3021\nError: No current record.");
    }
}

TEST_F(NullCheck, OfAClosedRecordsetNothingIsKnown) {
    const data::Field field = rows.Fields("NAME");
    rows.Close();
    EXPECT_EQ(vdNullCheck(field), Value());
    expectBox(
        runtime::MsgIcon::Critical, "vd NullCheck Error",
        "Error Encountered In Function: vdNullCheck() Field: \nError Number: 3420\nError: Object invalid "
        "or no longer set.");
}

} // namespace
} // namespace tol::test
