// SPDX-License-Identifier: MIT
#include "DataTest.h"

using namespace tol::data;
using namespace tol::test;
using Texts = std::vector<std::string>;

namespace {

constexpr const char* noRecord = "3021 No current record.";

/// A table of numbers, not in their order, with an index on them.
class RecordsetPosition : public DataTest {
  protected:
    RecordsetPosition() {
        make("T", {field("N", dbLong), field("TXT", dbText, 20)}, {plainIndex("BYN", {"N"})});
    }

    Recordset filled(std::initializer_list<int> numbers) {
        Recordset rows = open("T");
        for (const int number : numbers)
            add(rows, {{"N", number}});
        if (rows.RecordCount() > 0)
            rows.MoveFirst();
        return rows;
    }
};

} // namespace

TEST_P(RecordsetPosition, OpensOnTheFirstRecordInStoredOrder) {
    filled({3, 1, 2}).Close();
    Recordset rows = open("T");
    EXPECT_EQ(at(rows, "N"), "3");
    EXPECT_FALSE(rows.AtBOF());
    EXPECT_FALSE(rows.AtEOF());
    EXPECT_EQ(rows.Index(), "");
    EXPECT_EQ(rows.Name(), "T");
    EXPECT_EQ(walk(rows, "N"), (Texts{"3", "1", "2"}));
    EXPECT_EQ(walkBack(rows, "N"), (Texts{"2", "1", "3"}));
}

TEST_P(RecordsetPosition, EmptyTableIsAtBothEnds) {
    Recordset rows = open("T");
    EXPECT_TRUE(rows.AtBOF());
    EXPECT_TRUE(rows.AtEOF());
    EXPECT_EQ(rows.RecordCount(), 0);
    EXPECT_EQ(raised([&] { return rows.MoveFirst(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.MoveLast(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.MoveNext(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.MovePrevious(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Bookmark(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Edit(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Delete(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Fields("N").Value(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Fields("TXT").Value(); }), noRecord);
    rows.Index("BYN");
    EXPECT_TRUE(rows.AtBOF());
    EXPECT_TRUE(rows.AtEOF());
}

TEST_P(RecordsetPosition, TableThatAnotherRecordsetEmptiesIsAtBothEnds) {
    Recordset rows = filled({1, 2, 3});
    rows.MoveNext();
    Recordset other = open("T");
    for (int left = 3; left > 0; --left) {
        EXPECT_FALSE(rows.AtBOF()) << left;
        EXPECT_FALSE(rows.AtEOF()) << left;
        other.MoveFirst();
        other.Delete();
    }
    EXPECT_TRUE(rows.AtBOF());
    EXPECT_TRUE(rows.AtEOF());
    EXPECT_TRUE(rows.IsEmpty());
    EXPECT_EQ(rows.RecordCount(), 0);
    add(other, {{"N", 4}});
    EXPECT_FALSE(rows.IsEmpty()) << "though it has not moved to the record yet";
    rows.MoveFirst();
    EXPECT_FALSE(rows.AtEOF());
    EXPECT_EQ(at(rows, "N"), "4");
}

TEST_P(RecordsetPosition, StepsOffTheEndsAndNoFurther) {
    Recordset rows = filled({1, 2});
    rows.MoveNext();
    rows.MoveNext();
    EXPECT_TRUE(rows.AtEOF());
    EXPECT_FALSE(rows.AtBOF());
    EXPECT_EQ(raised([&] { return rows.MoveNext(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.MovePrevious(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Fields("N").Value(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Bookmark(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Edit(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Delete(); }), noRecord);
    EXPECT_TRUE(rows.AtEOF());

    rows.MoveFirst();
    rows.MovePrevious();
    EXPECT_TRUE(rows.AtBOF());
    EXPECT_FALSE(rows.AtEOF());
    EXPECT_EQ(raised([&] { return rows.MovePrevious(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.MoveNext(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Bookmark(); }), noRecord);

    rows.MoveLast();
    EXPECT_EQ(at(rows, "N"), "2");
    EXPECT_FALSE(rows.AtBOF());
}

TEST_P(RecordsetPosition, SettingTheIndexGoesToItsFirstRecord) {
    Recordset rows = filled({3, 1, 2});
    rows.MoveLast();
    rows.Index("byn");
    EXPECT_EQ(rows.Index(), "BYN");
    EXPECT_EQ(at(rows, "N"), "1");
    EXPECT_EQ(walk(rows, "N"), (Texts{"1", "2", "3"}));
    EXPECT_EQ(walkBack(rows, "N"), (Texts{"3", "2", "1"}));
    rows.MoveLast();
    rows.Index("BYN"); // the same once more
    EXPECT_EQ(at(rows, "N"), "1");
    rows.Index("");
    EXPECT_EQ(at(rows, "N"), "3");
}

TEST_P(RecordsetPosition, UnknownIndexLeavesEverythingAsItWas) {
    Recordset rows = filled({3, 1, 2});
    rows.Index("BYN");
    rows.MoveNext();
    EXPECT_EQ(raised([&] { return rows.Index("NONE"); }), "3015 'NONE' is not an index in this table.");
    EXPECT_EQ(rows.Index(), "BYN");
    EXPECT_EQ(at(rows, "N"), "2");
}

TEST_P(RecordsetPosition, DeleteLeavesNoCurrentRecordButNeighbours) {
    Recordset rows = filled({1, 2, 3, 4, 5});
    rows.MoveNext();
    rows.Delete();
    EXPECT_EQ(raised([&] { return rows.Fields("N").Value(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Bookmark(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Edit(); }), noRecord);
    EXPECT_EQ(raised([&] { return rows.Delete(); }), noRecord);
    EXPECT_FALSE(rows.AtBOF());
    EXPECT_FALSE(rows.AtEOF());
    EXPECT_EQ(rows.RecordCount(), 4);
    rows.MoveNext();
    EXPECT_EQ(at(rows, "N"), "3");
    rows.Delete();
    rows.MovePrevious();
    EXPECT_EQ(at(rows, "N"), "1");
    EXPECT_EQ(walk(rows, "N"), (Texts{"1", "4", "5"}));
}

TEST_P(RecordsetPosition, DeleteAtTheEndsStepsOff) {
    Recordset rows = filled({1, 2, 3});
    rows.MoveLast();
    rows.Delete();
    rows.MoveNext();
    EXPECT_TRUE(rows.AtEOF());
    rows.MoveFirst();
    rows.Delete();
    rows.MovePrevious();
    EXPECT_TRUE(rows.AtBOF());
}

TEST_P(RecordsetPosition, DeleteAndMoveNextEmptyATable) {
    Recordset rows = filled({1, 2, 3});
    int steps = 0;
    while (rows.RecordCount() != 0) {
        rows.Delete();
        rows.MoveNext();
        ++steps;
    }
    EXPECT_EQ(steps, 3);
    EXPECT_TRUE(rows.AtBOF());
    EXPECT_TRUE(rows.AtEOF());
}

TEST_P(RecordsetPosition, AfterTheOnlyRecordIsDeletedBothEndsHold) {
    Recordset rows = filled({1});
    rows.Delete();
    EXPECT_TRUE(rows.AtBOF());
    EXPECT_TRUE(rows.AtEOF());
}

TEST_P(RecordsetPosition, AddNewKeepsThePosition) {
    Recordset rows = filled({1, 3});
    rows.Index("BYN");
    add(rows, {{"N", 2}});
    EXPECT_EQ(at(rows, "N"), "1");
    rows.MoveNext();
    EXPECT_EQ(at(rows, "N"), "2"); // it stands in the order at once
    rows.MoveLast();
    rows.MoveNext();
    add(rows, {{"N", 4}});
    EXPECT_TRUE(rows.AtEOF());
    EXPECT_EQ(walk(rows, "N"), (Texts{"1", "2", "3", "4"}));
}

TEST_P(RecordsetPosition, AddNewInAnEmptyTableLeavesNoCurrentRecord) {
    Recordset rows = open("T");
    add(rows, {{"N", 1}});
    EXPECT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(raised([&] { return rows.Fields("N").Value(); }), noRecord);
    rows.MoveFirst();
    EXPECT_EQ(at(rows, "N"), "1");
}

TEST_P(RecordsetPosition, RecordAddedDuringTheWalkIsMetAtItsEnd) {
    Recordset rows = filled({1, 2});
    rows.MoveNext();
    add(rows, {{"N", 3}});
    rows.MoveNext();
    EXPECT_EQ(at(rows, "N"), "3");
}

TEST_P(RecordsetPosition, RecordOfAMovedKeyStaysCurrent) {
    Recordset rows = filled({10, 20, 30, 40});
    rows.Index("BYN");
    rows.MoveNext();
    change(rows, {{"N", 35}});
    EXPECT_EQ(at(rows, "N"), "35");
    EXPECT_EQ(rows.Bookmark(), rows.LastModified());
    rows.MoveNext(); // goes on from where it stood
    EXPECT_EQ(at(rows, "N"), "30");
    rows.MoveNext();
    EXPECT_EQ(at(rows, "N"), "40"); // 35 is not met again
    EXPECT_EQ(walk(rows, "N"), (Texts{"10", "30", "35", "40"}));
}

TEST_P(RecordsetPosition, ChangingTheKeyInAWalkMeetsEveryRecordOnce) {
    constexpr int count = 3000; // more than any read-ahead
    {
        Recordset rows = open("T");
        workspace.BeginTrans();
        for (int i = 0; i < count; ++i)
            add(rows, {{"N", i}});
        workspace.CommitTrans();
    }
    Recordset rows = open("T");
    rows.Index("BYN");
    int met = 0;
    for (; !rows.AtEOF() && met <= count; rows.MoveNext(), ++met) {
        const int n = std::stoi(at(rows, "N"));
        // Every third goes to the far end, every third just ahead, every third backwards.
        change(rows, {{"N", n % 3 == 0 ? n + 1000000 : n % 3 == 1 ? n + 1 : n - 5000}});
    }
    EXPECT_EQ(met, count);

    met = 0;
    for (rows.MoveLast(); !rows.AtBOF() && met <= count; rows.MovePrevious(), ++met)
        change(rows, {{"N", std::stoi(at(rows, "N")) - 700}});
    EXPECT_EQ(met, count);
}

TEST_P(RecordsetPosition, DeletingInAWalkMeetsEveryRecordOnce) {
    constexpr int count = 2500;
    Recordset rows = open("T");
    workspace.BeginTrans();
    for (int i = 0; i < count; ++i)
        add(rows, {{"N", i}});
    workspace.CommitTrans();
    rows.Index("BYN");
    int met = 0;
    for (; !rows.AtEOF(); rows.MoveNext(), ++met) {
        ASSERT_EQ(at(rows, "N"), std::to_string(met));
        if (met % 2 == 0)
            rows.Delete();
    }
    EXPECT_EQ(met, count);
    EXPECT_EQ(rows.RecordCount(), count / 2);
}

TEST_P(RecordsetPosition, DirectionMayChangeAnywhere) {
    Recordset rows = filled({1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    std::string met;
    const auto next = [&] {
        rows.MoveNext();
        met += at(rows, "N") + " ";
    };
    const auto previous = [&] {
        rows.MovePrevious();
        met += at(rows, "N") + " ";
    };
    for (int i = 0; i < 7; ++i)
        next();
    previous();
    previous();
    next();
    for (int i = 0; i < 5; ++i)
        previous();
    rows.MoveLast();
    previous();
    next();
    EXPECT_EQ(met, "2 3 4 5 6 7 8 7 6 7 6 5 4 3 2 9 10 ");
}

TEST_P(RecordsetPosition, EqualKeysComeInStoredOrder) {
    Recordset rows = open("T");
    for (const char* text : {"a", "b", "c"}) {
        add(rows, {{"N", 1}, {"TXT", text}});
        add(rows, {{"N", 0}, {"TXT", text}});
    }
    rows.Index("BYN");
    EXPECT_EQ(walk(rows, "TXT"), (Texts{"a", "b", "c", "a", "b", "c"}));
    EXPECT_EQ(walkBack(rows, "TXT"), (Texts{"c", "b", "a", "c", "b", "a"}));
}

TEST_P(RecordsetPosition, NullKeysComeFirst) {
    Recordset rows = filled({1, -5});
    add(rows, {{"TXT", "x"}});
    rows.Index("BYN");
    EXPECT_EQ(walk(rows, "N"), (Texts{"Null", "-5", "1"}));
    EXPECT_EQ(walkBack(rows, "N"), (Texts{"1", "-5", "Null"}));
}

TOL_OVER_ALL_ENGINES(RecordsetPosition);
